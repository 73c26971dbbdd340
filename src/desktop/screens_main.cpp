// ostrinka-screens: saves a picture of the main window on every tab and of every dialog, and looks for texts that are not fit to be seen.
//
// ostrinka-screens OUTDIR [--app DIR] [--company DIR] [--size WxH] [--mark TEXT] [--windows | --dialogs]
//
// The program folder is by default the one beside the executable; the company is copied first, and a small one is made where none is given.
// TEXT ends the names of the pictures. Exit status 1 when a window has a fault; each is told on standard error.
#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QMenu>
#include <QTemporaryDir>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>
#include <set>

#include "base/text.h"
#include "company/login_form.h"
#include "company/ost_engine.h"
#include "company/tables.h"
#include "desktop/desktop_ui.h"
#include "desktop/dialog_style.h"
#include "desktop/form_window.h"
#include "desktop/main_window_view.h"
#include "desktop/message_window.h"
#include "desktop/preview_window.h"
#include "desktop/qt_platform.h"
#include "desktop/screen_check.h"
#include "masterdata/company_form.h"
#include "masterdata/connection_form.h"
#include "masterdata/create_database_form.h"
#include "masterdata/customer_form.h"
#include "masterdata/further_accounts_form.h"
#include "masterdata/goods_form.h"
#include "masterdata/individual_accounts_form.h"
#include "masterdata/postal.h"
#include "masterdata/wizard_form.h"
#include "sales/line_form.h"
#include "sales/sales_form.h"
#include "startup/startup.h"

namespace ostrinka {
namespace {

constexpr const char* kSkins[] = {"blue", "silver", "black"};  // by the value of the setting

class FixedClock : public Clock {
 public:
  Date Now() override { return Date(Date::FromYmd(2008, 3, 5)->days() + 0.5); }
};

// Forms that the setup opens are played at once instead of shown.
class PlayedUi : public DesktopUi {
 public:
  std::function<void(Form&)> play;
  std::function<void(frm_DocPreview&)> play_preview;
  void ShowModal(Modal& modal) override {
    if (auto* preview = dynamic_cast<frm_DocPreview*>(&modal)) {
      if (play_preview) play_preview(*preview);
    } else if (auto* form = dynamic_cast<Form*>(&modal)) {
      form->Open();
      if (play) play(*form);
    }
  }
  // Questions are answered with no: nothing is deleted or replaced for a picture.
  Answer ShowMessage(const std::string& text, MessageKind kind) override {
    std::fprintf(stderr, "message: %s\n", text.c_str());
    return kind == MessageKind::kQuestion ? Answer::kNo : Answer::kOk;
  }
  std::optional<std::string> AskOpenFile(const std::vector<FileFilter>&) override { return std::nullopt; }
  std::optional<std::string> AskSaveFile(const std::vector<FileFilter>&, const std::string&, size_t&) override { return std::nullopt; }
  std::optional<std::string> AskFolder(const std::string&) override { return std::nullopt; }
  bool OpenWithSystem(const std::string&) override { return true; }
  void Beep() override {}
};

// What the command line asks for.
struct Wishes {
  QString folder, mark;
  std::string application = ExecutableFolder() + "Ostrinka/", company;
  QSize size{1280, 800};
  bool windows = true, dialogs = true;
};

bool Read(const QStringList& words, Wishes& wishes) {
  if (words.isEmpty()) return false;
  wishes.folder = words[0];
  for (int i = 1; i < words.size(); ++i) {
    if (words[i] == "--windows") {
      wishes.dialogs = false;
    } else if (words[i] == "--dialogs") {
      wishes.windows = false;
    } else if (i + 1 == words.size()) {
      return false;
    } else if (words[i] == "--app") {
      wishes.application = FromQt(words[++i]) + "/";
    } else if (words[i] == "--company") {
      wishes.company = FromQt(words[++i]);
    } else if (words[i] == "--mark") {
      wishes.mark = words[++i];
    } else if (words[i] == "--size") {
      const QStringList sides = words[++i].split('x');
      wishes.size = QSize(sides[0].toInt(), sides.value(1).toInt());
    } else {
      return false;
    }
  }
  return wishes.size.isValid();
}

using Entries = std::initializer_list<std::pair<const char*, const char*>>;

void Fill(Form& form, Entries entries) {
  for (const auto& [name, value] : entries) {
    Control* control = form.Find(name);
    if (control && control->UserEnter() && control->UserSet(value)) {
      control->UserLeave();
    } else {
      std::fprintf(stderr, "%s does not take \"%s\"\n", name, value);
    }
  }
}

class Screens {
 public:
  Screens(const Wishes& wishes, const std::string& scratch)
      : wishes_(wishes),
        surroundings_(ui_, wishes.application),
        platform_{surroundings_.files,
                  ui_,
                  clock_,
                  surroundings_.random,
                  surroundings_.waiter,
                  surroundings_.printer,
                  surroundings_.pictures,
                  surroundings_.download,
                  surroundings_.serial,
                  wishes.application,
                  scratch + "user/"},
        program_(platform_),
        company_folder_(scratch + "firma/") {
    program_.catalogue.LoadProgramCatalogue("program.lang");
    program_.catalogue.LoadPrintCatalogue("printdoc.lang");
    program_.Part<PostalTable>().LoadPostalCodes(program_.platform.files, wishes.application);
    look_ = std::make_unique<Look>(program_);
    ui_.Attach(program_, *look_);
  }
  ~Screens() { OSTEngine(program_).close_(false); }

