// Judges what a guest machine's ports have seen: compares the host's record of the guest's register accesses
// with the wire logs of the same scripts at the bench, and the guest's words with what they have to be.
//
//   port_judge RECORD WORDS WIRES      WIRES is the folder of the bench's logs
#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace {

struct Access {
  char kind;  ///< 'W' or 'R'
  int reg;    ///< offset from the port's base
  int value;
  bool operator==(const Access&) const = default;
};
using Accesses = std::vector<Access>;
enum class Device { Parallel, Serial, Usb };

/// How much of the traffic has to be the same.
enum class Match {
  Every,    ///< every access of the line registers in the same order
  Changes,  ///< every change of a line in the same order: the driver writes nothing that changes nothing
};

struct Job {
  int mark;
  const char* name;
  Device device;
  Match match;
  const char* wire;
  const char* says;
};
constexpr Job Jobs[] = {
    {1, "printer port, raw I/O", Device::Parallel, Match::Every, "lpt", "is served by raw I/O"},
    {2, "the same, all lines inverted", Device::Parallel, Match::Every, "lpt-inverted",
     "is served by raw I/O"},
    {3, "printer port, parallel-port device, group lp", Device::Parallel, Match::Every, "lpt",
     "is served by the parallel-port device /dev/parport1."},
    {4, "the same, all lines inverted", Device::Parallel, Match::Every, "lpt-inverted",
     "is served by the parallel-port device /dev/parport1."},
    {6, "the same beside the printer's driver", Device::Parallel, Match::Every, "lpt",
     "is served by the parallel-port device /dev/parport1."},
    {9, "serial port, terminal device, group dialout", Device::Serial, Match::Changes, "com2",
     "is served by the terminal device /dev/ttyS1."},
    {10, "the same, all lines inverted", Device::Serial, Match::Changes, "com2-inverted",
     "is served by the terminal device /dev/ttyS1."},
    {11, "serial port, raw I/O", Device::Serial, Match::Every, "com3", "is served by raw I/O"},
    {12, "the same, all lines inverted", Device::Serial, Match::Every, "com3-inverted",
     "is served by raw I/O"},
    {44, "USB adapter behind a link, group dialout", Device::Usb, Match::Changes, "com4",
     "is served by the terminal device /dev/ttyUSB0 (COM4 in the program's folder)."},
};

struct Saying {
  int mark;
  const char* name;
  const char* says;
};
constexpr Saying Sayings[] = {
    {5, "an operator outside the group learns which one", "group lp"},
    {7, "a port in use is told with its holder", "/dev/parport1 is in use by port_probe (process"},
    {18, "a port held exclusively is told with its holder", "/dev/parport1 is in use by port_probe (process"},
    {43, "so is a terminal device", "/dev/ttyS1 is in use by port_probe (process"},
    {43, "a holder that the operator may not see is guessed",
     "/dev/ttyS1 is in use by another program, perhaps"},
    {13, "CTS follows RTS through the terminal device", "CTS follows RTS"},
    {14, "CTS follows RTS through raw I/O", "CTS follows RTS"},
    {9, "the terminal's settings are restored", "settings as found"},
    {46, "a USB adapter that is pulled out is told",
     "/dev/ttyUSB0 at port 2E8h is gone (Input/output error)"},
    {46, "its lines stop, and the program does not", "lost once and still"},
    {47, "a UART whose driver leaves is told", "/dev/ttyS1 at port 2F8h is gone (Input/output error)"},
    {47, "its lines stop, and the program does not", "lost once and still"},
    {46, "it ends as always", "ended by 0"},
    {47, "it ends as always", "ended by 0"},
    {60, "raw I/O under lockdown", "raw I/O is forbidden by the kernel lockdown (Secure Boot)"},
};

