#include "mid_wire.h"

#include <algorithm>

namespace zelvo::test {
namespace {

constexpr const char* Load0 = "0000000000000000";
constexpr const char* LoadErased = "0111111111111110";
constexpr const char* LoadErasedPlain = "0011111111111111";

std::string Bits(int value, int count) {
  std::string text;
  for (int bit = count - 1; bit >= 0; --bit) text += (value >> bit & 1) != 0 ? '1' : '0';
  return text;
}

}  // namespace

Pieces WholePieces(const MidChip& chip) {
  using enum Piece;
  switch (chip.group) {
    case 'A':
      return {BlankUserIds, FromConfigSpace, BlankUserIds, ProgramMemory, DataMemory};
    case 'B':
      return {BlankUserIds, ProgramMemory, DataMemory};
    case 'C':
      return {ProtectedOldStyle, ProgramSetup, DataOldStyle};
    case 'D':
      return {ChipFull};
    default:
      return chip.eeprom ? Pieces{ProgramPlain, DataPlain} : Pieces{ProgramPlain};
  }
}

Pieces FlashPieces(const MidChip& chip) {
  using enum Piece;
  switch (chip.group) {
    case 'A':
      return {BlankUserIds, FromConfigSpace, BlankUserIds, ProgramMemory};
    case 'B':
      return {BlankUserIds, ProgramMemory};
    case 'C':
      return {ProtectedOldStyle, ProgramSetup};
    case 'D':
      return {ProgramAndEnd};
    default:
      return {ProgramPlain};
  }
}

Pieces EepromPieces(const MidChip& chip) {
  switch (chip.eepromErase) {
    case EepromErase::DataMemory:
      return {Piece::DataMemory};
    case EepromErase::DataOldStyle:
      return {Piece::DataOldStyle};
    case EepromErase::DataAndEnd:
      return {Piece::DataAndEnd};
    case EepromErase::DataPlain:
      return {Piece::DataPlain};
    case EepromErase::None:
      break;
  }
  return {};
}

void MidWire::Commands(std::initializer_list<std::string_view> texts) {
  for (const std::string_view text : texts) Out(text);
}

void MidWire::Increments(int count) {
  for (int i = 0; i < count; ++i) Out("000110");
}

void MidWire::Cycle(int count) {
  for (int i = 0; i < count; ++i) Line("D cycle " + std::to_string(passes_));
}

void MidWire::ReadFrame(std::string_view command, int value) {
  Out(command);
  Out("0");
  In(value, 14);
  Out("0");
}

void MidWire::Close(const std::string& window) {
  if (open_.erase(window) != 0) Line("- " + window);
}

void MidWire::Review(const std::string& window) {
  Close(window);
  open_.insert(window);
  Line("+ " + window);
}

long long MidWire::Pumped() const {
  long long passes = 0;
  for (const std::string& line : Log()) {
    if (line[0] == 'P') passes += std::stoll(line.substr(2));
    if (line[0] == 'B') passes += 1;
  }
  return passes;
}

void MidWire::Identify(int word, bool powers) {
  if (powers) PowerOn();
  Log(":  PIC Azonosítás indult.");
  ToConfigSpace();
  Increments(6);
  ReadFrame("000100", word);
  Log(": PIC ID: " + std::to_string(word >> 5));
}

void MidWire::Erase(Piece piece, const MidChip& chip) {
  const bool old = chip.number == "16F628" || chip.number == "16F627";
  switch (piece) {
    case Piece::ProgramMemory:
      Commands({"000010", LoadErasedPlain, "001001", "001000"});
      return Cycle(4);
    case Piece::ProgramSetup:
      Commands({"000010", LoadErased, "000001", "000111", "001000"});
      Cycle(2);
      return Commands({"000001", "000111"});
    case Piece::DataMemory:
      if (old || chip.number == "16F84A") {
        Commands({"000011", LoadErased, "001011", "001000"});
      } else {
        Out("001011");
      }
      return Cycle(8);
    case Piece::DataOldStyle:
      Commands({"000011", LoadErasedPlain, "000001", "000111", "001000"});
      Cycle(2);
      return Commands({"000001", "000111"});
    case Piece::ChipFull:
      Out("011111");
      return Cycle(2);
    case Piece::ProgramAndEnd:
      Out("001001");
      Cycle(2);
      return Out("010111");
    case Piece::DataAndEnd:
      Out("001011");
      Cycle(2);
      return Out("010111");
    case Piece::DataPlain:
      Out("001011");
      return Cycle(2);
    case Piece::ProgramPlain:
      Out("001001");
      Cycle(2);
      Commands({"000000", LoadErasedPlain, "001001"});
      return Cycle(2);
    case Piece::BlankUserIds:
      for (int word = 0; word < 4; ++word) {
        Commands({"000000", Load0, "000010", LoadErased, "001000"});
        Cycle(2);
        Increments(1);
      }
      return;
    case Piece::FromConfigSpace:
      if (!old) return;
      [[fallthrough]];
    case Piece::ProtectedOldStyle:
      Commands({"000000", LoadErasedPlain});
      Increments(7);
      Commands({"000001", "000111", "001000"});
      Cycle(2);
      return Commands({"000001", "000111"});
  }
}

void MidWire::Erase(const Pieces& pieces, const MidChip& chip) {
  for (const Piece piece : pieces) Erase(piece, chip);
}

void MidWire::Load(int word) {
  Out("000010");
  Out(Bits(word, 15) + "0");  // stop bit, fourteen bits, start bit
}

void MidWire::Programme(Loop loop) {
  if (loop == Loop::WordEnd || loop == Loop::FourEnd) {
    Out("011000");
    Cycle(1);
    Out("001010");
  } else {
    Out("001000");
    Cycle(1);
  }
}

void MidWire::WriteLoop(Loop loop, const Values& words, int cancelled) {
  const bool single = loop == Loop::Word || loop == Loop::WordEnd;
  const int group = single ? 1 : loop == Loop::Eight ? 8 : 4;
  Line("+ FlashÍrÁllapot");
  for (int i = 0; i < static_cast<int>(words.size()); ++i) {
    const int word = words[static_cast<std::size_t>(i)];
    if (i == cancelled) CancelPass = Pumped() + 1;
    Line("B FlashÍrÁllapot " + std::to_string((i + 1) / 8));
    if (word != ErasedMid) {
      Load(word);
      if (single) Programme(loop);
    }
    Increments(1);
    const bool complete = !single && (i + 1) % group == 0;
    if (complete && loop != Loop::Eight) Programme(loop);
    if (i == cancelled) break;
    if (complete && loop == Loop::Eight) Programme(loop);
  }
  Line("- FlashÍrÁllapot");
}

void MidWire::ConfigFrame(int word) {
  Commands({"000010", "0"});
  Out(Bits(word, 14));
  Out("0");
}

void MidWire::ProgramConfig(ConfigKind kind) {
  const bool ended = kind == ConfigKind::End || kind == ConfigKind::Latched;
  Out(ended ? "011000" : "001000");
  Cycle(4);
  if (ended) Out("001010");
}

void MidWire::WriteUserId(ConfigKind kind, int word) {
  ConfigFrame(word);
  if (kind == ConfigKind::Latched) Increments(1);
  ProgramConfig(kind);
  if (kind != ConfigKind::Latched) Increments(1);
}

void MidWire::WriteConfig(const MidChip& chip, const FlashJob& job) {
  Log(":  User ID Szavak Írása Indult.");
  ToConfigSpace();
  for (const int id : job.ids) WriteUserId(chip.config, id);
  Log(":  User ID Szavak Írása Kész.");
  Log(":  Config Szó Írása Indult.");
  Increments(3);
  ConfigFrame(job.config1);
  ProgramConfig(chip.config);
  if (chip.TwoWords()) {
    Increments(1);
    ConfigFrame(job.config2);
    ProgramConfig(chip.config);
  }
  Log(":  Config Szó Írása Kész.");
  if (!job.check4) return;
  const auto erased = [](int word) { return word == ErasedMid; };
  ReadConfig(chip, ErasedMid, ErasedMid, erased(job.config1) && (!chip.TwoWords() || erased(job.config2)));
  ReadIds({ErasedMid, ErasedMid, ErasedMid, ErasedMid}, std::ranges::all_of(job.ids, erased));
}

void MidWire::WriteFlash(const MidChip& chip, const FlashJob& job) {
  const int words = static_cast<int>(job.words.size());
  const bool cancelled = job.cancelled != NoCancel;
  // A loop's window opens anew for the second loop, and the cancel of the first is forgotten there.
  const bool forgotten = cancelled && chip.second != Loop::None;
  if (job.manual) Tell("Kapcsold Be a Vdd-t és a Vpp-t, majd OK!");
  PowerOn();
  Erase(FlashPieces(chip), chip);
  if (job.manual) Tell("Kapcsold Ki-Be a Vpp-t, majd OK!");
  PowerOn();
  Log(":  Flash Memória Irása Indult.");
  WriteLoop(chip.loop, job.words, job.cancelled);
  if (chip.second != Loop::None) WriteLoop(chip.second, job.words);
  const bool told = chip.loop == Loop::Word || chip.loop == Loop::Eight;
  if (cancelled && told) Log(":  Felhasználói megszakítás.");
  if (!cancelled || forgotten) Log(":  Flash Írása Kész.");
  if (job.check6) {
    PowerOn();
    ReadFlash(Floating(words));
  }
  if (job.manual) Tell("Kapcsold Ki-Be a Vpp-t, majd OK!");
  PowerOn();
  if (!cancelled) WriteConfig(chip, job);
  if (job.manual) Tell("Kapcsold Ki a Vdd-t és a Vpp-t!");
  if (job.check4 && !job.check6) {
    PowerOn();
    ReadFlash(Floating(words));
  }
}

void MidWire::WriteEeprom(const MidChip& chip, const Values& bytes, int cancelled) {
  Log(":  EEPROM Írása Indult.");
  Erase(EepromPieces(chip), chip);
  PowerOn();
  Line("+ EEE_Ír_Állapot");
  for (int i = 0; i < static_cast<int>(bytes.size()); ++i) {
    const int byte = bytes[static_cast<std::size_t>(i)];
    if (i == cancelled) CancelPass = Pumped() + 1;
    Line("B EEE_Ír_Állapot " + std::to_string(i));
    if (byte != 0xFF) {
      Commands({"000011", "0"});
      Out(Bits(byte, 8));
      Commands({"0000000", "001000"});
      Cycle(2);
    }
    Increments(1);
    if (i == cancelled) break;
  }
  Log(cancelled == NoCancel ? ":  EEPROM Írása kész." : ":  Felhasználói megszakítás!");
  Line("- EEE_Ír_Állapot");
}

void MidWire::ReadFlash(const Values& words, bool manual) {
  Log(":  Flash Beolvasása Indult.");
  Line("+ Állapot");
  for (std::size_t i = 0; i < words.size(); ++i) {
    Line("B Állapot " + std::to_string(i + 1));
    ReadFrame("000100", words[i]);
    Increments(1);
  }
  Log(":  Flash beolvasás kész.");
  Line("- Állapot");
  if (manual) Tell("Kapcsold Ki a Vdd-t és a Vpp-t!");
  Review("FlashOlv");
}

void MidWire::ReadEeprom(const Values& bytes, bool manual) {
  Log(":  EEPROM Beolvasása Indult.");
  Line("+ EEE_Olv_Állapot");
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    Line("B EEE_Olv_Állapot " + std::to_string(i));
    ReadFrame("000101", bytes[i] | 0x3F00);
    Increments(1);
  }
  Log(":  EEPROM beolvasás kész.");
  Line("- EEE_Olv_Állapot");
  if (manual) Tell("Kapcsold Ki a Vdd-t és a Vpp-t!");
  Review("EEPROM_Beolvas");
}