  bool OpenCompany();
  void Windows();
  void Dialogs();
  void Wizard();
  void Commands();
  void Boxes();
  int failures() const { return failures_; }

 private:
  void MakeCompany();
  int32_t AddCustomer(Entries entries);
  int32_t AddArticle(Entries entries);
  void Tabs(MainWindow& window, MainWindowView& view, const std::string& skin);
  void Preview(MainWindow& window, const std::string& skin);
  void Fault(const std::string& name, const QString& fault);
  void SalesScreens();
  void WearSkin(int32_t skin);
  void Save(QWidget& window, const std::string& name);
  void Shot(Form& form, const std::string& name);
  void Opened(Form& form, const Control& control, const std::string& name);

  const Wishes wishes_;
  PlayedUi ui_;
  FixedClock clock_;
  QtPlatform surroundings_;
  Platform platform_;
  Program program_;
  std::string company_folder_;
  std::unique_ptr<Look> look_;
  int32_t customer_ = 0, article_ = 0;
  int failures_ = 0;
};

bool Screens::OpenCompany() {
  program_.platform.files.MakeFolders(company_folder_);
  program_.settings.SaveSettingValue(kCommon, "dbPath", "Remote", Value(true));
  program_.settings.SaveSettingValue(kCommon, "dbPath", "Path", Value(company_folder_));
  program_.settings.SaveSettingValue(kCommon, "dbLogin", "username", Value(std::string("kreda")));
  program_.settings.SaveSettingValue(kCommon, "dbLogin", "password", Value(std::string("kreda")));
  program_.settings.SaveSettingValue(kCommon, "system", "fRun", Value(false));
  program_.settings.SaveSettingValue(kCommon, "GUI", "WScreen", Value(int32_t{0}));
  bool done = true;
  if (wishes_.company.empty()) {
    OSTEngine(program_).create_(company_folder_, "kreda", "kreda", true, done);
  } else {
    std::error_code failed;
    std::filesystem::copy(wishes_.company, company_folder_, std::filesystem::copy_options::recursive, failed);
    if (failed) return false;
  }
  if (done) OSTEngine(program_).open_(true, done);
  program_.database_open = done;
  if (!done) return false;
  customer_ = article_ = 1;
  if (wishes_.company.empty()) MakeCompany();
  return true;
}

void Screens::MakeCompany() {
  customer_ = AddCustomer({{"txtSymbol", "WISŁA"},
                           {"txtNazwa", "Hotel Nad Wisłą Sp. z o.o."},
                           {"txtGrupa", "Zaufani"},
                           {"txtUlica", "ul. Nadbrzeżna"},
                           {"txtNrDomu", "7"},
                           {"txtKodPocztowy", "24-120"},
                           {"txtMiejscowość", "Kazimierz Dolny"},
                           {"txtWojewództwo", "lubelskie"},
                           {"TxtNIP", "526-104-71-25"},
                           {"txtBank", "Bank Spółdzielczy w Kazimierzu"},
                           {"txtNrKonta", "PL51 1020 3147 0000 8102 0065 4321"},
                           {"txtTelefon", "81 555 44 10"},
                           {"txtTelKom", "601 555 010"},
                           {"txtEMail", "recepcja@nadwisla.example"},
                           {"txtWWW", "www.nadwisla.example"},
                           {"txtUwagi", "Faktury wysyłać na adres recepcji."},
                           {"txtFormaPłat", "Przelew 14 dni"}});
  AddCustomer({{"txtSymbol", "BERLIN"}, {"txtNazwa", "Möbelhaus Schröder GmbH"}, {"txtMiejscowość", "Berlin"}});
  article_ = AddArticle({{"txtSymbol", "STÓŁ-D"},
                         {"txtRodzaj", "Towar"},
                         {"txtNazwa", "Stół dębowy rozkładany 160/240 x 90 cm"},
                         {"txtJednostkaMiary", "szt."},
                         {"txtPKWiU", "31.09.13-00"},
                         {"txtStawkaVAT", "22%"},
                         {"txtCenaZakupu", "1450"},
                         {"txtNetto(0)", "2180,00"}});
  const std::pair<const char*, const char*> more[] = {{"Krzesło dębowe tapicerowane", "345,00"},
                                                      {"Montaż mebli u klienta", "75,00"},
                                                      {"Album \"Meble Lubelszczyzny\"", "46,00"},
                                                      {"Deska podłogowa sosnowa 28 mm", "18,60"}};
  for (const auto& [name, price] : more) {
    AddArticle({{"txtNazwa", name}, {"txtJednostkaMiary", "szt."}, {"txtStawkaVAT", "22%"}, {"txtNetto(0)", price}});
  }
}

int32_t Screens::AddCustomer(Entries entries) {
  frm_Kontrahenci_ form(program_);
  form.reload_(1);
  form.Open();
  Fill(form, entries);
  form.btnSave.UserPress();
  return form.saved_record();
}

int32_t Screens::AddArticle(Entries entries) {
  frm_TowUslugi_ form(program_);
  form.reload_(1);
  form.Open();
  Fill(form, entries);
  form.btnSave.UserPress();
  return form.saved_record();
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
  if (!picture.save(wishes_.folder + "/" + ToQt(name) + wishes_.mark + ".png")) Fault(name, "not saved");
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

// The main window on each of its tabs, in each skin.
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
    view.setGeometry(QRect(QPoint(), wishes_.size));
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
  for (const char* list : {"SPRZEDAŻ.DRUKUJ", "SPRZEDAŻ.OKRES.OSTATNI", ""}) {
    *list ? view.ribbon().OpenList(list) : view.ribbon().OpenMainMenu(true);
    QApplication::processEvents();
    for (QMenu* menu : view.findChildren<QMenu*>()) {
      if (!menu->isVisible()) continue;
      const std::string name = *list ? std::string("menu-") + (list[10] == 'D' ? "print-" : "period-") + skin : "menu-main-" + skin;
      if (!menu->grab().save(wishes_.folder + "/" + ToQt(name) + wishes_.mark + ".png")) Fault(name, "not saved");
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
    shown.resize(QSize(900, 728).boundedTo(wishes_.size));
    Save(shown, "preview-" + skin);
    for (int i = 0; i < 3; ++i) preview.UserCommand("ZOOM.-");
    Save(shown, "preview-small-" + skin);
  };
  window.UserItem("SPRZEDAŻ.DRUKUJ", "SPRZEDAŻ.TRYBDRUKU_O2C");
  window.UserItem("SPRZEDAŻ.DRUKUJ", "SPRZEDAŻ.PODGLĄD");
  ui_.play_preview = nullptr;
}

// Every form that a command opens on its own.
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
  for (const Command& command : MainWindow::Commands()) {
    if (!MainWindow::IsBuilt(command) || passed.count(command.key) > 0) continue;
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
    if (!popup->grab().save(wishes_.folder + "/" + ToQt(name) + wishes_.mark + ".png")) ++failures_;
    popup->close();
  } else {
    std::fprintf(stderr, "%s did not open\n", name.c_str());
    ++failures_;
  }
}

void Screens::SalesScreens() {
  frm_Dok_sprzed form(program_);
  form.reload_();
  form.Open();
  Fill(form, {{"txtTypDok", "Faktura VAT"}, {"txtKontrahent", "Hotel Nad Wisłą Sp. z o.o."}, {"txtOdebrał", "Anna Żółkiewska"}});
  const std::pair<const char*, const char*> lines[] = {
      {"Stół dębowy rozkładany 160/240 x 90 cm", "4"}, {"Krzesło dębowe tapicerowane", "24"}, {"Deska podłogowa sosnowa 28 mm", "62,5"}};
  for (const auto& [article, count] : lines) {
    ui_.play = [&](Form& dialog) {
      Fill(dialog, {{"txtComboTU", article}, {"txtIlość", count}});
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
  customer.reload_(2, customer_);
  Shot(customer, "customer-editor");
  frm_TowUslugi_ goods(program_);
  goods.reload_(2, article_);
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

// The steps of the wizard as a person goes through them, in each skin.
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

}  // namespace
}  // namespace ostrinka

int main(int argc, char** argv) {
  if (!std::getenv("DISPLAY") && !std::getenv("WAYLAND_DISPLAY")) setenv("QT_QPA_PLATFORM", "offscreen", 0);
  QApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  ostrinka::Wishes wishes;
  if (!ostrinka::Read(QApplication::arguments().mid(1), wishes)) {
    std::fputs("ostrinka-screens OUTDIR [--app DIR] [--company DIR] [--size WxH] [--mark TEXT] [--windows | --dialogs]\n", stderr);
    return 2;
  }
  QTemporaryDir scratch;
  if (!scratch.isValid() || !QDir().mkpath(wishes.folder)) return 1;
  ostrinka::Screens screens(wishes, scratch.path().toStdString() + "/");
  if (!screens.OpenCompany()) {
    std::fputs("the company could not be made or opened\n", stderr);
    return 1;
  }
  if (wishes.dialogs) {
    screens.Dialogs();
    screens.Wizard();
    screens.Boxes();
    screens.Commands();
  }
  if (wishes.windows) screens.Windows();
  return screens.failures() == 0 ? 0 : 1;
}
