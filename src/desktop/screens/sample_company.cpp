#include "desktop/screens/sample_company.h"

#include <cstdio>
#include <filesystem>

#include "company/ost_engine.h"
#include "masterdata/customer_form.h"
#include "masterdata/goods_form.h"
#include "masterdata/postal.h"

namespace ostrinka {

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

SampleCompany::SampleCompany(const std::string& application, const std::string& scratch)
    : surroundings_(ui_, application),
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
  program_.Part<PostalTable>().LoadPostalCodes(program_.platform.files, application);
}

SampleCompany::~SampleCompany() {
  OSTEngine(program_).close_(false);
}

bool SampleCompany::Open(const std::string& company) {
  program_.platform.files.MakeFolders(company_folder_);
  program_.settings.SaveSettingValue(kCommon, "dbPath", "Remote", Value(true));
  program_.settings.SaveSettingValue(kCommon, "dbPath", "Path", Value(company_folder_));
  program_.settings.SaveSettingValue(kCommon, "dbLogin", "username", Value(std::string("kreda")));
  program_.settings.SaveSettingValue(kCommon, "dbLogin", "password", Value(std::string("kreda")));
  program_.settings.SaveSettingValue(kCommon, "system", "fRun", Value(false));
  program_.settings.SaveSettingValue(kCommon, "GUI", "WScreen", Value(int32_t{0}));
  bool done = true;
  if (company.empty()) {
    OSTEngine(program_).create_(company_folder_, "kreda", "kreda", true, done);
  } else {
    std::error_code failed;
    std::filesystem::copy(company, company_folder_, std::filesystem::copy_options::recursive, failed);
    if (failed) return false;
  }
  if (done) OSTEngine(program_).open_(true, done);
  program_.database_open = done;
  if (!done) return false;
  customer_ = article_ = 1;
  if (company.empty()) Make();
  return true;
}

void SampleCompany::Make() {
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

int32_t SampleCompany::AddCustomer(Entries entries) {
  frm_Kontrahenci_ form(program_);
  form.reload_(EditMode::kNew);
  form.Open();
  Fill(form, entries);
  form.btnSave.UserPress();
  return form.saved_record();
}

int32_t SampleCompany::AddArticle(Entries entries) {
  frm_TowUslugi_ form(program_);
  form.reload_(EditMode::kNew);
  form.Open();
  Fill(form, entries);
  form.btnSave.UserPress();
  return form.saved_record();
}

}  // namespace ostrinka
