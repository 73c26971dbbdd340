// SCAN: stored values of a few fields over all records, read in blocks.
#include "engine/block_reader.h"
#include "engine/qdbase_state.h"
#include "engine/record_codec.h"

namespace ostrinka {

Value RecordCells::operator[](size_t i) const {
  return fields_[i] == nullptr ? Value() : DecodeField(*fields_[i], bytes_);
}

bool ClassQDBASE::WALK(const std::vector<FieldId>& fields, const std::function<bool(int32_t record, const RecordCells& cells)>& visit) {
  State& s = *state_;
  if (!s.file.IsOpen()) return false;
  std::vector<const FieldDef*> wanted;
  BlockReader reader(s.file, s.layout.record_length(), 1, RECORD_COUNT(), true);
  for (const FieldId& field : fields) {
    const int number = s.layout.Resolve(field);
    wanted.push_back(number == 0 ? nullptr : &s.layout.field(number));
    if (number > 0) reader.WillTouch(s.layout.field(number));
  }
  int32_t n = 0;
  while (const char* record = reader.Next(n)) {
    if (record[0] == 0 && !visit(n, RecordCells(record, wanted))) break;
  }
  return true;
}

bool ClassQDBASE::SCAN(const std::vector<FieldId>& fields,
                       const std::function<bool(int32_t record, const std::vector<Value>& values)>& visit) {
  std::vector<Value> values(fields.size());
  return WALK(fields, [&](int32_t record, const RecordCells& cells) {
    for (size_t i = 0; i < values.size(); ++i) values[i] = cells[i];
    return visit(record, values);
  });
}

}  // namespace ostrinka
