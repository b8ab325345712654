// Runs inside a guest machine: the program on the guest's real ports, driven by a bench script, and small
// services for the guest's own start script.
//
//   port_probe say                      standard input to the debug port E9h, where the host reads it
//   port_probe mark NUMBER              a mark in the host's record of register accesses
//   port_probe run FOLDER SCRIPT [WHO]  a bench script on the ports of the machine; WHO is UID:GID
//   port_probe loop FOLDER BASE         RTS comes back as CTS through the UART's loop-back
//   port_probe cost FOLDER BASE         time of a port access and of a clocked bit
//   port_probe hold DEVICE              claims a parallel port until it is killed
//   port_probe poke ADDRESS VALUE       one byte to a register, both hexadecimal
#include <fcntl.h>
#include <grp.h>
#include <linux/ppdev.h>
#include <sys/io.h>
#include <sys/ioctl.h>
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

int Fail(const std::string& what) {
  std::cout << "probe: " << what << '\n';
  return 1;
}

int Say(const Words&) {
  if (ioperm(DebugPort, 1, 1) != 0) return 1;
  for (int c = std::getchar(); c != EOF; c = std::getchar()) outb(static_cast<unsigned char>(c), DebugPort);
  return 0;
}

int Mark(const Words& words) {
  if (ioperm(MarkPort, 1, 1) != 0) return Fail("no marks without raw I/O");
  outb(static_cast<unsigned char>(std::stoi(words.at(0))), MarkPort);
  return 0;
}

/// The program's own ports behind a bench: its commands and its counted time, but no simulated board.
struct Machine {
  explicit Machine(const std::string& folder)
      : bench([](std::string_view line) { std::cout << line << '\n'; }) {
    platform::programFolder = folder;
    linuxio::InstallIdleOnSignals();
    linuxio::PortContext context;
    context.programFolder = folder;
    context.idleLevels = linuxio::IdleLevelsOfBoard;
    context.tell = [](const std::string& line) { std::cout << line << std::endl; };
    const auto table = linuxio::MakePortTable(context);
    ports = linuxio::MakePorts(table);
    serial = linuxio::MakeSerialClaim(table);
    platform::seams.ports = ports.get();
    platform::seams.serial = serial.get();
  }

  bench::Bench bench;
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
  constexpr int Rts = 2;
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

int Cost(const Words& words) {
  Machine machine(words.at(0));
  const int base = std::stoi(words.at(1), nullptr, 16);
  for (const char* command : {"start", "tab 2", "choose Combo1 PIC18F452"}) machine.bench.Run(command);
  link::Address(0);
  const int output = base + (link::ComMode ? link::UartModemControl : link::LptData);
  const int input = base + (link::ComMode ? link::UartModemStatus : link::LptStatus);
  constexpr int Times = 2000;
  int level = 0;
  const double write = TimeOf(Times, [&] { machine.ports->Out32(output, level ^= 2); });
  const double readBack = TimeOf(Times, [&] { static_cast<void>(machine.ports->Inp32(output)); });
  const double read = TimeOf(Times, [&] { static_cast<void>(machine.ports->Inp32(input)); });
  link::WaitCount = 0;
  const double word = TimeOf(Times / 16, [] { icsp::ClockOutBits("0101010101010101"); });
  std::cout << "write " << write << " ns, read-back " << readBack << " ns, read of the input " << read
            << " ns, a clocked bit " << word / 16 << " ns\n";
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

}  // namespace

int main(int count, char** words) {
  const std::map<std::string, int (*)(const Words&)> jobs = {
      {"say", Say},   {"mark", Mark}, {"run", RunScript}, {"loop", Loop},
      {"poke", Poke}, {"cost", Cost}, {"hold", Hold}};
  const auto job = jobs.find(count > 1 ? words[1] : "");
  if (job == jobs.end()) return 2;
  return job->second(Words(words + 2, words + count));
}
