// Loading an Intel HEX file into the image of the selected chip. Neither parser looks at a checksum.
#pragma once

namespace zelvo::image {

inline int OverwriteAccepted = 0;  ///< 1 while the record in progress may be stored

/// `FájlBetölt` and `Command7`: asks for a file, erases the image, parses by the page in view.
void LoadButton();
/// `Frissites` and `Command22`: the same file again, by the PIC18 parser on either page; edited configuration
/// and ID values stay unless the operator lets them go.
void ReloadButton();

/// Set `icsp::LoadFailed` to 1, with a message, when no lines could be had.
void OpenHexFile();
void ReopenHexFile();

void ParseHexPic18();
void ParseHexMidRange();

/// The file does not fit the chip: tells so and resets Flash and EEPROM to erased. Configuration and ID
/// values stored so far stay.
void RecoverFromFault();

}  // namespace zelvo::image
