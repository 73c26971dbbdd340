#include "generate_company.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <vector>

#include "company/ost_engine.h"
#include "company/tables.h"
#include "generate_words.h"

namespace ostrinka {
namespace {

constexpr int kDocumentsPerCustomer = 5, kLinesPerDocument = 4, kEmployees = 8;
constexpr int kFirstYear = 2004, kYears = 5;
constexpr uint32_t kSeed = 2008;

// A record under construction: values by field name, in the table's own order.
class Row {
 public:
  explicit Row(ClassQDBASE& table) : table_(table), values_(static_cast<size_t>(table.FIELD_COUNT())) {
    for (int n = 1; n <= table.FIELD_COUNT(); ++n) places_[table.FIELD_NAME(n)] = static_cast<size_t>(n - 1);
  }
  Row& Set(const char* field, Value value) {
    const auto place = places_.find(field);
    if (place == places_.end()) {
      failed_ = true;
    } else {
      values_[place->second] = std::move(value);
    }
    return *this;
  }
  // Adds the record and starts the next one.
  bool Add() {
    const bool added = !failed_ && table_.RECORD_ADD(values_);
    std::fill(values_.begin(), values_.end(), Value());
    return added;
  }

 private:
  ClassQDBASE& table_;
  std::vector<Value> values_;
  std::map<std::string, size_t, std::less<>> places_;
  bool failed_ = false;
};

struct Article {
  double net = 0;
  int rate_record = 1;
};

// Percent of the seed rows of stawki_vat, by record.
constexpr std::array<double, 8> kPercent{0, 22, 7, 3, 0, 0, 0, 12};

double Grosze(double amount) {
  return std::round(amount * 100) / 100;
}
Currency Money(double amount) {
  return Currency::FromDouble(amount).value_or(Currency());
}

bool AddEmployees(Program& program, Words& words) {
  Row row(Table(program, kPracownicy));
  for (int i = 0; i < kEmployees; ++i) {
    if (!row.Set("PRACOWNIK", words.Person()).Add()) return false;
  }
  return true;
}

bool AddArticles(Program& program, Words& words, int count, std::vector<Article>& articles) {
  Row row(Table(program, kTowaryUslugi));
  for (int i = 0; i < count; ++i) {
    const Article article{Grosze(1 + words.Below(500000) / 100.0), words.OneIn(5) ? 2 : words.OneIn(20) ? 3 : 1};
    const double gross = Grosze(article.net * (1 + kPercent[static_cast<size_t>(article.rate_record)] / 100));
    row.Set("USLUGA", words.OneIn(10)).Set("SYMBOL", "T" + std::to_string(i + 1)).Set("GRUPA", 1).Set("NAZWA", words.Article());
    row.Set("STAWKA_VAT", article.rate_record).Set("JEDNOSTKA_MIARY", 1 + words.Below(3)).Set("WALUTA", 1);
    row.Set("CENA_ZAKUPU", Grosze(article.net * 0.8)).Set("DETAL_NETTO", article.net).Set("DETAL_BRUTTO", gross);
    row.Set("PKWIU", words.Digits(2) + "." + words.Digits(2) + "." + words.Digits(2) + "-00").Set("KOD_KRESKOWY", "590" + words.Digits(10));
    if (!row.Add()) return false;
    articles.push_back(article);
  }
  return true;
}

bool AddCustomers(Program& program, Words& words, int32_t count) {
  Row row(Table(program, kKontrahenci));
  for (int32_t i = 0; i < count; ++i) {
    const Words::Town& town = words.ATown();
    row.Set("SYMBOL", "K" + std::to_string(i + 1)).Set("GRUPA", 1 + words.Below(4)).Set("NAZWA", words.Firm());
    row.Set("ULICA", words.Street()).Set("NR_DOMU", std::to_string(1 + words.Below(200)));
    if (words.OneIn(3)) row.Set("NR_LOKALU", std::to_string(1 + words.Below(60)));
    row.Set("KOD_POCZTOWY", std::string(town.postal_prefix) + "-" + words.Digits(3)).Set("MIEJSCOWOSC", std::string(town.name));
    row.Set("WOJEWODZTWO", town.region).Set("PANSTWO", 1).Set("TELEFON", words.Digits(2) + " " + words.Digits(3) + " " + words.Digits(4));
    row.Set("NIP", words.Digits(3) + "-" + words.Digits(3) + "-" + words.Digits(2) + "-" + words.Digits(2)).Set("REGON", words.Digits(9));
    if (words.OneIn(2)) row.Set("ADRES_EMAIL", "biuro" + std::to_string(i + 1) + "@poczta.example");
    row.Set("BANK_RACHUNEK", "PL" + words.Digits(26)).Set("D_FORMA_PLAT", 1 + words.Below(3));
    if (words.OneIn(10)) row.Set("UWAGI", words.Note());
    if (!row.Add()) return false;
  }
  return true;
}

struct Totals {
  double net = 0, gross = 0;
};

bool AddLines(Row& row, Words& words, int32_t identity, int count, const std::vector<Article>& articles, Totals& totals) {
  for (int i = 0; i < count; ++i) {
    const int32_t record = words.Below(static_cast<int>(articles.size()));
    const Article& article = articles[static_cast<size_t>(record)];
    const double factor = 1 + kPercent[static_cast<size_t>(article.rate_record)] / 100;
    const int quantity = 1 + words.Below(20);
    const double net = Grosze(article.net * quantity), gross = Grosze(article.net * quantity * factor);
    row.Set("ID_DOK", identity).Set("NAZWA_T_U", record + 1).Set("RABAT", 0).Set("ILOSC", Currency::FromWhole(quantity));
    row.Set("CENA_NETTO", Money(article.net)).Set("CENA_BRUTTO", Money(Grosze(article.net * factor)));
    row.Set("WARTOSC_NETTO", Money(net)).Set("WARTOSC_BRUTTO", Money(gross));
    if (!row.Add()) return false;
    totals.net += net;
    totals.gross += gross;
  }
  return true;
}

// The types of dokument_kat: mostly invoices.
int32_t DrawType(Words& words) {
  if (words.OneIn(15)) return 2;
  if (words.OneIn(25)) return 3;
  if (words.OneIn(40)) return 4;
  return words.OneIn(12) ? 5 : 1;
}

// One to seven lines, four on average: every second document makes up for the one before.
int LinesOfDocument(Words& words, int32_t document, int32_t count, int& owed) {
  if (document % 2 == 1) return kLinesPerDocument - std::exchange(owed, 0);
  owed = document + 1 < count ? words.Below(7) - 3 : 0;
  return kLinesPerDocument + owed;
}

bool AddDocuments(Program& program, Words& words, int32_t customers, const std::vector<Article>& articles) {
  Row row(Table(program, kDokSprzed)), lines(Table(program, kSprzedane));
  const int32_t count = customers * kDocumentsPerCustomer;
  const Date first = Date::FromYmd(kFirstYear, 1, 1).value_or(Date());
  const double days = Date::FromYmd(kFirstYear + kYears, 1, 1).value_or(Date()).days() - first.days();
  std::map<std::pair<int, bool>, int32_t> numbers;  // by year and whether it is a correction, whose numbers run apart
  int owed = 0;
  for (int32_t i = 0; i < count; ++i) {
    // An odd factor makes each identity different from all others.
    const auto identity = static_cast<int32_t>((static_cast<uint32_t>(i + 1) * 2654435761u) & ((1u << 30) - 1));
    Totals totals;
    if (!AddLines(lines, words, identity, LinesOfDocument(words, i, count, owed), articles, totals)) return false;
    const Date issued = first.PlusDays(static_cast<int>(days * i / count));
    const int32_t type = DrawType(words), customer = 1 + words.Below(customers);
    const bool paid = !words.OneIn(8);
    row.Set("TYP", type).Set("NR_DOK", ++numbers[{issued.Ymd().year, type == 3}]).Set("ID_DOK", identity);
    row.Set("DATA_WYSTAWIENIA", issued).Set("DATA_SPRZEDAZY", issued).Set("TERMIN_ZAPLATY", issued.PlusDays(14));
    row.Set("PLATNIK", customer).Set("KONTRAHENT", customer).Set("WYSTAWIL", 2 + words.Below(kEmployees)).Set("ODEBRAL", words.Person());
    row.Set("FORMA_PLATNOSCI", 1 + words.Below(3)).Set("WARTOSC_NETTO", Grosze(totals.net)).Set("WARTOSC_BRUTTO", Grosze(totals.gross));
    row.Set("WALUTA", 1).Set("KURS", 1.0f).Set("ZAPLACONO", paid);
    if (paid) row.Set("DATA_ZAPLATY", issued.PlusDays(words.Below(14)));
    if (words.OneIn(6)) row.Set("UWAGI", words.Note());
    if (!row.Add()) return false;
  }
  return true;
}

}  // namespace

void UseCompany(Program& program, const std::string& folder) {
  program.settings.SaveSettingValue(kCommon, "dbPath", "Remote", true);
  program.settings.SaveSettingValue(kCommon, "dbPath", "Path", folder);
  program.settings.SaveSettingValue(kCommon, "dbLogin", "login", false);
  program.settings.SaveSettingValue(kCommon, "dbLogin", "username", std::string(kGeneratedUser));
  program.settings.SaveSettingValue(kCommon, "dbLogin", "password", std::string(kGeneratedPassword));
}

bool CreateEmptyCompany(Program& program, const std::string& folder) {
  program.platform.files.MakeFolders(folder);
  bool done = false;
  OSTEngine(program).create_(folder, kGeneratedUser, kGeneratedPassword, true, done);
  if (!done) return false;
  UseCompany(program, folder);
  // The first opening brings the new tables to their final fields.
  OSTEngine(program).open_(true, done);
  return done;
}

bool GenerateCompany(Program& program, const std::string& folder, int32_t customers) {
  if (!CreateEmptyCompany(program, folder)) return false;
  Words words(kSeed);
  std::vector<Article> articles;
  const bool done = AddEmployees(program, words) && AddArticles(program, words, std::max(20, customers / 40), articles) &&
                    AddCustomers(program, words, customers) && AddDocuments(program, words, customers, articles);
  if (!done) OSTEngine(program).close_(false);
  return done;
}

}  // namespace ostrinka
