// Tables in a temporary folder, and the bytes of their files.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "base/bytes.h"
#include "base/text.h"
#include "engine/qdbase.h"
#include "support/test_platform.h"

namespace ostrinka {

using testing::ElementsAre;
using testing::IsEmpty;

class TableTest : public testing::Test {
 protected:
  TestPlatform surroundings;
  std::string path = surroundings.folder / "towary.ovd";

  std::unique_ptr<ClassQDBASE> Closed() { return std::make_unique<ClassQDBASE>(surroundings.platform); }

  std::unique_ptr<ClassQDBASE> Create(const std::string& file) {
    auto table = Closed();
    EXPECT_TRUE(table->DATABASE_OPEN(file, "kreda", "kreda", true, false, false)) << table->last_error();
    return table;
  }
  std::unique_ptr<ClassQDBASE> Open(const std::string& file, bool links = false) {
    auto table = Closed();
    EXPECT_TRUE(table->DATABASE_OPEN(file, "kreda", "kreda", false, true, links)) << table->last_error();
    return table;
  }
  bool Opens(const std::string& file, const std::string& user = "kreda", const std::string& password = "kreda") {
    return Closed()->DATABASE_OPEN(file, user, password, false, false, false);
  }

  // NAZWA (text 20), CENA (currency), ILOSC (long), DATA (date), USLUGA (boolean), with rows.
  std::unique_ptr<ClassQDBASE> Goods() {
    auto table = Create(path);
    EXPECT_TRUE(table->FIELD_ADD("nazwa", kText, 20, "", ""));
    EXPECT_TRUE(table->FIELD_ADD("CENA", kCurrency, 0, "", ""));
    EXPECT_TRUE(table->FIELD_ADD("ILOSC", kLong, 0, "", ""));
    EXPECT_TRUE(table->FIELD_ADD("DATA", kDate, 0, "", ""));
    EXPECT_TRUE(table->FIELD_ADD("USLUGA", kBoolean, 0, "", ""));
    return table;
  }
  static void AddGoods(ClassQDBASE& table, const std::string& name, const std::string& price, int amount, const std::string& date,
                       bool service = false) {
    ASSERT_TRUE(table.RECORD_ADD({name, price, amount, date, service})) << table.last_error();
  }
  std::unique_ptr<ClassQDBASE> FilledGoods() {
    auto table = Goods();
    AddGoods(*table, "Łopata", "12,50", 3, "2008-01-15");
    AddGoods(*table, "Kowalski młot", "7,00", 10, "2008-02-01");
    AddGoods(*table, "Ćwiek", "0,05", 500, "2008-03-05");
    AddGoods(*table, "Zamek", "99,99", 1, "2007-12-31");
    AddGoods(*table, "Montaż", "150", 2, "2008-03-05", true);
    table->SELECTION("*", "*", "", ordAsc);
    return table;
  }

  static std::string Bytes(const std::string& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  static void SetBytes(const std::string& file, const std::string& bytes) {
    std::ofstream(file, std::ios::binary | std::ios::trunc) << bytes;
  }
  static std::vector<std::string> Texts(ClassQDBASE& table, const FieldId& field) {
    std::vector<std::string> texts;
    for (const int32_t n : table.selection()) {
      EXPECT_TRUE(table.RECORD_LOAD(n));
      texts.push_back(table.Text(field));
    }
    return texts;
  }
};

}  // namespace ostrinka
