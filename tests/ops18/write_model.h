// The wire log of a PIC18 Flash write, from the image and the chip's row alone.
#pragma once

#include "chip_tables.h"
#include "operations.h"
#include "support/wire_model.h"

namespace zelvo::test {

/// The whole erase of the chip's program memory, block by block, power included.
void AddCodeErase(WireModel& model, const ChipRow& chip);
/// What stands between the power of a full write of `words`: the panels that are not blank.
void AddFullWrite(WireModel& model, const ChipRow& chip, const Words& words);
/// The same of a verify write: the blocks of 64 bytes in which `words` and `held` differ.
void AddVerifyWrite(WireModel& model, const ChipRow& chip, const Words& words, const Words& held);
/// A whole Flash write from erase to power off, its first log line numbered `event`.
[[nodiscard]] Lines FlashWriteLog(const BoardKind& kind, long long passes, int event, const ChipRow& chip,
                                  const Words& words, const Words* held);

/// One erase by two codes: at 3C0005h, then at 3C0004h, three waits behind each command and byte, the hold.
void AddTwoKeyErase(WireModel& model, int high, int low);

}  // namespace zelvo::test
