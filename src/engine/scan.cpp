// SCAN: stored values of a few fields over all records, read in blocks.
#include "engine/block_reader.h"
#include "engine/qdbase_state.h"
#include "engine/record_codec.h"

namespace ostrinka {

bool ClassQDBASE::SCAN(const std::vector<FieldId>& fields,
                       const std::function<bool(int32_t record, const std::vector<Value>& values)>& visit) {
  State& s = *state_;
  if (!s.file.IsOpen()) return false;
  std::vector<int> numbers;
  for (const FieldId& field : fields) numbers.push_back(s.layout.Resolve(field));
  std::vector<Value> values(fields.size());
  BlockReader reader(s.file, s.layout.record_length(), 1, RECORD_COUNT(), true);
  for (const int number : numbers) {
    if (number > 0) reader.WillTouch(s.layout.field(number));
  }
  int32_t n = 0;
  while (const char* record = reader.Next(n)) {
    if (record[0] != 0) continue;
    for (size_t i = 0; i < numbers.size(); ++i) {
      if (numbers[i] > 0) values[i] = DecodeField(s.layout.field(numbers[i]), record);
    }
    if (!visit(n, values)) break;
  }
  return true;
}

}  // namespace ostrinka
