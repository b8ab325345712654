// The windows that tell the program about its interface and the board behind it, and the one that checks
// them.
#pragma once

#include <array>
#include <string>

#include "panel/control_array.h"
#include "panel/window.h"

namespace zelvo::panel {

struct InterfaceWindow : Window {
  InterfaceWindow() : Window("LPT_COM_select", "Csatoló felület kiválasztása") {}
  OptionButton COM_Radio{*this, "COM_Radio", "ZLV_RS_V2 égető kiválasztása (COM port)"};
  OptionButton LPT_Radio{*this, "LPT_Radio", "LPT Portos égetők kiválasztása"};
  CommandButton Command1{*this, "Command1", "Ok"};
};

struct PortAddressWindow : Window {
  PortAddressWindow() : Window("LPT_Port_Set", "Portcím Beállítása") {}
  ComboBox Combo1{*this, "Combo1", "Válassz ki egy Címet"};
  Label Label2{*this, "Label2", "Kézi bevitel:"};
  TextBox Text1{*this, "Text1"};
  Label Label3{*this, "Label3", "Hex"};
  CommandButton Command1{*this, "Command1", "Rögzítés"};
};

/// The printer port's wiring: a data bit for each output, the status line of the input, and the inversions.
struct LptLinesWindow : Window {
  static constexpr std::size_t Bits = 8;
  using BitOptions = std::array<OptionButton, Bits>;  ///< D7 (pin 9) first, D0 (pin 2) last

  LptLinesWindow() : Window("Adat_él_Beállít_H", "LPT port Adatél Beállítás") {}
  Label Label9{*this, "Label9", "LPT Port bitek beállítása"};
  std::array<Label, Bits> BitLabels = MakeControls<Bits, Label>([this](std::size_t i) {
    return Label(*this, "Label" + std::to_string(i + 1), "D" + std::to_string(Bits - 1 - i));
  });
  Label Label10{*this, "Label10", "LPT láb:"};
  std::array<Label, Bits> PinLabels = MakeControls<Bits, Label>([this](std::size_t i) {
    return Label(*this, "Label" + std::to_string(i + 11), " " + std::to_string(Bits + 1 - i) + ".");
  });
  OptionFrame Frame1{*this, "Frame1", "Vdd"};
  BitOptions VddBit = MakeOptions(Frame1, 1);
  OptionFrame Frame2{*this, "Frame2", "Vpp"};
  BitOptions VppBit = MakeOptions(Frame2, 11);
  OptionFrame Frame3{*this, "Frame3", "PGC"};
  BitOptions ClockBit = MakeOptions(Frame3, 21);
  OptionFrame Frame4{*this, "Frame4", "PGD"};
  BitOptions DataBit = MakeOptions(Frame4, 31);
  OptionFrame Frame5{*this, "Frame5", "Bemenet kiválasztása"};
  OptionButton ACK_Radio{*this, "ACK_Radio", "ACK  (10. láb)", &Frame5};
  OptionButton BUSY_Radio{*this, "BUSY_Radio", "BUSY (11. láb)", &Frame5};
  CheckBox Check1{*this, "Check1", "Vdd(+5V) Inverz"};
  CheckBox Check2{*this, "Check2", "Vpp (+13V) Inverz"};
  CheckBox Check3{*this, "Check3", "Órajel (PGC/RB6) Inverz"};
  CheckBox Check4{*this, "Check4", "Adat (PGD/RB7) Inverz"};
  CheckBox Check5{*this, "Check5", "Adat_Be (ACK/Busy) Inverz"};

  bool Loading = false;  ///< the load event shows what is in force: nothing is logged and saved

 private:
  BitOptions MakeOptions(OptionFrame& frame, std::size_t first) {
    return MakeControls<Bits, OptionButton>([this, &frame, first](std::size_t i) {
      return OptionButton(*this, "Option" + std::to_string(first + i), "", &frame);
    });
  }
};

/// The serial port's inversions; its wiring is fixed.
struct ComLinesWindow : Window {
  ComLinesWindow() : Window("Adat_él_Beállít_COM", "COM port Adatél Beállítás") {}
  CheckBox Check1_PGD_Vdd{*this, "Check1_PGD_Vdd", "Adat/Vdd (PGD, DTR 4. láb) Inverz"};
  CheckBox Check2_PGC{*this, "Check2_PGC", "Órajel (PGC, RTS 7. láb) Inverz"};
  CheckBox Check3_DataIn{*this, "Check3_DataIn", "Adat_Be (CTS 8. láb) Inverz"};
  CheckBox Check4_Vpp{*this, "Check4_Vpp", "Vpp (TXD 3. láb) Inverz"};

  bool Loading = false;  ///< the load event shows what the file holds
  bool Changed = false;  ///< the operator has moved a box
  /// The input's flag as it was before the window showed it in the opposite sense.
  bool InputFlagBefore = false;
};

struct PortCheckWindow : Window {
  PortCheckWindow() : Window("LPT_Port_Check", "Port Check") {}
  CheckBox Check1{*this, "Check1", "Vdd (+5V) "};
  Label Vdd_Él_Lab{*this, "Vdd_Él_Lab", ""};
  CheckBox Check2{*this, "Check2", "Vpp (+13V) "};
  Label Vpp_Él_Lab{*this, "Vpp_Él_Lab", ""};
  CheckBox Check3{*this, "Check3", "DATA (RB7/PGD)"};
  Label Data_Él_Lab{*this, "Data_Él_Lab", ""};
  CheckBox Check4{*this, "Check4", "CLOCK (RB6/PGC) "};
  Label CLK_Él_Lab{*this, "CLK_Él_Lab", ""};
  Label Label2{*this, "Label2", "DATA In belső logikai szintje"};
  Label Ack_Él_Lab{*this, "Ack_Él_Lab", ""};
  ListBox List1{*this, "List1"};
  CheckBox Check5{*this, "Check5", "1 sec teszt(PGC)"};
  Label Label1{*this, "Label1", ""};  ///< lamp of the one-second test
  CheckBox Check6{*this, "Check6", "Teszt STOP"};
  CommandButton Command1{*this, "Command1", " X "};

  bool StopRequested = false;  ///< the one-second test shall end and unload the window
};

inline InterfaceWindow LPT_COM_select;
inline PortAddressWindow LPT_Port_Set;
inline LptLinesWindow Adat_él_Beállít_H;
inline ComLinesWindow Adat_él_Beállít_COM;
inline PortCheckWindow LPT_Port_Check;

}  // namespace zelvo::panel
