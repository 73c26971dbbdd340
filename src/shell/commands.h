// All commands of the main window. A subsystem's commands stand in a file of their own, commands_<subsystem>.cpp: functions and the rows
// that name them.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "shell/command.h"

namespace ostrinka {

// The rows of one subsystem.
std::span<const Command> SalesCommands();
std::span<const Command> PurchaseCommands();
std::span<const Command> MasterdataCommands();
std::span<const Command> SelectionCommands();
std::span<const Command> ReportCommands();
std::span<const Command> PrintingCommands();
std::span<const Command> DictionaryCommands();
std::span<const Command> ProgramCommands();

// The rows of all.
const std::vector<Command>& AllCommands();
// Null for an unknown key.
const Command* FindCommand(std::string_view key);

// Whether a command's function is part of this version; false for an unknown key.
bool IsBuilt(const Command& command);
bool IsBuilt(std::string_view key);

// The currency of the reports is chosen from a list that is filled anew with its tab: its entries have no rows.
void FillReportCurrencies(CommandContext& context);
// Keeps the choice and builds the report on show anew; false for a key that is no entry of that list.
bool TakeReportCurrency(CommandContext& context, std::string_view key);

}  // namespace ostrinka
