#include "engine/find_filter.h"

#include "base/text.h"

namespace ostrinka {

std::string FindFilter(ClassQDBASE& table, std::string_view text) {
  const std::string wanted = Trim(ReplaceAll(text, "\"", ""));
  if (wanted.empty()) return "*";
  std::string filter;
  for (int n = 1; n <= table.FIELD_COUNT(); ++n) {
    const std::string name = table.FIELD_NAME(n);
    if (!filter.empty()) filter += " OR ";
    filter += table.FIELD_TYPE(n) == kText ? name + " # \"" + wanted + "\"" : name + " = " + wanted;
  }
  return filter;
}

}  // namespace ostrinka
