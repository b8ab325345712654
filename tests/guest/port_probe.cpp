// Runs inside a guest machine: the program on the guest's real ports, driven by a bench script, and small
// services for the guest's own start script.
//
//   port_probe say                      standard input to the debug port E9h, where the host reads it
//   port_probe mark NUMBER              a mark in the host's record of register accesses
//   port_probe run FOLDER SCRIPT [WHO]  a bench script on the ports of the machine; WHO is UID:GID
//   port_probe loop FOLDER BASE         RTS comes back as CTS through the UART's loop-back
//   port_probe cost FOLDER BASE         time of a port access and of a clocked bit
//   port_probe hold DEVICE              claims a parallel port until it is killed
//   port_probe raise FOLDER [WHO]       every line of the board away from its rest until it is killed
//   port_probe lose FOLDER BASE         the same, then goes on moving lines until the port has left, and on
//   port_probe poke ADDRESS VALUE       one byte to a register, both hexadecimal
#include <fcntl.h>
#include <grp.h>
#include <linux/ppdev.h>
#include <signal.h>
#include <sys/io.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "bench/bench.h"
#include "icsp/pic18_engine.h"
#include "link/delays.h"
#include "link/port.h"
#include "link/settings.h"
#include "linux/board_idle.h"
#include "linux/idle_on_signals.h"
#include "linux/ports.h"
#include "linux/uart_port.h"

namespace {

using namespace zelvo;
using Words = std::vector<std::string>;

constexpr unsigned short DebugPort = 0xE9;
/// The scratch register of the third serial port: a write there moves nothing and stands in the record.
constexpr unsigned short MarkPort = 0x3EF;
/// Both outputs of a UART's modem control register.
constexpr int Dtr = 1;
constexpr int Rts = 2;

int Fail(const std::string& what) {
  std::cout << "probe: " << what << '\n';
  return 1;
}

int Say(const Words&) {
  if (ioperm(DebugPort, 1, 1) != 0) return 1;
  std::cout << "ready" << std::endl;
  for (int c = std::getchar(); c != EOF; c = std::getchar()) outb(static_cast<unsigned char>(c), DebugPort);
  return 0;
}

int Mark(const Words& words) {
  if (ioperm(MarkPort, 1, 1) != 0) return Fail("no marks without raw I/O");
  outb(static_cast<unsigned char>(std::stoi(words.at(0))), MarkPort);
  return 0;
}

/// The system calls of the ports, counted by kind: which of them, on which descriptor, how often.
struct Calls {
  std::map<unsigned long, long> requests;
  long outs = 0;
  long ins = 0;
  int descriptor = -1;
};
Calls calls;

const linuxio::SystemCalls& CountedCalls() {
  static const linuxio::SystemCalls counted = [] {
    linuxio::SystemCalls table = linuxio::RealSystemCalls();
    table.ioctl = [](int descriptor, unsigned long request, void* argument) {
      ++calls.requests[request];
      calls.descriptor = descriptor;
      return linuxio::RealSystemCalls().ioctl(descriptor, request, argument);
    };
    table.outb = [](unsigned char value, unsigned short port) {
      ++calls.outs;
      linuxio::RealSystemCalls().outb(value, port);
    };
    table.inb = [](unsigned short port) {
      ++calls.ins;
      return linuxio::RealSystemCalls().inb(port);
    };
    return table;
  }();
  return counted;
}

/// The program's own ports behind a bench: its commands and its counted time, but no simulated board.
struct Machine {
  explicit Machine(const std::string& folder, const linuxio::SystemCalls& system = linuxio::RealSystemCalls())
      : bench([](std::string_view line) { std::cout << line << '\n'; }) {
    platform::programFolder = folder;
    linuxio::InstallIdleOnSignals();
    linuxio::PortContext context;
    context.system = &system;
    context.programFolder = folder;
    context.idleLevels = linuxio::IdleLevelsOfBoard;
    context.tell = [this](const std::string& line) {
      std::cout << line << std::endl;
      ++told;
    };
    const auto table = linuxio::MakePortTable(context);
    ports = linuxio::MakePorts(table);
    serial = linuxio::MakeSerialClaim(table);
    platform::seams.ports = ports.get();
    platform::seams.serial = serial.get();
  }