void MidWire::ReadConfig(const MidChip& chip, int word1, int word2, bool equal, bool manual) {
  Close("Config_Beolvas_F16");
  Log(":  Config szó beolvasása Indult.");
  for (const int word : chip.TwoWords() ? Values{word1, word2} : Values{word1}) {
    ToConfigSpace();
    Increments(7);
    ReadFrame("000100", word);
  }
  if (manual) Tell("Kapcsold Ki a Vdd-t és a Vpp-t!");
  Review(chip.TwoWords() ? "Config_2008_Olv_F16" : "Config_Beolvas_F16");
  Log(equal ? ":  A Puffer és a Beolvasott Config tartalom azonos."
            : ":  Nem egyforma a Puffer és a Beolvasott Config tartalma.");
  Log(":  Config szó beolvasása Kész.");
}

void MidWire::ReadIds(const std::array<int, 4>& words, bool equal, bool manual) {
  Log(":  User ID Location bájtok beolvasása indult.");
  ToConfigSpace();
  for (const int word : words) {
    ReadFrame("000100", word);
    Increments(1);
  }
  Log(":  User ID Location bájtok beolvasása Kész.");
  if (manual) Tell("Kapcsold Ki a Vdd-t és a Vpp-t!");
  Review("IDLoc_F16");
  Log(equal ? ":  A Puffer és a Beolvasott ID Loc tartalmak azonosak."
            : ":  Nem egyforma a Puffer és a Beolvasott ID Loc tartalma.");
}

}  // namespace zelvo::test
