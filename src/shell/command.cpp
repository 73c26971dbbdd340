#include "shell/command.h"

namespace ostrinka {

void NotBuilt(CommandContext& context, const Command&, int) {
  context.Beep();
  context.window.StatusText(context.program.Text("common.notbuilt"));
}

}  // namespace ostrinka
