#include "startup/startup.h"

#include "base/text.h"
#include "company/column_widths.h"
#include "company/ost_engine.h"
#include "masterdata/company_data.h"
#include "masterdata/postal.h"
#include "masterdata/wizard_form.h"
#include "print/print.h"
#include "shell/skin.h"

namespace ostrinka {

void Startup::LoadCatalogues() {
  const std::string language = Trim(Lower(program_.settings.Text(kCommon, "prgSettings", "VDLanguage", "0")));
  program_.catalogue.LoadProgramCatalogue("program.lang");
  program_.catalogue.LoadPrintCatalogue(NumberOr0(language) == 1 ? "printdocen.lang" : "printdoc.lang");
}

void Startup::CreateWindow() {
  if (window_) return;
  window_ = std::make_unique<MainWindow>(program_);
  window_->on_exit = [this] {
    window_->save_window_();
    Stop();
  };
}

void Startup::Start(const std::string& command_line) {
  UserInterface& ui = program_.platform.ui;
  LoadCatalogues();
  program_.TempPageFiles.clear();
  program_.skin_path = SkinChoose(program_);
  const bool wizard = Contains(Lower(command_line), "+wiz");
  if (wizard && !RunWizard()) return;
  ui.SetBusy(true);
  const bool splash = !wizard && program_.settings.Integer(kCommon, "GUI", "WScreen", 1) == 1;
  if (splash) {
    ui.ShowSplash(true);
    ui.TurnEvents();
  }
  LoadPostalTable();
  CreateWindow();
  window_->ScrollShow_(false);
  if (!splash) {
    ui.ShowMainWindow();
    ui.TurnEvents();
  }
  ui.SetBusy(true);
  ui.StartMainTimer(100);
  if (!program_.database_open) OpenCompany();
  ui.SetBusy(false);
  if (ui.EndWanted()) {
    Stop();
    return;
  }
  if (program_.database_open) {
    window_->StatusText("    " + program_.Text("mdi.pleasewait"));
  } else {
    ReportNoCompany();
  }
  program_.settings.SaveSettingValue(kCommon, "system", "fRun", false);
  ShowList();
}

bool Startup::RunWizard() {
  UserInterface& ui = program_.platform.ui;
  CreateWindow();
  LoadPostalTable();
  ui.SetBusy(false);
  ui.StartMainTimer(100);
  frm_Admin_bg_ wizard(program_);
  wizard.reload_();
  ui.ShowModal(wizard);
  if (!wizard.finished()) Stop();
  return wizard.finished();
}

void Startup::LoadPostalTable() {
  auto& postal = program_.Part<PostalTable>();
  if (!postal.Loaded()) postal.LoadPostalCodes(program_.platform.files, program_.ApplicationFolder());
}

void Startup::OpenCompany() {
  if (program_.settings.Boolean(kCommon, "system", "fRun", true)) {
    // The factory account.
    program_.settings.SaveSettingValue(kCommon, "dbLogin", "username", std::string("kreda"));
    program_.settings.SaveSettingValue(kCommon, "dbLogin", "password", std::string("kreda"));
  }
  bool opened = false;
  OSTEngine engine(program_);
  engine.open_(false, opened);
  why_not_open_ = engine.reason();
  program_.database_open = opened;
  CompanyLoad(program_);
  program_.platform.ui.RedrawMainWindow();
}

void Startup::ReportNoCompany() {
  UserInterface& ui = program_.platform.ui;
  ui.ShowSplash(false);
  ui.ShowMainWindow();
  if (program_.settings.Boolean(kCommon, "system", "fRun", true)) {
    program_.ShowMessage(program_.Text("msg.info.firstrun") + "\r\n" + program_.Text("msg.info.firstrun.coodb") + "\r\n" +
                             program_.Text("msg.info.firstrun.dbpressok"),
                         MessageKind::kWarning);
  } else {
    program_.ShowMessage(program_.Text("msg.info.cantopendatabase") + (why_not_open_.empty() ? "" : "\r\n\r\n" + why_not_open_),
                         MessageKind::kError);
  }
  window_->SET_QDB_();
}

void Startup::ShowList() {
  UserInterface& ui = program_.platform.ui;
  if (!running()) return;  // the person ended the program from the connection dialog
  CurrentPrintJob(program_) = std::make_shared<ClassPRINT>(program_);
  window_->ScrollShow_(true);
  window_->ref_();
  program_.platform.waiter.Wait(250);
  ui.SetBusy(false);
  ui.ShowSplash(false);
  ui.ShowMainWindow();
  window_->refresh_tasks_();
  window_->StatusText("");
}

void Startup::Stop() {
  if (!running()) return;
  UserInterface& ui = program_.platform.ui;
  window_->dictionary.VSC_GOTO_END_();
  ui.StopMainTimer();
  window_->StatusText(program_.Text("msg.info.savesetting"));
  ui.TurnEvents();
  if (program_.database_open) SaveColumnWidths(program_);
  window_->StatusText(program_.Text("msg.info.closedatabase"));
  ui.TurnEvents();
  if (program_.database_open) OSTEngine(program_).close_(true);
  program_.database_open = false;
  CurrentPrintJob(program_).reset();
  for (const std::string& file : program_.TempPageFiles) program_.platform.files.Remove(file);
  program_.TempPageFiles.clear();
  program_.platform.files.RemoveTemporaryFolder();
  // The window itself stands until the command that ended the program has returned.
  program_.main_view = nullptr;
  stopped_ = true;
  ui.EndProgram();
}

}  // namespace ostrinka
