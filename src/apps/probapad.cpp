#include "apps/probapad.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>

#include "apps/chip_contents.h"
#include "panel/control.h"
#include "qt/card.h"
#include "qt/lamp.h"
#include "qt/main_window.h"
#include "qt/text.h"
#include "qt/theme.h"
#include "qt/widgets.h"

namespace zelvo::desktop {
namespace {

constexpr int DisplayFrame = 16;                             // ms
constexpr bench::Nanoseconds LongestWriteTime = 50'000'000;  // the chip may change by itself for so long
constexpr int RestPerLook =
    40;  // reading a full chip takes milliseconds: not more than a fortieth of the time

constexpr std::array LineNames = {"Vdd", "Vpp", "PGC", "PGD", "Adat be"};

}  // namespace

Probapad::Probapad(SimMachine& machine)
    : QWidget(nullptr,
              Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowMinimizeButtonHint),
      machine_(machine) {
  setObjectName(QStringLiteral("Próbapad"));
  setWindowTitle(QStringLiteral("Próbapad"));
  const int line = LineHeight(*this);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(line / 2, line / 2, line / 2, line / 2);
  layout->setSpacing(line / 2);
  LayOutSocket(*layout);
  LayOutLines(*layout);
  LayOutContents(*layout);
  connect(&refresh_, &QTimer::timeout, this, [this] { Refresh(); });
  refresh_.setTimerType(Qt::PreciseTimer);
  refresh_.start(DisplayFrame);
  Refresh();
}

void Probapad::LayOutSocket(QVBoxLayout& layout) {
  auto* card = new Card(QStringLiteral("Foglalat"));
  chips_ = new QuietCombo;
  chips_->setObjectName(QStringLiteral("Chips"));
  for (const std::string& name : bench::ChipNames()) chips_->addItem(Text(name));
  if (machine_.Socket() != nullptr) chips_->setCurrentText(Text(machine_.Socket()->Name()));
  auto* insert = new QPushButton(QStringLiteral("Behelyezés"));
  insert->setObjectName(QStringLiteral("Insert"));
  auto* empty = new QPushButton(QStringLiteral("Kivétel"));
  empty->setObjectName(QStringLiteral("Empty"));
  for (QPushButton* button : {insert, empty}) button->setAutoDefault(true);
  connect(insert, &QPushButton::clicked, this, [this] { static_cast<void>(Insert(chips_->currentText())); });
  connect(empty, &QPushButton::clicked, this, [this] { Empty(); });
  auto* row = new QHBoxLayout;
  row->addWidget(chips_, 1);
  row->addWidget(insert);
  row->addWidget(empty);
  card->Body()->addLayout(row);
  inside_ = new QLabel;
  inside_->setObjectName(QStringLiteral("Inside"));
  card->Body()->addWidget(inside_);
  layout.addWidget(card);
}

void Probapad::LayOutLines(QVBoxLayout& layout) {
  auto* card = new Card(QStringLiteral("Vonalak"));
  auto* row = new QHBoxLayout;
  for (std::size_t line = 0; line < LineNames.size(); ++line) {
    lamps_[line] = new Lamp;
    lamps_[line]->setObjectName(QLatin1String(LineNames[line]));
    row->addWidget(lamps_[line]);
    row->addWidget(new QLabel(QLatin1String(LineNames[line])));
    row->addStretch(1);
  }
  card->Body()->addLayout(row);
  layout.addWidget(card);
}

void Probapad::LayOutContents(QVBoxLayout& layout) {
  auto* card = new Card(QStringLiteral("A chip tartalma"));
  contents_ = new ChipContents(this);
  auto* list = new QListView;
  list->setObjectName(QStringLiteral("Contents"));
  list->setModel(contents_);
  list->setFont(MonospacedFont());
  list->setUniformItemSizes(true);
  list->setVerticalScrollMode(QListView::ScrollPerPixel);
  list->setSelectionMode(QListView::ExtendedSelection);
  const QFontMetrics metrics(list->font());
  list->setMinimumSize(metrics.horizontalAdvance(QString(64, QLatin1Char('0'))), metrics.height() * 20);
  card->Body()->addWidget(list, 1);
  amount_ = new QLabel;
  amount_->setProperty("muted", true);
  card->Body()->addWidget(amount_);
  layout.addWidget(card, 1);
}

bool Probapad::Insert(const QString& chip) {
  auto made = bench::MakeChip(chip.toStdString(), std::nullopt);
  if (made == nullptr) return false;
  machine_.Insert(std::move(made));
  chips_->setCurrentText(chip);
  lookAgain_ = 0;
  Refresh();
  return true;
}

void Probapad::Empty() {
  machine_.Insert(nullptr);
  lookAgain_ = 0;
  Refresh();
}

void Probapad::ShowBeside(MainWindow& main) {
  const QRect room = main.screen()->availableGeometry();
  const int width = sizeHint().width();
  const int most = std::max(main.LeastPageWidth(), room.width() - width);
  if (main.width() > most) main.resize(most, main.height());
  const int left = room.left() + std::max(0, room.width() - main.width() - width) / 2;
  const int top = room.top() + std::max(0, room.height() - main.height()) / 2;
  main.move(left, top);
  resize(width, std::min(main.height(), room.height()));
  move(std::min(left + main.width(), room.left() + std::max(0, room.width() - width)), top);
  show();
}

// The bench stays as long as the program does.
void Probapad::closeEvent(QCloseEvent* event) {
  event->ignore();
}

void Probapad::Refresh() {
  const bench::Chip* chip = machine_.Socket();
  const QString inside = chip != nullptr ? QStringLiteral("A foglalatban: %1").arg(Text(chip->Name()))
                                         : QStringLiteral("A foglalat üres.");
  if (inside_->text() != inside) inside_->setText(inside);
  RefreshLines();
  RefreshContents();
}

void Probapad::RefreshLines() {
  const bench::LineLevels levels = machine_.Levels();
  const std::array high = {levels.vdd, levels.vpp, levels.pgc, levels.pgd, machine_.DataIn()};
  for (std::size_t line = 0; line < lamps_.size(); ++line) {
    const panel::Colour lit = line < 2 ? panel::Red : panel::Green;
    lamps_[line]->SetColour(FromPanel(high[line] ? lit : panel::Grey), high[line]);
  }
}

void Probapad::RefreshContents() {
  const bench::Nanoseconds now = machine_.Now();
  const bool settled = looked_ > machine_.LastChange() + LongestWriteTime;
  if (settled || now < lookAgain_) return;
  const bench::Chip* chip = machine_.Socket();
  if (chip != nullptr) {
    contents_->Show(chip->Image(), chip->Name());
  } else {
    contents_->Show({}, {});
  }
  amount_->setText(QStringLiteral("%1 nem üres bájt").arg(contents_->Size()));
  looked_ = now;
  const bench::Nanoseconds done = machine_.Now();
  lookAgain_ = done + (done - now) * RestPerLook;
}

}  // namespace zelvo::desktop
