// Filling the editor of sales documents.
#include "base/format.h"
#include "base/text.h"
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
  ClassQDBASE& documents = Table(program_, kDokSprzed);
  record_ = Mode == 2 ? documents.RECORD_POSITION() : 0;
  number_ = 0;
  totals_ = {};
  rate_memory_.clear();
  memoCONTROL.Clear();
  if (Mode == 2) {
    LoadRecord();
  } else {
    LoadNew();
  }
  if (!chkPłatnik.Checked()) SelectOrAdd(txtPłatnik, Chosen(txtKontrahent));
  TypeChanged();
  LockForCorrection();
  if (Mode == 2) Bind();
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
  FillFromTable(program_, kFormyPlatn, txtFormaPłatności, "NAZWA", true);
  FillFromTable(program_, kPracownicy, txtWystawił, "PRACOWNIK", true);
  const auto currency_text = [](ClassQDBASE& currency) {
    return currency.Text("NAZWA") + " - " + currency.Text("KODWAL") + " (" + currency.Text("SYMBOL") + ")";
  };
  FillFromTable(program_, kWaluty, txtWaluta, currency_text, true);
}

void frm_Dok_sprzed::FillCustomers() {
  FillFromTable(program_, kKontrahenci, txtKontrahent, "NAZWA", true);
  txtPłatnik.Clear();
  for (int i = 0; i < txtKontrahent.ListCount(); ++i) txtPłatnik.AddItem(txtKontrahent.List(i), txtKontrahent.ListValue(i));
}

void frm_Dok_sprzed::FillTypes(bool corrections) {
  const auto name_of = [corrections](ClassQDBASE& type) {
    return has_option(type.Text("OPCJE"), "FK") == corrections ? Trim(type.Text("NAZWA")) : std::string();
  };
  FillFromTable(program_, kDokumentKat, txtTypDok, name_of, true);
}

void frm_Dok_sprzed::LimitFields() {
  ClassQDBASE& documents = Table(program_, kDokSprzed);
  LimitToField(documents, "ODEBRAL", txtOdebrał);
  LimitToField(documents, "UWAGI", txtUwagi);
  LimitToField(documents, "ADR_TEKST", txtAdrOth);
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
  ClassQDBASE& documents = Table(program_, kDokSprzed);
  KeepPositions keep(program_, {kDokSprzed});
  FillTypes(true);
  txtTypDok.SetListIndex(txtTypDok.ListCount() - 1);
  if (!documents.RECORD_LOAD(CorrectedRecord)) return;
  const int32_t corrected_id = documents.Int("ID_DOK");
  SelectLink(txtKontrahent, "KONTRAHENT");
  SelectLink(txtPłatnik, "PLATNIK");
  chkPłatnik.SetChecked(documents.Int(".PLATNIK") >= 1);
  SelectLink(txtWaluta, "WALUTA");
  currency_ = documents.Int(".WALUTA");
  rate_ = FloatOr0(documents.FIELD("KURS"));
  CopyLines(program_, corrected_id, id_);
  Recalculate();
}

void frm_Dok_sprzed::LoadNewCurrency() {
  txtWaluta.SetListIndex(1);
  CurrencyChanged();
}

// --- a stored document

void frm_Dok_sprzed::LoadRecord() {
  ClassQDBASE& documents = Table(program_, kDokSprzed);
  if (!documents.RECORD_LOAD(record_)) return;
  opening_type_ = documents.Int(".TYP");
  number_ = documents.Int("NR_DOK");
  id_ = documents.Int("ID_DOK");
  CorrectionFlag = has_option(type_options(program_, opening_type_), "FK");
  CorrectedRecord = CorrectionFlag ? documents.Int("DOTYCZY") : 0;
  if (CorrectionFlag) {
    txtTypDok.Clear();
    txtTypDok.AddItem("", 0);
  }
  if (!txtAdrType.SelectValue(documents.Int("ADR_TYP"))) txtAdrType.SetListIndex(0);
  txtAdrOth.SetText(documents.Text("ADR_TEKST"));
  AddressChanged();
  chkAN.SetChecked(true);
  NumberChosen();
  LoadRecordLinks();
  LoadRecordDates();
  currency_ = documents.Int(".WALUTA");
  rate_ = FloatOr0(documents.FIELD("KURS"));
  rate_memory_[currency_] = rate_;
  txtKurs.SetText(FormatNumber(rate_, "0.0000", program_.locale));
  txtOdebrał.SetText(documents.Text("ODEBRAL"));
  txtUwagi.SetText(documents.Text("UWAGI"));
  totals_ = {documents.Real("WARTOSC_NETTO"), documents.Real("WARTOSC_BRUTTO")};
  txtStatus.SelectValue(documents.Flag("ZAPLACONO") ? kPaid : kNotPaid);
  LoadRecordSubscription();
}

void frm_Dok_sprzed::LoadRecordLinks() {
  const std::pair<ComboControl*, const char*> links[] = {
      {&txtTypDok, "TYP"},        {&txtKontrahent, "KONTRAHENT"}, {&txtPłatnik, "PLATNIK"}, {&txtFormaPłatności, "FORMA_PLATNOSCI"},
      {&txtWystawił, "WYSTAWIL"}, {&txtWaluta, "WALUTA"},
  };
  for (const auto& [list, field] : links) SelectLink(*list, field);
  chkPłatnik.SetChecked(Table(program_, kDokSprzed).Int(".PLATNIK") >= 1);
}

void frm_Dok_sprzed::LoadRecordDates() {
  ClassQDBASE& documents = Table(program_, kDokSprzed);
  const std::pair<CalendarControl*, const char*> days[] = {
      {&txtDataWyst, "DATA_WYSTAWIENIA"}, {&txtDataSprzed, "DATA_SPRZEDAZY"},    {&txtDataSprzedDo, "DATA_SPRZED_DO"},
      {&txtDataZapłaty, "DATA_ZAPLATY"},  {&txtTerminZapłaty, "TERMIN_ZAPLATY"},
  };
  for (const auto& [calendar, field] : days) calendar->SetCurrentDate(documents.Day(field));
  if (txtDataSprzedDo.CurrentDate().days() == 0) txtDataSprzedDo.SetCurrentDate(txtDataSprzed.CurrentDate());
  chkDateTo.SetChecked(documents.Flag("DATA_SPRZED_CK"));
}

void frm_Dok_sprzed::LoadRecordSubscription() {
  ClassQDBASE& documents = Table(program_, kDokSprzed);
  txtAbonamentKoniec.SetChecked(documents.Flag("ABN_KONIEC"));
  const Date end = documents.Day("ABN_KONIEC_DATA");
  txtAbonamentData.SetCurrentDate(end < *Date::FromYmd(2000, 1, 1) ? Today() : end);
  const int32_t days = documents.Int("ABN_KONIEC_DNI");
  SelectOrAdd(txtAbonamentDni, {days, std::to_string(days)});
  ShowSubscription();
}

// By the stored record number, so that of two customers of one name the right one stays chosen.
void frm_Dok_sprzed::SelectLink(ComboControl& list, const char* field) {
  ClassQDBASE& documents = Table(program_, kDokSprzed);
  SelectOrAdd(list, {documents.Int(std::string(".") + field), Trim(documents.Text(std::string("@") + field))});
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
  documents.FORM_OBJECT_ADD(Bound(memoCONTROL), "MEMO_");
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
