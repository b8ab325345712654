// `ConfEdit_F16`: the configuration words of a mid-range chip, bit by bit. It works on its own boxes; the
// image takes them over by `Command1`.
#include <array>
#include <string>

#include "devices/selection.h"
#include "icsp/conversions.h"
#include "image/buffers.h"
#include "link/event_log.h"
#include "opsmid/config_id.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "ui/behaviour.h"
#include "ui/mid_config_names.h"
#include "ui/on_top.h"

namespace zelvo::ui {

using panel::ConfEdit_F16;
using panel::Form1;

namespace {

constexpr size_t Bits = 14;

/// One of the two words: its place among the boxes, and where the image and the main window have it.
struct Word {
  size_t first;
  std::string& bits;
  std::array<std::string, 16>& names;
  std::array<bool, 16>& used;
  panel::ListBox& list;
};
const std::array<Word, 2> Words{
    {{0, image::ConfigWord1Bits, image::ConfigWord1Names, image::ConfigWord1Used, Form1.List6},
     {Bits, image::ConfigWord2Bits, image::ConfigWord2Names, image::ConfigWord2Used, Form1.List12}}};

void Log(const char* text) {
  link::LogEvent(Form1.List4, text);
}

void ResetConfigNames() {
  for (const Word& word : Words) {
    word.names.fill("X");
    word.used.fill(false);
  }
}

void FillNames(const Word& word, std::string_view names) {
  for (size_t i = 1; i <= Bits && !names.empty(); ++i) {
    const size_t end = names.find(' ');
    word.names.at(i) = names.substr(0, end);
    word.used.at(i) = word.names.at(i) != "X";
    names = end == std::string_view::npos ? std::string_view{} : names.substr(end + 1);
  }
}

void OpenMidrangeConfigEditor() {
  if (!devices::ChipIsSelected()) return;
  ConfEdit_F16.Unload();
  Log(":  Config Bájtok Szerkesztése.");
  ResetConfigNames();
  if (const MidConfigNames* group = FindMidConfigNames(Form1.Combo2.Text.Get())) {
    FillNames(Words[0], group->word1);
    FillNames(Words[1], group->word2);
  }
  ConfEdit_F16.Load();
}

void ShowWord(const Word& word) {
  for (size_t j = 0; j < Bits; ++j) {
    panel::TextBox& box = ConfEdit_F16.Boxes.at(word.first + j);
    const bool used = word.used.at(j + 1);
    box.Enabled = used;
    box.BackColor = used ? panel::WindowColour : panel::UnusedBit;
    box.Text = j < word.bits.size() ? word.bits.substr(j, 1) : std::string();
    ConfEdit_F16.Names.at(word.first + j).Caption = word.names.at(j + 1);
  }
}

void HideWord(const Word& word) {
  for (size_t j = word.first; j < word.first + Bits; ++j) {
    ConfEdit_F16.Headings.at(j).Visible = false;
    ConfEdit_F16.Names.at(j).Visible = false;
    ConfEdit_F16.Boxes.at(j).Visible = false;
    ConfEdit_F16.Boxes.at(j).Text = std::string("1");  // accepted with the others: the erased word
  }
}

void Opened() {
  MindigFelül(ConfEdit_F16);
  for (panel::TextBox& box : ConfEdit_F16.Boxes) box.ToolTip = std::string("Szerkesztés: DblClick");
  ShowWord(Words[0]);
  if (opsmid::HasTwoConfigWords(Form1.Combo2.Text.Get())) {
    ShowWord(Words[1]);
  } else {
    HideWord(Words[1]);
  }
}

void Flip(panel::TextBox& box) {
  box.Text = std::string(box.Text.Get() == "1" ? "0" : "1");
}

/// A box that was emptied adds nothing to the bits, which are then fewer than fourteen.
void TakeWord(const Word& word) {
  int sum = 0;
  std::string shown;
  word.bits.clear();
  for (size_t i = 0; i < Bits; ++i) {
    const std::string& text = ConfEdit_F16.Boxes.at(word.first + i).Text;
    if (text == "1") sum += 1 << (Bits - 1 - i);
    word.bits += text;
    shown += " " + text;
  }
  word.list.Clear();
  word.list.AddItem("  " + icsp::HexPadded(static_cast<std::uint32_t>(sum), 1) + "h  (" + shown + ")bin");
}

void Accept() {
  for (const Word& word : Words) TakeWord(word);
  Log(":  A Szerkesztett Config Adatok Áttöltve a Pufferbe!");
  Log(":  Config Szerkesztés Vége!");
  image::ConfigEdited = 1;
  ConfEdit_F16.Unload();
}

void Cancel() {
  Log(":  A Szerkesztett Config Adatok Nem lettek Pufferbe töltve!");
  Log(":  Config Szerkesztése Vége!");
  ConfEdit_F16.Unload();
}

}  // namespace

void AttachMidConfigEditor() {
  Form1.ConfRészlEdit_F16.Click = OpenMidrangeConfigEditor;
  ConfEdit_F16.OnLoad = Opened;
  for (panel::TextBox& box : ConfEdit_F16.Boxes) box.DblClick = [&box] { Flip(box); };
  ConfEdit_F16.Command1.Click = Accept;
  ConfEdit_F16.Command2.Click = Cancel;
}

}  // namespace zelvo::ui
