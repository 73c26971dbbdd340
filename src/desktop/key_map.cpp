#include "desktop/key_map.h"

#include <qnamespace.h>

#include "controls/key_codes.h"

namespace ostrinka {
namespace {

struct KeyRow {
  Qt::Key key;
  KeyCode code;
};
constexpr KeyRow kKeys[] = {
    {Qt::Key_Backspace, kKeyBackspace}, {Qt::Key_Tab, kKeyTab},           {Qt::Key_Return, kKeyEnter},
    {Qt::Key_Enter, kKeyEnter},         {Qt::Key_Escape, kKeyEscape},     {Qt::Key_Space, kKeyBlank},
    {Qt::Key_PageUp, kKeyPageUp},       {Qt::Key_PageDown, kKeyPageDown}, {Qt::Key_End, kKeyEnd},
    {Qt::Key_Home, kKeyHome},           {Qt::Key_Left, kKeyLeft},         {Qt::Key_Up, kKeyUp},
    {Qt::Key_Right, kKeyRight},         {Qt::Key_Down, kKeyDown},         {Qt::Key_Insert, kKeyInsert},
    {Qt::Key_Delete, kKeyDelete},
};

}  // namespace

int KeyCodeOf(int key) {
  if (key >= Qt::Key_F1 && key <= Qt::Key_F12) return kKeyF1 + key - Qt::Key_F1;
  for (const KeyRow& row : kKeys) {
    if (row.key == key) return row.code;
  }
  return 0;
}

}  // namespace ostrinka
