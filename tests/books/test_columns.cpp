// Every column constant against the tables that it names.
#include <algorithm>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>

#include "books/columns.h"
#include "company/table_definitions.h"
#include "support/company.h"

namespace ostrinka {

class ColumnsTest : public CompanyTest {};

// What the first opening makes of the lines' amounts.
bool BecomesCurrency(const ColumnFact& column) {
  static const std::set<std::string> kAmounts{"ILOSC", "CENA_NETTO", "CENA_BRUTTO", "WARTOSC_NETTO", "WARTOSC_BRUTTO"};
  return column.table == kSprzedane && kAmounts.contains(column.name);
}

TEST_F(ColumnsTest, EveryConstantNamesAFieldOfItsTypeInTheDefinitionsAndInAnOpenedCompany) {
  ASSERT_GT(AllColumns().size(), 100u);
  for (const ColumnFact& column : AllColumns()) {
    const std::string what = TableFile(column.table) + " " + column.name;
    const TableDefinition* definition = FindTable(column.table);
    ASSERT_NE(definition, nullptr) << what;
    const FieldDefinition* field = FindField(*definition, column.name);
    ASSERT_NE(field, nullptr) << what;
    EXPECT_TRUE(field->type == column.type || BecomesCurrency(column)) << what;
    ClassQDBASE& table = Table(program, column.table);
    EXPECT_TRUE(table.FIELD_EXISTS(column.name)) << what;
    EXPECT_EQ(table.FIELD_TYPE(column.name), column.type) << what;
  }
}

TEST_F(ColumnsTest, EveryConstantIsAmongThoseThatAreChecked) {
  std::ifstream in(OSTRINKA_SOURCE "/src/books/columns.h");
  const std::string text{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  static const std::regex constant(R"re(\{(k\w+), "(\w+)"\})re");
  std::multiset<std::string> written, checked;
  for (auto at = std::sregex_iterator(text.begin(), text.end(), constant); at != std::sregex_iterator(); ++at) written.insert((*at)[2]);
  for (const ColumnFact& column : AllColumns()) checked.insert(column.name);
  EXPECT_EQ(written, checked);
}

}  // namespace ostrinka
