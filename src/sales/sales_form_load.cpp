// Filling the editor of sales documents.
#include "base/format.h"
#include "base/text.h"
#include "books/dictionary_rows.h"
#include "company/tables.h"
#include "documents/numbering.h"
#include "forms/bound_control.h"
#include "forms/form_helpers.h"
#include "forms/list_choice.h"
#include "sales/sales_form.h"

namespace ostrinka {

namespace {

constexpr int32_t kNotPaid = 0, kPaid = 1;
constexpr int32_t kReminderDays[] = {7, 14, 31};

}  // namespace

void frm_Dok_sprzed::reload_() {
  Unbind();
  ShowPage("STD");
  FillLists();
  if (!program_.database_open) return;
  LimitFields();
  record_ = Mode == EditMode::kEdit ? Table(program_, kDokSprzed).RECORD_POSITION() : 0;
  number_ = 0;
  touched_line_ = 0;
  totals_ = {};
  rate_memory_.clear();
  memoCONTROL.Clear();
  if (Mode == EditMode::kEdit) {
    LoadRecord();
  } else {
    LoadNew();
  }
  if (!chkPłatnik.Checked()) SelectOrAdd(txtPłatnik, Chosen(txtKontrahent));
  TypeChanged();
  LockForCorrection();
  if (Mode == EditMode::kEdit) Bind();
  GoSQL_();
  ref_();
  ShowStatus();
  SetFocus(txtKontrahent);
  SetDirty(false);
}

void frm_Dok_sprzed::FillLists() {
  const struct {
    ComboControl& list;
    std::initializer_list<std::pair<const char*, int32_t>> entries;
  } fixed[] = {
      {txtStatus, {{"sdoc.status.np", kNotPaid}, {"sdoc.status.ok", kPaid}}},
      {txtAdrType, {{"sdoc.sadr.none", 0}, {"sdoc.sadr.cust", 1}, {"sdoc.sadr.othr", 2}}},
      {txtAbonamentDni,
       {{"sdoc.abn.rem.7", kReminderDays[0]}, {"sdoc.abn.rem.14", kReminderDays[1]}, {"sdoc.abn.rem.31", kReminderDays[2]}}},
  };
  for (const auto& [list, entries] : fixed) {
    list.Clear();
    for (const auto& [key, value] : entries) list.AddItem(program_.Text(key), value);
  }
  FillTypes(false);
  FillCustomers();
  FillFromTable(program_, payment_form_columns::kName, txtFormaPłatności, true);
  FillFromTable(program_, employee_columns::kName, txtWystawił, true);
  FillFromRows<CurrencyRow>(
      program_, txtWaluta, [](const CurrencyRow& row) { return row.name + " - " + row.code + " (" + row.symbol + ")"; }, true);
}

void frm_Dok_sprzed::FillCustomers() {
  FillFromTable(program_, customer_columns::kName, txtKontrahent, true);
  txtPłatnik.Clear();
  for (int i = 0; i < txtKontrahent.ListCount(); ++i) txtPłatnik.AddItem(txtKontrahent.List(i), txtKontrahent.ListValue(i));
}

void frm_Dok_sprzed::FillTypes(bool corrections) {
  const auto name_of = [corrections](const DocumentType& type) {
    return has_option(type.options, "FK") == corrections ? Trim(type.name) : std::string();
  };
  FillFromRows<DocumentType>(program_, txtTypDok, name_of, true);
}

void frm_Dok_sprzed::LimitFields() {
  LimitToField(program_, document_columns::kReceiver, txtOdebrał);
  LimitToField(program_, document_columns::kNotes, txtUwagi);
  LimitToField(program_, document_columns::kAddress, txtAdrOth);
}

// --- a new document

void frm_Dok_sprzed::LoadNew() {
  opening_type_ = -1;
  id_ = new_document_id(program_);
  chkPłatnik.SetChecked(false);
  chkDateTo.SetChecked(false);
  txtAdrType.SetListIndex(0);
  txtAdrOth.SetText("");
  AddressChanged();
  chkAN.SetChecked(true);
  NumberChosen();
  rate_ = 1;
  currency_ = 0;
  const bool correcting = CorrectionFlag && CorrectedRecord >= 1;
  if (correcting) {
    LoadNewCorrection();
  } else {
    txtTypDok.SetListIndex(1);
    txtKontrahent.SetListIndex(0);
    txtPłatnik.SetListIndex(0);
  }
  for (CalendarControl* day : {&txtDataWyst, &txtDataSprzed, &txtDataZapłaty, &txtDataSprzedDo, &txtAbonamentData})
    day->SetCurrentDate(Today());
  txtFormaPłatności.SetListIndex(1);
  txtTerminZapłaty.SetCurrentDate(Today());
  PaymentFormChanged();
  txtWystawił.SetListIndex(0);
  txtOdebrał.SetText("");
  txtUwagi.SetText(program_.settings.Text(kCommon, "prgSettings", "VDNotices"));
  txtStatus.SelectValue(kNotPaid);
  if (!correcting) LoadNewCurrency();
  txtKurs.SetText(FormatNumber(rate_, "0.0000", program_.locale));
  txtAbonamentKoniec.SetChecked(false);
  txtAbonamentDni.SetListIndex(0);
  ShowSubscription();
}

void frm_Dok_sprzed::LoadNewCorrection() {
  FillTypes(true);
  txtTypDok.SetListIndex(txtTypDok.ListCount() - 1);
  const auto corrected = Read<SalesDocument>(program_, CorrectedRecord);
  if (!corrected) return;
  SelectLink(txtKontrahent, document_columns::kCustomer, CorrectedRecord);
  SelectLink(txtPłatnik, document_columns::kPayer, CorrectedRecord);
  chkPłatnik.SetChecked(corrected->payer >= 1);
  SelectLink(txtWaluta, document_columns::kCurrencyLink, CorrectedRecord);
  currency_ = corrected->currency;
  rate_ = corrected->rate;
  const bool copied = CopyLines(program_, corrected->identity, id_);
  Tell(SumUp() && copied);
}

void frm_Dok_sprzed::LoadNewCurrency() {
  txtWaluta.SetListIndex(1);
  CurrencyChanged();
}

// --- a stored document

void frm_Dok_sprzed::LoadRecord() {
  const auto document = Read<SalesDocument>(program_, record_);
  if (!document) return;
  opening_type_ = document->type;
  number_ = document->number;
  id_ = document->identity;
  CorrectionFlag = has_option(type_options(program_, opening_type_), "FK");
  CorrectedRecord = CorrectionFlag ? document->corrects : 0;
  if (CorrectionFlag) {
    txtTypDok.Clear();
    txtTypDok.AddItem("", 0);
  }
  if (!txtAdrType.SelectValue(document->address_kind)) txtAdrType.SetListIndex(0);
  txtAdrOth.SetText(document->address);
  AddressChanged();
  chkAN.SetChecked(true);
  NumberChosen();
  LoadRecordLinks();
  LoadRecordDates(*document);
  currency_ = document->currency;
  rate_ = document->rate;
  rate_memory_[currency_] = rate_;
  txtKurs.SetText(FormatNumber(rate_, "0.0000", program_.locale));
  txtOdebrał.SetText(document->receiver);
  txtUwagi.SetText(document->notes);
  totals_ = {document->net, document->gross};
  txtStatus.SelectValue(document->paid ? kPaid : kNotPaid);
  LoadRecordSubscription(*document);
}

void frm_Dok_sprzed::LoadRecordLinks() {
  using namespace document_columns;
  const std::pair<ComboControl*, Column<Link>> links[] = {
      {&txtTypDok, kType},     {&txtKontrahent, kCustomer}, {&txtPłatnik, kPayer}, {&txtFormaPłatności, kPaymentForm},
      {&txtWystawił, kIssuer}, {&txtWaluta, kCurrencyLink},
  };
  for (const auto& [list, column] : links) SelectLink(*list, column, record_);
  chkPłatnik.SetChecked(ReadColumn(program_, kPayer, record_) >= 1);
}

void frm_Dok_sprzed::LoadRecordDates(const SalesDocument& document) {
  txtDataWyst.SetCurrentDate(document.issued);
  txtDataSprzed.SetCurrentDate(document.sold);
  txtDataSprzedDo.SetCurrentDate(document.sold_to);
  txtDataZapłaty.SetCurrentDate(document.paid_on);
  txtTerminZapłaty.SetCurrentDate(document.due);
  if (txtDataSprzedDo.CurrentDate().days() == 0) txtDataSprzedDo.SetCurrentDate(txtDataSprzed.CurrentDate());
  chkDateTo.SetChecked(document.sold_over_range);
}

void frm_Dok_sprzed::LoadRecordSubscription(const SalesDocument& document) {
  txtAbonamentKoniec.SetChecked(document.subscription_ends);
  const Date end = document.subscription_end;
  // kept: an end before 2000 is shown as today, since old documents hold an empty date there
  txtAbonamentData.SetCurrentDate(end < *Date::FromYmd(2000, 1, 1) ? Today() : end);
  const int32_t days = document.reminder_days;
  SelectOrAdd(txtAbonamentDni, {days, std::to_string(days)});
  ShowSubscription();
}

// By the stored record number, so that of two customers of one name the right one stays chosen.
void frm_Dok_sprzed::SelectLink(ComboControl& list, const Column<Link>& column, int32_t record) {
  SelectOrAdd(list, ReadColumn(program_, column, record), Trim(LinkText(program_, column, record)));
}

void frm_Dok_sprzed::LockForCorrection() {
  txtNrDokKorVAT.SetVisible(CorrectionFlag);
  for (Control* control : {static_cast<Control*>(&txtDataSprzed), static_cast<Control*>(&txtWaluta), static_cast<Control*>(&txtKurs)}) {
    control->SetEnabled(!CorrectionFlag);
  }
  if (CorrectionFlag && CorrectedRecord >= 1) ShowReference();
}

void frm_Dok_sprzed::ShowReference() {
  const std::string reference = doc_reference_text(program_, CorrectedRecord);
  txtNrDokKorVAT.SetText(reference);
  txtNrDokKorVAT.SetToolTip(program_.Text("sdoc.corref", {reference}));
}

void frm_Dok_sprzed::Bind() {
  ClassQDBASE& documents = Table(program_, kDokSprzed);
  if (!documents.IsOpen()) return;
  documents.RECORD_POSITION(record_);
  documents.FORM_CONNECT(*this);
  documents.FORM_OBJECT_ADD(Bound(memoCONTROL), document_columns::kFiles.name);
  documents.FORM_REFRESH();
  bound_ = true;
}

void frm_Dok_sprzed::Unbind() {
  if (!bound_) return;
  bound_ = false;
  Table(program_, kDokSprzed).FORM_DISCONNECT();
}

void frm_Dok_sprzed::GoSQL_() {
  ClassQDBASE& lines = Table(program_, kSprzedane);
  lines.SELECTION("NAZWA_T_U, ILOSC, CENA_NETTO, RABAT, WARTOSC_NETTO, WARTOSC_BRUTTO", "ID_DOK >=1 AND ID_DOK=" + std::to_string(id_), "",
                  ordAsc);
  // Where there are lines, one is current for the buttons and keys to work on.
  if (lines.MAX_ROWS() > 0 && !lines.RECORD_SELECT(lines.RECORD_POSITION())) lines.RECORD_POSITION(lines.selection()[0]);
}

void frm_Dok_sprzed::ref_() {
  ScrollVX.SetScrollMax(Table(program_, kSprzedane).MAX_ROWS());
  const std::string pattern = PricePattern(program_, currency_, true);
  lblNet.SetText(FormatNumber(totals_.net, pattern, program_.locale));
  lblGross.SetText(FormatNumber(totals_.gross, pattern, program_.locale));
  SQL_Pic.Repaint.Raise();
}

}  // namespace ostrinka
