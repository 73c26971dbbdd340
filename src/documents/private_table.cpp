#include "documents/private_table.h"

#include <string>

namespace ostrinka {

PrivateTable::PrivateTable(Program& program, int number, bool links) : table_(program.platform) {
  OpenPrivate(program, number, table_, links);
}

PrivateTable::~PrivateTable() { table_.DATABASE_CLOSE(); }

void PrivateTable::Walk(const std::vector<const char*>& fields,
                        const std::function<bool(int32_t record, const std::vector<Value>& values)>& visit) {
  std::vector<FieldId> ids;
  for (const char* field : fields) ids.emplace_back("." + std::string(field));
  std::vector<Value> values(fields.size());
  const int32_t count = table_.RECORD_COUNT();
  for (int32_t record = 1; record <= count; ++record) {
    if (!table_.RECORD_EXIST(record) || !table_.RECORD_LOAD(record)) continue;
    for (size_t i = 0; i < ids.size(); ++i) values[i] = table_.FieldRaw(ids[i]);
    if (!visit(record, values)) return;
  }
}

}  // namespace ostrinka
