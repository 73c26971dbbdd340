// The codes of the keys that the main window and the forms act on, as scripts give them too. A letter or a digit has its own capital's
// code.
#pragma once

namespace ostrinka {

enum KeyCode : int {
  kKeyBackspace = 8,
  kKeyTab = 9,
  kKeyEnter = 13,
  kKeyAlt = 18,
  kKeyEscape = 27,
  kKeyBlank = 32,
  kKeyPageUp = 33,
  kKeyPageDown = 34,
  kKeyEnd = 35,
  kKeyHome = 36,
  kKeyLeft = 37,
  kKeyUp = 38,
  kKeyRight = 39,
  kKeyDown = 40,
  kKeyInsert = 45,
  kKeyDelete = 46,
  kKeyF1 = 112,  // and on to F12
  kKeyF2 = 113,
  kKeyF5 = 116,
  kKeyF12 = 123,
};

}  // namespace ostrinka
