// What the record commands of every table share: which record they act on, and the refusals that come before.
#pragma once

#include "shell/command.h"

namespace ostrinka {

// The current record of the table; 0, with a message, when there is none.
int32_t RecordToEdit(CommandContext& context, int table);
// The same for deleting, when the person has said yes and nothing forbids it; 0 otherwise.
int32_t RecordToDelete(CommandContext& context, int table);

// Functions of commands.
void DeleteRecord(CommandContext& context, const Command& command, int argument);  // of a table without rules of its own for deleting
void MoveRecord(CommandContext& context, const Command& command, int argument);    // by the four arrows

}  // namespace ostrinka
