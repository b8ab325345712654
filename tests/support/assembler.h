// Real HEX files for the tests: a program is written as assembler source for a PIC18 chip, then gpasm and
// gplink make the file, as they would for a person.
#pragma once

#include <cstdint>
#include <string>

#include "support/hex_image.h"

namespace zelvo::test {

struct ProgramPlan {
  std::string chip;               ///< a name of the catalogue, "PIC18F452"
  std::uint32_t codeBytes = 0;    ///< size of the program memory that the program may use
  std::uint32_t eepromBytes = 0;  ///< 0 for a chip without EEPROM
  /// True: every byte that the program's loader can reach. False: some blocks with blank memory between them.
  bool full = false;
  /// Another revision of the same program: about every fourth group of 64 code bytes differs, and the
  /// watchdog's configuration bit.
  int revision = 0;
  /// False: assembled straight to a file, with all the configuration bytes that the assembler knows for the
  /// chip. True: linked from an object file, which keeps blocks of odd length odd, and has no configuration.
  bool relocatable = false;
};

struct AssembledProgram {
  std::string sourcePath;
  std::string hexPath;
  /// What the source says for code, ID locations and EEPROM. The configuration is the assembler's and only in
  /// the file.
  HexImage bytes;
};

/// Writes NAME.asm into `folder` and assembles it to NAME.hex. Throws std::runtime_error with the assembler's
/// words when it refuses. The addresses of code stay below 8000h within each 64 KB, the ones a HEX file may
/// name.
[[nodiscard]] AssembledProgram Assemble(const ProgramPlan& plan, const std::string& folder,
                                        const std::string& name);

/// A fresh folder for one test, removed at the end of the process.
[[nodiscard]] std::string ScratchFolder();

}  // namespace zelvo::test
