#include "engine/record_buffer.h"

namespace ostrinka {

void RecordBuffer::Remap(const FieldLayout& from, const FieldLayout& to) {
  RecordBuffer moved;
  for (int n = 1; n <= from.count(); ++n) {
    const int there = to.Find(from.field(n).name);
    if (there != 0 && Has(n)) moved.Set(there, Get(n, from));
  }
  *this = std::move(moved);
}

}  // namespace ostrinka