  bench::Bench bench;
  int told = 0;  ///< lines about the ports
  std::unique_ptr<platform::Ports> ports;
  std::unique_ptr<platform::SerialClaim> serial;
};

bool Become(const std::string& who) {
  const auto gid = static_cast<gid_t>(std::stoi(who.substr(who.find(':') + 1)));
  const auto uid = static_cast<uid_t>(std::stoi(who));
  return setgroups(0, nullptr) == 0 && setgid(gid) == 0 && setuid(uid) == 0;
}

int RunScript(const Words& words) {
  if (words.size() > 2 && !Become(words[2])) return Fail("cannot become " + words[2]);
  std::ifstream script(words.at(1));
  Machine machine(words.at(0));
  for (std::string line; std::getline(script, line);) {
    machine.bench.Run(line);
    std::cout.flush();
  }
  return machine.bench.AllOk() ? 0 : Fail("a command was refused");
}

int Loop(const Words& words) {
  Machine machine(words.at(0));
  const int base = std::stoi(words.at(1), nullptr, 16);
  constexpr int LoopBack = 16;
  bool follows = true;
  for (const bool level : {true, false, true, false}) {
    machine.ports->Out32(base + link::UartModemControl, LoopBack | (level ? Rts : 0));
    follows = follows && ((machine.ports->Inp32(base + link::UartModemStatus) & link::CtsBit) != 0) == level;
  }
  machine.ports->Out32(base + link::UartModemControl, 0);
  std::cout << (follows ? "CTS follows RTS\n" : "CTS does NOT follow RTS\n");
  return follows ? 0 : 1;
}

/// Nanoseconds of one of many.
double TimeOf(int times, const std::function<void()>& what) {
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < times; ++i) what();
  const std::chrono::duration<double, std::nano> all = std::chrono::steady_clock::now() - start;
  return all.count() / times;
}

void SelectChip(Machine& machine) {
  for (const char* command : {"start", "tab 2", "choose Combo1 PIC18F452"}) machine.bench.Run(command);
  link::WaitCount = 0;
}

constexpr const char* Payload = "0101010101010101";
constexpr int PayloadBits = 16;

constexpr int Times = 4000;

/// What the system calls of one clocked bit cost by themselves: each kind called alone, as often as counted.
int TellBareCost(const std::string& folder, int base) {
  const linuxio::SystemCalls& real = linuxio::RealSystemCalls();
  Machine machine(folder, CountedCalls());
  SelectChip(machine);
  icsp::ClockOutBits(Payload);
  calls.requests.clear();
  calls.outs = calls.ins = 0;
  for (int i = 0; i < Times / PayloadBits; ++i) icsp::ClockOutBits(Payload);
  const auto port =
      static_cast<unsigned short>(base + (link::ComMode ? link::UartModemControl : link::LptData));
  double bare = 0;
  const auto add = [&bare](long count, const std::function<void()>& call) {
    if (count > 0) bare += static_cast<double>(count) * TimeOf(Times, call);
  };
  add(calls.outs, [&] { real.outb(0, port); });
  add(calls.ins, [&] { static_cast<void>(real.inb(port)); });
  int lines = 0;
  for (const auto& [request, count] : std::map(calls.requests)) {
    add(count, [&, code = request] {
      lines ^= 2;  // a driver does nothing for lines that stay
      static_cast<void>(real.ioctl(calls.descriptor, code, &lines));
    });
  }
  std::cout << "of a clocked bit its system calls alone " << bare / (Times / PayloadBits * PayloadBits)
            << " ns\n";
  return 0;
}

