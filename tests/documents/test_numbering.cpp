#include "documents/trade.h"

namespace ostrinka {

class NumberingTest : public Trade {
 protected:
  int32_t NextNumber(int32_t type, const std::string& issued, int32_t skip = 0) {
    return next_number(program, kDokSprzed, Day(issued), type, skip);
  }
  std::string NumberText(const std::string& format, int32_t number = 17, const std::string& issued = "2008-03-05", int32_t customer = 0) {
    const int32_t type = Add(kDokumentKat, {{"NAZWA", std::string("x")}, {"FORMAT", format}});
    const int32_t document = AddDocument(type, issued, number);
    Change(kDokSprzed, document, {{"KONTRAHENT", customer}});
    return doc_number_text(program, document);
  }
};

TEST_F(NumberingTest, TheNextNumberCountsTheSetNotTheType) {
  AddDocument(kInvoice, "2008-03-01", 17);
  AddDocument(kProForma, "2008-03-02", 18);    // same set as the invoice
  AddDocument(kCorrection, "2008-03-03", 99);  // a set of its own
  AddDocument(kInvoice, "2007-12-31", 500);    // the year before
  AddDocument(kInvoice, "2010-01-01", 900);    // a later one
  EXPECT_TRUE(Table(program, kDokSprzed).RECORD_DELETE(AddDocument(kInvoice, "2008-03-04", 40)));
  EXPECT_EQ(NextNumber(kInvoice, "2008-03-05"), 19);
  EXPECT_EQ(NextNumber(kInvoice, "2008-03-05", /*skip=*/18), 18);
  EXPECT_EQ(NextNumber(kCorrection, "2008-12-31"), 100);
  EXPECT_EQ(NextNumber(kInvoice, "2007-01-01"), 501);
  EXPECT_EQ(NextNumber(kInvoice, "2009-12-31"), 1);
  EXPECT_EQ(NextNumber(kInvoice, "2010-05-05"), 901);
}

TEST_F(NumberingTest, AMonthlyTypeStartsAgainWhileOthersOfItsSetCountThroughTheYear) {
  const int32_t monthly = Add(kDokumentKat, {{"NAZWA", std::string("Miesięczna")}, {"OPCJE", std::string("+nm")}});
  AddDocument(monthly, "2008-02-29", 7);
  AddDocument(kInvoice, "2008-03-31", 3);
  EXPECT_EQ(NextNumber(monthly, "2008-03-01"), 4);
  EXPECT_EQ(NextNumber(monthly, "2008-12-05"), 1);
  EXPECT_EQ(NextNumber(kInvoice, "2008-12-05"), 8);
  AddDocument(monthly, "2008-12-31", 2);
  AddDocument(monthly, "2009-01-01", 70);
  EXPECT_EQ(NextNumber(monthly, "2008-12-01"), 3);
  AddDocument(monthly, "2008-05-01", 50);
  EXPECT_EQ(NextNumber(monthly, "2008-04-30"), 1);
  AddDocument(monthly, "9999-12-31", 8);  // nothing lies behind
  EXPECT_EQ(NextNumber(monthly, "9999-12-01"), 9);
}

TEST_F(NumberingTest, AnImpossibleTableOrTypeGivesNothing) {
  for (const int table : {0, 33, -1}) EXPECT_EQ(next_number(program, table, Day("2008-01-01"), kInvoice, 0), 0);
  EXPECT_EQ(NextNumber(0, "2008-01-01"), 0);
  EXPECT_EQ(NextNumber(77, "2008-01-01"), 0);
}

TEST_F(NumberingTest, CountingLeavesPositionAndBufferOfTheOpenTables) {
  const int32_t document = AddDocument(kInvoice, "2008-03-01", 17);
  AddDocument(kInvoice, "2008-03-01", 18);
  ClassQDBASE& documents = Table(program, kDokSprzed);
  documents.RECORD_POSITION(document);
  documents.RECORD_LOAD(document);
  EXPECT_TRUE(documents.FIELD("NR_DOK", int32_t{123}));
  NextNumber(kInvoice, "2008-03-05");
  new_document_id(program);
  EXPECT_EQ(documents.Int("NR_DOK"), 123);
  EXPECT_EQ(documents.RECORD_POSITION(), document);
  doc_number_text(program, 2);
  EXPECT_EQ(documents.RECORD_POSITION(), document);
}

TEST_F(NumberingTest, AnOptionWordNeedsAPlusSignBesideIt) {
  const struct {
    const char *options, *word;
    bool found;
  } rows[] = {
      {"+FK", "FK", true},   {" pf+fk ", "fk", true}, {"FK", "FK", false},   {"", "PF", false},      {"+PF", "PA", false},
      {"PF+FK", "FK", true}, {"PF+FK", "PF", true},   {"NUMER+", "R", true}, {"+PF+FZ", "FZ", true}, {"+ FK", "FK", false},
  };
  for (const auto& row : rows) EXPECT_EQ(has_option(row.options, row.word), row.found) << row.options << " " << row.word;
  EXPECT_TRUE(is_pro_forma(program, AddDocument(kProForma, "2008-01-01", 1)));
  EXPECT_TRUE(is_bill(program, AddDocument(kBill, "2008-01-01", 1)));
  EXPECT_TRUE(is_correction(program, AddDocument(kCorrection, "2008-01-01", 1)));
  EXPECT_FALSE(is_receipt(program, AddDocument(kInvoice, "2008-01-01", 1)));
}

TEST_F(NumberingTest, TheTemplateIsFilledInCapitals) {
  const int32_t customer = AddCustomer("Hurt");
  Change(kKontrahenci, customer, {{"GRUPA", int32_t{1}}});
  const struct {
    const char *format, *text;
  } rows[] = {
      {"Nr [nr] / yyyy", "NR 17 / 2008"}, {"[NR]/yy", "[NR]/08"},  {"FV_[nr]_mm", "FV  17  03"},
      {"[nr] mmmm", "17 MARZEC"},         {"dddd dd", "ŚRODA 05"}, {"[nr]/[gr]", "17/Lokalni"},
      {"bez numeru", "BEZ NUMERU"},       {"yyyyyy", "200808"},
  };
  for (const auto& row : rows) EXPECT_EQ(NumberText(row.format, 17, "2008-03-05", customer), row.text) << row.format;
}

TEST_F(NumberingTest, ADocumentOfADeletedTypePrintsAsBefore) {
  const int32_t document = AddDocument(kInvoice, "2008-03-05", 3);
  EXPECT_TRUE(Table(program, kDokumentKat).RECORD_DELETE(kInvoice));
  EXPECT_EQ(doc_number_text(program, document), "NR 3 / 2008");
  EXPECT_EQ(doc_reference_text(program, document).substr(0, 33), "Faktura VAT NR 3 / 2008 z dnia 05");
}

TEST_F(NumberingTest, OnlyAnOrdinaryDocumentWithoutLivingCorrectionMayBeCorrected) {
  for (const int32_t type : {kProForma, kCorrection, kBill}) {
    EXPECT_EQ(may_be_corrected(program, AddDocument(type, "2008-01-01", 1)), CorrectionRule::kTypeForbids);
  }
  const int32_t invoice = AddDocument(kInvoice, "2008-01-01", 1), correction = AddDocument(kCorrection, "2008-01-01", 1);
  EXPECT_EQ(may_be_corrected(program, invoice), CorrectionRule::kAllowed);
  Change(kDokSprzed, invoice, {{"KOREKTA", correction}});
  EXPECT_EQ(may_be_corrected(program, invoice), CorrectionRule::kHasOneAlready);
  EXPECT_TRUE(Table(program, kDokSprzed).RECORD_DELETE(correction));
  EXPECT_EQ(may_be_corrected(program, invoice), CorrectionRule::kAllowed);
}

TEST_F(NumberingTest, IdentitiesAreNewAndWithinThirtyBits) {
  int32_t last = 0;
  for (int i = 0; i < 20; ++i) {
    const int32_t id = new_document_id(program);
    EXPECT_GE(id, 1);
    EXPECT_LT(id, 1 << 30);
    EXPECT_NE(id, last);
    last = id;
  }
}

}  // namespace ostrinka
