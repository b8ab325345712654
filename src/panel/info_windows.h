// Windows that tell something or tidy up: the help of the verify mode, the card of the program, and the one
// that closes the reviews of a whole read.
#pragma once

#include "panel/window.h"

namespace zelvo::panel {

struct HelpWindow : Window {
  HelpWindow() : Window("OlvassEl", "Segítség") {}
  ListBox List1{*this, "List1"};
  CommandButton Command1{*this, "Command1", "Bezárás"};
};

struct AboutWindow : Window {
  AboutWindow() : Window("névjegy_ablak", "Névjegy") {}
  Label Label1{*this, "Label1", "Zelvo F18 & F16 & F12"};
  Label Label2{*this, "Label2", ""};  ///< version
  Label Label3{*this, "Label3", "PIC18F, PIC16F és PIC12F mikrovezérlők programozója"};
  Label Label4{*this, "Label4", ""};  ///< the maker
  CommandButton Command1{*this, "Command1", "Bezárás"};
};

struct CloseReviewsWindow : Window {
  CloseReviewsWindow() : Window("Összes_Bezárása", "Összes Bezárása") {}
  CommandButton Command1{*this, "Command1", "Összes Ablak bezáráa"};
};

inline HelpWindow OlvassEl;
inline AboutWindow névjegy_ablak;
inline CloseReviewsWindow Összes_Bezárása;

}  // namespace zelvo::panel
