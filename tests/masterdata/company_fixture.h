// A new company of the program's own tables in a temporary folder, and the hands of a person on a form.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "company/ost_engine.h"
#include "company/tables.h"
#include "controls/form.h"
#include "support/test_platform.h"

namespace ostrinka {

// Enters a control, changes it once, leaves it. False when it does not take the text.
inline bool Set(Control& control, const std::string& value) {
  if (!control.UserEnter() || !control.UserSet(value)) return false;
  control.UserLeave();
  return true;
}

class ProgramTest : public testing::Test {
 protected:
  ProgramTest() { EXPECT_TRUE(program.catalogue.LoadProgramCatalogue(std::string(OSTRINKA_SOURCE) + "/resources/program.lang")); }

  void WriteFile(const std::string& path, const std::string& content) { ASSERT_TRUE(platform.files.WriteAll(path, content)); }
  std::string ReadFile(const std::string& path) {
    std::string content;
    EXPECT_TRUE(platform.files.ReadAll(path, content)) << path;
    return content;
  }
  std::vector<std::string> MessageTexts() const {
    std::vector<std::string> texts;
    for (const auto& [text, kind] : platform.ui.messages) texts.push_back(text);
    return texts;
  }
  std::string Setting(const char* section, const char* key) { return program.settings.Text(kCommon, section, key, "(none)"); }

  TestPlatform platform;
  Program program{platform.platform};
};

// The folder of a company that was created and opened once: each test works on a copy.
inline const std::string& NewCompany() {
  static TestPlatform platform;
  static const std::string folder = [] {
    Program program(platform.platform);
    program.settings.SaveSettingValue(kCommon, "dbLogin", "username", Value(std::string("ala")));
    program.settings.SaveSettingValue(kCommon, "dbLogin", "password", Value(std::string("kot")));
    bool created = false, opened = false;
    EXPECT_TRUE(platform.files.MakeFolders(program.DatabaseFolder()));
    OSTEngine(program).create_(program.DatabaseFolder(), "ala", "kot", true, created);
    OSTEngine(program).open_(true, opened);
    EXPECT_TRUE(created && opened);
    return program.DatabaseFolder();
  }();
  return folder;
}

class CompanyTest : public ProgramTest {
 protected:
  void SetUp() override {
    program.settings.SaveSettingValue(kCommon, "dbLogin", "username", Value(std::string("ala")));
    program.settings.SaveSettingValue(kCommon, "dbLogin", "password", Value(std::string("kot")));
    std::filesystem::copy(NewCompany(), program.DatabaseFolder());
    bool ok = false;
    OSTEngine(program).open_(true, ok);
    ASSERT_TRUE(ok);
  }
  ClassQDBASE& At(int number, int32_t record) {
    ClassQDBASE& table = Table(program, number);
    EXPECT_TRUE(table.RECORD_LOAD(record));
    return table;
  }
  // Adds a record with these fields; its number.
  int32_t Add(int number, const std::vector<std::pair<std::string, Value>>& fields) {
    ClassQDBASE& table = Table(program, number);
    EXPECT_TRUE(table.RECORD_ADD());
    const int32_t added = table.RECORD_COUNT();
    EXPECT_TRUE(table.RECORD_LOAD(added));
    for (const auto& [name, value] : fields) EXPECT_TRUE(table.FIELD(name, value)) << name;
    EXPECT_TRUE(table.RECORD_SAVE(added));
    return added;
  }
  std::string Bytes(int number) { return ReadFile(Table(program, number).DATABASE_PATH()); }
};

}  // namespace ostrinka
