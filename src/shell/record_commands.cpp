// Adding, editing, deleting and walking records, with their guards.
#include "documents/numbering.h"
#include "masterdata/company_form.h"
#include "masterdata/customer_form.h"
#include "masterdata/goods_form.h"
#include "print/doc_preview.h"
#include "print/print_run.h"
#include "sales/sales_form.h"
#include "shell/about_form.h"
#include "shell/main_window.h"
#include "shell/options_form.h"

namespace ostrinka {
namespace {

// Emptied before a sales document is deleted, so that no report and no link finds anything in it. The eighth name's trailing blank is kept:
// field names are trimmed.
constexpr const char* kEmptiedFields[] = {"TYP",           "NR_DOK",          "ID_DOK",  "KONTRAHENT", "WYSTAWIL", "FORMA_PLATNOSCI",
                                          "WARTOSC_NETTO", "WARTOSC_BRUTTO ", "DOTYCZY", "KOREKTA"};

bool SetCorrection(ClassQDBASE& documents, int32_t corrected, int32_t correction) {
  if (!documents.RECORD_LOAD(corrected)) return false;
  documents.FIELD("KOREKTA", correction);
  return documents.RECORD_SAVE(corrected);
}

}  // namespace

int32_t MainWindow::CurrentRecord(int number) {
  ClassQDBASE& table = Table(program_, number);
  const int32_t record = table.RECORD_POSITION();
  return table.RECORD_COUNT() >= 1 && record >= 1 && table.RECORD_SELECT(record) && table.RECORD_EXIST(record) ? record : 0;
}

void MainWindow::AddDocument(const Command& command, int argument) {
  if (ribbon.ButtonText(command.key) == program_.Text("mdi.doc.add.cor")) {
    AddCorrection(command, argument);
    return;
  }
  frm_Dok_sprzed form(program_);
  form.Mode = 1;
  EditSalesDocument(form);
}

void MainWindow::EditSalesDocument(frm_Dok_sprzed& form) {
  form.print_document = [this](int32_t record, PrintMode mode) { PrintOneDocument(program_, record, mode); };
  form.reload_();
  program_.platform.ui.ShowModal(form);
}

void MainWindow::AddCorrection(const Command&, int) {
  const int32_t record = CurrentRecord(kDokSprzed);
  if (record == 0) return;
  const CorrectionRule rule = may_be_corrected(program_, record);
  if (rule != CorrectionRule::kAllowed) {
    const char* key = rule == CorrectionRule::kTypeForbids ? "sdocs.msg.cantcreatecdc" : "sdocs.msg.thisdochascdc";
    StatusText(program_.Text(key));
    program_.Message(key, MessageKind::kInformation);
    return;
  }
  frm_Dok_sprzed form(program_);
  form.Mode = 1;
  form.CorrectionFlag = true;
  form.CorrectedRecord = record;
  EditSalesDocument(form);
}

void MainWindow::AddCustomer(const Command&, int) {
  frm_Kontrahenci_ form(program_);
  form.reload_(1);
  program_.platform.ui.ShowModal(form);
}

void MainWindow::AddArticle(const Command&, int) {
  frm_TowUslugi_ form(program_);
  form.reload_(1);
  program_.platform.ui.ShowModal(form);
}

// A new record filled from the current one.
void MainWindow::CloneRecord(const Command& command, int) {
  const int32_t record = CurrentRecord(command.table);
  if (record == 0) {
    program_.Message("msg.info.norecordstoedit", MessageKind::kInformation);
    return;
  }
  const auto show = [&](auto&& form) {
    form.clone_(record);
    program_.platform.ui.ShowModal(form);
  };
  command.table == kKontrahenci ? show(frm_Kontrahenci_(program_)) : show(frm_TowUslugi_(program_));
}

void MainWindow::EditRecord(const Command& command, int) {
  const int32_t record = CurrentRecord(command.table);
  if (record == 0) {
    program_.Message("msg.info.norecordstoedit", MessageKind::kInformation);
    return;
  }
  if (command.table == kDokSprzed) {
    if (is_fiscalised(program_, record)) {
      program_.Message("msg.info.canteditfsik", MessageKind::kInformation);
      return;
    }
    frm_Dok_sprzed form(program_);
    form.Mode = 2;
    EditSalesDocument(form);
  } else if (command.table == kKontrahenci) {
    frm_Kontrahenci_ form(program_);
    form.reload_(2, record);
    program_.platform.ui.ShowModal(form);
  } else {
    frm_TowUslugi_ form(program_);
    form.reload_(2, record);
    program_.platform.ui.ShowModal(form);
  }
}

void MainWindow::Fail() {
  program_.Message("msg.info.error", MessageKind::kError);
}

void MainWindow::DeleteRecord(const Command& command, int) {
  const int32_t record = CurrentRecord(command.table);
  if (record == 0) {
    program_.Message("msg.info.norecordstodel", MessageKind::kInformation);
    return;
  }
  if (program_.Message("msg.question.deleterecord", MessageKind::kQuestion) != Answer::kYes) return;
  // The number is looked up among the sales documents whichever table it belongs to (kept: users rely on the refusal).
  if (is_fiscalised(program_, record)) {
    program_.Message("msg.info.cantdeletefsik", MessageKind::kInformation);
    return;
  }
  ClassQDBASE& table = Table(program_, command.table);
  if (command.table == kDokSprzed) {
    table.RECORD_LOAD(record);
    const int32_t correction = table.Int("KOREKTA");
    if (correction >= 1 && table.RECORD_EXIST(correction)) {
      StatusText(program_.Text("sdocs.msg.thisdochascdc.delorg"));
      program_.platform.ui.Beep();
      return;
    }
    int32_t corrected = table.Int("DOTYCZY");  // the document that loses its correction
    if (corrected >= 1 && (!table.RECORD_LOAD(corrected) || table.Int("KOREKTA") != record)) corrected = 0;
    if (corrected >= 1 && !SetCorrection(table, corrected, 0)) return Fail();
    table.RECORD_LOAD(record);
    for (const char* field : kEmptiedFields) table.FIELD(field, int32_t{0});
    if (!table.RECORD_SAVE(record)) {
      if (corrected >= 1) SetCorrection(table, corrected, record);
      return Fail();
    }
  }
  if (!table.RECORD_DELETE(record)) Fail();
  refresh_tasks_();
}

void MainWindow::MoveRecord(const Command& command, int argument) {
  ClassQDBASE& table = Table(program_, command.table);
  switch (argument) {
    case 0:
      table.MOVE_FIRST();
      break;
    case 1:
      table.MOVE_PREV();
      break;
    case 2:
      table.MOVE_NEXT();
      break;
    case 3:
      table.MOVE_LAST();
      break;
    default:
      program_.platform.ui.Beep();
  }
}

void MainWindow::PrintDocument(const Command& command, int) {
  const int32_t record = CurrentRecord(command.table);
  if (record == 0) {
    program_.Message(command.detail, MessageKind::kInformation);
    return;
  }
  const std::string choice = ribbon.ButtonText(command.key);
  const PrintMode mode = TickedPrintMode();
  if (choice == program_.Text("mdi.print.topdf")) {
    BuildDocumentJob(program_, record, mode, /*save_pdf=*/true);
  } else if (choice == program_.Text("mdi.print.preview")) {
    BuildDocumentJob(program_, record, mode, /*save_pdf=*/false);
    PreviewJob(doc_print_title(program_, record) + " " + doc_number_text(program_, record));
  } else {
    PrintOneDocument(program_, record, mode);
  }
}

// A job that came out empty has told why.
void MainWindow::PreviewJob(const std::string& subject) {
  frm_DocPreview preview(program_);
  if (preview.Pages() == 0) return;
  preview.subject = subject;
  program_.platform.ui.ShowModal(preview);
}

void MainWindow::CompanyData(const Command&, int) {
  frm_Admin_usr_ form(program_);
  form.reload_();
  program_.platform.ui.ShowModal(form);
}

void MainWindow::DatabaseConnection(const Command&, int) {
  SET_QDB_();
}

void MainWindow::InterfaceOptions(const Command&, int) {
  OPT_ form(program_, ribbon);
  form.reload_();
  program_.platform.ui.ShowModal(form);
}

void MainWindow::About(const Command&, int) {
  frm_About form(program_);
  program_.platform.ui.ShowModal(form);
}

void MainWindow::Exit(const Command&, int) {
  if (on_exit) on_exit();
}

}  // namespace ostrinka
