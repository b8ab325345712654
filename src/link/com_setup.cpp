#include <array>
#include <utility>

#include "link/lines.h"
#include "link/settings.h"
#include "link/target_power.h"
#include "platform/seams.h"

namespace zelvo::link {
namespace {

/// Base addresses of the four serial ports of a PC: 3F8h, 2F8h, 3E8h, 2E8h.
constexpr std::array<std::pair<int, int>, 4> ComPorts{{{1016, 1}, {760, 2}, {1000, 3}, {744, 4}}};

[[nodiscard]] bool ClaimPort() {
  platform::SerialClaim& serial = *platform::seams.serial;
  if (serial.IsOpen()) serial.Close();
  return serial.Open(ComPortNumber, "9600,N,8,1");
}

}  // namespace

void SetUpCom() {
  for (const auto& [base, number] : ComPorts) {
    if (PortBase == base) ComPortNumber = number;
  }
  if (!ClaimPort()) {
    platform::seams.dialogs->Message("A COM port betöltése közben hiba keletkezett, ellenőrizd a címe!");
  }
  // The masks stand before the first DTR-off: with those of the printer port it would move another bit.
  SetComMasks();
  Address(UartModemControl);
  PortRead();
  ShapeVdd(false);
  PortWrite();
  MarkVddOff();
  ReadComInvertFile();
  ReadSpeedFile();
  TargetPowerOff();
}

}  // namespace zelvo::link
