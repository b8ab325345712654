// Fills of the buffers with their erased value, and copies between them.
#pragma once

namespace zelvo::image {

/// `MainBuffer` within the chip: "3FFF" on the mid-range page, "FFFF" on the PIC18 page.
void FillFlashErased();
/// `VerifyBuffer` whole, "FFFF" whatever the page.
void FillVerifyErased();
/// `EepromBuffer` within the chip: "FF".
void FillEepromErased();
/// The configuration of the page in view; on the mid-range page its lists too, and whether word 2 is shown.
void FillConfigErased();
/// The ID values of the page in view; on the mid-range page their lists too.
void FillIdErased();

void CopyMainToVerify();
void CopyReadToVerify();

/// The configuration masks of `Combo1`'s chip anew, with all bytes and bit texts erased.
void ApplyMaskSet();

/// Gives the selection what it does to the image; once, at start-up.
void AttachToSelection();

}  // namespace zelvo::image
