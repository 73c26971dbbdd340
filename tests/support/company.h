// The one company of the tests: the program's own tables in a temporary folder, open, and the words of the trade to fill them with. What a
// folder's tests need besides stands in thin fixtures derived from these.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "company/ost_engine.h"
#include "company/tables.h"
#include "support/test_platform.h"

namespace ostrinka {

// Records of a new company's dictionaries.
inline constexpr int32_t kInvoice = 1, kProForma = 2, kCorrection = 3, kAdvanceInvoice = 4, kBill = 5;
inline constexpr int32_t kZloty = 1, kEuro = 2, kDollar = 3;
inline constexpr int32_t kVat22 = 1, kVat7 = 2, kVat0 = 4, kVatExempt = 5;
inline constexpr int32_t kCash = 1, kTransfer14 = 2, kTransfer7 = 3;

inline constexpr char kTestLogin[] = "kreda";  // user and password of every company of the tests

inline Date Day(const std::string& iso) {
  return *Date::Parse(iso);
}

// A program in surroundings of its own, with the built catalogue.
struct TestProgram {
  TestProgram() { EXPECT_TRUE(program.catalogue.LoadProgramCatalogue(std::string(OSTRINKA_SOURCE) + "/resources/program.lang")); }

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
  std::string NewestMessage() const { return platform.ui.messages.empty() ? std::string() : platform.ui.messages.back().first; }
  std::string Setting(const char* section, const char* key) { return program.settings.Text(kCommon, section, key, "(none)"); }

  TestPlatform platform;
  Program program{platform.platform};
};

// Names the folder "firma" in the settings of `program`, with the login of the tests, as if the first run were over.
inline void SetCompanyFolder(Program& program, const TestPlatform& platform) {
  Settings& settings = program.settings;
  settings.SaveSettingValue(kCommon, "dbPath", "Remote", true);
  settings.SaveSettingValue(kCommon, "dbPath", "Path", platform.folder / "firma/");
  for (const char* key : {"username", "password"}) settings.SaveSettingValue(kCommon, "dbLogin", key, std::string(kTestLogin));
  settings.SaveSettingValue(kCommon, "system", "fRun", false);
}

// The folder of a company that was created and opened once; made once a binary, because that takes longer than most tests.
inline const std::string& NewCompany() {
  static TestProgram first;
  static const std::string folder = [] {
    SetCompanyFolder(first.program, first.platform);
    const std::string made = first.program.DatabaseFolder();
    bool created = false, opened = false;
    EXPECT_TRUE(first.platform.files.MakeFolders(made));
    OSTEngine(first.program).create_(made, kTestLogin, kTestLogin, true, created);
    OSTEngine(first.program).open_(true, opened);
    OSTEngine(first.program).close_(false);
    EXPECT_TRUE(created && opened);
    return made;
  }();
  return folder;
}

// A copy of the new company in the folder "firma" of these surroundings, named by the settings of `program`.
inline void PutNewCompany(Program& program, const TestPlatform& platform) {
  std::filesystem::copy(NewCompany(), platform.folder / "firma");
  SetCompanyFolder(program, platform);
}

// The open company and what is written into it. The record numbers that the operations give are those of the table.
struct TestCompany : TestProgram {
  TestCompany() {
    PutNewCompany(program, platform);
    OpenCompany();
  }
  void OpenCompany() {
    bool ok = false;
    OSTEngine(program).open_(true, ok);
    ASSERT_TRUE(ok);
  }

  using Row = std::vector<std::pair<const char*, Value>>;
  int32_t Add(int table, const Row& fields) {
    ClassQDBASE& rows = Table(program, table);
    EXPECT_TRUE(rows.RECORD_ADD());
    const int32_t record = rows.RECORD_COUNT();
    Change(table, record, fields);
    rows.RECORD_SHOW(record);
    return record;
  }
  void Change(int table, int32_t record, const Row& fields) {
    ClassQDBASE& rows = At(table, record);
    for (const auto& [field, value] : fields) EXPECT_TRUE(rows.FIELD(field, value)) << field;
    ASSERT_TRUE(rows.RECORD_SAVE(record));
  }
  // The table with that record loaded.
  ClassQDBASE& At(int table, int32_t record) {
    ClassQDBASE& rows = Table(program, table);
    EXPECT_TRUE(rows.RECORD_LOAD(record));
    return rows;
  }
  // A stored field as a text, with a decimal comma.
  std::string Stored(int table, int32_t record, const char* field) { return ToText(At(table, record).FIELD(field)); }
  std::string Bytes(int table) { return ReadFile(Table(program, table).DATABASE_PATH()); }

  int32_t AddCustomer(const std::string& name, int32_t payment_form = 0) {
    return Add(kKontrahenci, {{"NAZWA", name}, {"D_FORMA_PLAT", payment_form}});
  }
  // Sold at these retail prices, and at half of them wholesale.
  int32_t AddArticle(const std::string& name, double net, double gross, int32_t rate = kVat22, int32_t currency = kZloty) {
    return Add(kTowaryUslugi, {{"NAZWA", name},
                               {"SYMBOL", "S" + std::to_string(Table(program, kTowaryUslugi).RECORD_COUNT() + 1)},
                               {"DETAL_NETTO", net},
                               {"DETAL_BRUTTO", gross},
                               {"HURT_NETTO", net * 0.5},
                               {"HURT_BRUTTO", gross * 0.5},
                               {"STAWKA_VAT", rate},
                               {"JEDNOSTKA_MIARY", int32_t{1}},
                               {"WALUTA", currency}});
  }
  int32_t AddDocument(int32_t type, const std::string& issued, int32_t number, int32_t id = 0) {
    return Add(kDokSprzed,
               {{"TYP", type}, {"DATA_WYSTAWIENIA", Day(issued)}, {"NR_DOK", number}, {"ID_DOK", id}, {"WALUTA", kZloty}, {"KURS", 1.0F}});
  }
};

class ProgramTest : public testing::Test, public TestProgram {};
class CompanyTest : public testing::Test, public TestCompany {};

}  // namespace ostrinka
