#include "icsp/scripts.h"

#include "icsp/conversions.h"
#include "icsp/pic18_engine.h"
#include "link/delays.h"

namespace zelvo::icsp {

std::string_view ScriptElement(int index) {
  return ScriptTable.at(static_cast<size_t>(index));
}

void RunScript(int scriptBase, int first, int last, Pause pause, const Placeholder& fill) {
  for (int i = first; i <= last; ++i) {
    std::string_view element = ScriptElement(scriptBase + i);
    if (element.size() == 4) {
      ClockOutBits(element);
    } else {
      if (fill) element = fill(element);
      if (element == "NOP") return;
      ClockOutHexPair(element);
    }
    link::Vár_Ír(pause.edgeWaits);
    if (pause.szün) link::Szün();
  }
}

std::string_view TablePointerText(std::string_view element) {
  if (element == "TCU") return TablePointerU;
  if (element == "TCH") return TablePointerH;
  if (element == "TCL") return TablePointerL;
  return element;
}

void SetTablePointer(std::string_view upper, std::string_view high, std::string_view low) {
  RunScript(base::TablePointer, 1, 18, 3, [=](std::string_view element) {
    if (element == "TCU") return upper;
    if (element == "TCH") return high;
    if (element == "TCL") return low;
    return element;
  });
}

void SinglePanelMode() {
  RunScript(base::SinglePanel, 1, 27, 0, nullptr);
}

void ClockTransaction(std::string_view command, std::string_view low, std::string_view high) {
  ClockOutBits(command);
  ClockOutHexPair(low);
  ClockOutHexPair(high);
}

}  // namespace zelvo::icsp
