// One copy of a sales document to be laid out.
#pragma once

#include <cstdint>
#include <string>

namespace ostrinka {

struct DocumentCopy {
  int32_t record = 0;       // in dok_sprzed
  bool is_original = true;  // false for a copy
  std::string label;        // under the title and in the continuation line, may be empty
};

}  // namespace ostrinka
