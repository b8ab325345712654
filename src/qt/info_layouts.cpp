// Saving the image, and the windows that only tell something.
#include <QBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "panel/secondary_windows.h"
#include "qt/binder.h"
#include "qt/list_view.h"
#include "qt/theme.h"
#include "qt/window_layouts.h"

namespace zelvo::desktop {
namespace {

void LayOutSaving(panel::SaveWindow& window, Binder& binder, QWidget& view, QVBoxLayout& layout) {
  const int line = LineHeight(view);
  layout.setSpacing(line / 2);
  for (panel::CommandButton* way : {&window.IntelHex, &window.FlashMent, &window.EEPROM}) {
    QPushButton* button = binder.Make(*way);
    button->setMinimumWidth(view.fontMetrics().averageCharWidth() * 34);
    layout.addWidget(button);
  }
  layout.addSpacing(line / 2);
  for (panel::CommandButton* other : {&window.M_Help, &window.Megse}) layout.addWidget(binder.Make(*other));
}

void LayOutSavingHelp(panel::SaveHelpWindow& window, Binder& binder, QWidget& view, QVBoxLayout& layout) {
  for (panel::Label& line : window.Lines) {
    QLabel* label = binder.Make(line);
    label->setWordWrap(true);
    label->setMinimumWidth(view.fontMetrics().averageCharWidth() * 70);
    layout.addWidget(label);
  }
  layout.addStretch(1);
  layout.addLayout(MakeButtonRow(binder, {&window.Command1}));
}

/// Its lines are long: as wide and high as they are, as far as the screen goes.
void LayOutVerifyHelp(panel::HelpWindow& window, Binder& binder, QWidget& view, QVBoxLayout& layout) {
  LinesView* lines = binder.Make(window.List1);
  lines->PreferWhole();
  lines->setSpacing(LineHeight(view) / 8);
  lines->setFocusPolicy(Qt::ClickFocus);  // nothing in it to choose
  layout.addWidget(lines, 1);
  layout.addLayout(MakeButtonRow(binder, {&window.Command1}));
}

void LayOutAbout(panel::AboutWindow& window, Binder& binder, QWidget& view, QVBoxLayout& layout) {
  const int line = LineHeight(view);
  auto* mark = new QLabel;
  mark->setPixmap(ChipIcon().pixmap(line * 4, line * 4));
  QLabel* name = binder.Make(window.Label1);
  QFont large = name->font();
  large.setPointSizeF(large.pointSizeF() * 1.5);
  large.setBold(true);
  name->setFont(large);
  auto* texts = new QVBoxLayout;
  texts->setSpacing(line / 3);
  texts->addWidget(name);
  texts->addWidget(binder.Make(window.Label2));
  texts->addSpacing(line / 2);
  texts->addWidget(binder.Make(window.Label3));
  texts->addWidget(binder.Make(window.Label4));
  auto* row = new QHBoxLayout;
  row->setSpacing(line);
  row->addWidget(mark, 0, Qt::AlignTop);
  row->addLayout(texts, 1);
  layout.addLayout(row);
  layout.addStretch(1);
  layout.addLayout(MakeButtonRow(binder, {&window.Command1}));
}

}  // namespace

bool LaidOutAsInformation(panel::Window& window, Binder& binder, QWidget& view, QVBoxLayout& layout) {
  return LaidOutAs(LayOutSaving, window, binder, view, layout) ||
         LaidOutAs(LayOutSavingHelp, window, binder, view, layout) ||
         LaidOutAs(LayOutVerifyHelp, window, binder, view, layout) ||
         LaidOutAs(LayOutAbout, window, binder, view, layout);
}

}  // namespace zelvo::desktop
