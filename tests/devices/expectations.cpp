#include "expectations.h"

#include <cstdio>

#include "devices/config_masks.h"
#include "panel/form1.h"

namespace zelvo::test {
namespace {

/// Four sets serve a chip with an 8 and a chip with a 6 in its name; the 8 takes the first value.
bool TakesFirst(std::string_view set, std::string_view chip) {
  if (set == "2525") return chip == "PIC18F4620" || chip == "PIC18F2620";
  return chip.substr(6, 1) == "8";
}

bool SharedByEightAndSix(std::string_view set) {
  return set == "8722" || set == "8627" || set == "8622" || set == "8527";
}

}  // namespace

const MaskRow& MasksOf(std::string_view set) {
  for (const MaskRow& row : MaskRows) {
    if (row.name == set) return row;
  }
  ADD_FAILURE() << "no mask set " << set;
  return MaskRows.front();
}

Lines MaskLines(std::string_view set, std::string_view chip) {
  const MaskRow& row = MasksOf(set);
  Lines lines;
  for (std::size_t k = 0; k < 14; ++k) {
    const bool second = !row.other[k].empty() && !TakesFirst(set, chip);
    std::string line = "   ";
    for (const char bit : second ? row.other[k] : row.first[k]) line += std::string(1, bit) + " ";
    EXPECT_EQ(line.size(), 19u);
    lines.push_back(line);
  }
  return lines;
}

std::string MaskFlags(std::string_view set, std::string_view chip) {
  std::string flags(MasksOf(set).flags);
  if (SharedByEightAndSix(set) && TakesFirst(set, chip)) flags[4] = 'I';
  return flags;
}

Lines ShownMaskLines() {
  Lines lines;
  for (const panel::ListBox* list : panel::Form1.ConfigLists) {
    EXPECT_EQ(list->Lines().size(), 1u) << list->Name();
    lines.push_back(list->Lines().empty() ? "" : list->Lines().front());
  }
  return lines;
}

std::string ShownFlags() {
  std::string flags;
  for (std::size_t k = 1; k <= 14; ++k) flags += devices::ConfigFlags[k];
  return flags;
}

std::string Summary(int flashWordMax, int eepromMax) {
  char text[100];
  std::snprintf(text, sizeof text, " Szavak: (0- %d),  0-%X,   EEPROM: (0- %d),  0-%X", flashWordMax,
                static_cast<unsigned>(flashWordMax), eepromMax, static_cast<unsigned>(eepromMax));
  return text;
}

std::string EventText(const std::string& line) {
  const std::size_t number = line.find(":  ");
  constexpr std::size_t TimeLength = 8;
  return number == std::string::npos ? line : line.substr(number + 3 + TimeLength);
}

int EventNumber(const std::string& line) {
  return std::stoi(line);
}

}  // namespace zelvo::test
