// Saving a sales document, its lines and its attachments.
#include "base/format.h"
#include "base/text.h"
#include "company/tables.h"
#include "documents/numbering.h"
#include "sales/line_form.h"
#include "sales/sales_form.h"

namespace ostrinka {

namespace {

constexpr int32_t kPaid = 1;

// The first existing type with the option; 0 when there is none.
int32_t FirstTypeWith(Program& program, std::string_view word) {
  KeepPositions keep(program, {kDokumentKat});
  ClassQDBASE& types = Table(program, kDokumentKat);
  const int32_t count = types.RECORD_COUNT();
  for (int32_t record = 1; record <= count; ++record) {
    if (types.RECORD_EXIST(record) && types.RECORD_LOAD(record) && has_option(types.Text("OPCJE"), word)) return record;
  }
  return 0;
}

}  // namespace

void frm_Dok_sprzed::save_() {
  ClassQDBASE& documents = Table(program_, kDokSprzed);
  documents.FIELD("ID_DOK", id_);
  SaveLinks();
  documents.FIELD("DATA_WYSTAWIENIA", txtDataWyst.CurrentDate());
  documents.FIELD("DATA_SPRZEDAZY", txtDataSprzed.CurrentDate());
  documents.FIELD("DATA_SPRZED_DO", txtDataSprzedDo.CurrentDate());
  documents.FIELD("DATA_SPRZED_CK", chkDateTo.Checked());
  documents.FIELD("DATA_ZAPLATY", txtDataZapłaty.CurrentDate());
  documents.FIELD("FORMA_PLATNOSCI", txtFormaPłatności.Value());
  documents.FIELD("TERMIN_ZAPLATY", txtTerminZapłaty.CurrentDate());
  documents.FIELD("WYSTAWIL", txtWystawił.Value());
  documents.FIELD("ODEBRAL", Trim(txtOdebrał.Text()));
  documents.FIELD("UWAGI", Trim(txtUwagi.Text()));
  documents.FIELD("WARTOSC_NETTO", totals_.net);
  documents.FIELD("WARTOSC_BRUTTO", totals_.gross);
  documents.FIELD("WALUTA", txtWaluta.Value());
  documents.FIELD("KURS", static_cast<float>(NumberOr0(txtKurs.Text())));
  documents.FIELD("ABN_KONIEC", txtAbonamentKoniec.Checked());
  documents.FIELD("ABN_KONIEC_DATA", txtAbonamentData.CurrentDate());
  documents.FIELD("ZAPLACONO", txtStatus.Value() == kPaid);
  documents.FIELD("ADR_TYP", static_cast<int16_t>(txtAdrType.Value()));
  documents.FIELD("ADR_TEKST", Trim(txtAdrOth.Text()));
  documents.FIELD("ABN_KONIEC_DNI", std::max(txtAbonamentDni.Value(), int32_t{1}));
  SaveNumber();
}

void frm_Dok_sprzed::SaveLinks() {
  ClassQDBASE& documents = Table(program_, kDokSprzed);
  if (!CorrectionFlag) {
    documents.FIELD("TYP", txtTypDok.Value());
  } else if (const int32_t type = FirstTypeWith(program_, "FK"); type >= 1) {
    documents.FIELD("DOTYCZY", CorrectedRecord);
    documents.FIELD("TYP", type);
  }
  documents.FIELD("PLATNIK", chkPłatnik.Checked() ? txtPłatnik.Value() : 0);
  documents.FIELD("KONTRAHENT", txtKontrahent.Value());
}

void frm_Dok_sprzed::SaveNumber() {
  ClassQDBASE& documents = Table(program_, kDokSprzed);
  const int32_t old_number = documents.Int("NR_DOK"), type = documents.Int(".TYP");
  const std::string text = Trim(txtDokNumer.Text());
  const auto typed = IsNumeric(Value(text)) ? ToInt32(Value(text)) : std::nullopt;
  if (typed) {
    number_ = *typed;
  } else if (old_number >= 1 && type == opening_type_) {
    number_ = old_number;
  } else {
    number_ = next_number(program_, kDokSprzed, txtDataWyst.CurrentDate(), type, old_number);
  }
  documents.FIELD("NR_DOK", number_);
}

bool frm_Dok_sprzed::Store(bool recalculate) {
  const bool fresh = Mode == 1;
  if (!(fresh ? StoreNew() : StoreChanged())) {
    // The form stays open: what was typed is not lost.
    program_.Message("msg.info.error", MessageKind::kError);
    return false;
  }
  if (recalculate || !fresh) Recalculate();
  SetDirty(false);
  return true;
}

bool frm_Dok_sprzed::StoreNew() {
  ClassQDBASE& documents = Table(program_, kDokSprzed);
  if (!documents.RECORD_ADD()) return false;
  const int32_t added = documents.RECORD_ADDED();
  if (!documents.RECORD_LOAD(added)) return false;
  save_();
  const int32_t type = documents.Int(".TYP");
  if (!documents.RECORD_SAVE(added)) {
    documents.RECORD_DELETE(added);
    return false;
  }
  record_ = added;
  opening_type_ = type;
  documents.RECORD_SHOW(record_);
  if (CorrectionFlag && CorrectedRecord >= 1 && documents.RECORD_LOAD(CorrectedRecord)) {
    documents.FIELD("KOREKTA", record_);
    documents.RECORD_SAVE(CorrectedRecord);
  }
  documents.RECORD_POSITION(record_);
  documents.RECORD_LOAD(record_);
  return true;
}

bool frm_Dok_sprzed::StoreChanged() {
  ClassQDBASE& documents = Table(program_, kDokSprzed);
  if (!documents.RECORD_LOAD(record_)) return false;
  save_();
  const int32_t type = documents.Int(".TYP");
  if (!documents.RECORD_SAVE(record_)) return false;
  opening_type_ = type;
  documents.RECORD_SHOW(record_);
  return true;
}

void frm_Dok_sprzed::Refresh() {
  if (!program_.main_view) return;
  program_.main_view->refresh_tasks_();
  program_.main_view->ref_();
}

void frm_Dok_sprzed::Save() {
  if (program_.database_open) {
    if (!Store(true)) return;
    Refresh();
  }
  Close();
}

void frm_Dok_sprzed::Print() {
  if (!program_.database_open || !Store(false)) return;
  Mode = 2;
  NumberChosen();
  Bind();
  Refresh();
  if (!program_.main_view || !print_document) return;
  const PrintMode ticked = program_.main_view->TickedPrintMode();
  for (const PrintMode mode : {PrintMode::kOriginalAndTwoCopies, PrintMode::kOriginalCopyInOne, PrintMode::kOriginal, PrintMode::kCopy}) {
    if (mode == ticked) print_document(record_, mode);
  }
}

// --- lines

bool frm_Dok_sprzed::RecalculateCurrentLine() {
  ClassQDBASE& lines = Table(program_, kSprzedane);
  const int32_t line = lines.RECORD_POSITION();
  if (line < 1 || !lines.RECORD_LOAD(line) || id_ < 1 || lines.Int("ID_DOK") != id_) return true;
  return RecalculateLine(program_, line);
}

void frm_Dok_sprzed::Recalculate() {
  if (!RecalculateCurrentLine()) return;
  totals_ = SumLines(program_, id_, currency_);
  if (Mode != 2 && record_ < 1) return;
  ClassQDBASE& documents = Table(program_, kDokSprzed);
  if (!documents.RECORD_LOAD(record_)) return;
  documents.FIELD("WARTOSC_NETTO", totals_.net);
  documents.FIELD("WARTOSC_BRUTTO", totals_.gross);
  documents.RECORD_SAVE(record_);
}

// Shows the dialog until its line is written or given up: a failure is told, and what was typed is still there.
bool frm_Dok_sprzed::ConfirmedAndWritten(frm_Dok_add_TU& dialog, const std::function<bool()>& write) {
  while (true) {
    dialog.OK = false;
    program_.platform.ui.ShowModal(dialog);
    if (!dialog.OK) return false;
    if (write()) return true;
    program_.Message("msg.info.error", MessageKind::kError);
  }
}

void frm_Dok_sprzed::AddLineByDialog() {
  if (!program_.database_open) return;
  program_.current_customer = txtKontrahent.Value();
  frm_Dok_add_TU dialog(program_);
  dialog.Mode = 1;
  dialog.DocumentRate = rate_;
  dialog.DocumentCurrency = currency_;
  dialog.reload_();
  const auto written = [&] {
    if (dialog.Article != frm_Dok_add_TU::kAdvance) return AddLine(program_, id_, dialog.Entry(), rate_) > 0;
    SettleAdvance(program_, id_, currency_, program_.current_advance);
    return true;
  };
  if (!ConfirmedAndWritten(dialog, written)) return;
  SetDirty(true);
  Recalculate();
  GoSQL_();
  ref_();
}

void frm_Dok_sprzed::EditLineByDialog() {
  ClassQDBASE& lines = Table(program_, kSprzedane);
  const int32_t line = lines_.RecordOf(lines_.CurrentRow());
  if (line < 1 || !lines.RECORD_LOAD(line)) return;
  const int32_t own_article = lines.Int(".NAZWA_T_U");
  program_.current_customer = txtKontrahent.Value();
  frm_Dok_add_TU dialog(program_);
  dialog.Mode = 2;
  dialog.DocumentRate = rate_;
  dialog.DocumentCurrency = currency_;
  dialog.reload_();
  dialog.ShowLine(line);
  const auto written = [&] {
    LineEntry entry = dialog.Entry();
    if (entry.article < 1 || !dialog.ArticleChanged()) entry.article = own_article;
    return RewriteLine(program_, line, entry);
  };
  if (!ConfirmedAndWritten(dialog, written)) return;
  SetDirty(true);
  Recalculate();
  GoSQL_();
  ref_();
}

void frm_Dok_sprzed::RemoveLine() {
  ClassQDBASE& lines = Table(program_, kSprzedane);
  const int32_t line = lines_.RecordOf(lines_.CurrentRow());
  if (line < 1) return;
  if (program_.Message("msg.question.areyousure", MessageKind::kQuestion) != Answer::kYes) return;
  ZeroLine(program_, line);
  Recalculate();
  lines.RECORD_DELETE(line);
  SetDirty(true);
  GoSQL_();
  ref_();
}

// --- attachments

void frm_Dok_sprzed::AddAttachment() {
  if (!program_.database_open) return;
  if (Mode == 1) {
    if (program_.Message("msg.question.saverecordandaddatachment", MessageKind::kQuestion) != Answer::kYes || !Store(false)) return;
    Mode = 2;
    NumberChosen();
    Bind();
    Refresh();
  }
  const auto file = program_.platform.ui.AskOpenFile({{program_.Text("common.filter.allfiles"), {"*"}}});
  if (!file || file->empty()) return;
  ClassQDBASE& documents = Table(program_, kDokSprzed);
  documents.RECORD_POSITION(record_);
  if (!documents.MEMO_ADD("MEMO_", *file)) program_.Message("msg.info.cantaddattachment", MessageKind::kWarning);
  documents.FORM_REFRESH();
}

void frm_Dok_sprzed::DeleteAttachment() {
  ClassQDBASE& documents = Table(program_, kDokSprzed);
  if (bound_) documents.RECORD_POSITION(record_);
  if (!bound_ || !documents.MEMO_DEL("MEMO_", memoCONTROL.GetCurrentFileID_())) {
    program_.Message("msg.info.cantdelattachment", MessageKind::kWarning);
    return;
  }
  documents.FORM_REFRESH();
}

void frm_Dok_sprzed::OpenAttachment() {
  ClassQDBASE& documents = Table(program_, kDokSprzed);
  if (bound_) documents.RECORD_POSITION(record_);
  if (!bound_ || !documents.MEMO_EXEC("MEMO_", memoCONTROL.GetCurrentFileID_()))
    program_.Message("msg.info.cantopenattachment", MessageKind::kWarning);
}

}  // namespace ostrinka
