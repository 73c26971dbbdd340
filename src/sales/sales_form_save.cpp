// Saving a sales document, its lines and its attachments.
#include "base/format.h"
#include "base/text.h"
#include "documents/numbering.h"
#include "sales/line_form.h"
#include "sales/sales_form.h"

namespace ostrinka {

namespace {

constexpr int32_t kPaidStatus = 1;

}  // namespace

ColumnValues frm_Dok_sprzed::save_() {
  using namespace document_columns;
  ColumnValues values;
  values.Set(kIdentity, id_);
  SaveLinks(values);
  values.Set(kIssued, txtDataWyst.CurrentDate());
  values.Set(kSold, txtDataSprzed.CurrentDate());
  values.Set(kSoldTo, txtDataSprzedDo.CurrentDate());
  values.Set(kSoldOverRange, chkDateTo.Checked());
  values.Set(kPaidOn, txtDataZapłaty.CurrentDate());
  values.Set(kPaymentForm, txtFormaPłatności.Value());
  values.Set(kDue, txtTerminZapłaty.CurrentDate());
  values.Set(kIssuer, txtWystawił.Value());
  values.Set(kReceiver, Trim(txtOdebrał.Text()));
  values.Set(kNotes, Trim(txtUwagi.Text()));
  values.Set(kNet, totals_.net);
  values.Set(kGross, totals_.gross);
  values.Set(kCurrencyLink, txtWaluta.Value());
  values.Set(kRate, static_cast<float>(NumberOr0(txtKurs.Text())));
  values.Set(kSubscriptionEnds, txtAbonamentKoniec.Checked());
  values.Set(kSubscriptionEnd, txtAbonamentData.CurrentDate());
  values.Set(kPaid, txtStatus.Value() == kPaidStatus);
  values.Set(kAddressKind, static_cast<int16_t>(txtAdrType.Value()));
  values.Set(kAddress, Trim(txtAdrOth.Text()));
  values.Set(kReminderDays, std::max(txtAbonamentDni.Value(), int32_t{1}));
  SaveNumber(values);
  return values;
}

void frm_Dok_sprzed::SaveLinks(ColumnValues& values) {
  using namespace document_columns;
  if (!CorrectionFlag) {
    values.Set(kType, txtTypDok.Value());
  } else if (const int32_t type = first_type_with(program_, "FK"); type >= 1) {
    // kept: of several correcting types the first one is stored, whichever the list shows
    values.Set(kCorrects, CorrectedRecord);
    values.Set(kType, type);
  }
  values.Set(kPayer, chkPłatnik.Checked() ? txtPłatnik.Value() : 0);
  values.Set(kCustomer, txtKontrahent.Value());
}

void frm_Dok_sprzed::SaveNumber(ColumnValues& values) {
  const int32_t old_number = ReadColumn(program_, document_columns::kNumber, record_), type = TypeOf(values);
  const std::string text = Trim(txtDokNumer.Text());
  const auto typed = IsNumeric(Value(text)) ? ToInt32(Value(text)) : std::nullopt;
  if (typed) {
    number_ = *typed;
  } else if (old_number >= 1 && type == opening_type_) {
    number_ = old_number;
  } else {
    number_ = next_number(program_, kDokSprzed, txtDataWyst.CurrentDate(), type, old_number);
  }
  values.Set(document_columns::kNumber, number_);
}

// The type that the record has once these values are written.
int32_t frm_Dok_sprzed::TypeOf(const ColumnValues& values) {
  return values.Get(document_columns::kType).value_or(ReadColumn(program_, document_columns::kType, record_));
}

void frm_Dok_sprzed::Tell(bool done) {
  if (!done) program_.Message("msg.info.error", MessageKind::kError);
}

bool frm_Dok_sprzed::Store(bool recalculate) {
  const bool fresh = Mode == EditMode::kNew;
  const bool stored = fresh ? StoreNew() : StoreChanged();
  // Not stored: the form stays open, so that what was typed is not lost.
  Tell(stored && (!(recalculate || !fresh) || SumUp()));
  if (stored) SetDirty(false);
  return stored;
}

bool frm_Dok_sprzed::StoreNew() {
  ClassQDBASE& documents = Table(program_, kDokSprzed);
  const ColumnValues values = save_();
  const int32_t added = Add(program_, kDokSprzed, values);
  if (added < 1) return false;
  record_ = added;
  opening_type_ = TypeOf(values);
  documents.RECORD_SHOW(record_);
  // The correction itself is stored: a link back that could not be written is told, and is no reason to store it once more.
  if (CorrectionFlag && CorrectedRecord >= 1) Tell(StoreColumn(program_, document_columns::kCorrection, CorrectedRecord, record_));
  documents.RECORD_POSITION(record_);
  return true;
}

bool frm_Dok_sprzed::StoreChanged() {
  const ColumnValues values = save_();
  const int32_t type = TypeOf(values);
  if (!ostrinka::Store(program_, kDokSprzed, record_, values)) return false;
  opening_type_ = type;
  Table(program_, kDokSprzed).RECORD_SHOW(record_);
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
  Mode = EditMode::kEdit;
  NumberChosen();
  Bind();
  Refresh();
  if (!program_.main_view || !print_document) return;
  // kept: the button prints in four of the six modes; under the two others it saves alone, as people are used to
  const PrintMode ticked = program_.main_view->TickedPrintMode();
  for (const PrintMode mode : {PrintMode::kOriginalAndTwoCopies, PrintMode::kOriginalCopyInOne, PrintMode::kOriginal, PrintMode::kCopy}) {
    if (mode == ticked) print_document(record_, mode);
  }
}

// --- lines

bool frm_Dok_sprzed::Recalculate() {
  return (touched_line_ < 1 || RecalculateLine(program_, touched_line_) == LineOutcome::kDone) && SumUp();
}

bool frm_Dok_sprzed::SumUp() {
  totals_ = SumLines(program_, id_, currency_);
  if (record_ < 1) return true;
  ColumnValues totals;
  totals.Set(document_columns::kNet, totals_.net).Set(document_columns::kGross, totals_.gross);
  return ostrinka::Store(program_, kDokSprzed, record_, totals);
}

// Shows the dialog until its line is written or given up: a failure is told, and what was typed is still there.
bool frm_Dok_sprzed::ConfirmedAndWritten(frm_Dok_add_TU& dialog, const std::function<LineOutcome()>& write) {
  while (true) {
    dialog.OK = false;
    program_.platform.ui.ShowModal(dialog);
    if (!dialog.OK) return false;
    const bool written = write() == LineOutcome::kDone;
    Tell(written);
    if (written) return true;
  }
}

void frm_Dok_sprzed::LinesChanged() {
  SetDirty(true);
  Tell(Recalculate());
  GoSQL_();
  ref_();
}

// Whatever comes of it, the dialog is done: there is nothing in it to correct.
void frm_Dok_sprzed::SettlePickedAdvance() {
  switch (SettleAdvance(program_, id_, currency_, program_.current_advance)) {
    case AdvanceOutcome::kSettled:
      return;
    case AdvanceOutcome::kNoAdvance:
      program_.Message("msg.info.cantadddocfz", MessageKind::kInformation);
      return;
    case AdvanceOutcome::kNoValue:
      program_.Message("msg.info.cantadddocfzv0", MessageKind::kInformation);
      return;
    case AdvanceOutcome::kTooLarge:
    case AdvanceOutcome::kNotWritten:
      Tell(false);
  }
}

void frm_Dok_sprzed::AddLineByDialog() {
  if (!program_.database_open) return;
  program_.current_customer = txtKontrahent.Value();
  frm_Dok_add_TU dialog(program_);
  dialog.Mode = EditMode::kNew;
  dialog.DocumentRate = rate_;
  dialog.DocumentCurrency = currency_;
  dialog.reload_();
  const auto written = [&] {
    if (dialog.Article == frm_Dok_add_TU::kAdvance) {
      SettlePickedAdvance();
      return LineOutcome::kDone;
    }
    const AddedLine added = AddLine(program_, id_, dialog.Entry(), rate_);
    if (added.outcome == LineOutcome::kDone) touched_line_ = added.record;
    return added.outcome;
  };
  if (ConfirmedAndWritten(dialog, written)) LinesChanged();
}

void frm_Dok_sprzed::EditLineByDialog() {
  const int32_t line = lines_.RecordOf(lines_.CurrentRow());
  const auto row = Read<SalesLine>(program_, line);
  if (!row) return;
  program_.current_customer = txtKontrahent.Value();
  frm_Dok_add_TU dialog(program_);
  dialog.Mode = EditMode::kEdit;
  dialog.DocumentRate = rate_;
  dialog.DocumentCurrency = currency_;
  dialog.reload_();
  dialog.ShowLine(line);
  const auto written = [&] {
    LineEntry entry = dialog.Entry();
    if (entry.article < 1 || !dialog.ArticleChanged()) entry.article = row->article;
    const LineOutcome outcome = RewriteLine(program_, line, entry);
    if (outcome == LineOutcome::kDone) touched_line_ = line;
    return outcome;
  };
  if (ConfirmedAndWritten(dialog, written)) LinesChanged();
}

void frm_Dok_sprzed::RemoveLine() {
  const int32_t line = lines_.RecordOf(lines_.CurrentRow());
  if (line < 1) return;
  if (program_.Message("msg.question.areyousure", MessageKind::kQuestion) != Answer::kYes) return;
  // A line that cannot be emptied stays: removed, it would go on counting in the totals.
  const bool zeroed = ZeroLine(program_, line) == LineOutcome::kDone;
  if (zeroed) touched_line_ = line;
  const bool counted = zeroed && Recalculate();
  Tell(zeroed && Table(program_, kSprzedane).RECORD_DELETE(line) && counted);
  SetDirty(true);
  GoSQL_();
  ref_();
}

// --- attachments

void frm_Dok_sprzed::AddAttachment() {
  if (!program_.database_open) return;
  if (Mode == EditMode::kNew) {
    if (program_.Message("msg.question.saverecordandaddatachment", MessageKind::kQuestion) != Answer::kYes || !Store(false)) return;
    Mode = EditMode::kEdit;
    NumberChosen();
    Bind();
    Refresh();
  }
  const auto file = program_.platform.ui.AskOpenFile({{program_.Text("common.filter.allfiles"), {"*"}}});
  if (!file || file->empty()) return;
  ClassQDBASE& documents = Table(program_, kDokSprzed);
  documents.RECORD_POSITION(record_);
  if (!documents.MEMO_ADD(document_columns::kFiles.name, *file)) program_.Message("msg.info.cantaddattachment", MessageKind::kWarning);
  documents.FORM_REFRESH();
}

void frm_Dok_sprzed::DeleteAttachment() {
  ClassQDBASE& documents = Table(program_, kDokSprzed);
  if (bound_) documents.RECORD_POSITION(record_);
  if (!bound_ || !documents.MEMO_DEL(document_columns::kFiles.name, memoCONTROL.GetCurrentFileID_())) {
    program_.Message("msg.info.cantdelattachment", MessageKind::kWarning);
    return;
  }
  documents.FORM_REFRESH();
}

void frm_Dok_sprzed::OpenAttachment() {
  ClassQDBASE& documents = Table(program_, kDokSprzed);
  if (bound_) documents.RECORD_POSITION(record_);
  if (!bound_ || !documents.MEMO_EXEC(document_columns::kFiles.name, memoCONTROL.GetCurrentFileID_()))
    program_.Message("msg.info.cantopenattachment", MessageKind::kWarning);
}

}  // namespace ostrinka
