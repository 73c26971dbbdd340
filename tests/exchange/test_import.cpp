#include "base/text.h"
#include "company/tables.h"
#include "exchange/import.h"
#include "exchange/import_columns.h"
#include "support/company.h"

namespace ostrinka {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ImportTest : public CompanyTest {
 protected:
  const std::string path = platform.folder / "in.csv";

  ImportResult Customers(const std::string& text) {
    WriteFile(path, text);
    return ImportCustomers(program, path);
  }
  ImportResult Articles(const std::string& text) {
    WriteFile(path, text);
    return ImportArticles(program, path);
  }
  std::string Exported(Program& from, int table, char separator, char quote) {
    const std::string file = platform.folder / "export.csv";
    EXPECT_TRUE(Table(from, table).DATABASE_EXPORT(file, kSeparatedValues, false, separator, quote));
    return ReadFile(file);
  }
  int Count(int table) { return Table(program, table).RECORD_COUNT(); }
  std::string Reason(const char* row, const std::string& text) { return program.Text("imp.row.plain", {row, text}); }

  void FillCustomers() {
    Add(kKontrahenci, {{"SYMBOL", std::string("WISŁA")},
                       {"NAZWA", std::string("Hotel \"Nad Wisłą\"; s.c., 'Zajazd'\r\ndrugi wiersz")},
                       {"GRUPA", int32_t{4}},
                       {"ULICA", std::string("ul. Nadbrzeżna")},
                       {"NR_DOMU", std::string("007")},
                       {"KOD_POCZTOWY", std::string("24-120")},
                       {"WOJEWODZTWO", int32_t{3}},
                       {"PANSTWO", int32_t{1}},
                       {"NIP", std::string("123-456-32-18")},
                       {"KONTO_INDYW_OK", true},
                       {"KONTO_INDYW_RACH", std::string(1000, '7')},
                       {"D_FORMA_PLAT", int32_t{2}},
                       {"UWAGI", std::string(500, 'u')}});
    Add(kKontrahenci, {{"NAZWA", std::string("Möbelhaus Schröder")}, {"NIP", std::string("DE 123456789")}});
    const int32_t gone = Add(kKontrahenci, {{"NAZWA", std::string("Skreślony")}});
    EXPECT_TRUE(Table(program, kKontrahenci).RECORD_DELETE(gone));
  }
  void FillArticles() {
    Add(kTowaryUslugi, {{"SYMBOL", std::string("STÓŁ-D")},
                        {"NAZWA", std::string("Stół dębowy 160/240 x 90 cm; 5'")},
                        {"GRUPA", Add(kGrupaTU, {{"NAZWA", std::string("Meble; stoły")}})},
                        {"STAWKA_VAT", int32_t{1}},
                        {"JEDNOSTKA_MIARY", Add(kJednMiary, {{"NAZWA", std::string("paczka")}, {"SYMBOL", std::string("17")}})},
                        {"WALUTA", int32_t{2}},
                        {"CENA_ZAKUPU", 1450.25},
                        {"DETAL_NETTO", 2180.1234},
                        {"DETAL_BRUTTO", 2659.75},
                        {"DETAL_ZYSK", -0.5},
                        {"HURT_NETTO", 1e15},
                        {"ABONAMENT", true},
                        {"ABILOSCDNI", int32_t{365}},
                        {"NOWYDOKPKAB", true}});
    Add(kTowaryUslugi, {{"USLUGA", true}, {"NAZWA", std::string("Montaż")}, {"STAWKA_VAT", int32_t{5}}, {"WALUTA", int32_t{1}}});
  }
};

TEST_F(ImportTest, AnExportedFileReadsBackToTheSameExport) {
  FillCustomers();
  FillArticles();
  for (const char separator : {';', '\t', ','}) {
    for (const char quote : {'"', '\''}) {
      TestCompany other;
      const std::string file = platform.folder / "read.csv", customers = Exported(program, kKontrahenci, separator, quote);
      WriteFile(file, customers);
      const ImportResult result = ImportCustomers(other.program, file);
      EXPECT_EQ(result.error, "");
      EXPECT_EQ(result.added, 2);
      EXPECT_THAT(result.left_out, IsEmpty());
      EXPECT_THAT(result.ignored_columns, IsEmpty());
      EXPECT_EQ(Exported(other.program, kKontrahenci, separator, quote), customers);

      const std::string articles = Exported(program, kTowaryUslugi, separator, quote);
      WriteFile(file, articles);
      const ImportResult goods = ImportArticles(other.program, file);
      EXPECT_EQ(goods.error, "");
      if (separator == ',') {
        // A decimal comma cannot be told from a separator: such a row is refused, not guessed.
        EXPECT_EQ(goods.rows_left_out, 1);
        EXPECT_EQ(goods.left_out.at(0), program.Text("imp.row.plain", {"2", program.Text("imp.row.morefields")}));
        continue;
      }
      EXPECT_THAT(goods.left_out, IsEmpty());
      EXPECT_THAT(goods.new_entries, ElementsAre("GRUPA: Meble; stoły", "JEDNOSTKA_MIARY: 17"));
      EXPECT_EQ(Exported(other.program, kTowaryUslugi, separator, quote), articles);
    }
  }
}

TEST_F(ImportTest, PeoplesHeadingsInAnyOrderCaseAndEncoding) {
  const std::string text =
      "Telefon kom.;KOD POCZT.;Miejscowość;ulubiony kolor;E-mail;Województwo;nazwa firmy;Nr NIP;forma płatności;Konto indywidualne\r\n"
      "601 555 010;24-120;Kazimierz Dolny;żółty;a@b.pl;LUBELSKIE;Łoś i S-ka;123-456-32-18;przelew 14 DNI;77 1020\r\n";
  int expected = 0;
  for (const std::string& bytes : {text, ToCp1250(text), "\xEF\xBB\xBF" + text}) {
    const ImportResult result = Customers(bytes);
    EXPECT_EQ(result.error, "");
    EXPECT_EQ(result.added, 1);
    EXPECT_THAT(result.left_out, IsEmpty());
    EXPECT_THAT(result.doubtful, IsEmpty());
    EXPECT_THAT(result.ignored_columns, ElementsAre("ulubiony kolor"));
    ClassQDBASE& customer = At(kKontrahenci, ++expected);
    const std::pair<const char*, const char*> fields[] = {
        {"NAZWA", "Łoś i S-ka"},        {"TEL_KOM", "601 555 010"},    {"KOD_POCZTOWY", "24-120"}, {"MIEJSCOWOSC", "Kazimierz Dolny"},
        {"ADRES_EMAIL", "a@b.pl"},      {"@WOJEWODZTWO", "lubelskie"}, {"NIP", "123-456-32-18"},   {"@D_FORMA_PLAT", "Przelew 14 dni"},
        {"KONTO_INDYW_RACH", "77 1020"}};
    for (const auto& [field, value] : fields) EXPECT_EQ(customer.Text(field), value);
    EXPECT_TRUE(customer.Flag("KONTO_INDYW_OK"));
    EXPECT_TRUE(customer.RECORD_SELECT(expected)) << "the list shows it";
    EXPECT_TRUE(customer.RECORD_DELETE(expected)) << "a deleted record is no duplicate";
  }
}

TEST_F(ImportTest, EveryAliasNamesAFieldOfItsTableAndNoneIsTwofold) {
  for (const auto& [table, aliases] : {std::pair(kKontrahenci, CustomerAliases()), std::pair(kTowaryUslugi, ArticleAliases())}) {
    std::set<std::string> seen;
    for (const ColumnAlias& alias : aliases) {
      std::vector<std::string> ignored;
      const std::vector<ImportColumn> columns = MatchColumns(Table(program, table), aliases, {alias.heading}, ignored);
      ASSERT_EQ(columns.size(), 1u) << alias.heading;
      EXPECT_EQ(Table(program, table).FIELD_NAME(columns[0].field), alias.field) << alias.heading;
      EXPECT_TRUE(seen.insert(Lower(alias.heading)).second) << alias.heading;
    }
  }
}

TEST_F(ImportTest, AmountsRatesUnitsAndTheKindOfArticles) {
  const ImportResult result = Articles(
      "Rodzaj;Nazwa;J.m.;VAT;Cena netto;Cena brutto;Cena zakupu;Waluta;Cena\n"
      "towar;Deska;szt;22;18,60;;10;;9\n"
      "Usługa;Montaż;godz;zw.;75.00;;;PLN;\n"
      "x;Blat;paczka;7 %;;\"1 070,00 zł\";;EUR;\n"
      "nie;Klamka;sztuka;22,00%;1.234,50;1506.09;;$;\n"
      ";Kołek;Paczka;0%;0;;;;\n");
  EXPECT_EQ(result.error, "");
  EXPECT_THAT(result.left_out, IsEmpty());
  EXPECT_EQ(result.added, 5);
  EXPECT_THAT(result.ignored_columns, ElementsAre("Cena")) << "it does not say which price";
  EXPECT_THAT(result.new_entries, ElementsAre("J.m.: paczka")) << "once";
  const struct {
    bool service;
    const char *name, *unit, *rate, *currency;
    double net, gross, profit, margin, markup;
  } articles[] = {
      {false, "Deska", "szt.", "22%", "zł", 18.6, 22.69, 8.6, 46.24, 86},
      {true, "Montaż", "godz.", "zw", "zł", 75, 75, 75, 100, 750000},
      {true, "Blat", "paczka", "7%", "€", 1000, 1070, 1000, 100, 10000000},
      {false, "Klamka", "szt.", "22%", "$", 1234.5, 1506.09, 1234.5, 100, 12345000},
      {false, "Kołek", "paczka", "0%", "zł", 0, 0, 0, 0, 0},
  };
  int32_t record = 0;
  for (const auto& expected : articles) {
    ClassQDBASE& article = At(kTowaryUslugi, ++record);
    EXPECT_EQ(article.Flag("USLUGA"), expected.service);
    EXPECT_EQ(article.Text("NAZWA"), expected.name);
    EXPECT_EQ(article.Text("@JEDNOSTKA_MIARY"), expected.unit);
    EXPECT_EQ(article.Text("@STAWKA_VAT"), expected.rate);
    EXPECT_EQ(article.Text("@WALUTA"), expected.currency);
    EXPECT_NEAR(article.Real("DETAL_NETTO"), expected.net, 1e-9);
    EXPECT_NEAR(article.Real("DETAL_BRUTTO"), expected.gross, 0.0021);
    EXPECT_NEAR(article.Real("DETAL_ZYSK"), expected.profit, 1e-9);
    EXPECT_NEAR(article.Real("DETAL_MARZA"), expected.margin, 0.005);
    EXPECT_NEAR(article.Real("DETAL_NARZUT"), expected.markup, 0.005);
    EXPECT_EQ(article.Real("HURT_NETTO"), 0);
  }
  EXPECT_EQ(At(kJednMiary, Count(kJednMiary)).Text("FORMAT"), "#2");
}

TEST_F(ImportTest, ARowThatDoesNotFitIsLeftOutWithASentenceNamingRowAndField) {
  const std::string long_street(51, 'u');
  const ImportResult customers = Customers(
      "nazwa;ulica;grupa;forma płatności\n"
      "A;" +
      long_street +
      ";;\n"
      ";Długa;;\n"
      "B;Жукова;;\n"
      "C;;" +
      long_street +
      ";\n"
      "D;;;za miesiąc\n"
      "E;;;;;x\n"
      "\"F\"x;;;\n"
      "Dobry;;Nowi;Gotówka;;\n");
  EXPECT_EQ(customers.added, 1);
  EXPECT_EQ(customers.rows_left_out, 7);
  EXPECT_THAT(customers.new_entries, ElementsAre("grupa: Nowi")) << "nothing is added for a row that is left out";
  const auto named = [&](const char* row, const char* name, const std::string& text) {
    return program.Text("imp.row.named", {row, name, text});
  };
  EXPECT_THAT(customers.left_out,
              ElementsAre(named("2", "A", program.Text("imp.cell.long", {"ulica", "51", "50"})),
                          Reason("3", program.Text("imp.row.noname")), named("4", "B", program.Text("imp.cell.letter", {"ulica", "Ж"})),
                          named("5", "C", program.Text("imp.cell.long", {"grupa", "51", "30"})),
                          named("6", "D", program.Text("imp.cell.unknown", {"forma płatności", "za miesiąc"})),
                          Reason("7", program.Text("imp.row.morefields")), Reason("8", program.Text("imp.row.afterquote"))));
  const ImportResult articles = Articles(
      "nazwa;vat;cena netto;usługa;ABILOSCDNI\n"
      "A;23;1;;\n"
      "B;;1;;\n"
      "C;22%;1,5x;;\n"
      "D;22%;1e999;;\n"
      "E;22%;1;może;\n"
      "F;22%;1;;40000\n"
      "G;22%;1;;1,5\n"
      "H;;;;\n");
  EXPECT_EQ(articles.added, 1);
  EXPECT_THAT(articles.new_entries, IsEmpty());
  EXPECT_THAT(articles.left_out,
              ElementsAre(named("2", "A", program.Text("imp.cell.unknown", {"vat", "23"})), named("3", "B", program.Text("imp.row.norate")),
                          named("4", "C", program.Text("imp.cell.number", {"cena netto", "1,5x"})),
                          named("5", "D", program.Text("imp.cell.number", {"cena netto", "1e999"})),
                          named("6", "E", program.Text("imp.cell.flag", {"usługa", "może"})),
                          named("7", "F", program.Text("imp.cell.number", {"ABILOSCDNI", "40000"})),
                          named("8", "G", program.Text("imp.cell.number", {"ABILOSCDNI", "1,5"}))));
  EXPECT_EQ(At(kTowaryUslugi, 1).Text("@WALUTA"), "zł");
}

TEST_F(ImportTest, WhatIsThereAlreadyIsLeftOutSoThatAFileCanBeReadAgain) {
  Add(kKontrahenci, {{"NAZWA", std::string("Stary")}, {"NIP", std::string("123-456-32-18")}, {"SYMBOL", std::string("ST")}});
  const std::string file =
      "nazwa;nip;symbol;ulica\n"
      "A;PL 1234563218;;\nB;;st;\nC;;;Długa\nC;;;długa \nC;;;Krótka\nD;brak;;\nE;brak;;\n";
  const ImportResult first = Customers(file);
  EXPECT_EQ(first.added, 4);
  EXPECT_THAT(first.left_out,
              ElementsAre(HasSubstr(program.Text("imp.dup.nip", {"Stary"})), HasSubstr(program.Text("imp.dup.symbol", {"Stary"})),
                          HasSubstr(program.Text("imp.dup.customer", {"C"}))));
  const ImportResult second = Customers(file);
  EXPECT_EQ(second.added, 0);
  EXPECT_EQ(second.rows_left_out, 7);

  const std::string goods = "nazwa;symbol;detal netto;detal brutto\nA;1;1;2\nB;1;1;2\nC;;1;2\nC;;2;3\nC;;1;2\n";
  EXPECT_EQ(Articles(goods).added, 3);
  EXPECT_EQ(Articles(goods).added, 0);
  EXPECT_EQ(Count(kTowaryUslugi), 3);
}

TEST_F(ImportTest, DoubtfulNumbersComeInAndAreTold) {
  const ImportResult result = Customers("nazwa;NIP;regon;konto\nA;123-456-32-19;1;PL51 1020 3147 0000 8102 0065 4322\nB;1234563218;;\n");
  EXPECT_EQ(result.added, 2);
  EXPECT_EQ(result.rows_doubtful, 1);
  ASSERT_EQ(result.doubtful.size(), 3u);
  EXPECT_EQ(result.doubtful[0], program.Text("imp.row.named", {"2", "A", program.Text("imp.doubt.number", {"NIP", "123-456-32-19"})}));
  EXPECT_THAT(result.doubtful[1], HasSubstr("regon"));
  EXPECT_THAT(result.doubtful[2], HasSubstr("konto"));
}

TEST_F(ImportTest, FilesThatAreNoneWriteNothing) {
  std::string bytes;
  for (int i = 0; i < 50'000; ++i) bytes += static_cast<char>(platform.random.Fraction() * 255 + 1);
  const std::pair<std::string, std::string> files[] = {{"", program.Text("imp.err.empty")},
                                                       {"\r\n \r\n", program.Text("imp.err.empty")},
                                                       {std::string("nazwa\nA\0B\n", 10), program.Text("imp.err.nottext")},
                                                       {std::string(size_t{10} << 20, 'x'), program.Text("imp.err.nottext")},
                                                       {"\"nazwa;nip\nA;1\n", program.Text("imp.err.nottext")},
                                                       {"ulica;nip\nDługa;1\n", program.Text("imp.err.noname")}};
  for (const auto& [content, error] : files) {
    const ImportResult result = Customers(content);
    EXPECT_EQ(result.error, error);
    EXPECT_EQ(result.added + result.rows_left_out, 0);
  }
  EXPECT_NE(Customers(bytes).error, "");
  EXPECT_EQ(ImportCustomers(program, path + "?").error, program.Text("imp.err.unreadable", {path + "?"}));
  EXPECT_EQ(Count(kKontrahenci), 0);
  EXPECT_EQ(Customers("Nazwa\n").error, "") << "no rows, no fault";

  OSTEngine(program).close_(false);
  EXPECT_EQ(Customers("nazwa\nA\n").error, program.Text("msg.info.dbnotopen"));
}

TEST_F(ImportTest, AWrongColumnDoesNotFillADictionary) {
  const int32_t before = Count(kGrupaTU);
  std::string file = "nazwa;grupa\n";
  for (int i = 0; i < 400; ++i) file += "A" + std::to_string(i) + ";G" + std::to_string(i % 350) + "\n";
  const ImportResult result = Articles(file);
  EXPECT_EQ(result.added, 350) << "300 with a new group, 50 with one of those";
  EXPECT_EQ(result.rows_left_out, 50);
  EXPECT_THAT(result.left_out.at(0), HasSubstr(program.Text("imp.cell.entries", {"grupa", "300", "G300"})));
  EXPECT_EQ(Count(kGrupaTU) - before, 300);
}

TEST_F(ImportTest, SentencesAreLimitedRowsAreCounted) {
  std::string file = "nazwa;ulica\n";
  for (int i = 0; i < 2000; ++i) file += ";x\n";
  const ImportResult result = Customers(file + "A;\n");
  EXPECT_EQ(result.rows_left_out, 2000);
  EXPECT_EQ(result.left_out.size(), kImportSentences);
  EXPECT_EQ(result.added, 1);
}

TEST_F(ImportTest, AFullDiskStopsWithTheRowAndLeavesWhatWasWritten) {
  const int32_t record = Table(program, kKontrahenci).RECORD_LENGTH();
  WriteFile(path, "nazwa\nA\nB\nC\nD\n");
  platform.files.room = record * 5 / 2;
  const ImportResult result = ImportCustomers(program, path);
  EXPECT_EQ(result.added, 2);
  EXPECT_EQ(result.error, program.Text("imp.err.write", {"4", "2"}));
  EXPECT_EQ(Count(kKontrahenci), 2);
  platform.files.room = -1;
  WriteFile(path, "nazwa;grupa\nC;Nowa\n");
  platform.files.room = 0;
  EXPECT_NE(ImportCustomers(program, path).error, "");
  EXPECT_EQ(Count(kKontrahenci), 2);
}

}  // namespace
}  // namespace ostrinka
