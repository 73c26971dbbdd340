#include "desktop/screens/shots.h"

#include <QApplication>
#include <QComboBox>
#include <QMenu>
#include <cstdio>
#include <set>

#include "company/login_form.h"
#include "company/tables.h"
#include "desktop/dialog_style.h"
#include "desktop/form_window.h"
#include "desktop/message_window.h"
#include "desktop/preview_window.h"
#include "desktop/screen_check.h"
#include "masterdata/company_form.h"
#include "masterdata/connection_form.h"
#include "masterdata/create_database_form.h"
#include "masterdata/customer_form.h"
#include "masterdata/further_accounts_form.h"
#include "masterdata/goods_form.h"
#include "masterdata/individual_accounts_form.h"
#include "masterdata/wizard_form.h"
#include "sales/line_form.h"
#include "sales/sales_form.h"
#include "shell/commands.h"
#include "startup/startup.h"

namespace ostrinka {
namespace {

constexpr const char* kSkins[] = {"blue", "silver", "black"};  // by the value of the setting

}  // namespace

Screens::Screens(SampleCompany& company, const PictureFiles& files)
    : company_(company), ui_(company.ui()), program_(company.program()), files_(files), look_(std::make_unique<Look>(program_)) {
  ui_.Attach(program_, *look_);
}

void Screens::Save(QWidget& window, const std::string& name) {
  window.show();
  window.activateWindow();
  // Tables learn their row height from the first drawing.
  for (int i = 0; i < 3; ++i) {
    window.grab();
    QApplication::processEvents();
  }
  const QPixmap picture = window.grab();
  const QSize size = picture.deviceIndependentSize().toSize();
  const bool whole = dynamic_cast<MainWindowView*>(&window) != nullptr;
  if (!whole && (size.width() > 1366 || size.height() > 740))
    Fault(name, QString("too large: %1 x %2").arg(size.width()).arg(size.height()));
  for (const QString& fault : ScreenFaults(window)) Fault(name, fault);
  SavePicture(picture, name);
}

void Screens::SavePicture(const QPixmap& picture, const std::string& name) {
  if (!picture.save(files_.folder + "/" + ToQt(name) + files_.mark + ".png")) Fault(name, "not saved");
}

void Screens::Fault(const std::string& name, const QString& fault) {
  std::fprintf(stderr, "%s: %s\n", name.c_str(), FromQt(fault).c_str());
  ++failures_;
}

void Screens::WearSkin(int32_t skin) {
  program_.settings.SaveSettingValue(kCommon, "GUI", "Skin", Value(skin));
  look_->Reload();
  DialogStyle::Install(*look_);
}

void Screens::Windows() {
  for (int skin = 2; skin >= 0; --skin) {
    WearSkin(skin);
    Startup startup(program_);
    ui_.hooks = {};
    startup.Start("");
    MainWindow& window = *startup.window();
    MainWindowView view(program_, window, *look_);
    ui_.hooks.redraw_main_window = [&] { view.Refresh(); };
    ui_.hooks.show_status = [&](const std::string& text) { view.ShowStatus(ToQt(text)); };
    view.setGeometry(QRect(QPoint(), files_.size));
    view.show();
    Tabs(window, view, kSkins[skin]);
    Preview(window, kSkins[skin]);
    ui_.hooks = {};
    window.on_exit = nullptr;
    startup.Stop();
  }
}

void Screens::Tabs(MainWindow& window, MainWindowView& view, const std::string& skin) {
  const struct {
    const char *tab, *name, *command;
  } tabs[] = {{"SPRZEDAŻ", "sales", ""},
              {"ZAKUP", "purchases", ""},
              {"KONTRAHENCI", "customers", ""},
              {"TOWARYUSŁUGI", "goods", ""},
              {"ZESTAWIENIA", "reports-empty", ""},
              {"ZESTAWIENIA", "reports", "ZESTAWIENIA.SPRZEDAŻ"},
              {"SŁOWNIKI", "dictionaries-empty", ""},
              {"SŁOWNIKI", "dictionaries", "SŁOWNIK.STAWKIVAT"}};
  for (const auto& tab : tabs) {
    window.UserTab(tab.tab);
    if (*tab.command) window.UserCommand(tab.command);
    if (std::string_view(tab.name) == "customers") window.UserSortByColumn(3);
    if (window.ViewTable() && window.ViewTable()->MAX_ROWS() > 4) window.UserRow(4);
    view.Refresh();
    Save(view, "main-" + std::string(tab.name) + "-" + skin);
  }
  window.UserTab("SPRZEDAŻ");
  Menus(view, skin);
}

void Screens::Menus(MainWindowView& view, const std::string& skin) {
  for (const char* list : {"SPRZEDAŻ.DRUKUJ", "SPRZEDAŻ.OKRES.OSTATNI", ""}) {
    *list ? view.ribbon().OpenList(list) : view.ribbon().OpenMainMenu(true);
    QApplication::processEvents();
    for (QMenu* menu : view.findChildren<QMenu*>()) {
      if (!menu->isVisible()) continue;
      const std::string name = *list ? std::string("menu-") + (list[10] == 'D' ? "print-" : "period-") + skin : "menu-main-" + skin;
      SavePicture(menu->grab(), name);
      for (const QAction* action : menu->actions()) {
        if (action->text().startsWith('%')) Fault(name, "not translated: " + action->text());
      }
      menu->close();
    }
  }
}

// The preview of a sales document, at its plain size and with several sheets in sight.
void Screens::Preview(MainWindow& window, const std::string& skin) {
  window.UserTab("SPRZEDAŻ");
  if (!window.UserRow(1)) return;
  ui_.play_preview = [&](frm_DocPreview& preview) {
    PreviewWindow shown(*look_, preview, nullptr);
    shown.resize(QSize(900, 728).boundedTo(files_.size));
    Save(shown, "preview-" + skin);
    for (int i = 0; i < 3; ++i) preview.UserCommand("ZOOM.-");
    Save(shown, "preview-small-" + skin);
  };
  window.UserItem("SPRZEDAŻ.DRUKUJ", "SPRZEDAŻ.TRYBDRUKU_O2C");
  window.UserItem("SPRZEDAŻ.DRUKUJ", "SPRZEDAŻ.PODGLĄD");
  ui_.play_preview = nullptr;
}

void Screens::Commands() {
  const std::set<std::string_view> passed = {"EXIT", "SŁOWNIK.WALUTY.UPG.NBP", "HELP"};
  std::set<std::string> seen;
  Startup startup(program_);
  startup.Start("");
  MainWindow& window = *startup.window();
  for (const char* tab : {"ZAKUP", "KONTRAHENCI", "TOWARYUSŁUGI", "SŁOWNIKI", "SPRZEDAŻ"}) {
    window.UserTab(tab);
    window.UserRow(1);
  }
  ui_.play = [&](Form& form) {
    std::string name = "form-" + form.form_name();
    if (!seen.insert(form.form_name() + form.title()).second) return form.Close();
    if (!form.title().empty()) name += "-" + std::to_string(seen.size());
    Shot(form, name);
    form.Close();
  };
  for (const Command& command : AllCommands()) {
    if (!IsBuilt(command) || passed.count(command.key) > 0) continue;
    window.UserCommand(command.key);
  }
  ui_.play = nullptr;
  startup.Stop();
}

void Screens::Shot(Form& form, const std::string& name) {
  FormWindow window(program_, *look_, form, nullptr);
  form.Open();
  window.show();
  if (QWidget* field = form.focus() ? window.WidgetOf(*form.focus()) : nullptr) field->setFocus(Qt::TabFocusReason);
  int number = 0;
  const std::string first = form.page();
  for (const PageLayout& page : form.pages()) {
    if (!page.visible || !form.ShowPage(page.key)) continue;
    Save(window, number == 0 ? name : name + "-" + std::to_string(number + 1));
    ++number;
  }
  form.ShowPage(first);
}

// The list or month that a field opens.
void Screens::Opened(Form& form, const Control& control, const std::string& name) {
  FormWindow window(program_, *look_, form, nullptr);
  window.show();
  if (auto* field = qobject_cast<QComboBox*>(window.WidgetOf(control))) field->showPopup();
  QApplication::processEvents();
  if (QWidget* popup = QApplication::activePopupWidget()) {
    SavePicture(popup->grab(), name);
    popup->close();
  } else {
    Fault(name, "did not open");
  }
}

void Screens::SalesScreens() {
  frm_Dok_sprzed form(program_);
  form.reload_();
  form.Open();
  Fill(form, {{"txtTypDok", "Faktura VAT"}, {"txtKontrahent", "Hotel Nad Wisłą Sp. z o.o."}, {"txtOdebrał", "Anna Żółkiewska"}});
  const std::pair<const char*, const char*> lines[] = {
      {"Stół dębowy rozkładany 160/240 x 90 cm", "4"}, {"Krzesło dębowe tapicerowane", "24"}, {"Deska podłogowa sosnowa 28 mm", "62,5"}};
  for (const auto& line : lines) {
    ui_.play = [&](Form& dialog) {
      Fill(dialog, {{"txtComboTU", line.first}, {"txtIlość", line.second}});
      dialog.FindButton("btnOK")->UserPress();
    };
    form.btnAdd.UserPress();
  }
  ui_.play = nullptr;
  form.SetFocus(form.txtKontrahent);
  Shot(form, "sales-editor");
  Opened(form, form.txtTypDok, "list-open");
  Opened(form, form.txtTerminZapłaty, "calendar-open");
  frm_Dok_add_TU line(program_);
  line.reload_();
  Shot(line, "line-dialog");
  line.tuType.UserSet("#2");
  Shot(line, "line-dialog-text");
}

void Screens::Dialogs() {
  frm_Kontrahenci_ customer(program_);
  customer.reload_(EditMode::kEdit, company_.customer());
  Shot(customer, "customer-editor");
  frm_TowUslugi_ goods(program_);
  goods.reload_(EditMode::kEdit, company_.article());
  Shot(goods, "goods-editor");
  SalesScreens();
  frm_Admin_usr_ company(program_);
  company.reload_();
  Shot(company, "company");
  frm_Admin_usr_kdod_ accounts(program_);
  accounts.reload_(program_.company);
  Shot(accounts, "further-accounts");
  frm_Admin_usr_konta_ individual(program_);
  individual.reload_();
  individual.Open();
  Fill(individual, {{"txtKontoIndywidualne", "PL83 1020 3147 0000 8102 1234 0001"}});
  for (const int skin : {1, 2, 0}) {
    WearSkin(skin);
    Shot(individual, "individual-accounts-" + std::string(kSkins[skin]));
  }
  frm_Admin_qdb_ connection(program_);
  connection.reload_();
  Shot(connection, "connection");
  frm_Admin_qdbc_ creation(program_);
  creation.reload_();
  Shot(creation, "create-database");
  LoginForm login(program_);
  Shot(login, "login");
}

void Screens::Wizard() {
  for (const int skin : {0, 1, 2}) {
    WearSkin(skin);
    frm_Admin_bg_ form(program_);
    form.reload_();
    FormWindow window(program_, *look_, form, nullptr);
    form.Open();
    window.show();
    for (size_t step = 1; step <= form.pages().size(); ++step) {
      if (QWidget* field = form.focus() ? window.WidgetOf(*form.focus()) : nullptr) field->setFocus(Qt::TabFocusReason);
      Save(window, "wizard-" + std::to_string(step) + "-" + kSkins[skin]);
      form.btnNext.UserPress();
    }
  }
}

void Screens::Boxes() {
  const struct {
    const char* name;
    const char* key;
    MessageKind kind;
  } boxes[] = {{"message-plain", "msg.info.dbtest.ok", MessageKind::kPlain},
               {"message-error", "msg.info.cantopendatabase", MessageKind::kError},
               {"message-warning", "msg.info.firstrun", MessageKind::kWarning},
               {"message-question", "common.unsaved", MessageKind::kQuestion},
               {"message-info", "msg.info.nrcharonly", MessageKind::kInformation}};
  for (const auto& box : boxes) {
    MessageWindow window(*look_, look_->Text(box.key), box.kind, nullptr);
    Save(window, box.name);
  }
}

}  // namespace ostrinka
