#include "company/company_fixture.h"

namespace ostrinka {
namespace {

const Value kNone;

class UpgradeTest : public FolderTest {
 protected:
  void SetUp() override {
    FolderTest::SetUp();
    ASSERT_TRUE(Create());
  }
  bool Upgrade() {
    bool ok = false;
    OSTEngine(program).tdb_DataBaseDebug(folder, "kreda", "kreda", ok);
    return ok;
  }
  void Delete(const std::string& file, int32_t record) {
    ClassQDBASE table(surroundings.platform);
    ASSERT_TRUE(OpenFile(table, file));
    ASSERT_TRUE(table.RECORD_DELETE(record));
  }
  // The upgraded table: its fields, then the record with the given number.
  std::string RowOf(const std::string& file, int32_t record, std::initializer_list<const char*> fields) {
    ClassQDBASE table(surroundings.platform);
    if (!OpenFile(table, file)) return table.last_error();
    return Row(table, record, fields);
  }
  std::string FieldsOf(const std::string& file) {
    ClassQDBASE table(surroundings.platform);
    return OpenFile(table, file) ? Fields(table) : table.last_error();
  }
};

TEST_F(UpgradeTest, LinesWithASinglePriceGetNetAndGrossAlsoDeletedOnes) {
  MakeOldTable("towaryuslugi.ovd",
               {{"SYMBOL", kText, 10}, {"NAZWA", kText, 100}, {"OPIS", kText, 200}, {"STAWKA_VAT", kLink, 0, "stawki_vat.ovd", "SYMBOL"}},
               {{std::string("A"), std::string("Śruba"), std::string("ocynk"), int32_t{1}},
                {std::string("B"), std::string("Usługa"), kNone, int32_t{2}}});
  Delete("towaryuslugi.ovd", 2);
  MakeOldTable("sprzedane.ovd",
               {{"ID_DOK", kLong},
                {"ILOSC", kSingle},
                {"NAZWA_T_U", kLink, 0, "towaryuslugi.ovd", "NAZWA"},
                {"CENA", kDouble},
                {"WARTOSC_NETTO", kDouble},
                {"WARTOSC_BRUTTO", kDouble}},
               {{int32_t{1}, 3.0F, int32_t{1}, 10.05, 30.15, 36.78},
                {int32_t{1}, 0.1F, int32_t{2}, 100.0, 10.0, 10.7},
                {int32_t{2}, 1.0F, int32_t{9}, 7.0, 7.0, 7.0}});
  Delete("sprzedane.ovd", 2);
  ASSERT_TRUE(Upgrade());
  EXPECT_EQ(FieldsOf("sprzedane.ovd"), "ID_DOK NAZWA_T_U ILOSC CENA_NETTO CENA_BRUTTO WARTOSC_NETTO WARTOSC_BRUTTO INFO_DOD RABAT");
  EXPECT_EQ(RowOf("sprzedane.ovd", 1, {"ID_DOK", "ILOSC", "CENA_NETTO", "CENA_BRUTTO", "WARTOSC_NETTO", "WARTOSC_BRUTTO"}),
            "1|3|10,05|12,261|30,15|36,78");
  EXPECT_EQ(RowOf("sprzedane.ovd", 2, {"ILOSC", "CENA_NETTO", "CENA_BRUTTO"}), "0,1|100|107");  // deleted, as its article
  EXPECT_EQ(RowOf("sprzedane.ovd", 3, {"CENA_NETTO", "CENA_BRUTTO"}), "7|7");                   // a link to nothing
  ClassQDBASE lines(surroundings.platform);
  ASSERT_TRUE(OpenFile(lines, "sprzedane.ovd"));
  EXPECT_FALSE(lines.RECORD_EXIST(2));
  EXPECT_EQ(RowOf("towaryuslugi.ovd", 2, {"NAZWA", "WALUTA"}), "Usługa|1");
}

TEST_F(UpgradeTest, ShortTextsAreWidenedWithTheirContent) {
  MakeOldTable("kontrahenci.ovd",
               {{"SYMBOL", kText, 10},
                {"NAZWA", kText, 100},
                {"KOD_POCZTOWY", kText, 6},
                {"TELEFON", kText, 25},
                {"TEL_KOM", kText, 25},
                {"FAKS", kText, 25},
                {"ADRES_WWW", kText, 60},
                {"ADRES_EMAIL", kText, 60},
                {"UWAGI", kText, 250}},
               {{std::string("K1"), std::string("Łękowski i Wspólnicy"), std::string("00-950"), std::string("22 1"), std::string("601"),
                 std::string("22 2"), std::string("www.a.pl"), std::string("a@a.pl"), std::string("stały")},
                {std::string("K2"), std::string("Dąb")}});
  Delete("kontrahenci.ovd", 2);
  ASSERT_TRUE(Upgrade());
  const struct {
    const char* field;
    int32_t length;
  } lengths[] = {{"NAZWA", 400},       {"KOD_POCZTOWY", 20}, {"TELEFON", 100},          {"FAKS", 100},
                 {"ADRES_EMAIL", 200}, {"UWAGI", 500},       {"KONTO_INDYW_RACH", 1000}};
  ClassQDBASE customers(surroundings.platform);
  ASSERT_TRUE(OpenFile(customers, "kontrahenci.ovd"));
  for (const auto& expected : lengths) EXPECT_EQ(customers.FIELD_LEN(expected.field), expected.length) << expected.field;
  EXPECT_EQ(Fields(customers).find("_2"), std::string::npos);
  EXPECT_EQ(Fields(customers).find("R2"), std::string::npos);
  EXPECT_EQ(
      Row(customers, 1, {"SYMBOL", "NAZWA", "KOD_POCZTOWY", "TELEFON", "TEL_KOM", "FAKS", "ADRES_WWW", "ADRES_EMAIL", "UWAGI", "KRS"}),
      "K1|Łękowski i Wspólnicy|00-950|22 1|601|22 2|www.a.pl|a@a.pl|stały|");
  EXPECT_EQ(Row(customers, 2, {"SYMBOL", "NAZWA"}), "K2|Dąb");
  EXPECT_FALSE(customers.RECORD_EXIST(2));
  EXPECT_EQ(customers.FIELD_TYPE("D_FORMA_PLAT"), kLink);
}

TEST_F(UpgradeTest, DocumentsGetACurrencyARateAndANumberInKorekta) {
  MakeOldTable(
      "dok_sprzed.ovd",
      {{"NR_DOK", kLong}, {"KOREKTA", kBoolean}, {"WALUTA", kLink, 0, "waluty.ovd", "SYMBOL"}, {"KURS", kSingle}, {"UWAGI", kText, 100}},
      {{int32_t{1}, true, int32_t{2}, 3.9F, std::string("pilne")},
       {int32_t{2}, false, int32_t{0}, 0.0F, std::string("")},
       {int32_t{3}, false, int32_t{-4}, -1.0F}});
  Delete("dok_sprzed.ovd", 3);
  ASSERT_TRUE(Upgrade());
  EXPECT_EQ(RowOf("dok_sprzed.ovd", 1, {"NR_DOK", "KOREKTA", "WALUTA", "KURS", "UWAGI", "ABN_KONIEC_DNI"}), "1|0|2|3,9|pilne|0");
  EXPECT_EQ(RowOf("dok_sprzed.ovd", 2, {"NR_DOK", "WALUTA", "KURS"}), "2|1|1");
  EXPECT_EQ(RowOf("dok_sprzed.ovd", 3, {"NR_DOK", "WALUTA", "KURS"}), "3|1|1");
  ClassQDBASE sales(surroundings.platform);
  ASSERT_TRUE(OpenFile(sales, "dok_sprzed.ovd"));
  EXPECT_EQ(sales.FIELD_TYPE("KOREKTA"), kLong);
  EXPECT_EQ(sales.FIELD_LEN("UWAGI"), 500);
}

TEST_F(UpgradeTest, DictionariesGetWhatTheyLack) {
  MakeOldTable("regiony.ovd", {{"NAZWA", kText, 30}, {"PANSTWO", kLink, 0, "panstwa.ovd", "NAZWA"}},
               {{std::string("śląskie"), int32_t{1}}, {std::string("inne"), int32_t{1}}});
  MakeOldTable("waluty.ovd", {{"NAZWA", kText, 50}, {"SYMBOL", kText, 10}, {"FORMAT", kText, 25}, {"KURS", kSingle}},
               {{std::string("złoty"), std::string("zł"), std::string("0.00 zł"), 1.0F},
                {std::string("jen"), std::string("¥"), std::string("0"), 0.02F}});
  Delete("waluty.ovd", 2);
  MakeOldTable("jedn_miary.ovd", {{"NAZWA", kText, 50}, {"SYMBOL", kText, 10}}, {{std::string("sztuka"), std::string("szt.")}});
  MakeOldTable("firma.ovd", {{"S_NAZWA", kText, 250}, {"B_KONTO", kText, 250}}, {{std::string("Żuraw"), std::string("11 22")}});
  program.settings.SaveSettingValue(kCommon, "strFormat", "Currency", std::string("0"));
  ASSERT_TRUE(Upgrade());
  EXPECT_EQ(RowOf("regiony.ovd", 2, {"KOD", "NAZWA", "PANSTWO"}), "4|inne|1");
  EXPECT_EQ(RowOf("waluty.ovd", 2, {"NAZWA", "FORMATNCH"}), "jen|0.00");
  EXPECT_EQ(RowOf("jedn_miary.ovd", 1, {"NAZWA", "FORMAT"}), "sztuka|");
  EXPECT_EQ(RowOf("firma.ovd", 1, {"S_NAZWA", "B_KONTO", "FORMAT_DATA_EKR", "FORMAT_PROCENTY", "F_NIPEU"}),
            "Żuraw|11 22|dd mmmm yyyy|0\\%|");
  EXPECT_EQ(program.settings.Text(kCommon, "strFormat", "Currency"), "0.00##");
}

TEST_F(UpgradeTest, AnEmptyRoundingPatternIsFilledAndAnotherKept) {
  {
    ClassQDBASE currencies(surroundings.platform);
    ASSERT_TRUE(OpenFile(currencies, "waluty.ovd"));
    ASSERT_TRUE(currencies.RECORD_LOAD(1) && currencies.FIELD("FORMATNCH", std::string(" ")) && currencies.RECORD_SAVE(1));
    ASSERT_TRUE(currencies.RECORD_LOAD(2) && currencies.FIELD("FORMATNCH", std::string("#0")) && currencies.RECORD_SAVE(2));
  }
  ASSERT_TRUE(Upgrade());
  EXPECT_EQ(RowOf("waluty.ovd", 1, {"FORMATNCH"}) + RowOf("waluty.ovd", 2, {"FORMATNCH"}), "0.00#0");
}

TEST_F(UpgradeTest, AConversionThatStoppedAnywhereIsFinished) {
  const Value quantity = *Currency::FromDouble(2.5), net = *Currency::FromDouble(10.01), gross = *Currency::FromDouble(12.21);
  const std::initializer_list<const char*> amounts = {"ILOSC", "CENA_NETTO", "CENA_BRUTTO", "WARTOSC_NETTO", "WARTOSC_BRUTTO"};
  const std::string converted = "2,5|10,01|12,21|10,01|12,21";
  // Stopped after the old fields were deleted.
  MakeOldTable("sprzedane.ovd",
               {{"ID_DOK", kLong},
                {"ILOSC_2", kCurrency},
                {"CENA_NETTO_2", kCurrency},
                {"CENA_BRUTTO_2", kCurrency},
                {"WARTOSC_NETTO_2", kCurrency},
                {"WARTOSC_BRUTTO_2", kCurrency}},
               {{int32_t{1}, quantity, net, gross, net, gross}});
  ASSERT_TRUE(Upgrade());
  EXPECT_EQ(RowOf("sprzedane.ovd", 1, amounts), converted);
  // Stopped amid the deletions.
  MakeOldTable("sprzedane.ovd",
               {{"CENA_BRUTTO", kDouble},
                {"WARTOSC_NETTO", kDouble},
                {"WARTOSC_BRUTTO", kDouble},
                {"ILOSC_2", kCurrency},
                {"CENA_NETTO_2", kCurrency},
                {"CENA_BRUTTO_2", kCurrency},
                {"WARTOSC_NETTO_2", kCurrency},
                {"WARTOSC_BRUTTO_2", kCurrency}},
               {{12.21, 10.01, 12.21, quantity, net, gross, net, gross}});
  ASSERT_TRUE(Upgrade());
  EXPECT_EQ(RowOf("sprzedane.ovd", 1, amounts), converted);
  EXPECT_EQ(FieldsOf("sprzedane.ovd").find("_2"), std::string::npos);
  // Stopped while the records were copied: the new fields are there and empty.
  MakeOldTable("sprzedane.ovd",
               {{"ILOSC", kDouble},
                {"CENA_NETTO", kDouble},
                {"CENA_BRUTTO", kDouble},
                {"WARTOSC_NETTO", kDouble},
                {"WARTOSC_BRUTTO", kDouble},
                {"ILOSC_2", kCurrency},
                {"CENA_NETTO_2", kCurrency}},
               {{2.5, 10.01, 12.21, 10.01, 12.21}});
  ASSERT_TRUE(Upgrade());
  EXPECT_EQ(RowOf("sprzedane.ovd", 1, amounts), converted);
  // With the quantity alone in the new shape.
  MakeOldTable("sprzedane.ovd", {{"ID_DOK", kLong}, {"ILOSC_2", kCurrency}}, {{int32_t{4}, quantity}});
  ASSERT_TRUE(Upgrade());
  EXPECT_EQ(RowOf("sprzedane.ovd", 1, {"ID_DOK", "ILOSC", "CENA_NETTO", "RABAT"}), "4|2,5|0|0");
}

TEST_F(UpgradeTest, AnAmountOutOfRangeDoesNotCostTheRestOfItsLine) {
  MakeOldTable(
      "sprzedane.ovd",
      {{"ILOSC", kDouble}, {"CENA_NETTO", kDouble}, {"CENA_BRUTTO", kDouble}, {"WARTOSC_NETTO", kDouble}, {"WARTOSC_BRUTTO", kDouble}},
      {{1.5, 1e300, 2.0, 3.0, 4.0}});
  ASSERT_TRUE(Upgrade());
  EXPECT_EQ(RowOf("sprzedane.ovd", 1, {"ILOSC", "CENA_NETTO", "CENA_BRUTTO", "WARTOSC_NETTO", "WARTOSC_BRUTTO"}), "1,5|0|2|3|4");
}

TEST_F(UpgradeTest, UpgradingTwiceChangesNothingMore) {
  ASSERT_TRUE(Upgrade());
  std::vector<std::string> once;
  for (const TableDefinition& table : TableDefinitions()) once.push_back(Content(table.file));
  ASSERT_TRUE(Upgrade());
  for (size_t i = 0; i < once.size(); ++i) EXPECT_TRUE(Content(TableDefinitions()[i].file) == once[i]) << TableDefinitions()[i].file;
  for (const std::string& name : surroundings.files.ListFiles(folder)) {
    EXPECT_TRUE(name.ends_with(".ovd") || name.ends_with(".memo") || name.starts_with("zestawienie.q")) << name;
  }
}

TEST_F(UpgradeTest, ATableInUseElsewhereIsSkippedAndTheRestDone) {
  MakeOldTable("kontrahenci.ovd", {{"NAZWA", kText, 100}}, {{std::string("Dąb")}});
  {
    ClassQDBASE other(surroundings.platform);
    ASSERT_TRUE(OpenFile(other, "kontrahenci.ovd"));
    EXPECT_FALSE(Upgrade());
    EXPECT_EQ(Row(other, 1, {"NAZWA"}), "Dąb");
  }
  EXPECT_EQ(FieldsOf("kontrahenci.ovd"), "NAZWA");
  ClassQDBASE lines(surroundings.platform);
  ASSERT_TRUE(OpenFile(lines, "sprzedane.ovd"));
  EXPECT_EQ(lines.FIELD_TYPE("ILOSC"), kCurrency);
}

}  // namespace
}  // namespace ostrinka
