#include "documents/private_table.h"

namespace ostrinka {

PrivateTable::PrivateTable(Program& program, int number, bool links) : table_(program.platform) {
  OpenPrivate(program, number, table_, links);
}

PrivateTable::~PrivateTable() {
  table_.DATABASE_CLOSE();
}

}  // namespace ostrinka
