// A company on real tables and the words of the trade to fill it with.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <utility>

#include "base/format.h"
#include "company/ost_engine.h"
#include "company/tables.h"
#include "documents/arithmetic.h"
#include "documents/lines.h"
#include "documents/numbering.h"
#include "support/test_platform.h"

namespace ostrinka {

// Records of a new company's dictionaries.
inline constexpr int32_t kInvoice = 1, kProForma = 2, kCorrection = 3, kAdvanceInvoice = 4, kBill = 5;
inline constexpr int32_t kZloty = 1, kEuro = 2, kDollar = 3;
inline constexpr int32_t kVat22 = 1, kVat7 = 2, kVat0 = 4, kVatExempt = 5;
inline constexpr int32_t kCash = 1, kTransfer14 = 2, kTransfer7 = 3;

class Trade : public testing::Test {
 protected:
  void SetUp() override {
    const std::string folder = platform.folder / "firma/";
    platform.files.MakeFolder(platform.folder / "firma");
    program.catalogue.LoadProgramCatalogue(std::string(OSTRINKA_SOURCE) + "/resources/program.lang");
    program.settings.SaveSettingValue(kCommon, "dbPath", "Remote", true);
    program.settings.SaveSettingValue(kCommon, "dbPath", "Path", folder);
    program.settings.SaveSettingValue(kCommon, "dbLogin", "username", std::string("kreda"));
    program.settings.SaveSettingValue(kCommon, "dbLogin", "password", std::string("kreda"));
    bool ok = false;
    OSTEngine(program).create_(folder, "kreda", "kreda", true, ok);
    ASSERT_TRUE(ok);
    OSTEngine(program).open_(true, ok);
    ASSERT_TRUE(ok);
  }

  using Row = std::initializer_list<std::pair<const char*, Value>>;
  int32_t Add(int table, Row fields) {
    ClassQDBASE& rows = Table(program, table);
    EXPECT_TRUE(rows.RECORD_ADD());
    const int32_t record = rows.RECORD_COUNT();
    Change(table, record, fields);
    rows.RECORD_SHOW(record);
    return record;
  }
  void Change(int table, int32_t record, Row fields) {
    ClassQDBASE& rows = Table(program, table);
    ASSERT_TRUE(rows.RECORD_LOAD(record));
    for (const auto& [field, value] : fields) EXPECT_TRUE(rows.FIELD(field, value)) << field;
    ASSERT_TRUE(rows.RECORD_SAVE(record));
  }
  // A stored field as a text, with a decimal comma.
  std::string Stored(int table, int32_t record, const char* field) {
    ClassQDBASE& rows = Table(program, table);
    EXPECT_TRUE(rows.RECORD_LOAD(record));
    return ToText(rows.FIELD(field));
  }

  int32_t AddCustomer(const std::string& name, int32_t payment_form = 0) {
    return Add(kKontrahenci, {{"NAZWA", name}, {"D_FORMA_PLAT", payment_form}});
  }
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
  static Date Day(const std::string& iso) { return *Date::Parse(iso); }
  int32_t AddDocument(int32_t type, const std::string& issued, int32_t number, int32_t id = 0) {
    return Add(kDokSprzed,
               {{"TYP", type}, {"DATA_WYSTAWIENIA", Day(issued)}, {"NR_DOK", number}, {"ID_DOK", id}, {"WALUTA", kZloty}, {"KURS", 1.0F}});
  }
  int32_t AddStoredLine(int32_t id, int32_t article, const std::string& quantity, const std::string& net, const std::string& gross,
                        int16_t discount = 0) {
    const int32_t line = Add(kSprzedane, {{"ID_DOK", id},
                                          {"NAZWA_T_U", article},
                                          {"ILOSC", *ReadCurrency(quantity)},
                                          {"CENA_NETTO", *ReadCurrency(net)},
                                          {"CENA_BRUTTO", *ReadCurrency(gross)},
                                          {"RABAT", discount}});
    EXPECT_TRUE(RecalculateLine(program, line));
    return line;
  }
  LineEntry Entry(int32_t article, const std::string& quantity, const std::string& net, const std::string& gross,
                  const std::string& discount = "0") {
    return {article, *ReadCurrency(quantity), *ReadCurrency(net), *ReadCurrency(gross), *ReadCurrency(discount)};
  }
  std::string NewestMessage() { return platform.ui.messages.empty() ? std::string() : platform.ui.messages.back().first; }

  TestPlatform platform;
  Program program{platform.platform};
};

}  // namespace ostrinka
