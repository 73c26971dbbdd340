#include <fstream>

#include "masterdata/customer_form.h"
#include "sales/sales_form_fixture.h"

namespace ostrinka {

// --- the document

TEST_F(SalesFormTest, ANewInvoiceIsNumberedTotalledAndShown) {
  const int32_t customer = AddCustomer("Kowalski", kTransfer14), article = AddArticle("Młotek", 10, 12.2);
  AddDocument(kInvoice, "2008-01-31", 41);
  auto form = NewDocument();
  EXPECT_EQ(form->focus(), &form->txtKontrahent);
  EXPECT_EQ(form->txtTypDok.Text(), "Faktura VAT");
  EXPECT_EQ(form->txtFormaPłatności.Text(), "Gotówka");
  Set(form->txtKontrahent, "Kowalski");
  EXPECT_EQ(form->txtPłatnik.Text(), "Kowalski");
  EXPECT_EQ(form->txtFormaPłatności.Text(), "Przelew 14 dni");
  EXPECT_EQ(form->txtTerminZapłaty.CurrentDate(), Day("2008-03-19"));
  Set(form->txtDataWyst, "2008-03-01");
  EXPECT_EQ(form->txtTerminZapłaty.CurrentDate(), Day("2008-03-15"));
  AddArticleLine(*form, article, "3");
  EXPECT_EQ(form->SQL_Pic.source->Rows(), 1);
  const int32_t record = Save(*form);
  const struct {
    const char *field, *text;
  } rows[] = {{".KONTRAHENT", "1"},    {".PLATNIK", "0"}, {"NR_DOK", "42"}, {"WARTOSC_NETTO", "30"}, {"WARTOSC_BRUTTO", "36,6"},
              {"ABN_KONIEC_DNI", "7"}, {"KURS", "1"},     {".WALUTA", "1"}, {"ZAPLACONO", "False"}};
  for (const auto& row : rows) EXPECT_EQ(Stored(kDokSprzed, record, row.field), row.text) << row.field;
  EXPECT_EQ(customer, 1);
  EXPECT_TRUE(Table(program, kDokSprzed).RECORD_SELECT(record));
  EXPECT_EQ(Table(program, kDokSprzed).RECORD_POSITION(), record);
  EXPECT_EQ(view.counts, 1);
  EXPECT_EQ(LinesOn(record).size(), 1u);
}

TEST_F(SalesFormTest, OpeningAndSavingADocumentChangesNothingInIt) {
  const int32_t one = AddCustomer("Imiennik", kTransfer7), two = AddCustomer("Imiennik"), gone = AddCustomer("Dawny");
  const int32_t employee = Add(kPracownicy, {{"PRACOWNIK", std::string("Nowak")}});
  const int32_t record = AddDocument(kInvoice, "2007-05-06", 9, 77);
  Change(kDokSprzed, record,
         {{"KONTRAHENT", two},
          {"PLATNIK", gone},
          {"DATA_SPRZEDAZY", Day("2007-05-04")},
          {"DATA_SPRZED_DO", Day("2007-05-05")},
          {"DATA_SPRZED_CK", true},
          {"FORMA_PLATNOSCI", kTransfer14},
          {"TERMIN_ZAPLATY", Day("2007-06-30")},
          {"WYSTAWIL", employee},
          {"ODEBRAL", std::string("Zenon")},
          {"UWAGI", std::string("pilne\r\nbardzo")},
          {"WALUTA", kEuro},
          {"KURS", 3.8123F},
          {"ZAPLACONO", true},
          {"DATA_ZAPLATY", Day("2007-05-10")},
          {"ADR_TYP", int16_t{2}},
          {"ADR_TEKST", std::string("Warszawa")},
          {"ABN_KONIEC", true},
          {"ABN_KONIEC_DATA", Day("2008-05-06")},
          {"ABN_KONIEC_DNI", int32_t{10}}});
  EXPECT_TRUE(Table(program, kKontrahenci).RECORD_DELETE(gone));
  EXPECT_TRUE(Table(program, kFormyPlatn).RECORD_DELETE(kTransfer14));
  ClassQDBASE& documents = Table(program, kDokSprzed);
  std::vector<std::string> before;
  documents.RECORD_LOAD(record);
  for (int i = 1; i <= documents.FIELD_COUNT(); ++i) before.push_back(ToText(documents.FieldRaw(i)));
  auto form = Edit(record);
  EXPECT_FALSE(form->Dirty());
  EXPECT_TRUE(form->chkPłatnik.Checked());
  EXPECT_EQ(form->txtPłatnik.Text(), "Dawny");
  EXPECT_TRUE(form->txtDataZapłaty.Visible());
  Save(*form);
  documents.RECORD_LOAD(record);
  for (int i = 1; i <= documents.FIELD_COUNT(); ++i) {
    EXPECT_EQ(ToText(documents.FieldRaw(i)), before[static_cast<size_t>(i) - 1]) << documents.FIELD_NAME(i);
  }
  EXPECT_EQ(one, 1);
}

TEST_F(SalesFormTest, TheNumberFollowsTypeAndTyping) {
  AddDocument(kCorrection, "2008-03-01", 12);
  const int32_t record = AddDocument(kInvoice, "2008-03-01", 5, 50);
  Change(kDokumentKat, kBill, {{"ZESTAW", int16_t{4}}});
  auto form = Edit(record);
  Set(form->txtDataWyst, "2009-07-01");
  Save(*form);
  EXPECT_EQ(Stored(kDokSprzed, record, "NR_DOK"), "5");  // another year alone does not renumber
  form = Edit(record);
  Set(form->txtTypDok, "Rachunek");
  Save(*form);
  EXPECT_EQ(Stored(kDokSprzed, record, "NR_DOK"), "1");
  AddDocument(kInvoice, "2009-03-01", 7);
  form = Edit(record);
  Set(form->chkAN, "false");
  EXPECT_EQ(form->txtDokNumer.Text(), "1");
  Set(form->txtDokNumer, "1 2x");
  EXPECT_EQ(form->txtDokNumer.Text(), "12x");
  EXPECT_EQ(NewestMessage(), program.Text("msg.info.nrcharonly"));
  Set(form->txtDokNumer, "7");
  Save(*form);
  EXPECT_EQ(Stored(kDokSprzed, record, "NR_DOK"), "7");
  form = Edit(record);
  EXPECT_EQ(form->txtDokNumer.Text(), program.Text("sdoc.autonumer"));
  Save(*form);
  EXPECT_EQ(Stored(kDokSprzed, record, "NR_DOK"), "7");
}

TEST_F(SalesFormTest, APayerIsStoredOnlyWhileTicked) {
  AddCustomer("Nabywca", kTransfer7);
  AddCustomer("Płacący", kTransfer14);
  auto form = NewDocument();
  Set(form->txtKontrahent, "Nabywca");
  EXPECT_FALSE(form->txtPłatnik.Enabled());
  Set(form->chkPłatnik, "true");
  Set(form->txtPłatnik, "Płacący");
  EXPECT_EQ(form->txtFormaPłatności.Text(), "Przelew 14 dni");
  Set(form->txtKontrahent, "Nabywca");
  EXPECT_EQ(form->txtPłatnik.Text(), "Płacący");
  platform.ui.answers = {Answer::kYes};
  Press(form->memoAdd);  // saves; no file is chosen
  const int32_t record = form->record();
  EXPECT_EQ(Stored(kDokSprzed, record, ".PLATNIK"), "2");
  Set(form->chkPłatnik, "false");
  EXPECT_EQ(form->txtPłatnik.Text(), "Nabywca");
  Save(*form);
  EXPECT_EQ(Stored(kDokSprzed, record, ".PLATNIK"), "0");
}

TEST_F(SalesFormTest, AReceiptTypeHasNoCustomer) {
  Add(kDokumentKat, {{"NAZWA", std::string("Paragon")}, {"OPCJE", std::string("+PA")}});
  auto form = NewDocument();
  Set(form->chkPłatnik, "true");
  Set(form->chkDateTo, "true");
  Set(form->txtTypDok, "Paragon");
  EXPECT_FALSE(form->chkPłatnik.Checked());
  const std::vector<Control*> locked = {&form->chkPłatnik, &form->txtKontrahent,     &form->txtPłatnik, &form->txtOdebrał,
                                        &form->btnFind,    &form->btnAdd_Kontrahent, &form->chkDateTo,  &form->txtDataSprzedDo};
  for (Control* control : locked) EXPECT_FALSE(control->Enabled()) << control->name();
  Set(form->txtTypDok, "Faktura VAT");
  EXPECT_TRUE(form->txtKontrahent.Enabled());
  EXPECT_TRUE(form->txtDataSprzedDo.Enabled());
  EXPECT_FALSE(form->txtPłatnik.Enabled());
}

TEST_F(SalesFormTest, AnOldDocumentWithoutDatesShowsUsableOnes) {
  const int32_t record = AddDocument(kInvoice, "2004-05-06", 9, 77);
  Change(kDokSprzed, record, {{"DATA_SPRZEDAZY", Day("2004-05-01")}});
  auto form = Edit(record);
  EXPECT_EQ(form->txtDataSprzedDo.CurrentDate(), Day("2004-05-01"));
  EXPECT_EQ(form->txtAbonamentData.CurrentDate(), Day("2008-03-05"));
  EXPECT_FALSE(form->txtDataZapłaty.Visible());
  Set(form->txtStatus, "#1");
  EXPECT_EQ(form->txtDataZapłaty.CurrentDate(), Day("2008-03-05"));
  Save(*form);
  EXPECT_EQ(Stored(kDokSprzed, record, "ABN_KONIEC_DNI"), "1");
}

TEST_F(SalesFormTest, ANewCurrencyConvertsTheLinesAndATypedRateIsRemembered) {
  const int32_t article = AddArticle("Pompa", 70, 85.4);
  auto form = NewDocument();
  AddArticleLine(*form, article, "1");
  Set(form->txtWaluta, "#2");
  EXPECT_EQ(form->txtKurs.Text(), "3,5000");
  EXPECT_DOUBLE_EQ(form->totals().gross, 24.4);
  Set(form->txtKurs, "3.6");
  EXPECT_EQ(form->txtKurs.Text(), "3,6000");
  EXPECT_DOUBLE_EQ(form->totals().gross, 24.4);  // lines are not touched
  Set(form->txtWaluta, "#1");
  EXPECT_DOUBLE_EQ(form->totals().gross, 87.84);
  Set(form->txtWaluta, "#2");
  EXPECT_EQ(form->txtKurs.Text(), "3,6000");
  const int32_t record = Save(*form);
  EXPECT_EQ(Stored(kDokSprzed, record, ".WALUTA"), "2");
  EXPECT_EQ(Stored(kDokSprzed, record, "KURS"), "3,6");
}

TEST_F(SalesFormTest, WithoutACurrencyTheDefaultOneComesBack) {
  program.settings.SaveSettingValue(kOstrinka, "Reports", "Currency", int32_t{kDollar});
  auto form = NewDocument();
  Set(form->txtWaluta, "#0");
  EXPECT_EQ(NewestMessage(), program.Text("msg.info.noselcurdef"));
  EXPECT_EQ(form->txtWaluta.Value(), kDollar);
}

TEST_F(SalesFormTest, ACancelledNewDocumentLeavesLinesThatNoOtherMeets) {
  const int32_t article = AddArticle("Młotek", 10, 12.2);
  auto form = NewDocument();
  AddArticleLine(*form, article, "1");
  Press(form->btnCancel);
  EXPECT_EQ(Table(program, kDokSprzed).RECORD_COUNT(), 0);
  EXPECT_EQ(Table(program, kSprzedane).RECORD_COUNT(), 1);
  auto next = NewDocument();
  EXPECT_EQ(next->SQL_Pic.source->Rows(), 0);
  EXPECT_EQ(next->totals().gross, 0);
}

TEST_F(SalesFormTest, PrintingSavesOnceAndKeepsTheFormOpen) {
  std::vector<std::pair<int32_t, PrintMode>> printed;
  auto form = NewDocument();
  form->print_document = [&](int32_t record, PrintMode mode) { printed.emplace_back(record, mode); };
  Press(form->btnPrint);
  EXPECT_TRUE(form->IsOpen());
  EXPECT_EQ(form->Mode, EditMode::kEdit);
  AddDocument(kInvoice, "2008-03-05", 2);
  Press(form->btnPrint);
  ASSERT_EQ(printed.size(), 2u);
  EXPECT_EQ(printed[1], std::pair(1, PrintMode::kOriginal));
  EXPECT_EQ(Table(program, kDokSprzed).RECORD_COUNT(), 2);
  EXPECT_EQ(Stored(kDokSprzed, 1, "NR_DOK"), "1");
  view.ticked = PrintMode::kDuplicate;
  Press(form->btnPrint);
  EXPECT_EQ(printed.size(), 2u);
}

TEST_F(SalesFormTest, AnAttachmentSavesTheDocumentFirst) {
  const std::string file = platform.folder / "umowa.txt";
  std::ofstream(file) << "umowa";
  auto form = NewDocument();
  platform.ui.answers = {Answer::kNo, Answer::kYes};
  Press(form->memoAdd);
  EXPECT_EQ(form->Mode, EditMode::kNew);
  platform.ui.file_answers = {file};
  Press(form->memoAdd);
  EXPECT_EQ(form->Mode, EditMode::kEdit);
  EXPECT_EQ(form->memoCONTROL.ShownText(), "umowa.txt");
  Press(form->memoExec);
  EXPECT_EQ(platform.ui.opened.size(), 1u);
  const int32_t record = Save(*form);
  EXPECT_EQ(NewDocument()->memoCONTROL.ShownText(), "");
  form = Edit(record);
  EXPECT_EQ(form->memoCONTROL.ShownText(), "umowa.txt");
  Press(form->memoDel);
  EXPECT_EQ(form->memoCONTROL.ShownText(), "");
  Press(form->memoDel);
  EXPECT_EQ(NewestMessage(), program.Text("msg.info.cantdelattachment"));
}

TEST_F(SalesFormTest, ANewCustomerComesBackSelected) {
  AddCustomer("Stary");
  auto form = NewDocument();
  platform.ui.on_modal = [](Form& modal) {
    auto& editor = dynamic_cast<frm_Kontrahenci_&>(modal);
    Set(editor.txtNazwa, "Nowy");
    editor.txtFormaPłat.SelectValue(kTransfer7);
    Press(editor.btnSave);
  };
  Press(form->btnAdd_Kontrahent);
  EXPECT_EQ(form->txtKontrahent.Text(), "Nowy");
  EXPECT_EQ(form->txtPłatnik.Text(), "Nowy");
  EXPECT_EQ(form->txtFormaPłatności.Text(), "Przelew 7 dni");
}

// --- corrections

TEST_F(SalesFormTest, ACorrectionCopiesTheLinesAndLinksBothDocuments) {
  AddCustomer("Nabywca");
  AddCustomer("Płacący");
  const int32_t article = AddArticle("Pompa", 100, 122, kVat22);
  const int32_t invoice = AddDocument(kInvoice, "2008-02-01", 3, 70);
  Change(kDokSprzed, invoice, {{"KONTRAHENT", int32_t{1}}, {"PLATNIK", int32_t{2}}, {"WALUTA", kEuro}, {"KURS", 3.7F}});
  AddStoredLine(70, article, "2", "100", "122", 10);
  auto form = NewCorrection(invoice);
  EXPECT_EQ(form->txtTypDok.Text(), "Faktura korygująca");
  EXPECT_EQ(form->txtKontrahent.Text(), "Nabywca");
  EXPECT_EQ(form->txtPłatnik.Text(), "Płacący");
  EXPECT_TRUE(form->txtNrDokKorVAT.Visible());
  EXPECT_EQ(form->txtNrDokKorVAT.Text(), doc_reference_text(program, invoice));
  EXPECT_EQ(form->txtKurs.Text(), "3,7000");
  for (Control* control : std::vector<Control*>{&form->txtKontrahent, &form->txtPłatnik, &form->txtDataSprzed, &form->txtWaluta,
                                                &form->txtKurs, &form->chkPłatnik, &form->btnFind, &form->chkDateTo}) {
    EXPECT_FALSE(control->Enabled()) << control->name();
  }
  EXPECT_DOUBLE_EQ(form->totals().net, 180);
  EditLine(*form, 1, [](frm_Dok_add_TU& dialog) {
    Set(dialog.txtIlość, "1");
    Press(dialog.btnOK);
  });
  const int32_t correction = Save(*form);
  EXPECT_EQ(Stored(kDokSprzed, correction, "DOTYCZY"), std::to_string(invoice));
  EXPECT_EQ(Stored(kDokSprzed, invoice, "KOREKTA"), std::to_string(correction));
  EXPECT_EQ(Stored(kDokSprzed, correction, "WARTOSC_NETTO"), "90");
  EXPECT_EQ(Stored(kDokSprzed, correction, ".TYP"), "3");
  EXPECT_EQ(Stored(kDokSprzed, correction, "NR_DOK"), "1");
  EXPECT_EQ(Stored(kSprzedane, LinesOn(invoice)[0], "ILOSC"), "2");
  EXPECT_EQ(may_be_corrected(program, invoice), CorrectionRule::kHasOneAlready);

  form = Edit(correction);
  EXPECT_TRUE(form->CorrectionFlag);
  EXPECT_EQ(form->CorrectedRecord, invoice);
  EXPECT_EQ(form->txtTypDok.ListCount(), 2);
  EXPECT_FALSE(form->txtKurs.Enabled());
  Save(*form);
  EXPECT_EQ(Stored(kDokSprzed, correction, "DOTYCZY"), std::to_string(invoice));
  EXPECT_EQ(Stored(kDokSprzed, correction, "NR_DOK"), "1");
}

TEST_F(SalesFormTest, ACorrectionOfNothingHasNoLines) {
  const int32_t invoice = AddDocument(kInvoice, "2008-02-01", 3, 70);
  auto form = NewCorrection(invoice);
  EXPECT_EQ(form->SQL_Pic.source->Rows(), 0);
  EXPECT_EQ(form->totals().gross, 0);
}

// --- lines

TEST_F(SalesFormTest, RemovingALineAsksAndTakesItOffTheTotals) {
  const int32_t article = AddArticle("Młotek", 10, 12.2);
  const int32_t record = AddDocument(kInvoice, "2008-03-01", 5, 50);
  AddStoredLine(50, article, "1", "10", "12,2");
  AddStoredLine(50, article, "2", "10", "12,2");
  Table(program, kSprzedane).RECORD_POSITION(AddStoredLine(51, article, "1", "10", "12,2"));
  auto form = Edit(record);
  EXPECT_EQ(form->SQL_Pic.source->CurrentRow(), 1);  // there is always one to work on
  Press(form->btnRemove);                            // answered with no
  EXPECT_EQ(form->SQL_Pic.source->Rows(), 2);
  platform.ui.answers = {Answer::kYes};
  Press(form->btnRemove);
  EXPECT_EQ(form->SQL_Pic.source->Rows(), 1);
  EXPECT_EQ(Stored(kDokSprzed, record, "WARTOSC_BRUTTO"), "24,4");  // an edited document is written at once
  EXPECT_EQ(platform.ui.messages.size(), 2u);
  EXPECT_EQ(Stored(kSprzedane, 3, "WARTOSC_BRUTTO"), "12,2");
}

TEST_F(SalesFormTest, AFreeTextLineLeavesOneDeletedArticle) {
  auto form = NewDocument();
  AddLine(*form, [](frm_Dok_add_TU& dialog) {
    EXPECT_FALSE(dialog.btnOK.Enabled());
    Set(dialog.tuType, "#2");
    EXPECT_TRUE(dialog.btnOK.Enabled());
    EXPECT_FALSE(dialog.label_home_currency.Visible());
    Set(dialog.nt_TowarUsługa, " Doradztwo ");
    Set(dialog.nt_VAT, "7%");
    Set(dialog.nt_Jednostka, "godz.");
    Set(dialog.nt_Ilość, "2,5");
    Set(dialog.nt_CenaNETTO, "100");
    EXPECT_EQ(dialog.nt_CenaBRUTTO.Text(), "107,00");
    Set(dialog.nt_CenaBRUTTO, "214");
    EXPECT_EQ(dialog.nt_CenaNETTO.Text(), "200,00");
    Press(dialog.btnOK);
  });
  EXPECT_EQ(Articles(), 1);
  EXPECT_FALSE(Table(program, kTowaryUslugi).RECORD_EXIST(1));
  const int32_t line = Table(program, kSprzedane).RECORD_COUNT();
  EXPECT_EQ(Stored(kSprzedane, line, "@NAZWA_T_U"), "Doradztwo");
  EXPECT_DOUBLE_EQ(form->totals().net, 500);

  EditLine(*form, 1, [](frm_Dok_add_TU& dialog) {
    EXPECT_EQ(dialog.tuType.Value(), frm_Dok_add_TU::kFreeText);
    EXPECT_EQ(dialog.nt_VAT.Text(), "7%");
    EXPECT_EQ(dialog.nt_CenaNETTO.Text(), "200,00");
    Set(dialog.nt_Ilość, "1");
    Press(dialog.btnOK);
  });
  EXPECT_EQ(Articles(), 2);
  EXPECT_EQ(Stored(kSprzedane, line, ".NAZWA_T_U"), "1");  // numbers alone keep the first article
  EXPECT_DOUBLE_EQ(form->totals().gross, 214);
  EditLine(*form, 1, [](frm_Dok_add_TU& dialog) {
    Set(dialog.nt_TowarUsługa, "Szkolenie");
    Press(dialog.btnOK);
  });
  EXPECT_EQ(Stored(kSprzedane, line, "@NAZWA_T_U"), "Szkolenie");
}

TEST_F(SalesFormTest, AFreeTextPriceOnAForeignDocumentIsInTheHomeCurrency) {
  auto form = NewDocument();
  Set(form->txtWaluta, "#2");
  AddLine(*form, [](frm_Dok_add_TU& dialog) {
    EXPECT_TRUE(dialog.label_home_currency.Visible());
    Set(dialog.tuType, "#2");
    Set(dialog.nt_VAT, "zw");
    Set(dialog.nt_CenaNETTO, "35");
    Set(dialog.nt_Ilość, "dwa");
    Press(dialog.btnOK);
  });
  EXPECT_EQ(Stored(kSprzedane, 1, "CENA_BRUTTO"), "10");
  EXPECT_EQ(Stored(kSprzedane, 1, "ILOSC"), "0");
}

TEST_F(SalesFormTest, SearchingPicksTheFirstRowAndArrowsMoveIt) {
  AddArticle("Młotek", 10, 12.2);
  AddArticle("Deska sosnowa", 5, 6.1);
  AddArticle("Deska bukowa", 8, 9.76);
  auto form = NewDocument();
  AddLine(*form, [](frm_Dok_add_TU& dialog) {
    EXPECT_EQ(dialog.focus(), &dialog.txtTU);
    EXPECT_EQ(dialog.picTU.source->CurrentRow(), 0);  // nothing is picked, and no row looks so
    EXPECT_FALSE(dialog.btnOK.Enabled());
    EXPECT_TRUE(dialog.UserKey(kKeyDown, false));
    EXPECT_EQ(dialog.txtComboTU.Text(), "Młotek");
    Set(dialog.txtTU, "desk");
    EXPECT_EQ(dialog.picTU.source->Rows(), 2);
    EXPECT_EQ(dialog.txtCenaNetto.Text(), "5,00");
    EXPECT_TRUE(dialog.UserKey(kKeyDown, false));
    EXPECT_EQ(dialog.txtComboTU.Text(), "Deska bukowa");
    Set(dialog.txtTU, "nic takiego");
    EXPECT_FALSE(dialog.btnOK.Enabled());
    Set(dialog.txtTU, "s1");
    EXPECT_EQ(dialog.txtComboTU.Text(), "Młotek");
    EXPECT_TRUE(dialog.UserKey(kKeyEnter, false));
    EXPECT_EQ(dialog.focus(), &dialog.txtIlość);
    dialog.txtIlość.UserSet("4szt");
    EXPECT_TRUE(dialog.UserKey(kKeyEnter, false));
    EXPECT_FALSE(dialog.IsOpen());
  });
  EXPECT_DOUBLE_EQ(form->totals().net, 40);
}

TEST_F(SalesFormTest, PriceKindsDiscountAndNetPriceStayInStep) {
  const int32_t article = AddArticle("Młotek", 10, 12.2);
  auto form = NewDocument();
  AddLine(*form, [&](frm_Dok_add_TU& dialog) {
    Set(dialog.txtComboTU, "#" + std::to_string(article));
    Set(dialog.txtCennik, "#2");
    EXPECT_EQ(dialog.txtCenaBrutto.Text(), "6,10");
    EXPECT_EQ(dialog.picTU.source->Columns(), 5);
    Set(dialog.txtCenaNetto, "20,12345");
    EXPECT_EQ(dialog.txtCenaNetto.Text(), "20,1235");
    EXPECT_EQ(dialog.txtCenaBrutto.Text(), "24,5507");
    Set(dialog.txtRabat, "150");
    EXPECT_EQ(dialog.txtRabat.Text(), "99");
    Set(dialog.txtComboTU, "#0");
    EXPECT_EQ(dialog.txtCenaNetto.Text(), "0,00");
    EXPECT_EQ(dialog.txtIlość.Text(), "1");
    EXPECT_FALSE(dialog.btnOK.Enabled());
    Press(dialog.btnCancel);
  });
  EXPECT_EQ(Table(program, kSprzedane).RECORD_COUNT(), 0);
}

TEST_F(SalesFormTest, AnotherArticleOnAnEditedLineIsPricedInTheDocumentsCurrency) {
  const int32_t home = AddArticle("Pompa", 70, 85.4), abroad = AddArticle("Pumpe", 10, 12.2, kVat22, kDollar);
  const int32_t record = AddDocument(kInvoice, "2008-03-01", 5, 50);
  Change(kDokSprzed, record, {{"WALUTA", kEuro}, {"KURS", 2.0F}});
  const int32_t line = AddStoredLine(50, home, "1", "35", "42,7");
  auto form = Edit(record);
  EditLine(*form, 1, [&](frm_Dok_add_TU& dialog) {
    EXPECT_FALSE(dialog.UserShowPage("ZAL"));
    EXPECT_EQ(dialog.txtCenaNetto.Text(), "35,00");
    Set(dialog.txtTU, "nic takiego");  // which leaves the line as it is
    EXPECT_EQ(dialog.txtCenaNetto.Text(), "35,00");
    EXPECT_TRUE(dialog.btnOK.Enabled());
    Set(dialog.txtComboTU, "#0");
    EXPECT_FALSE(dialog.btnOK.Enabled());
    Set(dialog.txtComboTU, "#" + std::to_string(abroad));
    EXPECT_EQ(dialog.txtCenaNetto.Text(), "13,50");  // 10 x 2.7 / 2
    Press(dialog.btnOK);
  });
  EXPECT_EQ(Stored(kSprzedane, line, ".NAZWA_T_U"), std::to_string(abroad));
  EXPECT_EQ(Stored(kSprzedane, line, "CENA_NETTO"), "13,5");
}

TEST_F(SalesFormTest, OnlyTheCustomersAdvancesAreOfferedAndSettled) {
  AddCustomer("Jeden");
  AddCustomer("Drugi");
  const int32_t article = AddArticle("Dom", 100, 122);
  for (int i = 0; i < 3; ++i) {
    const int32_t advance = AddDocument(i == 2 ? kInvoice : kAdvanceInvoice, "2008-02-0" + std::to_string(i + 1), i + 1, 60 + i);
    Change(kDokSprzed, advance, {{"KONTRAHENT", int32_t{i == 1 ? 2 : 1}}});
    AddStoredLine(60 + i, article, "1", "100", "122");
  }
  auto form = NewDocument();
  Set(form->txtKontrahent, "Jeden");
  AddLine(*form, [](frm_Dok_add_TU& dialog) {
    ASSERT_TRUE(dialog.UserShowPage("ZAL"));
    ASSERT_EQ(dialog.picFZ.source->Rows(), 1);
    Press(dialog.btnOK);
  });
  EXPECT_EQ(NewestMessage(), program.Text("msg.info.cantadddocfz"));
  AddLine(*form, [](frm_Dok_add_TU& dialog) {
    ASSERT_TRUE(dialog.UserShowPage("ZAL"));
    ASSERT_TRUE(dialog.picFZ.UserClick(1, 1));
    Press(dialog.btnOK);
  });
  EXPECT_DOUBLE_EQ(form->totals().gross, -122);
}

TEST_F(SalesFormTest, KeysActOnTheLinesAndSave) {
  const int32_t article = AddArticle("Młotek", 10, 12.2);
  auto form = NewDocument();
  InLineDialog([&](frm_Dok_add_TU& dialog) {
    dialog.txtComboTU.UserSet("#" + std::to_string(article));
    dialog.btnOK.UserPress();
  });
  EXPECT_TRUE(form->UserKey(kKeyInsert, false));
  EXPECT_EQ(form->SQL_Pic.source->Rows(), 1);
  form->txtDokNumer.UserEnter();
  form->txtKurs.UserEnter();
  EXPECT_FALSE(form->UserKey(kKeyDelete, false));  // Delete belongs to the text
  form->SQL_Pic.UserEnter();
  platform.ui.answers = {Answer::kYes};
  EXPECT_TRUE(form->UserKey(kKeyDelete, false));
  EXPECT_EQ(form->SQL_Pic.source->Rows(), 0);
  EXPECT_TRUE(form->UserKey(kKeyEnter, true));
  EXPECT_FALSE(form->IsOpen());
}

}  // namespace ostrinka
