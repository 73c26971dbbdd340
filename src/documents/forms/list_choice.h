// The choice of a list that is filled from a table: an entry whose record is deleted is not lost.
#pragma once

#include <string>
#include <utility>

#include "shell/controls/controls.h"

namespace ostrinka {

// The chosen record and its text.
using ListChoice = std::pair<int32_t, std::string>;
inline ListChoice Chosen(const ComboControl& list) { return {list.Value(), list.Text()}; }

// Selects the record; one that the list lacks, because it was deleted or has no name, is added at the end first.
inline void SelectOrAdd(ComboControl& list, const ListChoice& choice) {
  if (list.SelectValue(choice.first) || choice.first < 1) return;
  list.AddItem(choice.second, choice.first);
  list.SelectValue(choice.first);
}

}  // namespace ostrinka
