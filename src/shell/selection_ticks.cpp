#include "shell/selection_ticks.h"

#include <string>

namespace ostrinka {
namespace {

// Ticks `chosen` among the four period tools of a tab; none when it is not among them.
void TickTools(RibbonControl& ribbon, std::string_view tab, std::string_view chosen) {
  for (const char* tool : {".OKRES.DZISIAJ", ".OKRES.BIEŻĄCY", ".OKRES.OSTATNI", ".OKRES.WSZYSTKIE"}) {
    const std::string key = std::string(tab) + tool;
    ribbon.ButtonChecked(key, key == chosen);
  }
}

void TickChildren(RibbonControl& ribbon, std::string_view parent, std::string_view chosen) {
  for (const RibbonRow* row : ribbon.Children(parent)) ribbon.ButtonChecked(row->key, row->key == chosen);
}

}  // namespace

void TickPeriod(RibbonControl& ribbon, std::string_view tool) {
  TickTools(ribbon, tool.substr(0, tool.find('.')), tool);
}

void ClearPeriod(RibbonControl& ribbon, std::string_view tab) {
  TickTools(ribbon, tab, "");
}

void TickLetters(RibbonControl& ribbon, std::string_view range) {
  TickChildren(ribbon, range.substr(0, range.rfind('.')), range);
}

void ClearLetters(RibbonControl& ribbon, std::string_view tab) {
  TickChildren(ribbon, std::string(tab) + ".SELEKCJA.ALFABET", "");
}

}  // namespace ostrinka
