// A folder in which the test itself makes, opens and damages a company, and the words to speak about it.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "app/program.h"
#include "company/ost_engine.h"
#include "company/table_definitions.h"
#include "support/test_platform.h"

namespace ostrinka {

struct OldField {
  const char* name;
  FieldType type;
  int32_t length = 0;
  const char* link_file = "";
  const char* link_field = "";
};

class FolderTest : public testing::Test {
 protected:
  TestPlatform surroundings;
  Program program{surroundings.platform};
  std::string folder = program.DatabaseFolder();

  void SetUp() override {
    surroundings.files.MakeFolder(folder);
    SetLogin("kreda", "kreda");
  }
  void SetLogin(const std::string& user, const std::string& password) {
    program.settings.SaveSettingValue(kCommon, "dbLogin", "username", user);
    program.settings.SaveSettingValue(kCommon, "dbLogin", "password", password);
  }
  bool Create(bool silent = true) {
    bool ok = false;
    OSTEngine(program).create_(folder, "kreda", "kreda", silent, ok);
    return ok;
  }
  bool Open(bool silent = true) {
    bool ok = false;
    OSTEngine(program).open_(silent, ok);
    return ok;
  }
  bool Test(const std::string& user = "kreda", const std::string& password = "kreda") {
    bool ok = true;
    OSTEngine(program).test_(folder, user, password, ok);
    return ok;
  }
  void Close(bool compress = false) { OSTEngine(program).close_(compress); }

  // Opens a table of the folder on its own.
  bool OpenFile(ClassQDBASE& table, const std::string& file) {
    return table.DATABASE_OPEN(folder + file, "kreda", "kreda", false, false, false);
  }
  // Puts a table of another shape in the place of `file`.
  void MakeOldTable(const std::string& file, std::initializer_list<OldField> fields, const std::vector<std::vector<Value>>& rows) {
    surroundings.files.Remove(folder + file);
    ClassQDBASE table(surroundings.platform);
    ASSERT_TRUE(table.DATABASE_OPEN(folder + file, "kreda", "kreda", true, false, false)) << table.last_error();
    for (const OldField& f : fields) {
      ASSERT_TRUE(table.FIELD_ADD(f.name, f.type, f.length, f.link_file, f.link_field)) << f.name << table.last_error();
    }
    for (const auto& row : rows) ASSERT_TRUE(table.RECORD_ADD(row)) << table.last_error();
  }
  bool Exists(const std::string& name) { return surroundings.files.FileExists(folder + name); }
  std::string Content(const std::string& name) {
    std::string content;
    surroundings.files.ReadAll(folder + name, content);
    return content;
  }
  void Write(const std::string& name, std::string_view content) { ASSERT_TRUE(surroundings.files.WriteAll(folder + name, content)); }
  size_t CountOpenTables() {
    size_t open = 0;
    for (size_t n = 1; n <= kTableSlots; ++n) open += OpenTable(program, static_cast<int>(n)) ? 1 : 0;
    return open;
  }
  // Raw fields of a record, joined; numbers in their shortest form.
  static std::string Row(ClassQDBASE& table, int32_t record, std::initializer_list<const char*> fields) {
    if (!table.RECORD_LOAD(record)) return "no record";
    std::string row;
    for (const char* field : fields) row += (field == *fields.begin() ? "" : "|") + ToText(table.FIELD(field));
    return row;
  }
  static std::string Fields(ClassQDBASE& table) {
    std::string names;
    for (int i = 1; i <= table.FIELD_COUNT(); ++i) names += (i > 1 ? " " : "") + table.FIELD_NAME(i);
    return names;
  }
};

inline const std::string kVersion1("\x01\x00\x00\x00\x00\x00", 6);

}  // namespace ostrinka