/// A program that has raised its lines, and every change of a line from its start to behind its end, as
/// REGISTER=VALUE. The opening of a terminal device raises DTR and RTS (4=3); the program lowers them at
/// once.
struct Ending {
  int mark;
  const char* name;
  Device device;
  int status;  ///< as a shell tells it: 128 and the signal
  const char* changes;
};
constexpr Ending Endings[] = {
    // Nothing answers there, so the four bits without lines are ones until a byte is written.
    {17, "lines at 3BCh, ended by SIGTERM", Device::Parallel, 143, "4=f0 4=ff 4=f0"},
    {18, "lines that a second program is kept from", Device::Parallel, 143, "0=f 0=0"},
    {30, "printer port, ended by SIGTERM", Device::Parallel, 143, "0=f 0=0"},
    {31, "printer port, ended by SIGINT", Device::Parallel, 130, "0=f 0=0"},
    {32, "printer port, ended by SIGHUP", Device::Parallel, 129, "0=f 0=0"},
    {33, "printer port, ended by SIGQUIT", Device::Parallel, 131, "0=f 0=0"},
    {34, "printer port, ended by SIGSEGV", Device::Parallel, 139, "0=f 0=0"},
    {35, "printer port, ended by SIGABRT", Device::Parallel, 134, "0=f 0=0"},
    {36, "printer port, inverted, ended by SIGSEGV", Device::Parallel, 139, "0=f 0=0 0=f"},
    {37, "printer port, killed: it keeps its byte", Device::Parallel, 137, "0=f"},
    {38, "printer port by raw I/O, ended by SIGTERM", Device::Parallel, 143, "0=f 0=0"},
    {39, "serial port by raw I/O, ended by SIGTERM", Device::Serial, 143, "4=3 3=40 3=0 4=0"},
    {40, "serial port, ended by SIGTERM", Device::Serial, 143, "4=3 4=0 4=3 3=40 4=0 3=0"},
    {41, "serial port, inverted, ended by SIGSEGV", Device::Serial, 139,
     "4=3 4=0 4=1 4=3 3=40 4=0 3=0 4=3 3=40 4=0 3=0"},
    {42, "serial port, killed: the kernel drops its lines", Device::Serial, 137, "4=3 4=0 4=3 3=40 4=0 3=0"},
    {43, "serial lines that a second program is kept from", Device::Serial, 143, "4=3 4=0 4=3 3=40 4=0 3=0"},
    {45, "USB adapter, killed: it keeps its break", Device::Usb, 137, "4=3 4=0 4=3 3=40 4=0"},
};

constexpr int OutsideOfJobs = 255;
/// Accesses that the opening and the closing of a port may add before and behind the script's.
constexpr std::size_t MostAround = 6;

/// The bits of a register that move lines; 0 for a register without lines.
int LineBits(Device device, int reg) {
  // The emulated port at 3BCh tells the addresses' lower three bits, so its data register is 4.
  if (device == Device::Parallel) return reg == 0 || reg == 4 ? 0xFF : 0;
  return reg == 3 ? 0x40 : reg == 4 ? 0x03 : 0;
}
/// The register that is read for the data-in line: what it gives is the machine's own affair.
int InputRegister(Device device) {
  return device == Device::Parallel ? 1 : 6;
}

Accesses OfLines(const Accesses& all, Device device) {
  Accesses lines;
  for (const Access& one : all) {
    const int bits = LineBits(device, one.reg);
    if (bits != 0 || (one.reg == InputRegister(device) && one.kind == 'R'))
      lines.push_back({one.kind, one.reg, one.value & bits});
  }
  return lines;
}

Accesses OfChanges(const Accesses& lines) {
  std::map<int, int> now;
  Accesses changes;
  for (const Access& one : lines) {
    if (one.kind != 'W' || now[one.reg] == one.value) continue;
    now[one.reg] = one.value;
    changes.push_back(one);
  }
  return changes;
}

/// "W 0378 05" lines of a bench log.
Accesses ReadWire(const std::string& path) {
  std::ifstream file(path);
  Accesses all;
  for (std::string line; std::getline(file, line);) {
    char kind = 0;
    unsigned address = 0;
    unsigned value = 0;
    if (std::sscanf(line.c_str(), "%c %4X %2X", &kind, &address, &value) == 3 && (kind == 'W' || kind == 'R'))
      all.push_back({kind, static_cast<int>(address & 7), static_cast<int>(value)});
  }
  return all;
}

