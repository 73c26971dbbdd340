// The table of commands and the dispatcher.
#include <algorithm>

#include "shell/main_window.h"

namespace ostrinka {

const std::vector<Command>& MainWindow::Commands() {
  using W = MainWindow;
  constexpr Needs kDb = Needs::kDatabase, kNone = Needs::kNothing;
  static const std::vector<Command> commands = {
      {"SPRZEDAŻ.DODAJ", kDb, &W::AddDocument, kDokSprzed},
      {"SPRZEDAŻ.DODAJ.KOREKTA", kDb, &W::AddCorrection, kDokSprzed},
      {"KONTRAHENT.DODAJ", kDb, &W::AddCustomer, kKontrahenci},
      {"TOWARUSŁUGA.DODAJ", kDb, &W::AddArticle, kTowaryUslugi},
      {"SPRZEDAŻ.EDYTUJ", kDb, &W::EditRecord, kDokSprzed},
      {"KONTRAHENT.EDYTUJ", kDb, &W::EditRecord, kKontrahenci},
      {"TOWARUSŁUGA.EDYTUJ", kDb, &W::EditRecord, kTowaryUslugi},
      {"SPRZEDAŻ.USUŃ", kDb, &W::DeleteRecord, kDokSprzed},
      {"ZAKUP.USUŃ", kDb, &W::DeleteRecord, kDokZakupu},
      {"KONTRAHENT.USUŃ", kDb, &W::DeleteRecord, kKontrahenci},
      {"TOWARUSŁUGA.USUŃ", kDb, &W::DeleteRecord, kTowaryUslugi},
      {"SPRZEDAŻ.REC", kDb, &W::MoveRecord, kDokSprzed},
      {"ZAKUP.REC", kDb, &W::MoveRecord, kDokZakupu},
      {"KONTRAHENT.REC", kDb, &W::MoveRecord, kKontrahenci},
      {"TOWARUSŁUGA.REC", kDb, &W::MoveRecord, kTowaryUslugi},
      {"KONTRAHENCI.SELEKCJA.ZNAJDŹ", kDb, &W::FindRecords, kKontrahenci},
      {"TOWARYUSŁUGI.SELEKCJA.ZNAJDŹ", kDb, &W::FindRecords, kTowaryUslugi},
      {"SPRZEDAŻ.SELEKCJA.SORTUJ", kDb, &W::SortRecords, kDokSprzed, "@KONTRAHENT"},
      {"ZAKUP.SELEKCJA.SORTUJ", kDb, &W::SortRecords, kDokZakupu, "@KONTRAHENT"},
      {"KONTRAHENCI.SELEKCJA.SORTUJ", kDb, &W::SortRecords, kKontrahenci, "NAZWA"},
      {"TOWARYUSŁUGI.SELEKCJA.SORTUJ", kDb, &W::SortRecords, kTowaryUslugi, "NAZWA"},
      {"KONTRAHENCI.SELEKCJA.ALFABET.ALL", kDb, &W::AlphabetRange, kKontrahenci, ""},
      {"KONTRAHENCI.SELEKCJA.ALFABET.A-D", kDb, &W::AlphabetRange, kKontrahenci, "AD"},
      {"KONTRAHENCI.SELEKCJA.ALFABET.E-H", kDb, &W::AlphabetRange, kKontrahenci, "EH"},
      {"KONTRAHENCI.SELEKCJA.ALFABET.I-L", kDb, &W::AlphabetRange, kKontrahenci, "IL"},
      {"KONTRAHENCI.SELEKCJA.ALFABET.M-P", kDb, &W::AlphabetRange, kKontrahenci, "MP"},
      {"KONTRAHENCI.SELEKCJA.ALFABET.Q-T", kDb, &W::AlphabetRange, kKontrahenci, "QT"},
      {"KONTRAHENCI.SELEKCJA.ALFABET.U-W", kDb, &W::AlphabetRange, kKontrahenci, "UW"},
      {"KONTRAHENCI.SELEKCJA.ALFABET.X-Z", kDb, &W::AlphabetRange, kKontrahenci, "XZ"},
      {"KONTRAHENCI.SELEKCJA.ALFABET.0-9", kDb, &W::AlphabetRange, kKontrahenci, "09"},
      {"TOWARYUSŁUGI.SELEKCJA.ALFABET.ALL", kDb, &W::AlphabetRange, kTowaryUslugi, ""},
      {"TOWARYUSŁUGI.SELEKCJA.ALFABET.A-D", kDb, &W::AlphabetRange, kTowaryUslugi, "AD"},
      {"TOWARYUSŁUGI.SELEKCJA.ALFABET.E-H", kDb, &W::AlphabetRange, kTowaryUslugi, "EH"},
      {"TOWARYUSŁUGI.SELEKCJA.ALFABET.I-L", kDb, &W::AlphabetRange, kTowaryUslugi, "IL"},
      {"TOWARYUSŁUGI.SELEKCJA.ALFABET.M-P", kDb, &W::AlphabetRange, kTowaryUslugi, "MP"},
      {"TOWARYUSŁUGI.SELEKCJA.ALFABET.Q-T", kDb, &W::AlphabetRange, kTowaryUslugi, "QT"},
      {"TOWARYUSŁUGI.SELEKCJA.ALFABET.U-W", kDb, &W::AlphabetRange, kTowaryUslugi, "UW"},
      {"TOWARYUSŁUGI.SELEKCJA.ALFABET.X-Z", kDb, &W::AlphabetRange, kTowaryUslugi, "XZ"},
      {"TOWARYUSŁUGI.SELEKCJA.ALFABET.0-9", kDb, &W::AlphabetRange, kTowaryUslugi, "09"},
      {"SPRZEDAŻ.OKRES.DZISIAJ", kDb, &W::PeriodToday, kDokSprzed},
      {"SPRZEDAŻ.OKRES.BIEŻĄCY", kDb, &W::PeriodCurrent, kDokSprzed},
      {"SPRZEDAŻ.OKRES.OSTATNI", kDb, &W::PeriodLast, kDokSprzed},
      {"SPRZEDAŻ.OKRES.WSZYSTKIE", kDb, &W::PeriodAll, kDokSprzed},
      {"ZAKUP.OKRES.DZISIAJ", kDb, &W::PeriodToday, kDokZakupu},
      {"ZAKUP.OKRES.BIEŻĄCY", kDb, &W::PeriodCurrent, kDokZakupu},
      {"ZAKUP.OKRES.OSTATNI", kDb, &W::PeriodLast, kDokZakupu},
      {"ZAKUP.OKRES.WSZYSTKIE", kDb, &W::PeriodAll, kDokZakupu},
      {"ZESTAWIENIA.OKRES.DZISIAJ", kDb, &W::ReportPeriodToday},
      {"ZESTAWIENIA.OKRES.BIEŻĄCY", kDb, &W::ReportPeriodCurrent},
      {"ZESTAWIENIA.OKRES.OSTATNI", kDb, &W::ReportPeriodLast},
      {"ZESTAWIENIA.OKRES.WSZYSTKIE", kDb, &W::ReportPeriodAll},
      {"SPRZEDAŻ.DRUKUJ", kDb, &W::PrintDocument, kDokSprzed, "msg.info.nodocstoprint"},
      {"SŁOWNIK.STAWKIVAT", kDb, &W::PickDictionary, kStawkiVat},
      {"SŁOWNIK.DOKUMENTY", kDb, &W::PickDictionary, kDokumentKat},
      {"SŁOWNIK.TOWARY", kDb, &W::PickDictionary, kGrupaTU},
      {"SŁOWNIK.KONTRAHENCI", kDb, &W::PickDictionary, kGrupy},
      {"SŁOWNIK.PŁATNOŚCI", kDb, &W::PickDictionary, kFormyPlatn},
      {"SŁOWNIK.JMIARY", kDb, &W::PickDictionary, kJednMiary},
      {"SŁOWNIK.PRACOWNICY", kDb, &W::PickDictionary, kPracownicy},
      {"SŁOWNIK.PAŃSTWA", kDb, &W::PickDictionary, kPanstwa},
      {"SŁOWNIK.REGIONY", kDb, &W::PickDictionary, kRegiony},
      {"SŁOWNIK.WALUTY", kDb, &W::PickDictionary, kWaluty},
      {"SET.USR", kNone, &W::CompanyData},
      {"SET.QDB", kNone, &W::DatabaseConnection},
      {"KONTRAHENT.DODAJ.KLONUJ", kDb, &W::CloneRecord, kKontrahenci},
      {"TOWARUSŁUGA.DODAJ.KLONUJ", kDb, &W::CloneRecord, kTowaryUslugi},
      {"ABOUT", kNone, &W::About},
      {"EXIT", kNone, &W::Exit},
      // What this version does not do yet: it says so.
      {"ZAKUP.DODAJ", kDb, &W::NotBuilt},
      {"ZAKUP.EDYTUJ", kDb, &W::NotBuilt},
      {"ZAKUP.DODAJ.KLONUJ", kDb, &W::NotBuilt},
      {"SPRZEDAŻ.DODAJ.KLONUJ", kDb, &W::NotBuilt},
      {"SPRZEDAŻ.DODAJ.KLONUJ.S", kDb, &W::NotBuilt},
      {"SPRZEDAŻ.DRUKUJ.S_", kDb, &W::NotBuilt},
      {"SPRZEDAŻ.DRUKUJ.L_", kDb, &W::NotBuilt},
      {"SPRZEDAŻ.DRUKUJ.ADR", kDb, &W::NotBuilt},
      {"SPRZEDAŻ.FISKALIZUJ", kDb, &W::NotBuilt},
      {"SPRZEDAŻ.USTAWWYDRUK", kNone, &W::NotBuilt},
      {"ZAKUP.USTAWWYDRUK", kNone, &W::NotBuilt},
      {"KONTRAHENCI.USTAWWYDRUK", kNone, &W::NotBuilt},
      {"TOWARYUSŁUGI.USTAWWYDRUK", kNone, &W::NotBuilt},
      {"ZESTAWIENIA.USTAWWYDRUK", kNone, &W::NotBuilt},
      {"ZAKUP.DRUKUJ", kDb, &W::NotBuilt},
      {"KONTRAHENCI.DRUKUJ", kDb, &W::NotBuilt},
      {"TOWARYUSŁUGI.DRUKUJ", kDb, &W::NotBuilt},
      {"ZESTAWIENIA.DRUKUJ", kDb, &W::NotBuilt},
      {"ZESTAWIENIA.BILANS", kDb, &W::NotBuilt},
      {"ZESTAWIENIA.SPRZEDAŻ", kDb, &W::NotBuilt},
      {"ZESTAWIENIA.NALEŻNOŚCI", kDb, &W::NotBuilt},
      {"ZESTAWIENIA.CENNIK", kDb, &W::NotBuilt},
      {"ZESTAWIENIA.WALUTA", kDb, &W::NotBuilt},
      {"SŁOWNIK.REKORD.DODAJ", kDb, &W::AddDictionaryRecord},
      {"SŁOWNIK.REKORD.EDYTUJ", kDb, &W::EditDictionaryRecord},
      {"SŁOWNIK.REKORD.USUŃ", kDb, &W::DeleteDictionaryRecord},
      {"SŁOWNIK.WALUTY.UPG.NBP", kDb, &W::NotBuilt},
      {"SET.PRG", kNone, &W::NotBuilt},
      {"SET.GUI", kNone, &W::InterfaceOptions},
      {"BACKUP", kDb, &W::NotBuilt},
      {"RESTORE", kNone, &W::NotBuilt},
      {"EXPORT", kDb, &W::NotBuilt},
      {"STREM", kDb, &W::NotBuilt},
      {"HELP", kNone, &W::NotBuilt},
  };
  return commands;
}

bool MainWindow::IsBuilt(const Command& command) {
  return command.run != &MainWindow::NotBuilt;
}

const Command* MainWindow::FindCommand(std::string_view key) const {
  const auto found = std::find_if(Commands().begin(), Commands().end(), [&](const Command& command) { return command.key == key; });
  return found == Commands().end() ? nullptr : &*found;
}

bool MainWindow::Run(std::string_view key, int argument) {
  dictionary.VSC_GOTO_END_();
  constexpr std::string_view kCurrencyItem = "ZESTAWIENIA.WALUTA.";
  if (key.substr(0, kCurrencyItem.size()) == kCurrencyItem) {
    program_.settings.SaveSettingValue(kOstrinka, "Reports", "Currency", std::string(key.substr(kCurrencyItem.size())));
    RerunReport();
    return true;
  }
  const Command* command = FindCommand(key);
  if (!command) {
    program_.platform.ui.Beep();
    return false;
  }
  // While a command runs and lets events turn, another one waits for the person to press it again.
  if (running_) return true;
  if (command->needs == Needs::kDatabase && !program_.database_open) {
    Refuse("msg.info.dbnotopen");
    return true;
  }
  StatusText("");  // what the last command said is over
  running_ = true;
  (this->*command->run)(*command, argument);
  running_ = false;
  if (program_.main_view != this) return true;  // the program ended
  if (key.starts_with("SET.")) ShowFiscalEntry();
  ref_();
  return true;
}

void MainWindow::Refuse(const char* message_key) {
  program_.Message(message_key, MessageKind::kWarning);
}

void MainWindow::NotBuilt(const Command&, int) {
  program_.platform.ui.Beep();
  StatusText(program_.Text("common.notbuilt"));
}

}  // namespace ostrinka
