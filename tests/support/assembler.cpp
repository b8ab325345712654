#include "support/assembler.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <vector>

namespace zelvo::test {
namespace {

namespace fs = std::filesystem;

struct Block {
  std::uint32_t first;
  std::uint32_t bytes;
};

constexpr std::uint32_t Segment = 0x10000;
constexpr std::uint32_t Reachable = 0x8000;  ///< of each segment
constexpr std::uint32_t IdLocations = 0x200000;
constexpr std::uint32_t Eeprom = 0xF00000;

/// The byte of the program at an address: never FFh, so that a byte that was lost shows.
std::uint8_t Pattern(std::uint32_t address, int revision) {
  const auto mix = [](std::uint32_t value) {
    value ^= value >> 16U;
    value *= 0x7FEB352DU;
    value ^= value >> 15U;
    value *= 0x846CA68BU;
    return value ^ (value >> 16U);
  };
  const bool changed = revision != 0 && mix(address / 64 + 1) % 4 == 0;
  const std::uint32_t value =
      mix(address * 2 + 1 + (changed ? 0x10000000U * static_cast<unsigned>(revision) : 0U));
  return static_cast<std::uint8_t>(value % 0xFF);
}

std::vector<Block> FullBlocks(std::uint32_t codeBytes) {
  std::vector<Block> blocks;
  for (std::uint32_t first = 0; first < codeBytes; first += Segment) {
    blocks.push_back({first, std::min(Reachable, codeBytes - first)});
  }
  return blocks;
}

/// The reset entry, a few blocks that begin and end inside a write panel, an odd one, and the last bytes of
/// what can be reached; then the same in the upper segment.
std::vector<Block> ScatteredBlocks(std::uint32_t codeBytes) {
  const std::uint32_t reach = std::min(Reachable, codeBytes);
  std::vector<Block> blocks = {{0x0, 4},     {0x8, 24},           {0x2A, 2},         {0x100, 7},
                               {0x13E, 133}, {reach / 2 - 6, 75}, {reach - 200, 200}};
  for (std::uint32_t first = Segment; first < codeBytes; first += Segment) {
    const std::uint32_t upper = std::min(Reachable, codeBytes - first);
    blocks.insert(blocks.end(), {{first, 66}, {first + 0x4F0, 33}, {first + upper - 8, 8}});
  }
  return blocks;
}

/// One block of the source with the directives of its kind of memory, and the bytes that it stands for.
class SourceWriter {
 public:
  SourceWriter(AssembledProgram& program, const ProgramPlan& plan)
      : file_(program.sourcePath), program_(program), plan_(plan) {}

  void Line(const std::string& text) { file_ << "  " << text << "\n"; }

  void Code(const Block& block) {
    Place(block);
    Data("db", block);
    // The assembler fills the last word up; only the linker leaves half a word as it is.
    if (!plan_.relocatable && block.bytes % 2 != 0) program_.bytes[block.first + block.bytes] = 0;
  }

  void Ids(std::uint32_t count) {
    if (plan_.relocatable) return Code({IdLocations, count});
    for (std::uint32_t i = 0; i < count; ++i) {
      file_ << std::hex << "  __idlocs 0x" << IdLocations + i << ", 0x" << Value(IdLocations + i) << "\n";
    }
  }

  void EepromData(const Block& block) {
    Place(block);
    Data("de", block);
  }

  void Finish() {
    Line("end");
    file_.close();
    if (!file_) throw std::runtime_error(program_.sourcePath + " cannot be written");
  }

 private:
  void Place(const Block& block) {
    file_ << std::hex;
    if (plan_.relocatable) {
      file_ << "at_" << block.first << " code_pack 0x" << block.first;
    } else {
      file_ << "  org 0x" << block.first;
    }
  }

  void Data(const char* directive, const Block& block) {
    for (std::uint32_t i = 0; i < block.bytes; ++i) {
      if (i % 16 == 0) {
        file_ << "\n  " << directive << " ";
      } else {
        file_ << ", ";
      }
      file_ << "0x" << std::hex << Value(block.first + i);
    }
    file_ << "\n";
  }

  int Value(std::uint32_t address) {
    const std::uint8_t value = Pattern(address, plan_.revision);
    program_.bytes[address] = value;
    return value;
  }

  std::ofstream file_;
  AssembledProgram& program_;
  const ProgramPlan& plan_;
};

void WriteSource(AssembledProgram& program, const ProgramPlan& plan) {
  SourceWriter source(program, plan);
  std::string processor = plan.chip.substr(3);
  std::ranges::replace(processor, 'F', 'f');
  source.Line("list p=" + processor);
  if (!plan.relocatable) {
    // The four chips with a motor control PWM name the watchdog otherwise.
    const bool motor = plan.chip.ends_with("331") || plan.chip.ends_with("431");
    source.Line(std::string("config ") + (motor ? "WDTEN" : "WDT") +
                (plan.revision % 2 == 0 ? " = OFF" : " = ON"));
  }
  for (const Block& block : plan.full ? FullBlocks(plan.codeBytes) : ScatteredBlocks(plan.codeBytes)) {
    source.Code(block);
  }
  source.Ids(plan.full ? 8 : 5);
  if (plan.eepromBytes > 0 && plan.full) source.EepromData({Eeprom, plan.eepromBytes});
  if (plan.eepromBytes > 0 && !plan.full) {
    source.EepromData({Eeprom, 3});
    source.EepromData({Eeprom + 0x36, 17});
    source.EepromData({Eeprom + plan.eepromBytes - 2, 2});
  }
  source.Finish();
}

/// Runs a tool that makes `product`. gplink's exit status says nothing, so the product must be there.
void Make(const std::string& folder, const std::string& product, const std::string& command) {
  const std::string words = folder + "/assembler.txt";
  fs::remove(folder + "/" + product);
  const std::string line = "cd '" + folder + "' && " + command + " >'" + words + "' 2>&1";
  const int status = std::system(line.c_str());
  if (status == 0 && fs::exists(folder + "/" + product)) return;
  std::ifstream file(words);
  std::ostringstream text;
  text << command << ": " << file.rdbuf();
  throw std::runtime_error(text.str());
}

struct Scratch {
  std::string path;
  Scratch() {
    std::string name = (fs::temp_directory_path() / "zelvo-test-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no folder for the test");
    path = name;
  }
  Scratch(const Scratch&) = delete;
  ~Scratch() {
    std::error_code ignored;
    fs::remove_all(path, ignored);
  }
};

}  // namespace

AssembledProgram Assemble(const ProgramPlan& plan, const std::string& folder, const std::string& name) {
  AssembledProgram program;
  program.sourcePath = folder + "/" + name + ".asm";
  program.hexPath = folder + "/" + name + ".hex";
  WriteSource(program, plan);
  if (plan.relocatable) {
    Make(folder, name + ".o", "gpasm -w 2 -c -o " + name + ".o " + name + ".asm");
    Make(folder, name + ".hex", "gplink -o " + name + ".hex " + name + ".o");
  } else {
    Make(folder, name + ".hex", "gpasm -w 2 -o " + name + ".hex " + name + ".asm");
  }
  return program;
}

std::string ScratchFolder() {
  static const Scratch scratch;
  return scratch.path;
}

}  // namespace zelvo::test
