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
enum class Device { Parallel, Serial };

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
     "is served by the parallel-port device /dev/parport0."},
    {4, "the same, all lines inverted", Device::Parallel, Match::Every, "lpt-inverted",
     "is served by the parallel-port device /dev/parport0."},
    {6, "the same beside the printer's driver", Device::Parallel, Match::Every, "lpt",
     "is served by the parallel-port device /dev/parport0."},
    {9, "serial port, terminal device, group dialout", Device::Serial, Match::Changes, "com2",
     "is served by the terminal device /dev/ttyS1."},
    {10, "the same, all lines inverted", Device::Serial, Match::Changes, "com2-inverted",
     "is served by the terminal device /dev/ttyS1."},
    {11, "serial port, raw I/O", Device::Serial, Match::Every, "com3", "is served by raw I/O"},
    {12, "the same, all lines inverted", Device::Serial, Match::Every, "com3-inverted",
     "is served by raw I/O"},
};

struct Saying {
  int mark;
  const char* name;
  const char* says;
};
constexpr Saying Sayings[] = {
    {5, "an operator outside the group learns which one", "group lp"},
    {7, "a port in use is told with its holder", "port_probe (process"},
    {8, "a program ended from outside", "ended by 143"},
    {13, "CTS follows RTS through the terminal device", "CTS follows RTS"},
    {14, "CTS follows RTS through raw I/O", "CTS follows RTS"},
};

constexpr int OutsideOfJobs = 255;
/// Accesses that the opening and the closing of a port may add before and behind the script's.
constexpr std::size_t MostAround = 6;

/// The bits of a register that move lines; 0 for a register without lines.
int LineBits(Device device, int reg) {
  if (device == Device::Parallel) return reg == 0 ? 0xFF : 0;
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

/// The record, cut at the marks: scratch register writes of a serial port.
std::map<int, std::map<Device, Accesses>> ReadRecord(const std::string& path) {
  std::map<int, std::map<Device, Accesses>> jobs;
  int mark = OutsideOfJobs;
  std::ifstream file(path);
  for (std::string line; std::getline(file, line);) {
    const Device device = line.rfind("parallel", 0) == 0 ? Device::Parallel : Device::Serial;
    const char kind = line.find("_write ") != std::string::npos ? 'W' : 'R';
    const std::size_t at = line.find("addr 0x");
    unsigned reg = 0;
    unsigned value = 0;
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

void JudgeIdleAfterSignal(const Accesses& recorded) {
  constexpr int Vdd = 4;
  Accesses writes;
  for (const Access& one : recorded) {
    if (one.kind == 'W' && one.reg == 0) writes.push_back(one);
  }
  const bool wasOn =
      std::any_of(writes.begin(), writes.end(), [](const Access& one) { return one.value == Vdd; });
  Tell(wasOn && writes.back().value == 0, "Vdd rests behind a SIGTERM",
       writes.empty() ? "no writes" : "the last byte is " + std::to_string(writes.back().value));
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
  JudgeIdleAfterSignal(record[8][Device::Parallel]);
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
