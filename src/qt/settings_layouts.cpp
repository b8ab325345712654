// The windows that tell the program about its interface and the board behind it, and the one that checks
// them.
#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "panel/secondary_windows.h"
#include "qt/binder.h"
#include "qt/card.h"
#include "qt/lamp.h"
#include "qt/list_view.h"
#include "qt/text.h"
#include "qt/theme.h"
#include "qt/widgets.h"
#include "qt/window_layouts.h"

namespace zelvo::desktop {
namespace {

QLabel* MakeTitle(panel::Label& label, Binder& binder) {
  QLabel* title = binder.Make(label);
  title->setProperty("title", true);
  return title;
}

QLabel* MakeMuted(panel::Label& label, Binder& binder) {
  QLabel* text = binder.Make(label);
  text->setProperty("muted", true);
  return text;
}

void LayOutInterface(panel::InterfaceWindow& window, Binder& binder, QWidget&, QVBoxLayout& layout) {
  auto* choice = new Card({});
  choice->Body()->addWidget(binder.Make(window.COM_Radio));
  choice->Body()->addWidget(binder.Make(window.LPT_Radio));
  layout.addWidget(choice);
  layout.addStretch(1);
  layout.addLayout(MakeButtonRow(binder, {&window.Command1}));
}

/// The address by hand is a row of its own, which goes as a whole where there is none.
void LayOutAddress(panel::PortAddressWindow& window, Binder& binder, QWidget& view, QVBoxLayout& layout) {
  QComboBox* list = binder.Make(window.Combo1);
  list->setMinimumContentsLength(22);
  layout.addWidget(list);
  auto* manual = new QHBoxLayout;
  manual->addWidget(binder.Make(window.Label2));
  QLineEdit* digits = binder.Make(window.Text1);
  digits->setProperty("standing", true);
  digits->setFont(MonospacedFont());
  digits->setMinimumWidth(view.fontMetrics().averageCharWidth() * 10);
  manual->addWidget(digits, 1);
  manual->addWidget(MakeMuted(window.Label3, binder));
  binder.Follow(window.Label2, [&window, digits] { digits->setAccessibleName(Text(window.Label2.Caption)); });
  layout.addLayout(manual);
  layout.addStretch(1);
  layout.addLayout(MakeButtonRow(binder, {&window.Command1}));
}

/// The bits of the printer port across, the lines of the board down.
QGridLayout* MakeBitMatrix(panel::LptLinesWindow& window, Binder& binder, const QWidget& view) {
  const struct {
    panel::OptionFrame& line;
    panel::LptLinesWindow::BitOptions& bits;
  } lines[] = {{window.Frame1, window.VddBit},
               {window.Frame2, window.VppBit},
               {window.Frame3, window.ClockBit},
               {window.Frame4, window.DataBit}};
  constexpr int FirstLine = 2;
  auto* matrix = new QGridLayout;
  matrix->setHorizontalSpacing(LineHeight(view) / 2);
  matrix->setVerticalSpacing(LineHeight(view) / 3);
  matrix->addWidget(MakeMuted(window.Label10, binder), 1, 0);
  for (std::size_t bit = 0; bit < panel::LptLinesWindow::Bits; ++bit) {
    const int col = static_cast<int>(bit) + 1;
    matrix->addWidget(binder.Make(window.BitLabels[bit]), 0, col, Qt::AlignHCenter);
    matrix->addWidget(MakeMuted(window.PinLabels[bit], binder), 1, col, Qt::AlignHCenter);
    matrix->setColumnMinimumWidth(col, LineHeight(view) * 2);
    matrix->setColumnStretch(col, 1);
  }
  int row = FirstLine;
  for (const auto& [line, bits] : lines) {
    matrix->addWidget(MakeTitle(line, binder), row, 0);
    for (std::size_t bit = 0; bit < bits.size(); ++bit) {
      OptionView* option = binder.Make(bits[bit]);
      option->setAccessibleName(Text(line.Caption) + QLatin1Char(' ') + Text(window.BitLabels[bit].Caption));
      matrix->addWidget(option, row, static_cast<int>(bit) + 1, Qt::AlignHCenter);
    }
    ++row;
  }
  return matrix;
}

void AddBoxes(Card& card, Binder& binder, std::initializer_list<panel::CheckBox*> boxes) {
  for (panel::CheckBox* box : boxes) card.Body()->addWidget(binder.Make(*box));
  card.Body()->addStretch(1);
}

void LayOutLptLines(panel::LptLinesWindow& window, Binder& binder, QWidget& view, QVBoxLayout& layout) {
  auto* bits = new Card({});
  bits->Body()->addWidget(MakeTitle(window.Label9, binder));
  bits->Body()->addLayout(MakeBitMatrix(window, binder, view));
  layout.addWidget(bits);
  auto* input = new Card({});
  input->Body()->addWidget(MakeTitle(window.Frame5, binder));
  input->Body()->addWidget(binder.Make(window.ACK_Radio));
  input->Body()->addWidget(binder.Make(window.BUSY_Radio));
  input->Body()->addStretch(1);
  auto* inversions = new Card({});
  AddBoxes(*inversions, binder,
           {&window.Check1, &window.Check2, &window.Check3, &window.Check4, &window.Check5});
  auto* below = new QHBoxLayout;
  below->setSpacing(layout.spacing());
  below->addWidget(input, 1);
  below->addWidget(inversions, 1);
  layout.addLayout(below);
  layout.addStretch(1);
}

void LayOutComLines(panel::ComLinesWindow& window, Binder& binder, QWidget&, QVBoxLayout& layout) {
  auto* inversions = new Card({});
  AddBoxes(*inversions, binder,
           {&window.Check1_PGD_Vdd, &window.Check2_PGC, &window.Check3_DataIn, &window.Check4_Vpp});
  layout.addWidget(inversions, 1);
}

/// The lines one below the other, each with its polarity beside it; last the input.
QGridLayout* MakeLineTable(panel::PortCheckWindow& window, Binder& binder, const QWidget& view) {
  QLabel* input = binder.Make(window.Label2);
  input->setMinimumWidth(
      input->fontMetrics().horizontalAdvance(QStringLiteral("Adat vonal belső logikai szintje High (1)")));
  const struct {
    QWidget* line;
    panel::Label& polarity;
  } lines[] = {{binder.Make(window.Check1), window.Vdd_Él_Lab},
               {binder.Make(window.Check2), window.Vpp_Él_Lab},
               {binder.Make(window.Check3), window.Data_Él_Lab},
               {binder.Make(window.Check4), window.CLK_Él_Lab},
               {input, window.Ack_Él_Lab}};
  auto* table = new QGridLayout;
  table->setHorizontalSpacing(LineHeight(view) * 2);
  table->setVerticalSpacing(LineHeight(view) / 3);
  table->setColumnStretch(1, 1);
  int row = 0;
  for (const auto& [line, polarity] : lines) {
    table->addWidget(line, row, 0);
    table->addWidget(MakeMuted(polarity, binder), row, 1);
    ++row;
  }
  return table;
}

void LayOutPortCheck(panel::PortCheckWindow& window, Binder& binder, QWidget& view, QVBoxLayout& layout) {
  auto* lines = new Card({});
  lines->Body()->addLayout(MakeLineTable(window, binder, view));
  layout.addWidget(lines);

  LinesView* readout = binder.Make(window.List1);
  readout->setFont(MonospacedFont());
  readout->setFocusPolicy(Qt::ClickFocus);  // nothing in it to choose
  const QFontMetrics metrics(readout->font());
  const QString widest = QStringLiteral("H Című LPT Port Értéke. - Dec:32767255 - Bin:  1 1 1 1 1 1 1 1  ");
  readout->setMinimumSize(metrics.horizontalAdvance(widest), metrics.height() * 4);
  readout->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
  layout.addWidget(readout, 1);

  auto* test = new QHBoxLayout;
  test->setSpacing(LineHeight(view));
  test->addWidget(binder.Make(window.Check5));
  auto* lamp = new Lamp;
  binder.Bind(window.Label1, lamp, [&window, lamp] {
    lamp->SetColour(FromPanel(window.Label1.BackColor), window.Label1.BackColor.Get() == panel::Green);
  });
  test->addWidget(lamp);
  test->addWidget(binder.Make(window.Check6));
  test->addLayout(MakeButtonRow(binder, {&window.Command1}), 1);
  layout.addLayout(test);
}

}  // namespace

bool LaidOutAsSettings(panel::Window& window, Binder& binder, QWidget& view, QVBoxLayout& layout) {
  return LaidOutAs(LayOutInterface, window, binder, view, layout) ||
         LaidOutAs(LayOutAddress, window, binder, view, layout) ||
         LaidOutAs(LayOutLptLines, window, binder, view, layout) ||
         LaidOutAs(LayOutComLines, window, binder, view, layout) ||
         LaidOutAs(LayOutPortCheck, window, binder, view, layout);
}

}  // namespace zelvo::desktop