/// The registers that a line's request to the USB adapter stands for; the adapter knows no others.
Accesses OfUsbRequest(unsigned request, unsigned value) {
  constexpr unsigned SetModemLines = 0x4001;  // the upper byte tells which of the lower one's lines are meant
  constexpr unsigned SetFormat = 0x4004;
  constexpr unsigned BreakInFormat = 0x4000;
  if (request == SetModemLines && value >> 8 == 3) return {{'W', 4, static_cast<int>(value & 3)}};
  if (request == SetFormat) return {{'W', 3, (value & BreakInFormat) != 0 ? 0x40 : 0}};
  return {};
}

/// The record, cut at the marks: scratch register writes of a serial port.
std::map<int, std::map<Device, Accesses>> ReadRecord(const std::string& path) {
  std::map<int, std::map<Device, Accesses>> jobs;
  int mark = OutsideOfJobs;
  std::ifstream file(path);
  for (std::string line; std::getline(file, line);) {
    unsigned reg = 0;
    unsigned value = 0;
    if (const std::size_t at = line.find("got control 0x"); at != std::string::npos) {
      std::sscanf(line.c_str() + at, "got control 0x%x, value 0x%x", &reg, &value);
      for (const Access& one : OfUsbRequest(reg, value)) jobs[mark][Device::Usb].push_back(one);
      continue;
    }
    const Device device = line.rfind("parallel", 0) == 0 ? Device::Parallel : Device::Serial;
    const char kind = line.find("_write ") != std::string::npos ? 'W' : 'R';
    const std::size_t at = line.find("addr 0x");
    if (at == std::string::npos || std::sscanf(line.c_str() + at, "addr 0x%x val 0x%x", &reg, &value) != 2)
      continue;
    if (device == Device::Serial && kind == 'W' && reg == 7) {
      mark = static_cast<int>(value);
    } else if (mark != OutsideOfJobs) {
      jobs[mark][device].push_back({kind, static_cast<int>(reg), static_cast<int>(value)});
    }
  }
  return jobs;
}

/// The guest's words behind "== MARK" lines.
std::map<std::string, std::string> ReadWords(const std::string& path) {
  std::map<std::string, std::string> words;
  std::string job;
  std::ifstream file(path);
  for (std::string line; std::getline(file, line);) {
    if (line.rfind("== ", 0) == 0) {
      job = line.substr(3);
      words[job];
    } else {
      words[job] += line + "\n";
    }
  }
  return words;
}

int failures = 0;

void Tell(bool good, const std::string& name, const std::string& detail) {
  std::cout << (good ? "ok    " : "FAILS ") << name << ": " << detail << '\n';
  failures += good ? 0 : 1;
}

std::string ToText(const Access& one) {
  std::ostringstream text;
  text << one.kind << " base+" << one.reg << ' ' << std::hex << one.value;
  return text.str();
}

/// Where two sequences part, for the one who has to mend it.
std::string FirstDifference(const Accesses& expected, const Accesses& seen) {
  const auto [a, b] = std::mismatch(expected.begin(), expected.end(), seen.begin(), seen.end());
  std::ostringstream text;
  text << expected.size() << " expected, " << seen.size() << " seen; access " << a - expected.begin() << ": "
       << (a == expected.end() ? "end" : ToText(*a)) << " expected, "
       << (b == seen.end() ? "end" : ToText(*b)) << " seen";
  return text.str();
}

void JudgeTraffic(const Job& job, const Accesses& recorded, const std::string& wires) {
  Accesses expected = OfLines(ReadWire(wires + "/" + job.wire + ".wire"), job.device);
  Accesses seen = OfLines(recorded, job.device);
  if (job.match == Match::Changes) {
    expected = OfChanges(expected);
    seen = OfChanges(seen);
  }
  const auto at = std::search(seen.begin(), seen.end(), expected.begin(), expected.end());
  const auto before = static_cast<std::size_t>(at - seen.begin());
  const bool found = !expected.empty() && at != seen.end();
  const std::size_t behind = found ? seen.size() - before - expected.size() : 0;
  const bool good = found && before <= MostAround && behind <= MostAround;
  std::ostringstream detail;
  if (good) {
    detail << expected.size() << (job.match == Match::Changes ? " changes" : " accesses")
           << " in the bench's order (" << before << " before, " << behind << " behind)";
  } else {
    detail << FirstDifference(expected, seen);
  }
  Tell(good, job.name, detail.str());
}

