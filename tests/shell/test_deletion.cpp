// Deleting sales documents that correct others or are corrected, with files that fail meanwhile.
#include "shell/main_window.h"
#include "support/company.h"

namespace ostrinka {
namespace {

class DeletionTest : public CompanyTest {
 protected:
  // An invoice and the correction of it.
  DeletionTest() {
    Change(kDokSprzed, invoice, {{"KOREKTA", correction}});
    Change(kDokSprzed, correction, {{"DOTYCZY", invoice}, {"WARTOSC_NETTO", 10.0}, {"WARTOSC_BRUTTO", 12.2}});
    window.UserTab("SPRZEDAŻ");
  }
  void Delete(int32_t record) {
    window.UserRecord(record);
    platform.ui.answers = {Answer::kYes};
    window.UserCommand("SPRZEDAŻ.USUŃ");
  }
  bool Exists(int32_t record) { return Table(program, kDokSprzed).RECORD_EXIST(record); }

  const int32_t invoice = AddDocument(kInvoice, "2008-03-01", 1, 70), correction = AddDocument(kCorrection, "2008-03-02", 1, 71);
  MainWindow window{program};
};

TEST_F(DeletionTest, ADeletedCorrectionFreesItsDocumentAndIsEmptied) {
  Delete(invoice);  // not before its correction
  ASSERT_TRUE(Exists(invoice));
  EXPECT_EQ(platform.ui.beeps, 1);
  Delete(correction);
  EXPECT_FALSE(Exists(correction));
  EXPECT_EQ(Stored(kDokSprzed, invoice, "KOREKTA"), "0");
  for (const char* field : {".TYP", "NR_DOK", "ID_DOK", ".KONTRAHENT", ".WYSTAWIL", ".FORMA_PLATNOSCI", "WARTOSC_NETTO", "WARTOSC_BRUTTO",
                            "DOTYCZY", "KOREKTA"}) {
    EXPECT_EQ(Stored(kDokSprzed, correction, field), "0") << field;
  }
  Delete(invoice);
  EXPECT_FALSE(Exists(invoice));
}

TEST_F(DeletionTest, ADocumentThatAnotherCorrectsKeepsItsLink) {
  const int32_t other = AddDocument(kCorrection, "2008-03-03", 2, 72), lost = AddDocument(kCorrection, "2008-03-03", 3, 73);
  Change(kDokSprzed, other, {{"DOTYCZY", invoice}});
  Change(kDokSprzed, lost, {{"DOTYCZY", int32_t{99}}});
  for (const int32_t record : {other, lost}) {
    Delete(record);
    EXPECT_FALSE(Exists(record));
    EXPECT_EQ(Stored(kDokSprzed, invoice, "KOREKTA"), std::to_string(correction));
  }
}

TEST_F(DeletionTest, ADeletionThatCannotBeWrittenLeavesBothDocumentsAndTheirLink) {
  for (const int written : {0, 1}) {  // the link is given up, then the document is emptied
    platform.files.Refuse(FileCall::kOverwrite, "dok_sprzed.ovd", written);
    Delete(correction);
    EXPECT_EQ(NewestMessage(), program.Text("msg.info.error")) << written;
    EXPECT_TRUE(Exists(correction)) << written;
    EXPECT_EQ(Stored(kDokSprzed, invoice, "KOREKTA"), std::to_string(correction)) << written;
    EXPECT_EQ(Stored(kDokSprzed, correction, "DOTYCZY"), std::to_string(invoice)) << written;
    EXPECT_EQ(Stored(kDokSprzed, correction, "WARTOSC_BRUTTO"), "12,2") << written;
  }
  Delete(correction);
  EXPECT_FALSE(Exists(correction));
}

}  // namespace
}  // namespace ostrinka
