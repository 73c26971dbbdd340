// Place of the main window and zoom of its list, kept in the settings.
#pragma once

#include "app/program.h"

namespace ostrinka {

struct WindowPlacement {
  float left = 0, top = 0, width = 1180, height = 760;  // pixels of the screen
  int state = 4;                                        // as the window's own system counts; 4 is that of a window never placed
  double zoom = 1;                                      // 1 is 100 %
};

// What the settings hold; what cannot be a place on a screen, or is smaller than a window may be, is replaced.
WindowPlacement ReadPlacement(Program& program);
void SavePlacement(Program& program, const WindowPlacement& placement);

}  // namespace ostrinka
