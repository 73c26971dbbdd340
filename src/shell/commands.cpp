#include "shell/commands.h"

#include <algorithm>

namespace ostrinka {

const std::vector<Command>& AllCommands() {
  static const std::vector<Command> commands = [] {
    std::vector<Command> all;
    for (const auto rows : {SalesCommands, PurchaseCommands, MasterdataCommands, SelectionCommands, ReportCommands, PrintingCommands,
                            DictionaryCommands, ProgramCommands}) {
      all.insert(all.end(), rows().begin(), rows().end());
    }
    return all;
  }();
  return commands;
}

const Command* FindCommand(std::string_view key) {
  const auto found = std::ranges::find(AllCommands(), key, &Command::key);
  return found == AllCommands().end() ? nullptr : &*found;
}

bool IsBuilt(const Command& command) {
  return command.run != &NotBuilt;
}

bool IsBuilt(std::string_view key) {
  const Command* command = FindCommand(key);
  return command && IsBuilt(*command);
}

}  // namespace ostrinka
