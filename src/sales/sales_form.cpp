#include "sales/sales_form.h"

#include <algorithm>

#include "base/format.h"
#include "base/text.h"
#include "company/tables.h"
#include "documents/numbering.h"
#include "forms/list_choice.h"
#include "masterdata/customer_form.h"

namespace ostrinka {

namespace {

constexpr int32_t kPaid = 1, kFreeAddress = 2;

}  // namespace

frm_Dok_sprzed::frm_Dok_sprzed(Program& program)
    : Form("frm_Dok_sprzed", "sdoc.frm.title"), program_(program), lines_(Table(program, kSprzedane)) {
  place_section = "Windows\\SDOC";
  txtUwagi.MultiLine = true;
  txtAdrOth.MultiLine = true;
  lines_.look.true_text = "Tak";
  lines_.look.false_text = "Nie";
  SQL_Pic.source = &lines_;
  RegisterControls();
  LayOut();
  LayOutMore();
  Connect();
  ConnectButtons();
  Closed += [this] { Unbind(); };
}

void frm_Dok_sprzed::RegisterControls() {
  const std::pair<const char*, Control*> named[] = {
      {"txtKontrahent", &txtKontrahent},
      {"btnFind", &btnFind},
      {"btnAdd_Kontrahent", &btnAdd_Kontrahent},
      {"chkPłatnik", &chkPłatnik},
      {"txtPłatnik", &txtPłatnik},
      {"btnFind_Płatnik", &btnFind_Płatnik},
      {"btnAdd_Płatnik", &btnAdd_Płatnik},
      {"txtTypDok", &txtTypDok},
      {"txtDokNumer", &txtDokNumer},
      {"chkAN", &chkAN},
      {"txtNrDokKorVAT", &txtNrDokKorVAT},
      {"txtDataWyst", &txtDataWyst},
      {"txtDataSprzed", &txtDataSprzed},
      {"chkDateTo", &chkDateTo},
      {"txtDataSprzedDo", &txtDataSprzedDo},
      {"txtFormaPłatności", &txtFormaPłatności},
      {"txtTerminZapłaty", &txtTerminZapłaty},
      {"txtStatus", &txtStatus},
      {"txtDataZapłaty", &txtDataZapłaty},
      {"txtWaluta", &txtWaluta},
      {"txtKurs", &txtKurs},
      {"SQL_Pic", &SQL_Pic},
      {"ScrollVX", &ScrollVX},
      {"btnAdd", &btnAdd},
      {"btnEdit", &btnEdit},
      {"btnRemove", &btnRemove},
      {"lblNet", &lblNet},
      {"lblGross", &lblGross},
      {"txtWystawił", &txtWystawił},
      {"txtOdebrał", &txtOdebrał},
      {"txtUwagi", &txtUwagi},
      {"txtAdrType", &txtAdrType},
      {"txtAdrOth", &txtAdrOth},
      {"txtAbonamentKoniec", &txtAbonamentKoniec},
      {"label_abn_remind", &label_abn_remind},
      {"txtAbonamentData", &txtAbonamentData},
      {"label_abn_remdays", &label_abn_remdays},
      {"txtAbonamentDni", &txtAbonamentDni},
      {"memoCONTROL", &memoCONTROL},
      {"memoAdd", &memoAdd},
      {"memoDel", &memoDel},
      {"memoExec", &memoExec},
      {"btnSave", &btnSave},
      {"btnPrint", &btnPrint},
      {"btnCancel", &btnCancel},
  };
  for (const auto& [name, control] : named) Register(name, *control);
}

void frm_Dok_sprzed::LayOut() {
  const std::pair<ButtonControl*, const char*> captions[] = {
      {&btnFind, "sdoc.btn.find"},         {&btnAdd_Kontrahent, "sdoc.btn.cadd"},
      {&btnFind_Płatnik, "sdoc.btn.find"}, {&btnAdd_Płatnik, "sdoc.btn.cadd"},
      {&btnAdd, "sdoc.btn.add"},           {&btnEdit, "sdoc.btn.edit"},
      {&btnRemove, "sdoc.btn.remove"},     {&memoAdd, "sdoc.btn.ach.add"},
      {&memoDel, "sdoc.btn.ach.del"},      {&memoExec, "sdoc.btn.ach.show"},
  };
  for (const auto& [button, key] : captions) button->caption_key = key;
  const std::pair<ButtonControl*, const char*> icons[] = {
      {&btnSave, "btnsave.ico"},   {&btnPrint, "btnprint.ico"}, {&btnCancel, "btncancel.ico"},
      {&btnAdd, "btnadd.ico"},     {&btnEdit, "btnedit.ico"},   {&btnRemove, "btnremove.ico"},
      {&memoAdd, "btnattadd.ico"}, {&memoDel, "btnattdel.ico"}, {&memoExec, "btnattopen.ico"},
  };
  for (const auto& [button, icon] : icons) button->icon = icon;
  btnAdd.SetToolTip(program_.Text("sdoc.btn.add") + " (Insert)");
  btnEdit.SetToolTip(program_.Text("sdoc.btn.edit") + " (F2)");
  btnRemove.SetToolTip(program_.Text("sdoc.btn.remove") + " (Delete)");
  btnSave.SetToolTip(program_.Text("sdoc.btn.ok") + " (Ctrl+Enter)");
  chkAN.caption_key = "sdoc.chk.an";
  chkPłatnik.caption_key = "sdoc.chk.payer";
  chkDateTo.caption_key = "sdoc.chk.dateto";
  txtAbonamentKoniec.caption_key = "sdoc.abn.end";
  label_abn_remind.caption_key = "sdoc.abn.remind";
  label_abn_remdays.caption_key = "sdoc.abn.remdays";

  Page("STD", "sdoc.tab.std")
      .Side({GroupLayout("sdoc.grp.doc", 6)
                 .Row({{"sdoc.lbl.type", txtTypDok, 7}, {"sdoc.lbl.nr", txtDokNumer, 5}})
                 .Row({{"sdoc.lbl.ref", txtNrDokKorVAT, 12, kCollapse | kInline}})
                 .Row({{"", chkDateTo, 7}, {"", chkAN, 5}})
                 .Row({{"sdoc.lbl.mdate", txtDataWyst, 4}, {"sdoc.lbl.sdate", txtDataSprzed, 4}, {"sdoc.chk.dateto", txtDataSprzedDo, 4}}),
             GroupLayout("sdoc.grp.cust", 6)
                 .Row({{"sdoc.lbl.cust", txtKontrahent, 8}, {"", btnFind, 2}, {"", btnAdd_Kontrahent, 2}})
                 .Row({{"", chkPłatnik, 12}})
                 .Row({{"sdoc.lbl.payer", txtPłatnik, 8}, {"", btnFind_Płatnik, 2}, {"", btnAdd_Płatnik, 2}})})
      .Row({{"sdoc.lbl.payform", txtFormaPłatności, 3},
            {"sdoc.lbl.due", txtTerminZapłaty, 2},
            {"sdoc.lbl.curr", txtWaluta, 2},
            {"sdoc.lbl.rate", txtKurs, 1, kRight},
            {"sdoc.lbl.status", txtStatus, 2},
            {"sdoc.lbl.paydate", txtDataZapłaty, 2}})
      .Table(SQL_Pic, kStretch)
      .Row({{"", btnAdd, 2},
            {"", btnEdit, 2},
            {"", btnRemove, 2},
            {"sdoc.lbl.net", lblNet, 3, kRight | kInline},
            {"sdoc.lbl.total", lblGross, 3, kStrong | kRight | kInline}});
  Buttons({{"sdoc.btn.ok", btnSave}, {"sdoc.btn.print", btnPrint}, {"sdoc.btn.cancel", btnCancel, kCancel}});
}

void frm_Dok_sprzed::LayOutMore() {
  Page("OTH", "sdoc.tab.oth")
      .Row({{"sdoc.lbl.issuer", txtWystawił, 6}, {"sdoc.lbl.receiver", txtOdebrał, 6}})
      .Row({{"sdoc.lbl.notices", txtUwagi, 12, kStretch}})
      .Row({{"sdoc.lbl.adr", txtAdrType, 4}, {"sdoc.lbl.adroth", txtAdrOth, 8, kTall}})
      .Side({GroupLayout("sdoc.grp.abn", 12)
                 .Row({{"", txtAbonamentKoniec, 3},
                       {"", label_abn_remind, 2, kRight},
                       {"", txtAbonamentData, 2},
                       {"", label_abn_remdays, 2, kRight},
                       {"", txtAbonamentDni, 3}})})
      .Files(memoCONTROL, memoAdd, memoDel, memoExec, "sdoc.lbl.files");
}

void frm_Dok_sprzed::Connect() {
  txtTypDok.Changed += [this] { TypeChanged(); };
  chkAN.Changed += [this] { NumberChosen(); };
  txtDokNumer.Left += [this] { CheckNumber(); };
  txtKontrahent.Changed += [this] { CustomerChanged(); };
  txtPłatnik.Changed += [this] { PayerChanged(); };
  chkPłatnik.Changed += [this] { PayerChosen(); };
  txtFormaPłatności.Changed += [this] { PaymentFormChanged(); };
  txtDataWyst.Changed += [this] { PaymentFormChanged(); };
  chkDateTo.Changed += [this] { txtDataSprzedDo.SetEnabled(chkDateTo.Checked()); };
  txtStatus.Changed += [this] { StatusChanged(); };
  txtWaluta.Changed += [this] { CurrencyChanged(); };
  txtKurs.Left += [this] { RateLeft(); };
  txtAdrType.Changed += [this] { AddressChanged(); };
  txtAbonamentKoniec.Changed += [this] { ShowSubscription(); };
}

void frm_Dok_sprzed::ConnectButtons() {
  btnFind.Clicked += [this] { FindCustomer(txtKontrahent); };
  btnFind_Płatnik.Clicked += [this] { FindCustomer(txtPłatnik); };
  btnAdd_Kontrahent.Clicked += [this] { AddCustomer(txtKontrahent); };
  btnAdd_Płatnik.Clicked += [this] { AddCustomer(txtPłatnik); };
  btnAdd.Clicked += [this] { AddLineByDialog(); };
  btnEdit.Clicked += [this] { EditLineByDialog(); };
  SQL_Pic.DoubleClicked += [this] { EditLineByDialog(); };
  btnRemove.Clicked += [this] { RemoveLine(); };
  memoAdd.Clicked += [this] { AddAttachment(); };
  memoDel.Clicked += [this] { DeleteAttachment(); };
  memoExec.Clicked += [this] { OpenAttachment(); };
  memoCONTROL.DoubleClicked += [this] { OpenAttachment(); };
  btnSave.Clicked += [this] { Save(); };
  btnPrint.Clicked += [this] { Print(); };
  btnCancel.Clicked += [this] { Close(); };
}

Date frm_Dok_sprzed::Today() {
  return program_.platform.clock.Now().WithoutTime();
}

bool frm_Dok_sprzed::IsReceiptType() {
  return has_option(type_options(program_, txtTypDok.Value()), "PA");
}

void frm_Dok_sprzed::TypeChanged() {
  const bool named = !IsReceiptType() && !CorrectionFlag;
  if (IsReceiptType()) {
    chkPłatnik.SetChecked(false);
    SelectOrAdd(txtPłatnik, Chosen(txtKontrahent));
  }
  for (Control* control : {static_cast<Control*>(&chkPłatnik), static_cast<Control*>(&txtKontrahent), static_cast<Control*>(&btnFind),
                           static_cast<Control*>(&btnAdd_Kontrahent), static_cast<Control*>(&chkDateTo)}) {
    control->SetEnabled(named);
  }
  txtOdebrał.SetEnabled(!IsReceiptType());
  for (Control* control :
       {static_cast<Control*>(&txtPłatnik), static_cast<Control*>(&btnFind_Płatnik), static_cast<Control*>(&btnAdd_Płatnik)}) {
    control->SetEnabled(named && chkPłatnik.Checked());
  }
  txtDataSprzedDo.SetEnabled(named && chkDateTo.Checked());
}

void frm_Dok_sprzed::NumberChosen() {
  txtDokNumer.SetEnabled(!chkAN.Checked());
  if (chkAN.Checked()) {
    txtDokNumer.SetText(program_.Text("sdoc.autonumer"));
  } else {
    txtDokNumer.SetText(number_ == 0 ? std::string() : std::to_string(number_));
  }
}

void frm_Dok_sprzed::CheckNumber() {
  if (txtDokNumer.Text() == program_.Text("sdoc.autonumer")) return;
  const std::string number = ReplaceAll(txtDokNumer.Text(), " ", "");
  txtDokNumer.SetText(number);
  // kept: the text stays, and the document is numbered by itself, so that nothing stops a person who goes on
  if (!number.empty() && !IsAllDigits(number)) program_.Message("msg.info.nrcharonly", MessageKind::kInformation);
}

void frm_Dok_sprzed::PaymentFormChanged() {
  if (txtFormaPłatności.Value() < 1) return;
  txtTerminZapłaty.SetCurrentDate(PaymentDueDate(program_, txtDataWyst.CurrentDate(), txtFormaPłatności.Value()));
}

void frm_Dok_sprzed::CustomerChanged() {
  if (chkPłatnik.Checked()) return;
  SelectOrAdd(txtPłatnik, Chosen(txtKontrahent));
  PayerChanged();
}

void frm_Dok_sprzed::PayerChanged() {
  const int32_t payment_form = ReadColumn(program_, customer_columns::kPaymentForm, txtPłatnik.Value());
  if (payment_form < 1 || txtFormaPłatności.FindIdByValue(payment_form) < 0) return;
  txtFormaPłatności.SelectValue(payment_form);
  PaymentFormChanged();
}

void frm_Dok_sprzed::PayerChosen() {
  const bool chosen = chkPłatnik.Checked();
  for (Control* control :
       {static_cast<Control*>(&txtPłatnik), static_cast<Control*>(&btnFind_Płatnik), static_cast<Control*>(&btnAdd_Płatnik)}) {
    control->SetEnabled(chosen);
  }
  if (chosen) return;
  SelectOrAdd(txtPłatnik, Chosen(txtKontrahent));
  PayerChanged();
}

float frm_Dok_sprzed::RememberedRate(int32_t currency) {
  const auto known = rate_memory_.find(currency);
  if (known != rate_memory_.end() && known->second >= 0.0001F) return known->second;
  return rate_memory_[currency] = CurrencyRate(program_, currency);
}

void frm_Dok_sprzed::CurrencyChanged() {
  if (txtWaluta.Value() < 1) {
    const bool has_entries = txtWaluta.ListCount() > 1;
    program_.Message(has_entries ? "msg.info.noselcurdef" : "msg.info.noselcur", MessageKind::kInformation);
    if (!has_entries) return;
    if (!txtWaluta.SelectValue(program_.settings.Integer(kOstrinka, "Reports", "Currency", 1))) txtWaluta.SetListIndex(1);
  }
  const float old_rate = rate_;
  currency_ = txtWaluta.Value();
  rate_ = RememberedRate(currency_);
  txtKurs.SetText(FormatNumber(rate_, "0.0000", program_.locale));
  if (rate_ == 0) rate_ = 1;  // kept: the field shows 0 all the same, which tells that the dictionary has no rate
  bool done = ConvertLines(program_, id_, old_rate, rate_) == LineOutcome::kDone;
  // The record says which currency its lines are in from now on, and does so when only some could be converted.
  if (Mode == EditMode::kEdit) {
    ColumnValues currency;
    currency.Set(document_columns::kCurrencyLink, currency_).Set(document_columns::kRate, rate_);
    done = ostrinka::Store(program_, kDokSprzed, record_, currency) && done;
  }
  Tell(done && Recalculate());
  ref_();
}

// kept: a rate that is typed converts no line, as only the choice of a currency does
void frm_Dok_sprzed::RateLeft() {
  txtKurs.SetText(FormatNumber(txtKurs.Text(), "0.0000", program_.locale));
  rate_ = static_cast<float>(NumberOr0(txtKurs.Text()));
  if (currency_ >= 1) rate_memory_[currency_] = rate_;
}

void frm_Dok_sprzed::StatusChanged() {
  if (txtStatus.Value() == kPaid) txtDataZapłaty.SetCurrentDate(Today());
  ShowStatus();
}

void frm_Dok_sprzed::ShowStatus() {
  txtDataZapłaty.SetVisible(txtStatus.Value() == kPaid);
}

void frm_Dok_sprzed::ShowSubscription() {
  const bool ends = txtAbonamentKoniec.Checked();
  label_abn_remind.SetVisible(ends);
  label_abn_remdays.SetVisible(ends);
  txtAbonamentData.SetEnabled(ends);
  txtAbonamentDni.SetEnabled(ends);
}

void frm_Dok_sprzed::AddressChanged() {
  txtAdrOth.SetEnabled(txtAdrType.Value() == kFreeAddress);
}

void frm_Dok_sprzed::FindCustomer(ComboControl& list) {
  const int32_t picked = pick_customer ? pick_customer() : 0;
  if (!pick_customer) program_.platform.ui.Beep();
  if (picked < 1 || !list.SelectValue(picked)) return;
  SetDirty(true);
  &list == &txtKontrahent ? CustomerChanged() : PayerChanged();
}

void frm_Dok_sprzed::AddCustomer(ComboControl& list) {
  frm_Kontrahenci_ editor(program_);
  editor.reload_(EditMode::kNew);
  program_.platform.ui.ShowModal(editor);
  const int32_t added = editor.saved_record();
  if (added < 1) return;
  const auto customer = Chosen(txtKontrahent), payer = Chosen(txtPłatnik);
  FillCustomers();
  SelectOrAdd(txtKontrahent, customer);
  SelectOrAdd(txtPłatnik, payer);
  list.SelectValue(added);
  // kept: a new customer goes into the payer field as well
  txtPłatnik.SelectValue(added);
  SetDirty(true);
  PayerChanged();
}

bool frm_Dok_sprzed::UserKey(int code, bool ctrl) {
  const bool typing = focus() && focus()->kind() == ControlKind::kTextBox;
  ButtonControl* button = nullptr;
  if (code == kKeyEnter && ctrl) button = &btnSave;
  if (code == kKeyEnter && !ctrl && focus() == &SQL_Pic) button = &btnEdit;
  if (code == kKeyInsert && !ctrl) button = &btnAdd;
  if (code == kKeyF2 && !ctrl) button = &btnEdit;
  if (code == kKeyDelete && !ctrl && !typing) button = &btnRemove;
  if (!button) return false;
  if (focus()) focus()->UserLeave();
  button->UserPress();
  return true;
}

}  // namespace ostrinka
