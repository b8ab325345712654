#include "write_model.h"

#include <algorithm>

namespace zelvo::test {
namespace {

constexpr int BlockWords = 32;

int Key(std::string_view digits) {
  return std::stoi(std::string(digits), nullptr, 16);
}

void AddHold(WireModel& model) {
  model.Out("0000");
  model.Line("S11");
  model.Line("S11");
  model.OutByte(0);
  model.OutByte(0);
}

void SlowFrame(WireModel& model, std::string_view command, int payload) {
  model.Out(command);
  model.Wait(3);
  model.OutByte(payload & 0xFF);
  model.Wait(3);
  model.OutByte(payload >> 8);
  model.Wait(3);
}

/// One code of an older chip: a wait behind each command and byte, and 24 clocks in place of a hold.
void AddOneKeyBlock(WireModel& model, int key) {
  const auto element = [&model](auto&& send) {
    send();
    model.Wait();
  };
  const auto frame = [&](std::string_view command, int payload) {
    element([&] { model.Out(command); });
    element([&] { model.OutByte(payload & 0xFF); });
    element([&] { model.OutByte(payload >> 8); });
  };
  for (const int word : {0x0E3C, 0x6EF8, 0x0E00, 0x6EF7, 0x0E04, 0x6EF6}) frame("0000", word);
  frame("1100", key);
  frame("0000", 0);
  for (int i = 0; i < 3; ++i) element([&] { model.OutByte(0); });
}

void AddBurst(WireModel& model, const Words& words, int first, int count) {
  model.CodeAccess();
  model.SetPointer(2 * first);
  for (int i = 0; i < count; ++i) {
    model.Frame(i == count - 1 ? "1111" : "1101", words[static_cast<std::size_t>(first + i)]);
  }
  model.Pulse();
}

void AddPanelBurst(WireModel& model, const Words& words, int first, int count) {
  model.SetPointer(2 * first);
  for (int i = 0; i < count; ++i) {
    model.Frame(i == count - 1 ? "1111" : "1101", words[static_cast<std::size_t>(first + i)]);
  }
  model.Pulse();
}

void AddRowErase(WireModel& model, const ChipRow& chip, int first) {
  model.SetPointer(2 * first);
  if (chip.buffer == 8) {
    // WREN, FREE, the unlock sequence 55h and AAh, WR, NOP; then time, then WREN off.
    model.Core({0x84A6, 0x88A6, 0x0E55, 0x6EA7, 0x0EAA, 0x6EA7, 0x82A6, 0x0000});
    model.Line("S11");
    model.Core({0x94A6});
  } else {
    model.Core({0x84A6, 0x88A6, 0x82A6});
    model.Pulse();
  }
}

}  // namespace

void AddTwoKeyErase(WireModel& model, int high, int low) {
  for (const auto& [address, key] : {std::pair{0x05, high}, std::pair{0x04, low}}) {
    for (const int word : {0x0E3C, 0x6EF8, 0x0E00, 0x6EF7, 0x0E00 | address, 0x6EF6}) {
      SlowFrame(model, "0000", word);
    }
    SlowFrame(model, "1100", key << 8 | key);
  }
  SlowFrame(model, "0000", 0);
  AddHold(model);
}

void AddCodeErase(WireModel& model, const ChipRow& chip) {
  model.PowerOn();
  std::string_view keys = chip.blocks;
  while (!keys.empty()) {
    const std::string_view key = keys.substr(0, keys.find(' '));
    if (chip.OneKey()) {
      AddOneKeyBlock(model, Key(key));
    } else {
      AddTwoKeyErase(model, Key(key.substr(0, 2)), Key(key.substr(3, 2)));
    }
    keys.remove_prefix(std::min(key.size() + 1, keys.size()));
  }
  model.Line("D settle");
  model.PowerOff();
}

void AddFullWrite(WireModel& model, const ChipRow& chip, const Words& words) {
  const int group = chip.buffer / 2;
  if (group == 4) model.CodeAccess();
  model.Line("+ FlashÍrÁllapot");
  for (int first = 0; first < static_cast<int>(words.size()); first += group) {
    if (first % std::max(group, 8) == 0) model.Line("B FlashÍrÁllapot " + std::to_string(first / 8 + 1));
    const auto begin = words.begin() + first;
    if (std::all_of(begin, begin + group, [](int word) { return word == ErasedWord; })) continue;
    if (group == 4) {
      AddPanelBurst(model, words, first, group);
    } else {
      AddBurst(model, words, first, group);
    }
  }
  model.Line("- FlashÍrÁllapot");
}

void AddVerifyWrite(WireModel& model, const ChipRow& chip, const Words& words, const Words& held) {
  const int group = chip.buffer / 2;
  // The 8-byte chips first go to single-panel writes: EEPGD, CFGS, and 0 to 3C0006h.
  if (group == 4) {
    model.Core({0x8EA6, 0x8CA6});
    model.SetPointer(0x3C0006);
    model.Frame("1100", 0);
  }
  model.CodeAccess();
  model.Line("+ FlashÍrÁllapot");
  for (int block = 0; block < static_cast<int>(words.size()); block += BlockWords) {
    model.Line("B FlashÍrÁllapot " + std::to_string(block / 8 + 1));
    if (std::equal(words.begin() + block, words.begin() + block + BlockWords, held.begin() + block)) continue;
    AddRowErase(model, chip, block);
    for (int first = block; first < block + BlockWords; first += group) {
      AddPanelBurst(model, words, first, group);
    }
  }
  model.Line("- FlashÍrÁllapot");
  if (group != 4) model.Core({0x94A6});
}

Lines FlashWriteLog(const BoardKind& kind, long long passes, int event, const ChipRow& chip,
                    const Words& words, const Words* held) {
  WireModel model(kind, passes);
  if (held == nullptr) AddCodeErase(model, chip);
  model.PowerOn();
  model.Event(event, ":  Flash Memória Irása Indult.");
  if (held == nullptr) {
    AddFullWrite(model, chip, words);
  } else {
    AddVerifyWrite(model, chip, words, *held);
  }
  model.Event(event + 1, ":  Flash Írása Kész.");
  model.Event(event + 2, ":  Verify Puffer feltöltve");
  model.PowerOff();
  return model.Log();
}

}  // namespace zelvo::test