int TellCost(const std::string& folder, int base) {
  Machine machine(folder);
  SelectChip(machine);
  const int output = base + (link::ComMode ? link::UartModemControl : link::LptData);
  const int input = base + (link::ComMode ? link::UartModemStatus : link::LptStatus);
  int level = 0;
  const double write = TimeOf(Times, [&] { machine.ports->Out32(output, level ^= 2); });
  const double read = TimeOf(Times, [&] { static_cast<void>(machine.ports->Inp32(input)); });
  const double word = TimeOf(Times / PayloadBits, [] { icsp::ClockOutBits(Payload); });
  std::cout << "write " << write << " ns, read of the input " << read << " ns, a clocked bit "
            << word / PayloadBits << " ns\n";
  return 0;
}

/// The program starts once in a process, so each measurement has one.
int Cost(const Words& words) {
  const int base = std::stoi(words.at(1), nullptr, 16);
  for (const auto tell : {TellCost, TellBareCost}) {
    const pid_t child = fork();
    if (child == 0) {
      const int status = tell(words[0], base);
      std::cout.flush();
      _exit(status);
    }
    waitpid(child, nullptr, 0);
  }
  return 0;
}

int Poke(const Words& words) {
  const auto address = static_cast<unsigned short>(std::stoi(words.at(0), nullptr, 16));
  if (ioperm(address, 1, 1) != 0) return Fail("no raw I/O");
  outb(static_cast<unsigned char>(std::stoi(words.at(1), nullptr, 16)), address);
  return 0;
}

int Hold(const Words& words) {
  const int device = open(words.at(0).c_str(), O_RDWR);
  if (device < 0 || ioctl(device, PPCLAIM) != 0) return Fail("cannot claim " + words[0]);
  std::cout << "held" << std::endl;
  for (;;) pause();
}

/// Starts the program and moves every line away from its rest: Vdd and Vpp on, among others.
void RaiseLines(Machine& machine) {
  machine.bench.Run("start");
  for (const linuxio::IdleRegister& lines : linuxio::IdleLevelsOfBoard()) {
    if (lines.address < 0) continue;
    const int now = machine.ports->Inp32(lines.address);
    machine.ports->Out32(lines.address, (now & ~lines.mask) | (lines.value ^ lines.mask));
  }
  std::cout << "raised" << std::endl;
}

int Raise(const Words& words) {
  if (words.size() > 1 && !Become(words[1])) return Fail("cannot become " + words[1]);
  // A shell lets what runs behind an & ignore these two.
  for (const int wanted : {SIGINT, SIGQUIT}) static_cast<void>(signal(wanted, SIG_DFL));
  Machine machine(words.at(0));
  RaiseLines(machine);
  for (;;) pause();
}

/// A port that leaves during a run: told once, all accesses come back, the program ends as always.
int Lose(const Words& words) {
  Machine machine(words.at(0));
  const int base = std::stoi(words.at(1), nullptr, 16);
  RaiseLines(machine);
  const int toldAtStart = machine.told;
  const auto move = [&machine, base](int level) {
    machine.ports->Out32(base + link::UartModemControl, level);
    return machine.ports->Inp32(base + link::UartModemStatus);
  };
  constexpr int Patience = 500;
  for (int i = 0; machine.told == toldAtStart && i < Patience; ++i) {
    move(i % 2 == 0 ? Dtr : Rts);
    usleep(10000);
  }
  bool still = true;
  for (int i = 0; i < Times; ++i) still = still && move(i % 4) == 0xFF;
  machine.bench.Run("stop");
  std::cout << (still && machine.told == toldAtStart + 1 ? "lost once and still\n"
                                                         : "NOT lost as it should\n");
  return 0;
}

}  // namespace

int main(int count, char** words) {
  const std::map<std::string, int (*)(const Words&)> jobs = {
      {"say", Say},   {"mark", Mark}, {"run", RunScript}, {"loop", Loop}, {"poke", Poke},
      {"cost", Cost}, {"hold", Hold}, {"raise", Raise},   {"lose", Lose}};
  const auto job = jobs.find(count > 1 ? words[1] : "");
  if (job == jobs.end()) return 2;
  return job->second(Words(words + 2, words + count));
}
