// The seams to the machine: everything the program needs from outside its own memory. Interfaces only;
// an application installs an implementation of each in `platform::seams` before the start-up runs.
#pragma once

#include <optional>
#include <string>

namespace zelvo::platform {

/// Byte-wide I/O port access. Each call is one I/O cycle and cannot fail visibly: an address behind which
/// there is nothing swallows writes and reads as 0xFF.
class Ports {
 public:
  virtual ~Ports() = default;
  virtual void Out32(int address, int value) = 0;    ///< address 0..FFFFh, value 0..FFh
  [[nodiscard]] virtual int Inp32(int address) = 0;  ///< gives 0..FFh
};

/// Holds the serial device for the program while the lines are moved through the UART's registers.
class SerialClaim {
 public:
  virtual ~SerialClaim() = default;
  [[nodiscard]] virtual bool IsOpen() const = 0;
  virtual void Close() = 0;
  /// Opens COM port `number` (1..4, or 0 when none was ever derived) with `settings` as "9600,N,8,1".
  /// False when the device cannot be had.
  [[nodiscard]] virtual bool Open(int number, const std::string& settings) = 0;
};

/// Thrown out of an event-pump pass once the main window has been closed, so that a running operation ends
/// where it stands: its handler unwinds, no line moves any more.
struct ProgramEnded {};

/// The event pump: serves the operator's pending events. One pass is the time unit of the link and lasts 1
/// us.
class EventPump {
 public:
  virtual ~EventPump() = default;
  /// One call of `Vár_Ír`: `passes` pump passes, 0 for none at all.
  virtual void EdgeWait(long long passes) = 0;
  /// One pass on behalf of a progress update.
  virtual void Once() = 0;
  /// Pump until `flag` is set (by a tick of a timer).
  virtual void Until(const bool& flag) = 0;
};

enum class HoldTimer { P9, P11 };

/// The two interval timers of the programming holds: P9 ticks after 1 ms, P11 after 6 ms. A tick sets the
/// flag given to `Enable`; it is delivered by a pass of the event pump.
class Timers {
 public:
  virtual ~Timers() = default;
  virtual void Enable(HoldTimer timer, bool& flag) = 0;
  virtual void Disable(HoldTimer timer) = 0;
};

enum class HeldDelay { Settle, PowerCycle, Szün };

/// Delays that hold the processor: no event is served while they last.
class Delays {
 public:
  virtual ~Delays() = default;
  /// `waitCount` is the speed in force, told for the record; `microseconds` is the length.
  virtual void Hold(HeldDelay kind, double waitCount, double microseconds) = 0;
};

struct FileFilter {
  std::string filter;            ///< "caption|pattern|caption|pattern"
  std::string defaultExtension;  ///< without a point; empty for none
};

/// Message boxes, file dialogs and the browser.
class Dialogs {
 public:
  virtual ~Dialogs() = default;
  virtual void Message(const std::string& text) = 0;                 ///< a box with Ok only, without title
  [[nodiscard]] virtual bool AskYesNo(const std::string& text) = 0;  ///< true for Yes
  /// The chosen path; nothing when the dialog was cancelled.
  [[nodiscard]] virtual std::optional<std::string> OpenFile(const FileFilter& filter) = 0;
  [[nodiscard]] virtual std::optional<std::string> SaveFile(const FileFilter& filter) = 0;
  virtual void OpenInformationPage(const std::string& path) = 0;
};

/// The local wall clock.
class Clock {
 public:
  virtual ~Clock() = default;
  [[nodiscard]] virtual std::string LocalTime() = 0;  ///< "HH:MM:SS"
};

struct Seams {
  Ports* ports = nullptr;
  SerialClaim* serial = nullptr;
  EventPump* pump = nullptr;
  Timers* timers = nullptr;
  Delays* delays = nullptr;
  Dialogs* dialogs = nullptr;
  Clock* clock = nullptr;
};

/// The installed seams. All pointers are set before `ui::StartUp` and stay for the life of the process.
inline Seams seams;

/// The program's own folder, where the five settings files are read and written; without a slash at the end.
inline std::string programFolder = ".";

/// True once `MDIForm1` has been closed. Every pump implementation throws `ProgramEnded` at the end of a pass
/// in which it finds this set.
inline bool programEnded = false;

}  // namespace zelvo::platform
