// The page of the PIC18 chips.
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

QLabel* MutedLabel(const QString& text) {
  auto* label = new QLabel(text);
  label->setProperty("muted", true);
  return label;
}

Card* MakeFileCard(Binder& binder) {
  auto* card = new Card(QStringLiteral("Fájl"));
  AddButtons(binder, *card->Body(), {&Form1.FájlBetölt, &Form1.Frissites, &Form1.fájlment});
  return card;
}

Card* MakeOperationsCard(Binder& binder) {
  auto* card = new Card(QStringLiteral("Memóriaműveletek"));
  AddButtons(binder, *card->Body(),
             {{&Form1.PICOlvas, Emphasis::Strong},
              {&Form1.PICÍrás, Emphasis::Strong},
              {&Form1.PICTörlés, Emphasis::Danger}});
  AddButtons(binder, *card->Body(), {&Form1.FlashOl, &Form1.FlashÍr});
  AddButtons(binder, *card->Body(), {&Form1.EEPROMOlvas, &Form1.EEPROMÍr});
  AddButtons(binder, *card->Body(), {&Form1.ConfigOlvas, &Form1.CinfigÍr});
  AddButtons(binder, *card->Body(), {&Form1.IDLocOlvas, &Form1.IDLocÍr});
  return card;
}

Card* MakeCheckingCard(Binder& binder) {
  auto* card = new Card(QStringLiteral("Ellenőrzés és puffer"));
  for (panel::CheckBox* box : {&Form1.Check1, &Form1.Check2, &Form1.Check3}) {
    card->Body()->addWidget(binder.Make(*box));
  }
  AddButtons(binder, *card->Body(), {&Form1.Command2, &Form1.Command3});
  return card;
}

Card* MakePortCard(Binder& binder) {
  auto* card = new Card(QStringLiteral("Port"));
  AddButtons(binder, *card->Body(), {&Form1.Command6, &Form1.Command1});
  AddButtons(binder, *card->Body(), {&Form1.Command5, &Form1.Command4});
  AddButtons(binder, *card->Body(), {&Form1.Névjegy, &Form1.ZLV_info});
  return card;
}

Card* MakeConfigCard(Binder& binder) {
  auto* card = new Card(QStringLiteral("Konfiguráció"));
  auto* table = new QGridLayout;
  table->setColumnStretch(1, 1);
  table->setColumnStretch(2, 1);
  table->setVerticalSpacing(card->Body()->spacing() / 2);
  table->addWidget(MutedLabel(QStringLiteral("L")), 0, 1, Qt::AlignHCenter);
  table->addWidget(MutedLabel(QStringLiteral("H")), 0, 2, Qt::AlignHCenter);
  for (int word = 0; word < 7; ++word) {
    table->addWidget(MutedLabel(QStringLiteral("CONFIG%1").arg(word + 1)), word + 1, 0);
    for (int half = 0; half < 2; ++half) {
      Readout* bits = binder.MakeReadout(*Form1.ConfigLists[static_cast<std::size_t>(word * 2 + half)]);
      bits->setAlignment(Qt::AlignCenter);
      bits->setMinimumWidth(bits->fontMetrics().horizontalAdvance(QStringLiteral("x x x x x x x x  ")));
      table->addWidget(bits, word + 1, half + 1);
    }
  }
  card->Body()->addLayout(table);
  AddButtons(binder, *card->Body(), {&Form1.ConfRészlEdit});
  return card;
}

Card* MakeIdCard(Binder& binder) {
  auto* card = new Card(QStringLiteral("Azonosító (User ID)"));
  auto* table = new QGridLayout;
  table->setVerticalSpacing(card->Body()->spacing() / 2);
  constexpr int PerRow = 4;
  for (int element = 0; element < 8; ++element) {
    const int row = element / PerRow;
    const int col = element % PerRow;
    Readout* byte = binder.MakeReadout(*Form1.IdLists[static_cast<std::size_t>(element)]);
    byte->CollapseBlanks();
    byte->setMinimumWidth(byte->fontMetrics().horizontalAdvance(QStringLiteral("FF  W  ")));
    table->addWidget(MutedLabel(QString::number(element + 1)), row, col * 2);
    table->addWidget(byte, row, col * 2 + 1);
    table->setColumnStretch(col * 2 + 1, 1);
  }
  card->Body()->addLayout(table);
  AddButtons(binder, *card->Body(), {&Form1.IDMod});
  return card;
}

}  // namespace

void BuildPic18Page(Binder& binder, QWidget& page) {
  QWidget* chip = MakeChipBar(binder, {Form1.Combo1, Form1.IDazonosít, Form1.List2, Form1.VppLabel18,
                                       Form1.Shape2, Form1.InLabel18, Form1.Shape3, Form1.ProgFut});
  Card* file = MakeFileCard(binder);
  Card* operations = MakeOperationsCard(binder);
  Card* checking = MakeCheckingCard(binder);
  Card* speed = MakeSpeedCard(binder, {Form1.ÁSeb, Form1.List3, Form1.Text1, Form1.Check9, Form1.Check10});
  Card* port = MakePortCard(binder);
  Card* flash = MakeGridCard(binder, QStringLiteral("Flash"), Form1.MSFlexGrid1);
  Card* log = MakeLogCard(binder, Form1.LogLabel18, Form1.List1);
  Card* eeprom = MakeGridCard(binder, QStringLiteral("EEPROM"), Form1.MSFlexGrid2);
  Card* config = MakeConfigCard(binder);
  Card* id = MakeIdCard(binder);
  LayOutPage(page, {chip, {file, operations, checking, speed, port}, flash, log, eeprom, {config, id}});
}

}  // namespace zelvo::desktop
