// What the tests of the settings files share: the messages of a recovery, and reading a file as it was found.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "support/bench_session.h"

namespace zelvo::test {

inline constexpr const char* PortMessage =
    "ok ok Hiba a PortCím betöltésénél! Ellenőrizd a Címet! Új Fájl létrehozva alapértelmezett értékekkel "
    "(&H378,LPT). Indítsd újra a programot!";
inline constexpr const char* PinMessage =
    "ok ok Hiba az LPT_Port Lábkiosztás betöltésénél! Ellenőrizd a kiosztást! Új Fájl létrehozva "
    "alapértelmezett "
    "értékekkel (ZLV_F18). Indítsd újra a programot!";
inline constexpr const char* InvertMessage =
    "ok ok Hiba a Port Él(invert) adatok betöltésénél! Ellenőrizd az Él beállításokat! Új Fájl létrehozva "
    "alapértelmezett értékekkel (ZLV_F18)";
inline constexpr const char* ComInvertMessage =
    "ok ok Hiba az invert_com.ini betöltésénél! Ellenőrizd az éleket! Új Fájl létrehozva alapértelmezett "
    "értékekkel. Indítsd újra a programot!";
inline constexpr const char* SpeedMessage =
    "ok ok Hiba az Írás sebesség fájl betöltésénél! Ellenőrizd a Sebességet! Új Fájl létrehozva "
    "alapértelmezett "
    "értékekkel (1500), Indítsd újra a programot!";
inline constexpr const char* ComMessage =
    "ok ok A COM port betöltése közben hiba keletkezett, ellenőrizd a címe!";

/// A file as it can be found in the program's folder; nothing for a missing one.
using Found = std::optional<std::string>;

/// Puts `found` into the folder, reads it by `reader` and gives the messages.
inline Lines ReadFound(BenchSession& session, const char* name, const Found& found, void (*reader)()) {
  std::filesystem::remove(session.Folder().File(name));
  if (found) session.Folder().Write(name, *found);
  reader();
  return session.Look("messages");
}

/// Every one of `bad` ends in `message`, a new file that holds `written`, and what `inMemory` checks.
inline void ExpectRecovery(const char* name, void (*reader)(), const char* message, const char* written,
                           const std::vector<Found>& bad, const std::function<void()>& inMemory) {
  BenchSession session;
  for (const Found& found : bad) {
    SCOPED_TRACE(found ? "holds \"" + *found + '"' : "missing");
    EXPECT_EQ(ReadFound(session, name, found, reader), Lines{message});
    EXPECT_EQ(session.Folder().Read(name), written + std::string("\r\n"));
    inMemory();
  }
}

}  // namespace zelvo::test
