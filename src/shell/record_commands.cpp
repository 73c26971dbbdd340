#include "shell/record_commands.h"

#include "documents/numbering.h"

namespace ostrinka {

int32_t RecordToEdit(CommandContext& context, int table) {
  const int32_t record = context.list.CurrentRecord(table);
  if (record == 0) context.Tell("msg.info.norecordstoedit");
  return record;
}

int32_t RecordToDelete(CommandContext& context, int table) {
  const int32_t record = context.list.CurrentRecord(table);
  if (record == 0) {
    context.Tell("msg.info.norecordstodel");
    return 0;
  }
  if (!context.Ask("msg.question.deleterecord")) return 0;
  // The number is looked up among the sales documents whichever table it belongs to (kept: users rely on the refusal).
  if (is_fiscalised(context.program, record)) {
    context.Tell("msg.info.cantdeletefsik");
    return 0;
  }
  return record;
}

void DeleteRecord(CommandContext& context, const Command& command, int) {
  const int32_t record = RecordToDelete(context, command.table);
  if (record == 0) return;
  if (!Table(context.program, command.table).RECORD_DELETE(record)) context.Fail();
  context.window.refresh_tasks_();
}

void MoveRecord(CommandContext& context, const Command& command, int argument) {
  if (!context.list.Move(command.table, argument)) context.Beep();
}

}  // namespace ostrinka