void JudgeEnding(const Ending& ending, const Accesses& recorded, const std::string& words) {
  std::ostringstream changes;
  changes << std::hex;
  for (const Access& one : OfChanges(OfLines(recorded, ending.device)))
    changes << (changes.tellp() > 0 ? " " : "") << one.reg << '=' << one.value;
  const std::string status = "ended by " + std::to_string(ending.status);
  const bool good = changes.str() == ending.changes && words.find(status + "\n") != std::string::npos;
  Tell(good, ending.name,
       changes.str() + (good ? "" : ", and should have been " + std::string(ending.changes) + ", " + status));
}

/// New settings would rewrite the line control register and drop a break: the divisor latch (80h), which
/// every change of settings opens, stays shut from the first line that the program moves to the last.
void JudgeSettingsDuringARun(const Accesses& recorded) {
  constexpr int DivisorLatch = 0x80;
  Accesses run;
  for (const Access& one : recorded) {
    if (one.kind == 'W' && (one.reg == 3 || one.reg == 4)) run.push_back(one);
  }
  const auto moves = [](const Access& one) { return LineBits(Device::Serial, one.reg) & one.value; };
  const auto opens = [](const Access& one) { return one.reg == 3 && (one.value & DivisorLatch) != 0; };
  // Behind the opening's own rise of both lines.
  auto first = std::find_if(run.begin(), run.end(), moves);
  while (first != run.end() && moves(*first) != 0) ++first;
  first = std::find_if(first, run.end(), moves);
  const auto last = std::find_if(run.rbegin(), run.rend(), moves).base();
  const bool good = first < last && std::none_of(first, last, opens);
  Tell(good && std::any_of(run.begin(), first, opens) && std::any_of(last, run.end(), opens),
       "the terminal's settings are put before the run and behind it, never in it",
       std::to_string(std::distance(first, last)) + " writes in the run");
}

/// The driver leaves a bit on the data lines when it is loaded: Vdd, by the default pin map.
void JudgeIdleAtStart(const Accesses& recorded) {
  const auto first =
      std::find_if(recorded.begin(), recorded.end(), [](const Access& one) { return one.reg == 0; });
  const auto write = std::find_if(recorded.begin(), recorded.end(),
                                  [](const Access& one) { return one.reg == 0 && one.kind == 'W'; });
  const bool good = first != recorded.end() && write != recorded.end() && first->kind == 'R' &&
                    first->value != 0 && write->value == 0;
  Tell(good, "what loading the driver leaves on the lines is put to rest at start",
       first == recorded.end() ? "no access" : ToText(*first) + " before the first write");
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 4) return 2;
  auto record = ReadRecord(arguments[1]);
  auto words = ReadWords(arguments[2]);
  for (const Job& job : Jobs) {
    JudgeTraffic(job, record[job.mark][job.device], arguments[3]);
    const bool said = words[std::to_string(job.mark)].find(job.says) != std::string::npos;
    if (!said)
      Tell(false, job.name,
           "does not say \"" + std::string(job.says) + "\":\n" + words[std::to_string(job.mark)]);
  }
  for (const Saying& one : Sayings) {
    const bool said = words[std::to_string(one.mark)].find(one.says) != std::string::npos;
    Tell(said, one.name, said ? one.says : "not said:\n" + words[std::to_string(one.mark)]);
  }
  for (const Ending& ending : Endings)
    JudgeEnding(ending, record[ending.mark][ending.device], words[std::to_string(ending.mark)]);
  JudgeSettingsDuringARun(record[9][Device::Serial]);
  JudgeIdleAtStart(record[16][Device::Parallel]);
  const std::pair<int, const char*> costs[] = {{20, "printer port, raw I/O"},
                                               {21, "printer port, parallel-port device"},
                                               {22, "serial port, terminal device"},
                                               {23, "serial port, raw I/O"}};
  for (const auto& [mark, way] : costs) {
    const std::string text = words[std::to_string(mark)];
    for (const char* beginning : {"write ", "of a clocked bit "}) {
      const std::size_t at = text.find(beginning);
      Tell(at != std::string::npos, std::string("cost, ") + way,
           at == std::string::npos ? text : text.substr(at, text.find('\n', at) - at));
    }
  }
  Tell(words.count("end") != 0, "the guest", "came to its end");
  return failures == 0 ? 0 : 1;
}
