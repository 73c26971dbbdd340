// Rows read, added and stored on real tables.
#include "books/books.h"
#include "books/dictionary_rows.h"
#include "books/rows.h"
#include "books/sale_lines.h"
#include "support/company.h"

namespace ostrinka {

class BooksTest : public CompanyTest {
 protected:
  int32_t AddSoldLine(int32_t document, const std::string& origin) {
    SalesLine line;
    line.document = document;
    line.quantity = Currency::FromWhole(2);
    line.net = Currency::FromRaw(12345);
    line.origin = origin;
    return ostrinka::Add(program, line);
  }
  ClassQDBASE& customers = Table(program, kKontrahenci);
};

Customer Mill() {
  Customer customer;
  customer.name = "Młyn Żuraw";
  customer.tax_number = "123-456-32-18";
  customer.group = 2;
  customer.has_own_account = true;
  return customer;
}

TEST_F(BooksTest, ARowComesBackAsItWasAdded) {
  SalesDocument document;
  document.type = kInvoice;
  document.number = 17;
  document.issued = Day("2008-03-05");
  document.rate = 3.7F;
  document.net = 1.0 / 3;
  document.paid = true;
  document.address_kind = -3;
  document.notes = "pierwsza\r\ndruga";
  document.reminder_days = 70000;
  const int32_t record = ostrinka::Add(program, document);
  const auto read = Read<SalesDocument>(program, record);
  ASSERT_TRUE(read);
  EXPECT_EQ(ValuesOf(*read).all().size(), ValuesOf(document).all().size());
  ColumnValues values = ValuesOf(*read);
  values.DropEqual(ValuesOf(document));
  for (const FieldValue& other : values.all()) ADD_FAILURE() << other.field.name() << " " << ToText(other.value);
  EXPECT_EQ(Stored(kDokSprzed, record, ".TYP"), "1");
  EXPECT_EQ(Stored(kDokSprzed, record, "KURS"), "3,7");
  EXPECT_EQ(LinkText(program, document_columns::kType, record), "Faktura VAT");

  Purchase purchase;
  purchase.rates[9] = {kVat7, 10, 10.7, 0.7};
  const auto bought = Read<Purchase>(program, ostrinka::Add(program, purchase));
  ASSERT_TRUE(bought);
  EXPECT_EQ(bought->rates[9].rate, kVat7);
  EXPECT_EQ(bought->rates[9].vat, 0.7);
  EXPECT_EQ(bought->rates[8].gross, 0);
}

TEST_F(BooksTest, ReadingAndWritingLeaveCursorBufferAndSelectionAlone) {
  for (const char* name : {"Pierwszy", "Drugi", "Trzeci"}) AddCustomer(name);
  customers.SELECTION("NAZWA", "NAZWA # i", "NAZWA", ordDesc);
  const std::vector<int32_t> selection = customers.selection();
  ASSERT_TRUE(customers.RECORD_POSITION(2) && customers.RECORD_LOAD(2));
  ASSERT_TRUE(customers.FIELD("NAZWA", std::string("jeszcze nie zapisany")));

  EXPECT_EQ(Read<Customer>(program, 1)->name, "Pierwszy");
  EXPECT_EQ(ReadColumn(program, customer_columns::kName, 2), "Drugi") << "as the file has it";
  int32_t seen = 0;
  EachRow<Customer>(program, [&](int32_t record, const Customer&) { return ++seen, record < 2; });
  EXPECT_EQ(seen, 2);
  EXPECT_TRUE(StoreColumn(program, customer_columns::kTown, 1, "Gdynia"));
  EXPECT_TRUE(ostrinka::Store(program, 3, Mill()));
  EXPECT_EQ(ostrinka::Add(program, Mill()), 4);

  EXPECT_EQ(customers.RECORD_POSITION(), 2);
  EXPECT_EQ(customers.Text("NAZWA"), "jeszcze nie zapisany");
  EXPECT_EQ(customers.selection(), selection);
}

TEST_F(BooksTest, DeletedRecordsAreReadAndPassedOverInWalks) {
  const int32_t gone = AddCustomer("Były"), there = AddCustomer("Obecny");
  ASSERT_TRUE(customers.RECORD_DELETE(gone));
  EXPECT_EQ(Read<Customer>(program, gone)->name, "Były");
  EXPECT_FALSE(IsLive(program, kKontrahenci, gone));
  std::vector<int32_t> walked;
  const auto visit = [&](int32_t record, const std::string&) { return walked.push_back(record), true; };
  EachOf(program, kKontrahenci, visit, customer_columns::kName);
  EXPECT_EQ(walked, std::vector<int32_t>{there});
  const int32_t document = AddDocument(kInvoice, "2008-01-01", 1);
  EXPECT_TRUE(StoreColumn(program, document_columns::kCustomer, document, gone));
  EXPECT_EQ(LinkText(program, document_columns::kCustomer, document), "Były");
}

TEST_F(BooksTest, WhatIsNotThereReadsAsNothing) {
  for (const int32_t record : {-1, 0, 1, 99}) {
    EXPECT_FALSE(Read<Customer>(program, record)) << record;
    EXPECT_EQ(ReadColumn(program, customer_columns::kName, record), "");
    EXPECT_EQ(LinkText(program, customer_columns::kGroup, record), "");
    EXPECT_FALSE(StoreColumn(program, customer_columns::kName, record, "x")) << record;
    EXPECT_EQ(AddCopy(program, kKontrahenci, record, {}), 0);
  }
  EXPECT_EQ(customers.RECORD_COUNT(), 0);
  OSTEngine(program).close_(false);
  EXPECT_FALSE(Read<VatRate>(program, 1));
  EXPECT_EQ(ostrinka::Add(program, Mill()), 0);
}

TEST_F(BooksTest, StoringARowTouchesNothingThatItDoesNotChange) {
  const int32_t record = AddCustomer("Młyn");
  // Blanks that reading leaves out, and a field that the row does not have.
  Change(kKontrahenci, record, {{"UWAGI", std::string("  wcięte")}, {"MEMO_", int32_t{7}}});
  const std::string before = Bytes(kKontrahenci);
  Customer customer = *Read<Customer>(program, record);
  EXPECT_EQ(customer.notes, "wcięte");
  ASSERT_TRUE(ostrinka::Store(program, record, customer));
  EXPECT_EQ(Bytes(kKontrahenci), before);
  customer.town = "Hel";
  ASSERT_TRUE(ostrinka::Store(program, record, customer));
  EXPECT_EQ(Stored(kKontrahenci, record, "MIEJSCOWOSC"), "Hel");
  EXPECT_EQ(Stored(kKontrahenci, record, "MEMO_"), "7");
}

TEST_F(BooksTest, ACopyHasEveryFieldOfItsSource) {
  const int32_t source = ostrinka::Add(program, Mill());
  Change(kKontrahenci, source, {{"MEMO_", int32_t{7}}});
  const int32_t copy = AddCopy(program, kKontrahenci, source, ColumnValues().Set(customer_columns::kTown, "Hel"));
  EXPECT_EQ(Read<Customer>(program, copy)->tax_number, "123-456-32-18");
  EXPECT_EQ(Stored(kKontrahenci, copy, "MEMO_"), "7");
  EXPECT_EQ(Read<Customer>(program, copy)->town, "Hel");
  EXPECT_EQ(Read<Customer>(program, source)->town, "");
}

TEST_F(BooksTest, ARecordThatCannotBeWrittenIsNotLeftEmpty) {
  const struct {
    FileCall call;
    int after;
    const char* what;
  } rows[] = {{FileCall::kGrow, 0, "the empty record"},
              {FileCall::kOverwrite, 0, "the number of records"},
              {FileCall::kOverwrite, 1, "its fields"}};
  for (const auto& row : rows) {
    platform.files.Refuse(row.call, "kontrahenci.ovd", row.after);
    EXPECT_EQ(ostrinka::Add(program, Mill()), 0) << row.what;
    for (int32_t n = 1; n <= customers.RECORD_COUNT(); ++n) EXPECT_FALSE(customers.RECORD_EXIST(n)) << row.what;
  }
  platform.files.refuses = nullptr;
  const int32_t record = ostrinka::Add(program, Mill());
  ASSERT_GE(record, 1);
  const std::string before = Bytes(kKontrahenci);
  platform.files.Refuse(FileCall::kOverwrite, "kontrahenci.ovd");
  EXPECT_FALSE(StoreColumn(program, customer_columns::kTown, record, "Hel"));
  EXPECT_EQ(Bytes(kKontrahenci), before);
}

TEST_F(BooksTest, AValueThatItsFieldCannotHoldIsRefused) {
  const int32_t record = AddCustomer("Młyn");
  const Column<std::string> no_such{kKontrahenci, "NIE_MA"};
  EXPECT_FALSE(StoreColumn(program, no_such, record, "x"));
  ASSERT_TRUE(StoreColumn(program, customer_columns::kTown, record, std::string(150, 'x')));
  EXPECT_EQ(Read<Customer>(program, record)->town, std::string(100, 'x')) << "cut at the field that follows";
}

TEST_F(BooksTest, TheLinesOfManyDocumentsAreGroupedInTheOrderOfTheirRecords) {
  AddSoldLine(7, "a");
  AddSoldLine(3, "b");
  AddSoldLine(0, "none");
  AddSoldLine(7, "c");
  ASSERT_TRUE(Table(program, kSprzedane).RECORD_DELETE(AddSoldLine(7, "deleted")));
  AddSoldLine(9, "d");
  const auto told = [](const LinesByDocument& lines) {
    std::string text;
    for (const auto& [document, stored] : lines) {
      text += std::to_string(document) + ":";
      for (const StoredLine& line : stored) text += " " + std::to_string(line.record) + line.row.origin;
      text += "; ";
    }
    return text;
  };
  EXPECT_EQ(told(AllLines(program)), "3: 2b; 7: 1a 4c; 9: 6d; ");
  EXPECT_EQ(told(LinesOfDocuments(program, {9, 7, 55, 0})), "7: 1a 4c; 9: 6d; ");
  EXPECT_EQ(LinesOfDocument(program, 3)[0].row.net, Currency::FromRaw(12345));
  EXPECT_TRUE(LinesOfDocument(program, 0).empty());
}

}  // namespace ostrinka
