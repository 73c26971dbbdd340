// OSTEngine::create_: the tables of a new company, or those that a company lacks.

#include "company/ost_engine.h"
#include "company/seed_rows.h"
#include "company/table_definitions.h"
#include "company/version_file.h"

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

// Names of what a broken-off structure change left of a table, one a line.
std::string Companions(FileSystem& files, const std::string& folder, const std::string& table) {
  std::string names;
  for (const char* suffix : {".new", ".temp", ".try"}) {
    if (files.FileExists(folder + table + suffix)) names += (names.empty() ? "" : "\r\n") + table + suffix;
  }
  return names;
}

// Attachments that a lost table left would become those of the new one's records.
bool PutAttachmentsAside(FileSystem& files, const std::string& path) {
  if (files.FileSize(path + ".memo") < 1) return true;
  std::string aside = path + kAsideSuffix;
  for (int n = 2; files.FileExists(aside); ++n) aside = path + kAsideSuffix + std::to_string(n);
  return files.Rename(path + ".memo", aside);
}

// Built under another name, which a killed run may have left, and renamed when it is whole: what has a table's name is one.
bool CreateTable(Platform& platform, const TableDefinition& definition, const std::string& path, const std::string& user,
                 const std::string& password) {
  const std::string building = path + kBuildingSuffix;
  ClassQDBASE table(platform);
  if (!table.DATABASE_OPEN(building, user, password, true, false, false)) return false;
  {
    // Another workstation may be building it at this moment.
    const SoleUse alone(table);
    if (!alone.held() || table.FIELD_COUNT() != 0) return false;
    if (AddFields(table, definition) && AddRows(table, definition.number) && table.Flush() && PutAttachmentsAside(platform.files, path) &&
        platform.files.RenameAside(building, path)) {
      return true;
    }
  }
  table.DATABASE_CLOSE();
  platform.files.Remove(building);
  return false;
}

}  // namespace

void OSTEngine::create_(const std::string& path, const std::string& user, const std::string& password, bool silent, bool& ok) {
  ok = false;
  steps_ = 0;
  const std::string folder = Folder(path);
  FileSystem& files = program_.platform.files;
  std::string existing;
  for (const TableDefinition& definition : TableDefinitions()) {
    step(definition.progress, silent);
    const std::string file = folder + definition.file;
    if (files.FileExists(file)) {
      existing += std::string(definition.file) + "\r\n";
      continue;
    }
    // Opening names them itself.
    if (const std::string left = Companions(files, folder, definition.file); !left.empty()) {
      if (!silent) program_.Message("msg.info.dbleftover", MessageKind::kWarning, {left});
      return;
    }
    if (program_.platform.ui.EndWanted()) return;
    // A table made anew has the shape of creation, so the folder has to be brought up to date again.
    if (HasFolderVersion(files, folder)) WriteFolderVersion(files, folder, kUnfinished);
    if (!CreateTable(program_.platform, definition, file, user, password)) return;
  }
  step(100, silent);
  ok = true;
  if (silent || existing.empty()) return;
  program_.ShowMessage(program_.Text("msg.info.dcreatedbpwffiles") + existing + program_.Text("msg.info.dcreatedbfileswndel"),
                       MessageKind::kWarning);
}

}  // namespace ostrinka
