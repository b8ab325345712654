// The bit names of the 14 configuration bytes, one table for each group of chips, bit 7 first. The spelling
// of each name is what operators know it by; names that look like slips of another (`FCMEM` beside `FCMEN`,
// `OscSen` beside `OSCEN`) stay.
#include "ui/config_names.h"

#include "devices/chip_lists.h"

namespace zelvo::ui {
namespace {

enum Byte {
  Conf1L = 1,
  Conf1H,
  Conf2L,
  Conf2H,
  Conf3L,
  Conf3H,
  Conf4L,
  Conf4H,
  Conf5L,
  Conf5H,
  Conf6L,
  Conf6H,
  Conf7L,
  Conf7H
};

/// A bit that no chip of the group has.
constexpr BitName X{};

constexpr NameRow GroupA[] = {
    {Conf1H, {X, X, {"OSCEN"}, X, X, {"Fosc2"}, {"Fosc1"}, {"Fosc0"}}},
    {Conf2L, {X, X, X, X, {"BORV1"}, {"BORV0"}, {"BOREN"}, {"PwrTen"}}},
    {Conf2H, {X, X, X, X, {"Wdtps2"}, {"Wdtps1"}, {"Wdtps0"}, {"Wdten"}}},
    {Conf3H, {X, X, X, X, X, X, X, {"Ccp2mx"}}},
    {Conf4L, {{"DEBUG"}, X, X, X, X, {"LVP"}, X, {"StvRen"}}},
    {Conf5L, {X, X, X, X, {"CP3"}, {"CP2"}, {"CP1"}, {"CP0"}}},
    {Conf5H, {{"CPD"}, {"CPB"}, X, X, X, X, X, X}},
    {Conf6L, {X, X, X, X, {"WRT3"}, {"WRT2"}, {"WRT1"}, {"WRT0"}}},
    {Conf6H, {{"WRTD"}, {"WRTB"}, {"WRTC"}, X, X, X, X, X}},
    {Conf7L, {X, X, X, X, {"EBTR3"}, {"EBTR2"}, {"EBTR1"}, {"EBTR0"}}},
    {Conf7H, {X, {"EBTRB"}, X, X, X, X, X, X}},
};
constexpr NameRow GroupB[] = {
    {Conf1H, {X, X, {"OSCEN"}, X, X, {"Fosc2"}, {"Fosc1"}, {"Fosc0"}}},
    {Conf2L, {X, X, X, X, {"BORV1"}, {"BORV0"}, {"BOREN"}, {"PwrTen"}}},
    {Conf2H, {X, X, X, X, {"Wdtps2"}, {"Wdtps1"}, {"Wdtps0"}, {"Wdten"}}},
    {Conf4L, {{"DEBUG"}, X, X, X, X, {"LVP"}, X, {"StvRen"}}},
    {Conf5L, {X, X, X, X, {"CP3"}, {"CP2"}, {"CP1"}, {"CP0"}}},
    {Conf5H, {{"CPD"}, {"CPB"}, X, X, X, X, X, X}},
    {Conf6L, {X, X, X, X, {"WRT3"}, {"WRT2"}, {"WRT1"}, {"WRT0"}}},
    {Conf6H, {{"WRTD"}, {"WRTB"}, {"WRTC"}, X, X, X, X, X}},
    {Conf7L, {X, X, X, X, {"EBTR3"}, {"EBTR2"}, {"EBTR1"}, {"EBTR0"}}},
    {Conf7H, {X, {"EBTRB"}, X, X, X, X, X, X}},
};
constexpr NameRow GroupC[] = {
    {Conf1H, {{"IESO"}, {"FCMEM"}, X, X, {"Fosc3"}, {"Fosc2"}, {"Fosc1"}, {"Fosc0"}}},
    {Conf2L, {X, X, X, X, {"BORV1"}, {"BORV0"}, {"BOREN"}, {"PwrTen"}}},
    {Conf2H, {X, X, X, {"Wdtps3"}, {"Wdtps2"}, {"Wdtps1"}, {"Wdtps0"}, {"Wdten"}}},
    {Conf3H, {{"MCLRE"}, X, X, X, X, X, {"PBaden"}, {"Ccp2mx"}}},
    {Conf4L, {{"DEBUG"}, X, X, X, X, {"LVP"}, X, {"StvRen"}}},
    {Conf5L, {X, X, X, X, {"CP3", "2220 2320 4220 4320"}, {"CP2", "2220 2320 4220 4320"}, {"CP1"}, {"CP0"}}},
    {Conf5H, {{"CPD"}, {"CPB"}, X, X, X, X, X, X}},
    {Conf6L,
     {X, X, X, X, {"WRT3", "2220 2320 4220 4320"}, {"WRT2", "2220 2320 4220 4320"}, {"WRT1"}, {"WRT0"}}},
    {Conf6H, {{"WRTD"}, {"WRTB"}, {"WRTC"}, X, X, X, X, X}},
    {Conf7L,
     {X, X, X, X, {"EBTR3", "2220 2320 4220 4320"}, {"EBTR2", "2220 2320 4220 4320"}, {"EBTR1"}, {"EBTR0"}}},
    {Conf7H, {X, {"EBTRB"}, X, X, X, X, X, X}},
};
constexpr NameRow GroupD[] = {
    {Conf1H, {X, X, {"OscSen"}, X, {"Fosc3"}, {"Fosc2"}, {"Fosc1"}, {"Fosc0"}}},
    {Conf2L, {X, X, X, X, {"BORV1"}, {"BORV0"}, {"BOREN"}, {"PwrTen"}}},
    {Conf2H, {X, X, X, {"Wdtps3"}, {"Wdtps2"}, {"Wdtps1"}, {"Wdtps0"}, {"Wdten"}}},
    {Conf3L,
     {{"WAIT", "8525 8621 8585 8680"},
      X,
      X,
      X,
      X,
      X,
      {"PM1", "8525 8621 8585 8680"},
      {"PM0", "8525 8621 8585 8680"}}},
    {Conf3H, {{"MCLRE"}, X, X, X, X, X, {"eccpmux", "8525 8621 8585 8680"}, {"Ccp2Mx"}}},
    {Conf4L, {{"DEBUG"}, X, X, X, X, {"LVP"}, X, {"StvRen"}}},
    {Conf5L, {X, X, X, X, {"CP3", "6621 8621 6680 8680"}, {"CP2"}, {"CP1"}, {"CP0"}}},
    {Conf5H, {{"CPD"}, {"CPB"}, X, X, X, X, X, X}},
    {Conf6L, {X, X, X, X, {"WRT3", "6621 8621 6680 8680"}, {"WRT2"}, {"WRT1"}, {"WRT0"}}},
    {Conf6H, {{"WRTD"}, {"WRTB"}, {"WRTC"}, X, X, X, X, X}},
    {Conf7L, {X, X, X, X, {"EBTR3", "6621 8621 6680 8680"}, {"EBTR2"}, {"EBTR1"}, {"EBTR0"}}},
    {Conf7H, {X, {"EBTRB"}, X, X, X, X, X, X}},
};
constexpr NameRow GroupE[] = {
    {Conf1H, {{"IESO"}, {"FCMEM"}, X, X, {"Fosc3"}, {"Fosc2"}, {"Fosc1"}, {"Fosc0"}}},
    {Conf2L, {X, X, X, X, {"BORV1"}, {"BORV0"}, {"BOREN"}, {"PwrTen"}}},
    {Conf2H, {X, X, {"WINEN"}, {"Wdtps3"}, {"Wdtps2"}, {"Wdtps1"}, {"Wdtps0"}, {"Wdten"}}},
    {Conf3L, {X, X, {"t1oscmx"}, {"HPOL"}, {"LPOL"}, {"PwmPin"}, X, X}},
    {Conf3H, {{"MCLRE"}, X, X, {"exclkmx"}, {"pwm4mx"}, {"SsPmx"}, X, {"fltamx"}}},
    {Conf4L, {{"DEBUG"}, X, X, X, X, {"LVP"}, X, {"StvRen"}}},
    {Conf5L, {X, X, X, X, {"CP3", "2431 4431"}, {"CP2", "2431 4431"}, {"CP1"}, {"CP0"}}},
    {Conf5H, {{"CPD"}, {"CPB"}, X, X, X, X, X, X}},
    {Conf6L, {X, X, X, X, {"WRT3", "2431 4431"}, {"WRT2", "2431 4431"}, {"WRT1"}, {"WRT0"}}},
    {Conf6H, {{"WRTD"}, {"WRTB"}, {"WRTC"}, X, X, X, X, X}},
    {Conf7L, {X, X, X, X, {"EBTR3", "2431 4431"}, {"EBTR2", "2431 4431"}, {"EBTR1"}, {"EBTR0"}}},
    {Conf7H, {X, {"EBTRB"}, X, X, X, X, X, X}},
};
constexpr NameRow GroupF[] = {
    {Conf1L, {X, X, {"USBdiv"}, {"Cpudiv1"}, {"Cpudiv0"}, {"Plldiv2"}, {"Plldiv1"}, {"Plldiv0"}}},
    {Conf1H, {{"IESO"}, {"FCMEM"}, X, X, {"Fosc3"}, {"Fosc2"}, {"Fosc1"}, {"Fosc0"}}},
    {Conf2L, {X, X, {"Vregen"}, {"BORV1"}, {"BORV0"}, {"Boren1"}, {"Boren0"}, {"PwrTen"}}},
    {Conf2H, {X, X, X, {"Wdtps3"}, {"Wdtps2"}, {"Wdtps1"}, {"Wdtps0"}, {"Wdten"}}},
    {Conf3H, {{"MCLRE"}, X, X, X, X, {"Lpt1osc"}, {"PBaden"}, {"Ccp2mx"}}},
    {Conf4L, {{"DEBUG"}, {"XINST"}, {"ICPRT"}, X, X, {" LVP"}, X, {"StvRen"}}},
    {Conf5L, {X, X, X, X, {"CP3", "2550 4550"}, {"CP2"}, {"CP1"}, {"CP0"}}},
    {Conf5H, {{"CPD"}, {"CPB"}, X, X, X, X, X, X}},
    {Conf6L, {X, X, X, X, {"WRT3", "2550 4550"}, {"WRT2"}, {"WRT1"}, {"WRT0"}}},
    {Conf6H, {{"WRTD"}, {"WRTB"}, {"WRTC"}, X, X, X, X, X}},
    {Conf7L, {X, X, X, X, {"EBTR3", "2550 4550"}, {"EBTR2"}, {"EBTR1"}, {"EBTR0"}}},
    {Conf7H, {X, {"EBTRB"}, X, X, X, X, X, X}},
};
constexpr NameRow GroupG[] = {
    {Conf1H, {{"IESO"}, {"FCMEM"}, X, X, {"Fosc3"}, {"Fosc2"}, {"Fosc1"}, {"Fosc0"}}},
    {Conf2L, {X, X, X, {"BORV1"}, {"BORV0"}, {"Boren1"}, {"Boren0"}, {"PwrTen"}}},
    {Conf2H, {X, X, X, {"Wdtps3"}, {"Wdtps2"}, {"Wdtps1"}, {"Wdtps0"}, {"Wdten"}}},
    {Conf3H, {{"MCLRE"}, X, X, X, X, {"Lpt1osc"}, {"PBaden"}, {"Ccp2mx"}}},
    {Conf4L, {{"DEBUG"}, {"XINST"}, X, X, X, {"LVP"}, X, {"StvRen"}}},
    {Conf5L,
     {X,
      X,
      X,
      X,
      {"CP3", "2510 4510 2520 4520 2610 4610 2620 4620"},
      {"CP2", "2510 4510 2520 4520 2515 2610 4515 4610 2525 2620 4525 4620"},
      {"CP1"},
      {"CP0"}}},
    {Conf5H, {{"CPD", "2420 2520 4420 4520 2525 2620 4525 4620"}, {"CPB"}, X, X, X, X, X, X}},
    {Conf6L,
     {X,
      X,
      X,
      X,
      {"WRT3", "2510 4510 2520 4520 2610 4610 2620 4620"},
      {"WRT2", "2510 4510 2520 4520 2515 2610 4515 4610 2525 2620 4525 4620"},
      {"WRT1"},
      {"WRT0"}}},
    {Conf6H, {{"CPD", "2420 2520 4420 4520 2525 2620 4525 4620"}, {"WRTB"}, {"WRTC"}, X, X, X, X, X}},
    {Conf7L,
     {X,
      X,
      X,
      X,
      {"EBTR3", "2510 4510 2520 4520 2610 4610 2620 4620"},
      {"EBTR2", "2510 4510 2520 4520 2515 2610 4515 4610 2525 2620 4525 4620"},
      {"EBTR1"},
      {"EBTR0"}}},
    {Conf7H, {X, {"EBTRB"}, X, X, X, X, X, X}},
};
constexpr NameRow GroupH[] = {
    {Conf1H, {X, X, {"OscSen"}, X, X, {"Fosc2"}, {"Fosc1"}, {"Fosc0"}}},
    {Conf2L, {X, X, X, X, {"BORV1"}, {"BORV0"}, {"BOREN"}, {"PwrTen"}}},
    {Conf2H, {X, X, X, X, {"Wdtps2"}, {"Wdtps1"}, {"Wdtps0"}, {"Wdten"}}},
    {Conf3L,
     {{"WAIT", "8520 8620 8720"}, X, X, X, X, X, {"PM1", "8520 8620 8720"}, {"PM0", "8520 8620 8720"}}},
    {Conf3H, {X, X, X, X, X, X, {"t1oscmx", "6520 8520"}, {"Ccp2Mx"}}},
    {Conf4L, {{"DEBUG"}, X, X, X, X, {"LVP"}, X, {"StvRen"}}},
    {Conf5L,
     {{"CP7", "6720 8720"},
      {"CP6", "6720 8720"},
      {"CP5", "6720 8720"},
      {"CP4", "6720 8720"},
      {"CP3"},
      {"CP2"},
      {"CP1"},
      {"CP0"}}},
    {Conf5H, {{"CPD"}, {"CPB"}, X, X, X, X, X, X}},
    {Conf6L,
     {{"WRT7", "6720 8720"},
      {"WRT6", "6720 8720"},
      {"WRT5", "6720 8720"},
      {"WRT4", "6720 8720"},
      {"WRT3"},
      {"WRT2"},
      {"WRT1"},
      {"WRT0"}}},
    {Conf6H, {{"WRTD"}, {"WRTB"}, {"WRTC"}, X, X, X, X, X}},
    {Conf7L,
     {{"EBTR7", "6720 8720"},
      {"EBTR6", "6720 8720"},
      {"EBTR5", "6720 8720"},
      {"EBTR4", "6720 8720"},
      {"EBTR3"},
      {"EBTR2"},
      {"EBTR1"},
      {"EBTR0"}}},
    {Conf7H, {X, {"EBTRB"}, X, X, X, X, X, X}},
};
constexpr NameRow GroupI[] = {
    {Conf1H, {{"IESO"}, {"FCMEN"}, X, X, {"Fosc3"}, {"Fosc2"}, {"Fosc1"}, {"Fosc0"}}},
    {Conf2L, {X, X, X, {"BORV1"}, {"BORV0"}, {"Boren1"}, {"Boren0"}, {"PwrTen"}}},
    {Conf2H, {X, X, X, {"Wdtps3"}, {"Wdtps2"}, {"Wdtps1"}, {"Wdtps0"}, {"Wdten"}}},
    {Conf3H, {{"MCLRE"}, X, X, X, X, {"Lpt1osc"}, {"PBaden"}, X}},
    {Conf4L, {{"DEBUG"}, {"XINST"}, X, {"BBSIZ"}, X, {" LVP"}, X, {"StvRen"}}},
    {Conf5L, {X, X, X, X, {"CP3"}, {"CP2"}, {"CP1"}, {"CP0"}}},
    {Conf5H, {{"CPD"}, {"CPB"}, X, X, X, X, X, X}},
    {Conf6L, {X, X, X, X, {"WRT3"}, {"WRT2"}, {"WRT1"}, {"WRT0"}}},
    {Conf6H, {{"WRTD"}, {"WRTB"}, {"WRTC"}, X, X, X, X, X}},
    {Conf7L, {X, X, X, X, {"EBTR3"}, {"EBTR2"}, {"EBTR1"}, {"EBTR0"}}},
    {Conf7H, {X, {"EBTRB"}, X, X, X, X, X, X}},
};
constexpr NameRow GroupJ[] = {
    {Conf1H, {{"IESO"}, {"FCMEN"}, X, X, {"Fosc3"}, {"Fosc2"}, {"Fosc1"}, {"Fosc0"}}},
    {Conf2L, {X, X, X, {"BORV1"}, {"BORV0"}, {"Boren1"}, {"Boren0"}, {"PwrTen"}}},
    {Conf2H, {X, X, X, {"Wdtps3"}, {"Wdtps2"}, {"Wdtps1"}, {"Wdtps0"}, {"Wdten"}}},
    {Conf3H, {{"MCLRE"}, X, X, X, X, {"Lpt1osc"}, {"PBaden"}, X}},
    {Conf4L, {{"DEBUG"}, {"XINST"}, {"BBsiz1"}, {"BBsiz2"}, X, {"LVP"}, X, {"StvRen"}}},
    {Conf5L, {X, X, X, X, {"CP3"}, {"CP2"}, {"CP1"}, {"CP0"}}},
    {Conf5H, {{"CPD"}, {"CPB"}, X, X, X, X, X, X}},
    {Conf6L, {X, X, X, X, {"WRT3"}, {"WRT2"}, {"WRT1"}, {"WRT0"}}},
    {Conf6H, {{"WRTD"}, {"WRTB"}, {"WRTC"}, X, X, X, X, X}},
    {Conf7L, {X, X, X, X, {"EBTR3"}, {"EBTR2"}, {"EBTR1"}, {"EBTR0"}}},
    {Conf7H, {X, {"EBTRB"}, X, X, X, X, X, X}},
};
constexpr NameRow GroupK[] = {
    {Conf1H, {{"IESO"}, {"FCMEN"}, X, X, {"Fosc3"}, {"Fosc2"}, {"Fosc1"}, {"Fosc0"}}},
    {Conf2L, {X, X, X, {"BORV1"}, {"BORV0"}, {"Boren1"}, {"Boren0"}, {"PwrTen"}}},
    {Conf2H, {X, X, X, {"Wdtps3"}, {"Wdtps2"}, {"Wdtps1"}, {"Wdtps0"}, {"Wdten"}}},
    {Conf3L,
     {{"WAIT", "8527 8622 8627 8722"},
      {"BW", "8527 8622 8627 8722"},
      {"ABW1", "8527 8622 8627 8722"},
      {"ABW0", "8527 8622 8627 8722"},
      X,
      X,
      {"PM1", "8527 8622 8627 8722"},
      {"PM0", "8527 8622 8627 8722"}}},
    {Conf3H, {{"MCLRE"}, X, X, X, X, {"Lpt1osc"}, {"PBaden", "8527 8622 8627 8722"}, {"Ccp2Mx"}}},
    {Conf4L, {{"DEBUG"}, {"XINST"}, {"BBsiz1"}, {"BBsiz2"}, X, {"LVP"}, X, {"StvRen"}}},
    {Conf5L,
     {{"CP7", "6722 8722"},
      {"CP6", "6722 8722"},
      {"CP5", "6627 6722 8627 8722"},
      {"CP4", "6627 6722 8627 8722"},
      {"CP3", "6622 6627 6722 8622 8627 8722"},
      {"CP2"},
      {"CP1"},
      {"CP0"}}},
    {Conf5H, {{"CPD"}, {"CPB"}, X, X, X, X, X, X}},
    {Conf6L,
     {{"WRT7", "6722 8722"},
      {"WRT6", "6722 8722"},
      {"WRT5", "6627 6722 8627 8722"},
      {"WRT4", "6627 6722 8627 8722"},
      {"WRT3", "6622 6627 6722 8622 8627 8722"},
      {"WRT2"},
      {"WRT1"},
      {"WRT0"}}},
    {Conf6H, {{"WRTD"}, {"WRTB"}, {"WRTC"}, X, X, X, X, X}},
    {Conf7L,
     {{"EBTR7", "6722 8722"},
      {"EBTR6", "6722 8722"},
      {"EBTR5", "6627 6722 8627 8722"},
      {"EBTR4", "6627 6722 8627 8722"},
      {"EBTR3", "6622 6627 6722 8622 8627 8722"},
      {"EBTR2"},
      {"EBTR1"},
      {"EBTR0"}}},
    {Conf7H, {X, {"EBTRB"}, X, X, X, X, X, X}},
};
constexpr NameRow GroupL[] = {
    {Conf1H, {{"IESO"}, {"FCMEN"}, X, X, {"Fosc3"}, {"Fosc2"}, {"Fosc1"}, {"Fosc0"}}},
    {Conf2L, {X, X, X, {"BORV1"}, {"BORV0"}, {"Boren1"}, {"Boren0"}, {"PwrTen"}}},
    {Conf2H, {X, X, X, {"Wdtps3"}, {"Wdtps2"}, {"Wdtps1"}, {"Wdtps0"}, {"Wdten"}}},
    {Conf3H, {{"MCLRE"}, X, X, X, X, {"Lpt1osc"}, {"PBaden"}, {"Ccp2Mx"}}},
    {Conf4L, {{"DEBUG"}, {"XINST"}, {"BBsiz1"}, {"BBsiz0"}, {"Icport", "4221 4321"}, {"LVP"}, X, {"StvRen"}}},
    {Conf5L, {X, X, X, X, X, X, {"CP1"}, {"CP0"}}},
    {Conf5H, {{"CPD"}, {"CPB"}, X, X, X, X, X, X}},
    {Conf6L, {X, X, X, X, X, X, {"WRT1"}, {"WRT0"}}},
    {Conf6H, {{"WRTD"}, {"WRTB"}, {"WRTC"}, X, X, X, X, X}},
    {Conf7L, {X, X, X, X, X, X, {"EBTR1"}, {"EBTR0"}}},
    {Conf7H, {X, {"EBTRB"}, X, X, X, X, X, X}},
};

constexpr ConfigNameGroup Groups[] = {
    {"242 252 442 452", GroupA},
    {"248 258 448 458", GroupB},
    {"1220 1320 2220 2320 4220 4320", GroupC},
    {"6525 6621 8525 8621 6585 6680 8585 8680", GroupD},
    {"2331 2431 4331 4431", GroupE},
    {"2455 2550 4455 4550", GroupF},
    {"2410 2510 4410 4510 2420 2520 4420 4520 2515 2610 4515 4610 2525 2620 4525 4620", GroupG},
    {"6520 6620 6720 8520 8620 8720", GroupH},
    {"2480 2580 4480 4580", GroupI},
    {"2585 2680 4585 4680", GroupJ},
    {"6527 6622 6627 6722 8527 8622 8627 8722", GroupK},
    {"2221 2321 4221 4321", GroupL},
};

// Bits that are shown as unavailable and yet are live: they can be edited, and keep their value.
constexpr HiddenBits Hidden[] = {
    {"1220 1320", Conf5L, {5, 6}},         {"1220 1320", Conf6L, {5, 6}},
    {"1220 1320", Conf7L, {5, 6}},         {"6525 6621 6585 6680", Conf3L, {1, 7, 8}},
    {"6520 6620 6720", Conf3L, {1, 7, 8}},
};

constexpr StrayBit Strays[] = {
    // `t1oscmx`: `HPOL` comes next and replaces it, so the bit itself is lost.
    {"2331 2431 4331 4431", {Conf3L, 3}, {Conf3L, 4}, {Conf3L, 4}},
    // `XINST`: the state is replaced by the next name's, the bit is kept.
    {"2585 2680 4585 4680 6527 6622 6627 6722 8527 8622 8627 8722 2221 2321 4221 4321",
     {Conf4L, 2},
     {Conf4L, 3},
     {Conf4L, 2}},
    // The write protection of the EEPROM bears the name of its code protection and takes that one's place.
    {"2420 2520 4420 4520 2525 2620 4525 4620", {Conf6H, 1}, {Conf6H, 1}, {Conf5H, 1}},
};

/// A bit as the chips have it, where its name stands.
bool IsHidden(std::string_view chip, BitPlace place) {
  for (const HiddenBits& row : Hidden) {
    if (row.byte != place.byte || !devices::ListHolds(row.chips, chip)) continue;
    for (const int column : row.columns) {
      if (column == place.column) return true;
    }
  }
  return false;
}

const StrayBit* FindStray(std::string_view chip, BitPlace place) {
  for (const StrayBit& row : Strays) {
    if (row.place == place && devices::ListHolds(row.chips, chip)) return &row;
  }
  return nullptr;
}

const BitName& NameAt(const ConfigNameGroup& group, BitPlace place) {
  for (const NameRow& row : group.rows) {
    if (row.byte == place.byte) return row.bits[place.column - 1];
  }
  return X;
}

}  // namespace

const ConfigNameGroup* FindNameGroup(std::string_view chip) {
  for (const ConfigNameGroup& group : Groups) {
    if (devices::ListHolds(group.chips, chip)) return &group;
  }
  return nullptr;
}

ConfigBit FindConfigBit(const ConfigNameGroup& group, std::string_view chip, BitPlace place) {
  const BitName& bit = NameAt(group, place);
  const bool named = !bit.name.empty() && (bit.chips.empty() || devices::ListHolds(bit.chips, chip));
  if (!named) return {{}, IsHidden(chip, place), place, place};
  if (const StrayBit* stray = FindStray(chip, place)) return {bit.name, true, stray->state, stray->bit};
  return {bit.name, true, place, place};
}

}  // namespace zelvo::ui
