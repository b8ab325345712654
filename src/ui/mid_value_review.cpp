// `Config_Beolvas_F16`, `Config_2008_Olv_F16` and `IDLoc_F16`: the configuration and user ID words of a
// mid-range chip that were read, compared with the image.
#include <array>
#include <span>
#include <string>

#include "icsp/conversions.h"
#include "image/buffers.h"
#include "image/views.h"
#include "link/event_log.h"
#include "opsmid/config_id.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "ui/behaviour.h"
#include "ui/verdict.h"

namespace zelvo::ui {

using panel::Config_2008_Olv_F16;
using panel::Config_Beolvas_F16;
using panel::Form1;
using panel::IDLoc_F16;

namespace {

/// A configuration word: as read, its bits behind two zeros, its bits in the image, and its list in the main
/// window.
struct Word {
  const std::int16_t& value;
  const std::string& raw;
  std::string& bits;
  panel::ListBox& list;
};
const std::array<Word, 2> Words{
    {{opsmid::MidConfigValue1, image::ConfigWord1Raw, image::ConfigWord1Bits, Form1.List6},
     {opsmid::MidConfigValue2, image::ConfigWord2Raw, image::ConfigWord2Bits, Form1.List12}}};

void Log(const char* text) {
  link::LogEvent(Form1.List4, text);
}

std::string Digits(const Word& word) {
  return icsp::HexPadded(static_cast<std::uint16_t>(word.value), 4);
}

std::string SpacedBits(const Word& word) {
  std::string bits;
  for (const char digit : Digits(word)) bits += icsp::HexDigitToSpacedBits(digit);
  return bits;
}

// The bits as they were read, while a review lives: a file loaded meanwhile brings bits of its own.
std::array<std::string, 2> readBits;

std::string BitsOf(const std::string& raw) {
  return raw.size() > 2 ? raw.substr(2) : std::string();
}

/// One of the two configuration reviews: bits and digits of each word side by side in its lists.
struct ConfigReview {
  panel::Window& window;
  std::span<panel::ListBox> lists;
  panel::ListBox& verdict;
  std::size_t words;
  const char* behindDigits;
};
const ConfigReview OneWord{Config_Beolvas_F16, Config_Beolvas_F16.Values, Config_Beolvas_F16.eredmény, 1, ""};
const ConfigReview TwoWords{Config_2008_Olv_F16, Config_2008_Olv_F16.Values, Config_2008_Olv_F16.eredmény, 2,
                            "h"};

void TakeConfig(const ConfigReview& review) {
  for (std::size_t i = 0; i < review.words; ++i) {
    const Word& word = Words[i];
    word.bits = readBits[i];
    word.list.Clear();
    word.list.AddItem(" " + Digits(word) + "h,  " + SpacedBits(word) + " bin");
  }
  Log(":  Beolvasott Config tartalom Pufferbe áttölve.");
  review.window.Unload();
}

void LeaveConfig(const ConfigReview& review) {
  Log(":  Beolvasott Config tartalom Nem lett áttölve a Pufferbe.");
  review.window.Unload();
}

void ConfigOpened(const ConfigReview& review) {
  bool equal = true;
  for (std::size_t i = 0; i < review.words; ++i) {
    const Word& word = Words[i];
    review.lists[2 * i].AddItem(SpacedBits(word) + " bin");
    review.lists[2 * i + 1].AddItem(Digits(word) + review.behindDigits);
    readBits[i] = BitsOf(word.raw);
    equal = equal && word.bits == readBits[i];
  }
  Tell(review.verdict, Form1.List4,
       equal ? Verdict{" A két tartalom azonos!", panel::LightGreen,
                       ":  A Puffer és a Beolvasott Config tartalom azonos."}
             : Verdict{" Nem azonos a két tartalom!", panel::LightRed,
                       ":  Nem egyforma a Puffer és a Beolvasott Config tartalma."});
  if (Form1.Check5.Value) TakeConfig(review);
}

void TakeIds() {
  image::MidIdWords = image::MidIdReadWords;
  for (int word = 1; word <= 4; ++word) image::ShowMidId(word);
  Log(":  Beolvasott User ID szavak áttölve a Pufferbe.");
  IDLoc_F16.Unload();
}

void LeaveIds() {
  Log(":  Beolvasott User ID szavak Nem lettek Pufferbe töltve.");
  IDLoc_F16.Unload();
}

void IdsOpened() {
  bool equal = true;
  for (std::size_t word = 1; word <= IDLoc_F16.Values.size(); ++word) {
    IDLoc_F16.Values[word - 1].AddItem(image::MidIdLine(image::MidIdReadWords[word]));
    equal = equal && image::MidIdReadWords[word] == image::MidIdWords[word];
  }
  Tell(IDLoc_F16.eredmény, Form1.List4, IdVerdict(equal));
  if (Form1.Check5.Value) TakeIds();
}

void AttachConfig(const ConfigReview& review, panel::CommandButton& take, panel::CommandButton& leave) {
  review.window.OnTop = true;
  review.window.OnLoad = [&review] { ConfigOpened(review); };
  take.Click = [&review] { TakeConfig(review); };
  leave.Click = [&review] { LeaveConfig(review); };
}

}  // namespace

void AttachMidValueReviews() {
  AttachConfig(OneWord, Config_Beolvas_F16.Igen, Config_Beolvas_F16.Nem);
  AttachConfig(TwoWords, Config_2008_Olv_F16.Igen, Config_2008_Olv_F16.Nem);
  IDLoc_F16.OnTop = true;
  IDLoc_F16.OnLoad = IdsOpened;
  IDLoc_F16.Igen.Click = TakeIds;
  IDLoc_F16.Nem.Click = LeaveIds;
}

}  // namespace zelvo::ui
