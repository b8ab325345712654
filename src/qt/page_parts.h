// The groups that both pages of the main window are made of.
#pragma once

#include <initializer_list>
#include <span>

#include "panel/form1.h"
#include "qt/binder.h"

class QBoxLayout;
class QSplitter;
class QString;

namespace zelvo::desktop {

class Card;

/// Operations on the whole chip are drawn strong, and the one that cannot be taken back as a danger.
enum class Emphasis { Normal, Strong, Danger };

/// A chip's selection, what is known of it, and the state of the lines.
struct ChipControls {
  panel::ComboBox& chip;
  panel::CommandButton& identify;
  panel::ListBox& summary;
  panel::Label& vppLabel;
  panel::Shape& vpp;
  panel::Label& inLabel;
  panel::Shape& in;
  panel::CommandButton& power;
};
QWidget* MakeChipBar(Binder& binder, const ChipControls& controls);

struct SpeedControls {
  panel::ScrollBar& bar;
  panel::ListBox& value;
  panel::TextBox& edit;
  panel::CheckBox& tenfold;
  panel::CheckBox& slow;
};
Card* MakeSpeedCard(Binder& binder, const SpeedControls& controls);

/// A button in a row; a nullptr leaves a gap.
struct RowButton {
  RowButton(panel::CommandButton* shown, Emphasis drawn = Emphasis::Normal)
      : button(shown), emphasis(drawn) {}
  panel::CommandButton* button;
  Emphasis emphasis;
};
/// A row of buttons that share its width.
void AddButtons(Binder& binder, QBoxLayout& layout, std::initializer_list<RowButton> row);

Card* MakeGridCard(Binder& binder, const QString& title, panel::Grid& grid);
Card* MakeLogCard(Binder& binder, panel::Label& title, panel::ListBox& log);

/// Puts the groups together: `operations` on the left, the memory views and the log on the right of it.
struct PageAreas {
  QWidget* chipBar;
  std::initializer_list<QWidget*> operations;
  Card* flash;
  Card* log;
  Card* eeprom;
  std::initializer_list<QWidget*> settings;  ///< configuration and ID, below the EEPROM
};
void LayOutPage(QWidget& page, const PageAreas& areas);

/// Fills the page of the PIC18 chips, and that of the mid-range chips.
void BuildPic18Page(Binder& binder, QWidget& page);
void BuildMidRangePage(Binder& binder, QWidget& page);

}  // namespace zelvo::desktop
