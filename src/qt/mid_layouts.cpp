// The editor of the mid-range configuration words: a box for each bit under its number and name, a word in a
// row.
#include <QBoxLayout>
#include <QFocusEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>

#include "panel/operator.h"
#include "panel/secondary_windows.h"
#include "qt/binder.h"
#include "qt/card.h"
#include "qt/text.h"
#include "qt/theme.h"
#include "qt/window_layouts.h"

namespace zelvo::desktop {
namespace {

/// One bit. A double click or the space bar flips it, the arrow keys go to its neighbours. Its digit is
/// marked while it has the focus, so that a typed one takes its place.
class BitBox : public QLineEdit {
 public:
  explicit BitBox(panel::TextBox& box) : box_(box) {
    setProperty("bit", true);
    setMaxLength(1);
    setAlignment(Qt::AlignCenter);
    setFont(MonospacedFont());
    setFixedSize(LineHeight(*this) * 2, LineHeight(*this) * 7 / 4);
    connect(this, &QLineEdit::textEdited, this, [this](const QString& text) {
      static_cast<void>(panel::HandType(box_, text.toStdString()));
      selectAll();
    });
  }

  void Draw() {
    SetGround(*this, box_.BackColor);
    const QString digit = Text(box_.Text);
    if (text() == digit) return;
    setText(digit);
    if (hasFocus()) selectAll();
  }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    const int key = event->key();
    if (key == Qt::Key_Space) {
      if (!event->isAutoRepeat()) Flip();
    } else if (key == Qt::Key_Left || key == Qt::Key_Right) {
      focusNextPrevChild(key == Qt::Key_Right);
    } else {
      QLineEdit::keyPressEvent(event);
    }
  }
  void mouseReleaseEvent(QMouseEvent* event) override {
    QLineEdit::mouseReleaseEvent(event);
    selectAll();
  }
  void mouseDoubleClickEvent(QMouseEvent* event) override {
    event->accept();
    if (event->button() == Qt::LeftButton) Flip();
  }
  void focusInEvent(QFocusEvent* event) override {
    QLineEdit::focusInEvent(event);
    selectAll();
  }

 private:
  void Flip() {
    static_cast<void>(panel::HandDblClick(box_));
    Draw();
  }

  panel::TextBox& box_;
};

QLabel* MakeLine(panel::Label& label, Binder& binder, bool muted) {
  QLabel* line = binder.Make(label);
  line->setAlignment(Qt::AlignCenter);
  line->setProperty("muted", muted);
  return line;
}

/// Bit 13 on the left; all columns are as wide as the longest name, so that the words stand bit under bit.
QGridLayout* MakeWord(panel::MidConfEditWindow& window, std::size_t first, Binder& binder,
                      const QWidget& view) {
  constexpr std::size_t Bits = panel::MidConfEditWindow::Bits / 2;
  auto* word = new QGridLayout;
  word->setHorizontalSpacing(LineHeight(view) * 2 / 3);
  word->setVerticalSpacing(LineHeight(view) / 6);
  const int widest = view.fontMetrics().horizontalAdvance(QStringLiteral("PWRTEN"));
  for (std::size_t at = 0; at < Bits; ++at) {
    const auto col = static_cast<int>(at);
    panel::Label& name = window.Names.at(first + at);
    panel::TextBox& bit = window.Boxes.at(first + at);
    word->addWidget(MakeLine(window.Headings.at(first + at), binder, true), 0, col);
    QLabel* nameLine = MakeLine(name, binder, false);
    word->addWidget(nameLine, 1, col);
    auto* box = new BitBox(bit);
    binder.Bind(bit, box, [&bit, box, nameLine] {
      box->Draw();
      nameLine->setEnabled(bit.Enabled);  // a bit without function has a faint name
    });
    binder.Follow(name, [&name, box] { box->setAccessibleName(Text(name.Caption)); });
    word->addWidget(box, 2, col, Qt::AlignHCenter);
    word->setColumnMinimumWidth(col, widest);
    word->setColumnStretch(col, 1);
  }
  return word;
}

void LayOutWords(panel::MidConfEditWindow& window, Binder& binder, QWidget& view, QVBoxLayout& layout) {
  std::size_t first = 0;
  for (const char* address : {"2007h", "2008h"}) {
    auto* word = new Card(QString::fromLatin1(address));
    word->Body()->addLayout(MakeWord(window, first, binder, view));
    panel::Label& heading = window.Headings.at(first);
    binder.Follow(heading, [&heading, word] { word->setVisible(heading.Visible); });
    layout.addWidget(word);
    first += panel::MidConfEditWindow::Bits / 2;
  }
  layout.addStretch(1);
  auto* hint = new QLabel;
  hint->setProperty("muted", true);
  const panel::TextBox& box = window.Boxes.front();
  binder.Follow(box, [&box, hint] { hint->setText(Text(box.ToolTip)); });
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(hint);
  buttons->addLayout(MakeButtonRow(binder, {&window.Command1, &window.Command2}), 1);
  layout.addLayout(buttons);
}

}  // namespace

bool LaidOutAsWordEditor(panel::Window& window, Binder& binder, QWidget& view, QVBoxLayout& layout) {
  return LaidOutAs(LayOutWords, window, binder, view, layout);
}

}  // namespace zelvo::desktop
