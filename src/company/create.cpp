// OSTEngine::create_: the tables of a new company, or those that a company lacks.

#include "company/ost_engine.h"
#include "company/seed_rows.h"
#include "company/table_definitions.h"

namespace ostrinka {
namespace {

bool AddFields(ClassQDBASE& table, const TableDefinition& definition) {
  for (const FieldDefinition& field : definition.fields) {
    // The one name that stands twice in a list is refused the second time.
    if (table.FIELD_ADD(field.name, field.type, field.length, field.link_file, field.link_field)) continue;
    if (!table.FIELD_EXISTS(field.name)) return false;
  }
  return true;
}

Value ToValue(const SeedCell& cell) {
  switch (cell.kind) {
    case SeedCell::Kind::kText:
      return std::string(cell.text);
    case SeedCell::Kind::kNumber:
      return cell.number;
    case SeedCell::Kind::kFlag:
      return cell.number != 0;
  }
  return {};
}

bool AddRows(ClassQDBASE& table, int number) {
  for (const SeedRow& row : SeedRows(number)) {
    std::vector<Value> values;
    for (const SeedCell& cell : row.cells) values.push_back(ToValue(cell));
    if (!table.RECORD_ADD(values)) return false;
  }
  return true;
}

bool CreateTable(Platform& platform, const TableDefinition& definition, const std::string& path, const std::string& user,
                 const std::string& password) {
  ClassQDBASE table(platform);
  if (!table.DATABASE_OPEN(path, user, password, true, false, false)) return false;
  const bool complete = AddFields(table, definition) && AddRows(table, definition.number);
  table.DATABASE_CLOSE();
  // A table that is only half there would count as existing from now on.
  if (!complete) platform.files.Remove(path);
  return complete;
}

}  // namespace

void OSTEngine::create_(const std::string& path, const std::string& user, const std::string& password, bool silent, bool& ok) {
  ok = false;
  steps_ = 0;
  const std::string folder = Folder(path);
  std::string existing;
  for (const TableDefinition& definition : TableDefinitions()) {
    step(definition.progress, silent);
    const std::string file = folder + definition.file;
    if (program_.platform.files.FileExists(file)) {
      existing += std::string(definition.file) + "\r\n";
    } else if (!CreateTable(program_.platform, definition, file, user, password)) {
      return;
    }
  }
  step(100, silent);
  ok = true;
  if (silent || existing.empty()) return;
  program_.ShowMessage(program_.Text("msg.info.dcreatedbpwffiles") + existing + program_.Text("msg.info.dcreatedbfileswndel"),
                       MessageKind::kWarning);
}

}  // namespace ostrinka
