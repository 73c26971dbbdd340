// The choice of a list that is filled from a table: an entry whose record is deleted is not lost.
#pragma once

#include <string>
#include <utility>

#include "forms/form_helpers.h"

namespace ostrinka {

// The chosen record and its text.
using ListChoice = std::pair<int32_t, std::string>;
inline ListChoice Chosen(const ComboControl& list) {
  return {list.Value(), list.Text()};
}

inline void SelectOrAdd(ComboControl& list, const ListChoice& choice) {
  SelectOrAdd(list, choice.first, choice.second);
}

}  // namespace ostrinka
