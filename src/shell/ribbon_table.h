// What stands on the ribbon, in the main menu and in the popup menus, in the order of the display: data, no behaviour.
#pragma once

#include <span>

namespace ostrinka {

enum class RibbonKind : unsigned char {
  kTab,       // key of a tab
  kBar,       // toolbar; parent is the tab
  kTool,      // plain button; parent is the bar
  kSplit,     // button with a list; its caption is its choice
  kItem,      // choice of a split button; parent is the button
  kMode,      // one of a group in a split button's list of which one is ticked; runs nothing
  kToggle,    // flag in a split button's list
  kArrows,    // the four arrows of record movement
  kCombo,     // list filled while the program runs
  kFind,      // the find field @FIND and its button
  kAlphabet,  // row of letters
  kMainMenu,  // main-menu entry; no parent
  kPopup,     // entry of a tab's popup menu; parent is the tab
};

struct RibbonRow {
  RibbonKind kind;
  const char* key;
  const char* parent;
  const char*
      text;  // catalogue key of the caption, beside which ".tip" and ".key" may stand; "": the last part of the key, in a menu a separator
  const char* icon;  // family and number of the icon files: "qdb-01" is qdb.01.<state>.ico; "" for none
};

std::span<const RibbonRow> RibbonRows();

}  // namespace ostrinka
