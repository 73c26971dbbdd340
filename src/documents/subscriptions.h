// Subscriptions: documents whose period of service runs out, and the documents that follow them.
#pragma once

#include <vector>

#include "app/program.h"

namespace ostrinka {

// Sales documents whose reminder has come, in the order of their records.
std::vector<int32_t> due_tasks(Program& program);
// How many those are; 0 when no database is open.
int32_t due_task_count(Program& program);

// A copy of the document `source` with its lines, issued today under a new number, of type `type` (0: the source's own). `paid` true marks
// the copy unpaid. Its record; 0 when there is no such document or a table refuses.
int32_t make_follow_up(Program& program, int32_t source, int32_t type, bool& paid);

}  // namespace ostrinka
