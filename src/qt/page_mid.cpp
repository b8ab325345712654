// The page of the mid-range chips.
#include <QBoxLayout>
#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>

#include "qt/card.h"
#include "qt/list_view.h"
#include "qt/page_parts.h"

namespace zelvo::desktop {
namespace {

using panel::Form1;

Card* MakeFileCard(Binder& binder) {
  auto* card = new Card(QStringLiteral("Fájl"));
  AddButtons(binder, *card->Body(), {&Form1.Command7, &Form1.Command22, &Form1.Command23});
  return card;
}

Card* MakeOperationsCard(Binder& binder) {
  auto* card = new Card(QStringLiteral("Memóriaműveletek"));
  AddButtons(binder, *card->Body(),
             {{&Form1.Command19, Emphasis::Strong},
              {&Form1.Command21, Emphasis::Strong},
              {&Form1.Command12, Emphasis::Danger}});
  AddButtons(binder, *card->Body(), {&Form1.Command11});
  AddButtons(binder, *card->Body(), {&Form1.Command8, nullptr});
  AddButtons(binder, *card->Body(), {&Form1.Command17, &Form1.Command18});
  AddButtons(binder, *card->Body(), {&Form1.Command13, &Form1.Command15});
  return card;
}

Card* MakeCheckingCard(Binder& binder) {
  constexpr int Columns = 40;
  auto* card = new Card(QStringLiteral("Ellenőrzés és puffer"));
  for (panel::CheckBox* box : {&Form1.Check4, &Form1.Check5, &Form1.Check6, &Form1.Check8}) {
    card->Body()->addWidget(binder.Make(*box, Columns));
  }
  return card;
}

Card* MakePortCard(Binder& binder) {
  auto* card = new Card(QStringLiteral("Port"));
  AddButtons(binder, *card->Body(), {&Form1.Command14, &Form1.Command26});
  AddButtons(binder, *card->Body(), {&Form1.Command16, &Form1.Command20});
  AddButtons(binder, *card->Body(), {&Form1.Command24, &Form1.Command25});
  return card;
}

Card* MakeConfigCard(Binder& binder) {
  auto* card = new Card(QStringLiteral("Konfiguráció"));
  auto* table = new QGridLayout;
  table->setColumnStretch(1, 1);
  table->setVerticalSpacing(card->Body()->spacing() / 2);
  auto* first = new QLabel(QStringLiteral("Config 1:"));
  first->setProperty("muted", true);
  table->addWidget(first, 0, 0);
  QLabel* second = binder.Make(Form1.Label43);
  second->setProperty("muted", true);
  table->addWidget(second, 1, 0);
  int row = 0;
  for (panel::ListBox* list : {&Form1.List6, &Form1.List12}) {
    Readout* word = binder.MakeReadout(*list);
    word->setMinimumWidth(word->fontMetrics().horizontalAdvance(QString(43, QLatin1Char('0'))));
    table->addWidget(word, row++, 1);
  }
  card->Body()->addLayout(table);
  AddButtons(binder, *card->Body(), {&Form1.ConfRészlEdit_F16});
  return card;
}

Card* MakeIdCard(Binder& binder) {
  auto* card = new Card(QStringLiteral("Azonosító (User ID)"));
  auto* table = new QGridLayout;
  table->setVerticalSpacing(card->Body()->spacing() / 2);
  constexpr int PerRow = 2;
  for (int word = 0; word < 4; ++word) {
    auto* label = new QLabel(QString::number(word + 1));
    label->setProperty("muted", true);
    const int row = word / PerRow;
    const int col = word % PerRow * 2;
    table->addWidget(label, row, col);
    table->addWidget(binder.MakeReadout(*Form1.MidIdLists[static_cast<std::size_t>(word)]), row, col + 1);
    table->setColumnStretch(col + 1, 1);
  }
  card->Body()->addLayout(table);
  AddButtons(binder, *card->Body(), {&Form1.IDMod_F16});
  return card;
}

}  // namespace

void BuildMidRangePage(Binder& binder, QWidget& page) {
  QWidget* chip = MakeChipBar(binder, {Form1.Combo2, Form1.Command9, Form1.List5, Form1.VppLabelMid,
                                       Form1.Shape1, Form1.InLabelMid, Form1.Shape4, Form1.Command10});
  Card* file = MakeFileCard(binder);
  Card* operations = MakeOperationsCard(binder);
  Card* checking = MakeCheckingCard(binder);
  Card* speed =
      MakeSpeedCard(binder, {Form1.HScroll1, Form1.List11, Form1.Text2, Form1.Check7, Form1.Check11});
  Card* port = MakePortCard(binder);
  Card* flash = MakeGridCard(binder, QStringLiteral("Flash"), Form1.MSFlexGrid4);
  Card* log = MakeLogCard(binder, Form1.LogLabelMid, Form1.List4);
  Card* eeprom = MakeGridCard(binder, QStringLiteral("EEPROM"), Form1.MSFlexGrid3);
  Card* config = MakeConfigCard(binder);
  Card* id = MakeIdCard(binder);
  LayOutPage(page, {chip, {file, operations, checking, speed, port}, flash, log, eeprom, {config, id}});
}

}  // namespace zelvo::desktop
