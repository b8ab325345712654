#include "bench/variables.h"
#include "devices/config_masks.h"
#include "devices/identification.h"
#include "devices/mid_range_identification.h"
#include "devices/selection.h"
#include "icsp/conversions.h"
#include "icsp/pic18_engine.h"
#include "icsp/scripts.h"
#include "image/buffers.h"
#include "image/eeprom_walk.h"
#include "image/hex_lines.h"
#include "image/hex_load.h"
#include "link/delays.h"
#include "link/event_log.h"
#include "link/port.h"
#include "link/run_state.h"
#include "link/settings.h"
#include "ops18/write_burst.h"
#include "opsmid/config_id.h"
#include "opsmid/eeprom.h"
#include "opsmid/flash.h"

namespace zelvo::bench {
namespace {

/// The lines of a file are found one behind the other, so a look at one walks a copy.
std::optional<std::string> HexLine(std::span<const long long> at) {
  image::LineText lines = image::HexLines;
  lines.Rewind();
  std::string_view line;
  for (long long index = 0; lines.Next(line); ++index) {
    if (index == at[0]) return std::string(line);
  }
  return std::nullopt;
}

}  // namespace

const std::vector<Variable>& Variables() {
  static const std::vector<Variable> table{
      // Ports, lines and polarity.
      Row("PortBase", link::PortBase),
      Row("PortAddress", link::PortAddress),
      Row("PortShadow", link::PortShadow),
      Row("PortLast", link::PortLast),
      Row("LptMode", link::LptMode),
      Row("ComMode", link::ComMode),
      Row("VddSetMask", link::VddSetMask),
      Row("VddClearMask", link::VddClearMask),
      Row("VppSetMask", link::VppSetMask),
      Row("VppClearMask", link::VppClearMask),
      Row("DataSetMask", link::DataSetMask),
      Row("DataClearMask", link::DataClearMask),
      Row("ClockSetMask", link::ClockSetMask),
      Row("ClockClearMask", link::ClockClearMask),
      Row("InputSelect", link::InputSelect),
      Row("VddInverted", link::VddInverted),
      Row("VppInverted", link::VppInverted),
      Row("ClockInverted", link::ClockInverted),
      Row("DataInverted", link::DataInverted),
      Row("InputInverted", link::InputInverted),
      Row("ComPgdInverted", link::ComPgdInverted),
      Row("ComPgcInverted", link::ComPgcInverted),
      Row("ComInputInverted", link::ComInputInverted),
      Row("ComVppInverted", link::ComVppInverted),
      Row("ComPortNumber", link::ComPortNumber),

      // Speed, events and the run.
      Row("SpeedSetting", link::SpeedSetting),
      Row("WaitCount", link::WaitCount),
      Row("SpeedLoading", link::SpeedLoading),
      Row("P9Flag", link::P9Flag),
      Row("P11Flag", link::P11Flag),
      Row("EventCounter", link::EventCounter),
      Row("WholeChipRun", link::WholeChipRun),
      Row("UserAbort", link::UserAbort),
      Row("VddOnFlag", link::VddOnFlag),
      Row("PortCheckOpen", link::PortCheckOpen),
      Row("PortCheckLoaded", link::PortCheckLoaded),
      Row("VddState", link::VddState),

      // The bit engine, conversions and scripts.
      Row("BitString", icsp::BitString),
      Row("BitSamples", icsp::BitSamples),
      Row("HexPair", icsp::HexPair),
      Row("ConvertedBits", icsp::ConvertedBits),
      Row("LoadFailed", icsp::LoadFailed),
      Row("ScriptTable", icsp::ScriptTable),
      Row("TablePointerU", icsp::TablePointerU),
      Row("TablePointerH", icsp::TablePointerH),
      Row("TablePointerL", icsp::TablePointerL),
      Row("EraseKey1", icsp::EraseKey1),
      Row("EraseKey2", icsp::EraseKey2),

      // The chip.
      Row("FlashWordMax", devices::FlashWordMax),
      Row("EepromMax", devices::EepromMax),
      Row("SelectedName", devices::SelectedName),
      Row("DetectedName", devices::DetectedName),
      Row("SilentIdentify", devices::SilentIdentify),
      Row("ChipRecognised", devices::ChipRecognised),
      Row("DevId", devices::DevId),
      Row("ConfigFlags", devices::ConfigFlags),

      // The image.
      Row("MainBuffer", image::MainBuffer),
      Row("VerifyBuffer", image::VerifyBuffer),
      Row("FlashReadBuffer", image::FlashReadBuffer),
      Row("EepromBuffer", image::EepromBuffer),
      Row("EepromReadBuffer", image::EepromReadBuffer),
      Row("ConfigBuffer", image::ConfigBuffer),
      Row("ConfigBitStrings", image::ConfigBitStrings),
      Row("ConfigEditBits", image::ConfigEditBits),
      Row("EditRow", image::EditRow),
      Row("EditCol", image::EditCol),
      Row("ConfigWord1Names", image::ConfigWord1Names),
      Row("ConfigWord2Names", image::ConfigWord2Names),
      Row("ConfigWord1Used", image::ConfigWord1Used),
      Row("ConfigWord2Used", image::ConfigWord2Used),
      Row("IdBuffer", image::IdBuffer),
      Row("MidIdWords", image::MidIdWords),
      Row("MidIdReadWords", image::MidIdReadWords),
      Row("ConfigWord1Bits", image::ConfigWord1Bits),
      Row("ConfigWord2Bits", image::ConfigWord2Bits),
      Row("ConfigWord1Raw", image::ConfigWord1Raw),
      Row("ConfigWord2Raw", image::ConfigWord2Raw),
      Row("WorkHex", image::WorkHex),
      Row("ReadBackBytes", image::ReadBackBytes),
      Row("ReadIndex", image::ReadIndex),
      Row("IdEdited", image::IdEdited),
      Row("ConfigEdited", image::ConfigEdited),

      // Loading a file.
      Row("HexFileName", image::HexFileName),
      Row("DialogFile", image::DialogFile),
      {"HexLines", 1, HexLine},
      Row("HexLineIndex", image::HexLineIndex),
      Row("OverwriteAccepted", image::OverwriteAccepted),

      // Reading and writing.
      Row("WordCounter", opsmid::WordCounter),
      Row("WriteProgress", opsmid::WriteProgress),
      Row("LatchCount", opsmid::LatchCount),
      Row("EepromWriteCount", opsmid::EepromWriteCount),
      Row("MidEraseRun", devices::MidEraseRun),
      Row("ChipIdValue", devices::ChipIdValue),
      Row("MidConfigValue1", opsmid::MidConfigValue1),
      Row("MidConfigValue2", opsmid::MidConfigValue2),
      Row("EepromAddress", image::EepromAddress),
      Row("RunningAddress", ops18::RunningAddress),
  };
  return table;
}

}  // namespace zelvo::bench
