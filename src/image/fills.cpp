#include "image/fills.h"

#include <string>
#include <string_view>

#include "devices/catalogue.h"
#include "devices/config_masks.h"
#include "devices/selection.h"
#include "image/buffers.h"
#include "image/views.h"
#include "panel/form1.h"

namespace zelvo::image {

using panel::Form1;

namespace {

template <class Buffer>
void Fill(Buffer& buffer, int rows, std::string_view text) {
  for (int row = 1; row <= rows; ++row) {
    for (int column = 1; column <= 8; ++column) buffer(column, row) = text;
  }
}

bool OnMidRangePage() {
  return Form1.TabStrip1.SelectedItem == panel::MidRangeTab;
}

void FillMidRangeConfig() {
  ConfigWord1Bits = ConfigWord2Bits = std::string(14, '1');
  for (panel::ListBox* list : {&Form1.List6, &Form1.List12}) {
    list->Clear();
    list->AddItem(" 3FFFh, (1 1 1 1 1 1 1 1 1 1 1 1 1 1)bin");
  }
  const devices::MidRangeEntry* entry = devices::FindMidRange(Form1.Combo2.Text.Get());
  const bool twoWords = entry != nullptr && entry->configWords == 2;
  Form1.Label43.Visible = twoWords;
  Form1.List12.Visible = twoWords;
}

}  // namespace

void FillFlashErased() {
  Fill(MainBuffer, RowsOf(devices::FlashWordMax), OnMidRangePage() ? ErasedMidRangeWord : ErasedPic18Word);
}

void FillVerifyErased() {
  Fill(VerifyBuffer, FlashBuffer::RowMax, ErasedPic18Word);
}

void FillEepromErased() {
  Fill(EepromBuffer, RowsOf(devices::EepromMax), ErasedByte);
}

void FillConfigErased() {
  if (OnMidRangePage()) {
    FillMidRangeConfig();
    return;
  }
  for (int k = 1; k <= devices::ConfigByteCount; ++k) ConfigBuffer[static_cast<size_t>(k)] = ErasedByte;
}

void FillIdErased() {
  if (OnMidRangePage()) {
    for (int word = 1; word <= 4; ++word) {
      MidIdWords[static_cast<size_t>(word)] = ErasedMidWord;
      ShowMidId(word);
    }
    return;
  }
  for (size_t k = 1; k < IdBuffer.size(); ++k) IdBuffer[k] = ErasedByte;
}

void CopyMainToVerify() {
  VerifyBuffer = MainBuffer;
}
void CopyReadToVerify() {
  VerifyBuffer = FlashReadBuffer;
}

void ApplyMaskSet() {
  if (const devices::Pic18Entry* entry = devices::FindPic18(Form1.Combo1.Text.Get())) {
    devices::LoadMaskSet(entry->reappliedMaskSet);
  }
  for (size_t k = 1; k <= devices::ConfigByteCount; ++k) {
    ConfigBitStrings[k] = "11111111";
    ConfigBuffer[k] = ErasedByte;
  }
}

void AttachToSelection() {
  devices::imageHooks.fillErased = [] {
    FillFlashErased();
    FillEepromErased();
    FillConfigErased();
    FillIdErased();
  };
  devices::imageHooks.rebuildViews = [] {
    ListAlapEEPROM();
    ListAlapFlash();
    ResetIdLabels();
  };
}

}  // namespace zelvo::image
