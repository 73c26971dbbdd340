// ostrinka-screens: opens a small company in a temporary folder and saves a picture of every dialog.
//
// ostrinka-screens OUTDIR [APPDIR]; APPDIR is the program folder, by default the one beside the executable.
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QTemporaryDir>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>

#include "base/text.h"
#include "company/login_form.h"
#include "company/ost_engine.h"
#include "company/tables.h"
#include "desktop/desktop_ui.h"
#include "desktop/form_window.h"
#include "desktop/message_window.h"
#include "desktop/qt_platform.h"
#include "documents/forms/line_form.h"
#include "documents/forms/sales_form.h"
#include "masterdata/company_form.h"
#include "masterdata/connection_form.h"
#include "masterdata/create_database_form.h"
#include "masterdata/customer_form.h"
#include "masterdata/further_accounts_form.h"
#include "masterdata/goods_form.h"
#include "masterdata/postal.h"

namespace ostrinka {
namespace {

class FixedClock : public Clock {
 public:
  Date Now() override { return Date(Date::FromYmd(2008, 3, 5)->days() + 0.5); }
};

// Forms that the setup opens are played at once instead of shown.
class PlayedUi : public DesktopUi {
 public:
  std::function<void(Form&)> play;
  void ShowModal(Form& form) override {
    form.Open();
    if (play) play(form);
  }
  Answer ShowMessage(const std::string& text, MessageKind kind) override {
    std::fprintf(stderr, "message: %s\n", text.c_str());
    return kind == MessageKind::kQuestion ? Answer::kYes : Answer::kOk;
  }
  void Beep() override {}
};

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
  Screens(const QString& folder, const std::string& application, const std::string& scratch)
      : folder_(folder),
        surroundings_(ui_, application),
        platform_{surroundings_.files,
                  ui_,
                  clock_,
                  surroundings_.random,
                  surroundings_.waiter,
                  surroundings_.printer,
                  surroundings_.pictures,
                  surroundings_.download,
                  surroundings_.serial,
                  application,
                  scratch + "user/"},
        program_(platform_),
        company_folder_(scratch + "firma/") {
    program_.catalogue.LoadProgramCatalogue("program.lang");
    program_.catalogue.LoadPrintCatalogue("printdoc.lang");
    program_.postal = std::make_shared<PostalTable>();
    program_.postal->LoadPostalCodes(program_.platform.files, application);
    look_ = std::make_unique<Look>(program_);
    ui_.Attach(program_, *look_);
  }
  ~Screens() { OSTEngine(program_).close_(false); }

  bool MakeCompany();
  void Dialogs();
  void Boxes();
  int failures() const { return failures_; }

 private:
  int32_t AddCustomer(Entries entries);
  int32_t AddArticle(Entries entries);
  void SalesScreens();
  void Save(QWidget& window, const std::string& name);
  void Shot(Form& form, const std::string& name);
  void Opened(Form& form, const Control& control, const std::string& name);

  QString folder_;
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

bool Screens::MakeCompany() {
  program_.platform.files.MakeFolders(company_folder_);
  program_.settings.SaveSettingValue(kCommon, "dbPath", "Remote", Value(true));
  program_.settings.SaveSettingValue(kCommon, "dbPath", "Path", Value(company_folder_));
  program_.settings.SaveSettingValue(kCommon, "dbLogin", "username", Value(std::string("kreda")));
  program_.settings.SaveSettingValue(kCommon, "dbLogin", "password", Value(std::string("kreda")));
  bool done = false;
  OSTEngine(program_).create_(company_folder_, "kreda", "kreda", true, done);
  if (done) OSTEngine(program_).open_(true, done);
  program_.database_open = done;
  if (!done) return false;
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
  return true;
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
  if (size.width() > 1366 || size.height() > 740) {
    std::fprintf(stderr, "%s is too large: %d x %d\n", name.c_str(), size.width(), size.height());
    ++failures_;
  }
  if (!picture.save(folder_ + "/" + ToQt(name) + ".png")) ++failures_;
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
    if (!popup->grab().save(folder_ + "/" + ToQt(name) + ".png")) ++failures_;
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
  frm_Admin_qdb_ connection(program_);
  connection.reload_();
  Shot(connection, "connection");
  frm_Admin_qdbc_ creation(program_);
  creation.reload_();
  Shot(creation, "create-database");
  LoginForm login(program_);
  Shot(login, "login");
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
  if (argc < 2) {
    std::fputs("ostrinka-screens OUTDIR [APPDIR]\n", stderr);
    return 2;
  }
  if (!std::getenv("DISPLAY") && !std::getenv("WAYLAND_DISPLAY")) setenv("QT_QPA_PLATFORM", "offscreen", 0);
  QApplication application(argc, argv);
  const QString folder = QString::fromLocal8Bit(argv[1]);
  const std::string program_folder = argc > 2 ? std::string(argv[2]) + "/" : ostrinka::ExecutableFolder() + "Ostrinka/";
  QTemporaryDir scratch;
  if (!scratch.isValid() || !QDir().mkpath(folder)) return 1;
  ostrinka::Screens screens(folder, program_folder, scratch.path().toStdString() + "/");
  if (!screens.MakeCompany()) {
    std::fputs("the company could not be made\n", stderr);
    return 1;
  }
  screens.Dialogs();
  screens.Boxes();
  return screens.failures() == 0 ? 0 : 1;
}
