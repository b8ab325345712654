// Brings the lines to rest when the program is ended from outside or crashes: a parallel port keeps its last
// byte after the program's death, target supply and programming voltage included.
#pragma once

namespace zelvo::linuxio {

class RegisterPort;

/// From now on the signal handler brings this port to rest. A port that finds all places taken is left out;
/// there are more places than a program has ports.
void PublishForIdle(RegisterPort& port) noexcept;
/// Must run before the port's descriptor is closed.
void WithdrawFromIdle(RegisterPort& port) noexcept;
/// Brings every published port to rest. Async-signal-safe.
void WriteIdleLevels() noexcept;

/// Installs the handler for SIGTERM, SIGINT, SIGHUP, SIGQUIT, SIGPIPE and the crash signals. It writes the
/// idle levels and lets the signal then do what it does by default. A signal that the parent has set to be
/// ignored stays ignored. The levels are written at exit() too. Call once, from the main thread.
void InstallIdleOnSignals();

}  // namespace zelvo::linuxio
