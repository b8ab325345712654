// Bit names of the mid-range configuration words, a row for each chip.
#include "mid_config_name_tables.h"

#include <algorithm>

namespace zelvo::test {

const std::vector<MidChipNames>& MidChipsWithNames() {
  static const std::vector<MidChipNames> table{
      {"PIC12F609", "9 BOREN1, 8 BOREN0, 7 IOSFS, 6 CP, 5 MCLRE, 4 PWRTE, 3 WDTE, 2 FOSC2, 1 FOSC1, 0 FOSC0",
       ""},
      {"PIC12F615", "9 BOREN1, 8 BOREN0, 7 IOSFS, 6 CP, 5 MCLRE, 4 PWRTE, 3 WDTE, 2 FOSC2, 1 FOSC1, 0 FOSC0",
       ""},
      {"PIC12F617",
       "11 WRT1, 10 WRT0, 9 BOREN1, 8 BOREN0, 7 IOSFS, 6 CP, 5 MCLRE, 4 PWRTE, 3 WDTE, 2 FOSC2, 1 FOSC1, 0 "
       "FOSC0",
       ""},
      {"PIC12F629",
       "13 BG1, 12 BG0, 8 CPD, 7 CP, 6 BOREN, 5 MCLRE, 4 PWRTE, 3 WDTE, 2 FOSC2, 1 FOSC1, 0 FOSC0", ""},
      {"PIC12F635",
       "12 WURE, 11 FCMEN, 10 IESO, 9 BOREN1, 8 BOREN0, 7 CPD, 6 CP, 5 MCLRE, 4 PWRTE, 3 WDTE, 2 FOSC2, 1 "
       "FOSC1, 0 FOSC0",
       ""},
      {"PIC12F675",
       "13 BG1, 12 BG0, 8 CPD, 7 CP, 6 BOREN, 5 MCLRE, 4 PWRTE, 3 WDTE, 2 FOSC2, 1 FOSC1, 0 FOSC0", ""},
      {"PIC12F683",
       "11 FCMEN, 10 IESO, 9 BOREN1, 8 BOREN0, 7 CPD, 6 CP, 5 MCLRE, 4 PWRTE, 3 WDTE, 2 FOSC2, 1 FOSC1, 0 "
       "FOSC0",
       ""},
      {"PIC12HV609", "9 BOREN1, 8 BOREN0, 7 IOSFS, 6 CP, 5 MCLRE, 4 PWRTE, 3 WDTE, 2 FOSC2, 1 FOSC1, 0 FOSC0",
       ""},
      {"PIC12HV615", "9 BOREN1, 8 BOREN0, 7 IOSFS, 6 CP, 5 MCLRE, 4 PWRTE, 3 WDTE, 2 FOSC2, 1 FOSC1, 0 FOSC0",
       ""},
      {"PIC16F610", "9 BOREN1, 8 BOREN0, 7 IOSFS, 6 CP, 5 MCLRE, 4 PWRTE, 3 WDTE, 2 FOSC2, 1 FOSC1, 0 FOSC0",
       ""},
      {"PIC16F616", "9 BOREN1, 8 BOREN0, 7 IOSFS, 6 CP, 5 MCLRE, 4 PWRTE, 3 WDTE, 2 FOSC2, 1 FOSC1, 0 FOSC0",
       ""},
      {"PIC16F627",
       "13 CP1, 12 CP0, 11 CP1, 10 CP0, 8 CPD, 7 LVP, 6 BODEN, 5 MCLRE, 4 FOSC2, 3 PWRTE, 2 WDTE, 1 FOSC1, 0 "
       "FOSC0",
       ""},
      {"PIC16F627A", "13 CP1, 8 CPD, 7 LVP, 6 BODEN, 5 MCLRE, 4 FOSC2, 3 PWRTE, 2 WDTE, 1 FOSC1, 0 FOSC0",
       ""},
      {"PIC16F628",
       "13 CP1, 12 CP0, 11 CP1, 10 CP0, 8 CPD, 7 LVP, 6 BODEN, 5 MCLRE, 4 FOSC2, 3 PWRTE, 2 WDTE, 1 FOSC1, 0 "
       "FOSC0",
       ""},
      {"PIC16F628A", "13 CP1, 8 CPD, 7 LVP, 6 BODEN, 5 MCLRE, 4 FOSC2, 3 PWRTE, 2 WDTE, 1 FOSC1, 0 FOSC0",
       ""},
      {"PIC16F630",
       "13 BG1, 12 BG0, 8 CPD, 7 CP, 6 BOREN, 5 MCLRE, 4 PWRTE, 3 WDTE, 2 FOSC2, 1 FOSC1, 0 FOSC0", ""},
      {"PIC16F631",
       "11 FCMEN, 10 IESO, 9 BOREN1, 8 BOREN0, 7 CPD, 6 CP, 5 MCLRE, 4 PWRTE, 3 WDTE, 2 FOSC2, 1 FOSC1, 0 "
       "FOSC0",
       ""},
      {"PIC16F636/639",
       "12 WURE, 11 FCMEN, 10 IESO, 9 BOREN1, 8 BOREN0, 7 CPD, 6 CP, 5 MCLRE, 4 PWRTE, 3 WDTE, 2 FOSC2, 1 "
       "FOSC1, 0 FOSC0",
       ""},
      {"PIC16F648A", "13 CP1, 8 CPD, 7 LVP, 6 BODEN, 5 MCLRE, 4 FOSC2, 3 PWRTE, 2 WDTE, 1 FOSC1, 0 FOSC0",
       ""},
      {"PIC16F676",
       "13 BG1, 12 BG0, 8 CPD, 7 CP, 6 BOREN, 5 MCLRE, 4 PWRTE, 3 WDTE, 2 FOSC2, 1 FOSC1, 0 FOSC0", ""},
      {"PIC16F677",
       "11 FCMEN, 10 IESO, 9 BOREN1, 8 BOREN0, 7 CPD, 6 CP, 5 MCLRE, 4 PWRTE, 3 WDTE, 2 FOSC2, 1 FOSC1, 0 "
       "FOSC0",
       ""},
      {"PIC16F684",
       "11 FCMEN, 10 IESO, 9 BOREN1, 8 BOREN0, 7 CPD, 6 CP, 5 MCLRE, 4 PWRTE, 3 WDTE, 2 FOSC2, 1 FOSC1, 0 "
       "FOSC0",
       ""},
      {"PIC16F685",
       "11 FCMEN, 10 IESO, 9 BOREN1, 8 BOREN0, 7 CPD, 6 CP, 5 MCLRE, 4 PWRTE, 3 WDTE, 2 FOSC2, 1 FOSC1, 0 "
       "FOSC0",
       ""},
      {"PIC16F687",
       "11 FCMEN, 10 IESO, 9 BOREN1, 8 BOREN0, 7 CPD, 6 CP, 5 MCLRE, 4 PWRTE, 3 WDTE, 2 FOSC2, 1 FOSC1, 0 "
       "FOSC0",
       ""},
      {"PIC16F688",
       "11 FCMEN, 10 IESO, 9 BOREN1, 8 BOREN0, 7 CPD, 6 CP, 5 MCLRE, 4 PWRTE, 3 WDTE, 2 FOSC2, 1 FOSC1, 0 "
       "FOSC0",
       ""},
      {"PIC16F689",
       "11 FCMEN, 10 IESO, 9 BOREN1, 8 BOREN0, 7 CPD, 6 CP, 5 MCLRE, 4 PWRTE, 3 WDTE, 2 FOSC2, 1 FOSC1, 0 "
       "FOSC0",
       ""},
      {"PIC16F690",
       "11 FCMEN, 10 IESO, 9 BOREN1, 8 BOREN0, 7 CPD, 6 CP, 5 MCLRE, 4 PWRTE, 3 WDTE, 2 FOSC2, 1 FOSC1, 0 "
       "FOSC0",
       ""},
      {"PIC16F818",
       "13 CP, 12 CCPMX, 11 DEBUG, 10 WRT1, 9 WRT0, 8 CPD, 7 LVP, 6 BODEN, 5 MCLRE, 4 FOSC2, 3 PWRTE, 2 "
       "WDTEN, 1 FOSC1, 0 FOSC0",
       ""},
      {"PIC16F819",
       "13 CP, 12 CCPMX, 11 DEBUG, 10 WRT1, 9 WRT0, 8 CPD, 7 LVP, 6 BODEN, 5 MCLRE, 4 FOSC2, 3 PWRTE, 2 "
       "WDTEN, 1 FOSC1, 0 FOSC0",
       ""},
      {"PIC16F84A",
       "13 CP, 12 CP, 11 CP, 10 CP, 9 CP, 8 CP, 7 CP, 6 CP, 5 CP, 4 CP, 3 PWRTE, 2 WDTE, 1 FOSC1, 0 FOSC0",
       ""},
      {"PIC16F87",
       "13 CP, 12 CCPMX, 11 DEBUG, 10 WRT1, 9 WRT0, 8 CPD, 7 LVP, 6 BOREN, 5 MCLRE, 4 FOSC2, 3 PWRTE, 2 "
       "WDTEN, 1 FOSC1, 0 FOSC0",
       "1 IESO, 0 FCMEM"},
      {"PIC16F870",
       "13 CP1, 12 CP0, 11 RESV, 9 WRT, 8 CPD, 7 LVP, 6 BODEN, 5 CP1, 4 CP0, 3 PWRTE, 2 WDTE, 1 FOSC1, 0 "
       "FOSC0",
       ""},
      {"PIC16F871",
       "13 CP1, 12 CP0, 11 RESV, 9 WRT, 8 CPD, 7 LVP, 6 BODEN, 5 CP1, 4 CP0, 3 PWRTE, 2 WDTE, 1 FOSC1, 0 "
       "FOSC0",
       ""},
      {"PIC16F872",
       "13 CP1, 12 CP0, 11 RESV, 9 WRT, 8 CPD, 7 LVP, 6 BODEN, 5 CP1, 4 CP0, 3 PWRTE, 2 WDTE, 1 FOSC1, 0 "
       "FOSC0",
       ""},
      {"PIC16F873",
       "13 CP1, 12 CP0, 11 RESV, 9 WRT, 8 CPD, 7 LVP, 6 BODEN, 5 CP1, 4 CP0, 3 PWRTE, 2 WDTE, 1 FOSC1, 0 "
       "FOSC0",
       ""},
      {"PIC16F873A",
       "13 CP, 11 DEBUG, 10 WRT1, 9 WRT0, 8 CPD, 7 LVP, 6 BODEN, 3 PWRTEN, 2 WDTEN, 1 FOSC1, 0 FOSC0", ""},
      {"PIC16F874",
       "13 CP1, 12 CP0, 11 RESV, 9 WRT, 8 CPD, 7 LVP, 6 BODEN, 5 CP1, 4 CP0, 3 PWRTE, 2 WDTE, 1 FOSC1, 0 "
       "FOSC0",
       ""},
      {"PIC16F874A",
       "13 CP, 11 DEBUG, 10 WRT1, 9 WRT0, 8 CPD, 7 LVP, 6 BODEN, 3 PWRTEN, 2 WDTEN, 1 FOSC1, 0 FOSC0", ""},
      {"PIC16F876",
       "13 CP1, 12 CP0, 11 RESV, 9 WRT, 8 CPD, 7 LVP, 6 BODEN, 5 CP1, 4 CP0, 3 PWRTE, 2 WDTE, 1 FOSC1, 0 "
       "FOSC0",
       ""},
      {"PIC16F876A",
       "13 CP, 11 DEBUG, 10 WRT1, 9 WRT0, 8 CPD, 7 LVP, 6 BODEN, 3 PWRTEN, 2 WDTEN, 1 FOSC1, 0 FOSC0", ""},
      {"PIC16F877",
       "13 CP1, 12 CP0, 11 RESV, 9 WRT, 8 CPD, 7 LVP, 6 BODEN, 5 CP1, 4 CP0, 3 PWRTE, 2 WDTE, 1 FOSC1, 0 "
       "FOSC0",
       ""},
      {"PIC16F877A",
       "13 CP, 11 DEBUG, 10 WRT1, 9 WRT0, 8 CPD, 7 LVP, 6 BODEN, 3 PWRTEN, 2 WDTEN, 1 FOSC1, 0 FOSC0", ""},
      {"PIC16F88",
       "13 CP, 12 CCPMX, 11 DEBUG, 10 WRT1, 9 WRT0, 8 CPD, 7 LVP, 6 BOREN, 5 MCLRE, 4 FOSC2, 3 PWRTE, 2 "
       "WDTEN, 1 FOSC1, 0 FOSC0",
       "1 IESO, 0 FCMEM"},
      {"PIC16F882",
       "13 DEBUG, 12 LVP, 11 FCMEN, 10 IESO, 9 BOREN1, 8 BOREN0, 7 CPD, 6 CP, 5 MCLRE, 4 PWRTE, 3 WDTEN, 2 "
       "FOSC2, 1 FOSC1, 0 FOSC0",
       "10 WRT1, 9 WRT0, 8 BOR4V"},
      {"PIC16F883",
       "13 DEBUG, 12 LVP, 11 FCMEN, 10 IESO, 9 BOREN1, 8 BOREN0, 7 CPD, 6 CP, 5 MCLRE, 4 PWRTE, 3 WDTEN, 2 "
       "FOSC2, 1 FOSC1, 0 FOSC0",
       "10 WRT1, 9 WRT0, 8 BOR4V"},
      {"PIC16F884",
       "13 DEBUG, 12 LVP, 11 FCMEN, 10 IESO, 9 BOREN1, 8 BOREN0, 7 CPD, 6 CP, 5 MCLRE, 4 PWRTE, 3 WDTEN, 2 "
       "FOSC2, 1 FOSC1, 0 FOSC0",
       "10 WRT1, 9 WRT0, 8 BOR4V"},
      {"PIC16F886",
       "13 DEBUG, 12 LVP, 11 FCMEN, 10 IESO, 9 BOREN1, 8 BOREN0, 7 CPD, 6 CP, 5 MCLRE, 4 PWRTE, 3 WDTEN, 2 "
       "FOSC2, 1 FOSC1, 0 FOSC0",
       "10 WRT1, 9 WRT0, 8 BOR4V"},
      {"PIC16F887",
       "13 DEBUG, 12 LVP, 11 FCMEN, 10 IESO, 9 BOREN1, 8 BOREN0, 7 CPD, 6 CP, 5 MCLRE, 4 PWRTE, 3 WDTEN, 2 "
       "FOSC2, 1 FOSC1, 0 FOSC0",
       "10 WRT1, 9 WRT0, 8 BOR4V"},
      {"PIC16F913",
       "12 DEBUG, 11 FCMEN, 10 IESO, 9 BOREN1, 8 BOREN0, 7 CPD, 6 CP, 5 MCLRE, 4 PWRTE, 3 WDTE, 2 FOSC2, 1 "
       "FOSC1, 0 FOSC0",
       ""},
      {"PIC16F914",
       "12 DEBUG, 11 FCMEN, 10 IESO, 9 BOREN1, 8 BOREN0, 7 CPD, 6 CP, 5 MCLRE, 4 PWRTE, 3 WDTE, 2 FOSC2, 1 "
       "FOSC1, 0 FOSC0",
       ""},
      {"PIC16F916",
       "12 DEBUG, 11 FCMEN, 10 IESO, 9 BOREN1, 8 BOREN0, 7 CPD, 6 CP, 5 MCLRE, 4 PWRTE, 3 WDTE, 2 FOSC2, 1 "
       "FOSC1, 0 FOSC0",
       ""},
      {"PIC16F917",
       "12 DEBUG, 11 FCMEN, 10 IESO, 9 BOREN1, 8 BOREN0, 7 CPD, 6 CP, 5 MCLRE, 4 PWRTE, 3 WDTE, 2 FOSC2, 1 "
       "FOSC1, 0 FOSC0",
       ""},
      {"PIC16F946",
       "12 DEBUG, 11 FCMEN, 10 IESO, 9 BOREN1, 8 BOREN0, 7 CPD, 6 CP, 5 MCLRE, 4 PWRTE, 3 WDTE, 2 FOSC2, 1 "
       "FOSC1, 0 FOSC0",
       ""},
      {"PIC16HV610", "9 BOREN1, 8 BOREN0, 7 IOSFS, 6 CP, 5 MCLRE, 4 PWRTE, 3 WDTE, 2 FOSC2, 1 FOSC1, 0 FOSC0",
       ""},
      {"PIC16HV616", "9 BOREN1, 8 BOREN0, 7 IOSFS, 6 CP, 5 MCLRE, 4 PWRTE, 3 WDTE, 2 FOSC2, 1 FOSC1, 0 FOSC0",
       ""},
  };
  return table;
}

MidBitNames NamesOfWord(std::string_view listed) {
  MidBitNames names;
  names.fill("X");
  while (!listed.empty()) {
    const std::size_t end = std::min(listed.find(", "), listed.size());
    const std::string_view one = listed.substr(0, end);
    const std::size_t blank = one.find(' ');
    names.at(std::stoul(std::string(one.substr(0, blank)))) = one.substr(blank + 1);
    listed.remove_prefix(std::min(end + 2, listed.size()));
  }
  return names;
}

}  // namespace zelvo::test
