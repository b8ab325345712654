// The wire log of reading and writing the ID locations and the configuration bytes of a PIC18, from the
// values and the chip's programming specification alone.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "operations.h"
#include "support/wire_model.h"

namespace zelvo::test {

/// Byte values by address.
using Bytes = std::vector<int>;

enum class IdWay { OnePanel, Unlock, TwoPhase };
enum class ConfigWay { Direct, AfterErase, Nothing };

/// One of the 72 chips and how it takes its two small memories.
struct SmallMemoryChip {
  std::string name;
  IdWay id;
  ConfigWay config;
};
[[nodiscard]] const std::vector<SmallMemoryChip>& SmallMemoryChips();

/// The speeds of one setting, in passes of an edge.
struct Speed {
  long long setting;  ///< 10 times what stands in the file
  [[nodiscard]] long long Read() const { return setting / 8; }
  [[nodiscard]] long long IdWrite() const { return setting * 3; }
  [[nodiscard]] long long IdRow() const { return setting * 24; }
};
constexpr long long ConfigPasses = 10000;

// Each goes from power on to power off, its first log line numbered `event`.
void AddIdRead(WireModel& model, Speed speed, int event, const Bytes& ids);
void AddIdWrite(WireModel& model, Speed speed, int event, IdWay way, const Bytes& ids);
/// The closing log line comes behind the review and is not part of it.
void AddConfigRead(WireModel& model, Speed speed, int event, const Bytes& config);
/// Each byte goes out in both halves of a word; a value above FFh is such a word itself.
void AddConfigWrite(WireModel& model, Speed speed, int event, ConfigWay way, const Bytes& config);

/// Burns `bytes` into the chip in the socket, from `address` on.
void BurnBytes(Operations& it, int address, const Bytes& bytes);
/// Number of the next log line.
[[nodiscard]] int NextEvent(Operations& it);
/// What the log tells of windows, message boxes and the event list.
[[nodiscard]] Lines SeenByOperator(const Lines& log);

}  // namespace zelvo::test
