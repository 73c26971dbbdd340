// Walking through the selection.
#include <algorithm>

#include "engine/qdbase_state.h"

namespace ostrinka {
namespace {

// The entry nearest to `current` on its far side, for a record outside the selection; 0 when none lies there.
int32_t Nearest(const std::vector<int32_t>& entries, int32_t current, bool forward) {
  int32_t best = 0;
  for (const int32_t n : entries) {
    if (forward ? n > current && (best == 0 || n < best) : n < current && n > best) best = n;
  }
  return best;
}

}  // namespace

bool ClassQDBASE::RECORD_SHOW(int32_t n) {
  State& s = *state_;
  if (n < 1 || s.selection.Has(n)) return false;
  s.selection.Append(n);
  return true;
}

bool ClassQDBASE::RECORD_SELECT(int32_t n) const {
  return state_->selection.Has(n);
}

int32_t ClassQDBASE::RECORD_POSITION() const {
  return state_->current;
}

bool ClassQDBASE::RECORD_POSITION(int32_t n) {
  State& s = *state_;
  s.Debug("RECORD_POSITION = ", std::to_string(n));
  if (!RECORD_EXIST(n)) return false;
  s.current = n;
  return s.Ok();
}

void ClassQDBASE::ForgetPosition() {
  state_->current = 0;
}

bool ClassQDBASE::State::MoveToEnd(bool forward) {
  const std::vector<int32_t>& entries = selection.entries();
  for (size_t i = 0; i < entries.size(); ++i) {
    const int32_t n = forward ? entries[i] : entries[entries.size() - 1 - i];
    if (!self.RECORD_EXIST(n)) continue;
    current = n;
    RefreshForm();
    return Ok();
  }
  return false;
}

bool ClassQDBASE::State::MoveStep(bool forward) {
  const int32_t before = current;
  recount = true;
  const std::vector<int32_t>& entries = selection.entries();
  const int64_t index = selection.IndexOf(current);
  if (index < 0) {
    const int32_t nearest = Nearest(entries, current, forward);
    if (nearest == 0) return false;
    current = nearest;
    RefreshForm();
    return Ok();
  }
  const int64_t last = static_cast<int64_t>(entries.size()) - 1, step = forward ? 1 : -1;
  int64_t to = std::clamp<int64_t>(index + step, 0, last);
  while (!self.RECORD_EXIST(entries[static_cast<size_t>(to)])) {
    const int64_t further = std::clamp<int64_t>(to + step, 0, last);
    if (further == to) break;
    to = further;
  }
  // Kept: at the end the last entry becomes current again, deleted or not, and its form is filled anew.
  current = entries[static_cast<size_t>(to)];
  RefreshForm();
  Ok();
  return current != before;
}

bool ClassQDBASE::MOVE_FIRST() {
  state_->Debug("MOVE_FIRST");
  return state_->MoveToEnd(true);
}

bool ClassQDBASE::MOVE_LAST() {
  state_->Debug("MOVE_LAST");
  return state_->MoveToEnd(false);
}

bool ClassQDBASE::MOVE_NEXT() {
  state_->Debug("MOVE_NEXT");
  return state_->MoveStep(true);
}

bool ClassQDBASE::MOVE_PREV() {
  state_->Debug("MOVE_PREV");
  return state_->MoveStep(false);
}

}  // namespace ostrinka
