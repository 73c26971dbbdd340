#include "documents/private_table.h"
namespace ostrinka {

PrivateTable::PrivateTable(Program& program, int number, bool links) : table_(program.platform) {
  OpenPrivate(program, number, table_, links);
}

PrivateTable::~PrivateTable() {
  table_.DATABASE_CLOSE();
}

void PrivateTable::Walk(const std::vector<const char*>& fields,
                        const std::function<bool(int32_t record, const std::vector<Value>& values)>& visit) {
  table_.SCAN(std::vector<FieldId>(fields.begin(), fields.end()), visit);
}

}  // namespace ostrinka
