#include "company/table_check.h"

#include "base/text.h"

namespace ostrinka {

std::string Shortcomings(ClassQDBASE& table, const TableDefinition& definition) {
  std::string names;
  for (const FieldDefinition& field : definition.fields) {
    // Of a name that stands twice in a definition the first one counts, as on creation.
    const bool first = FindField(definition, field.name) == &field;
    const bool good = table.FIELD_EXISTS(field.name) && table.FIELD_TYPE(field.name) == TypeWhenOpened(definition, field) &&
                      (field.type != kText || table.FIELD_LEN(field.name) >= field.length);
    if (first && !good) names += (names.empty() ? "" : ", ") + std::string(field.name);
  }
  return names;
}

bool IsAnotherKind(ClassQDBASE& table, const TableDefinition& definition) {
  constexpr size_t kEnough = 3;  // fewer may be what an early program left
  for (const TableDefinition& other : TableDefinitions()) {
    size_t foreign = 0;
    for (const FieldDefinition& field : other.fields) foreign += !FindField(definition, field.name) && table.FIELD_EXISTS(field.name);
    if (foreign >= kEnough && foreign > definition.fields.size()) return true;
  }
  return false;
}

std::string WhyNotOpened(Program& program, const std::string& folder, const std::string& name, const ClassQDBASE& table) {
  FileSystem& files = program.platform.files;
  if (!files.FolderExists(folder)) return program.Text("msg.why.folder", {folder});
  if (!files.FileExists(folder + name)) return program.Text("msg.why.missing", {name, folder});
  if (Contains(table.last_error(), "Invalid user name or password")) return program.Text("msg.why.login", {name});
  if (Contains(table.last_error(), "Invalid file format")) return program.Text("msg.why.notatable", {name, folder});
  std::string error;
  if (!files.Open(folder + name, OpenMode::kReadWrite, &error)) return program.Text("msg.why.rights", {name, error, folder});
  return program.Text("msg.why.inuse", {name});
}

}  // namespace ostrinka
