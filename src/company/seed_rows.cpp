#include "company/seed_rows.h"

#include <array>

#include "company/tables.h"

namespace ostrinka {
namespace {

// NAZWA, TERMIN, PROCENT, PRZELEW
constexpr SeedCell kFormy[][4] = {
    {"Gotówka", 0, 100, false}, {"Przelew 14 dni", 14, 0, true},           {"Przelew 7 dni", 7, 0, true},
    {"Czek", 0, 100, false},    {"Kredyt częściowy 14 dni", 14, 50, true}, {"Kredyt częściowy 7 dni", 7, 50, true},
};

// NAZWA
constexpr SeedCell kCustomerGroups[][1] = {{"Lokalni"}, {"Zamiejscowi"}, {"Spóźnieni"}, {"Zaufani"}};

// NAZWA, SYMBOL, FORMAT
constexpr SeedCell kUnits[][3] = {
    {"sztuka", "szt.", "#0"},
    {"metr bieżący", "m.b.", "#2"},
    {"godzina", "godz.", "#1"},
    {"brak", "-", "\\"},
};

// NAZWA, SYMBOL, WARTOSC. The record number is what articles and purchases hold.
constexpr SeedCell kRates[][3] = {
    {"Podatek podstawowy VAT 22%", "22%", 22},
    {"Podatek VAT 7%", "7%", 7},
    {"Podatek VAT 3%", "3%", 3},
    {"Podatek VAT 0%", "0%", 0},
    {"Zwolnienie z podatku VAT", "zw", 0},
    {"Podatek VAT eksportowy", "ex", 0},
    {"Podatek VAT 12%", "12%", 12},
};

// NAZWA, SKROT
constexpr SeedCell kCountries[][2] = {{"Polska", "PL"}};

// KOD, NAZWA, PANSTWO: all of them in Poland, record 1
constexpr SeedCell kRegions[][3] = {
    {2, "dolnośląskie", 1},    {4, "kujawsko - pomorskie", 1},
    {6, "lubelskie", 1},       {8, "lubuskie", 1},
    {10, "łódzkie", 1},        {12, "małopolskie", 1},
    {14, "mazowieckie", 1},    {16, "opolskie", 1},
    {18, "podkarpackie", 1},   {20, "podlaskie", 1},
    {22, "pomorskie", 1},      {24, "śląskie", 1},
    {26, "świętokrzyskie", 1}, {28, "warmińsko - mazurskie", 1},
    {30, "wielkopolskie", 1},  {32, "zachodnio - pomorskie", 1},
};

// NAZWA, DRUK_TYT, FORMAT, ZESTAW, OPCJE
constexpr SeedCell kDocumentTypes[][5] = {
    {"Faktura VAT", "Faktura VAT", "Nr [nr] / yyyy", 0, ""},
    {"Pro Forma", "Faktura VAT PRO FORMA", "Nr [nr] / yyyy", 0, "+PF"},
    {"Faktura korygująca", "Faktura VAT korygująca", "Nr [nr] / yyyy", 1, "+FK"},
    {"Faktura zaliczkowa", "Faktura VAT zaliczkowa", "Nr [nr] / yyyy", 0, "+FZ"},
    {"Rachunek", "Rachunek", "Nr [nr] / yyyy", 0, "+R"},
};

// NAZWA, SYMBOL, KODWAL, FORMAT, FORMATNCH, KURS, ODM. The stray blanks of the first ODM are part of the value.
constexpr SeedCell kCurrencies[][7] = {
    {"Polski złoty", "zł", "PLN", "0.00 zł", "0.00", 1, "złotych, złoty, złote , złotych / groszy, grosz, grosze ,groszy"},
    {"Euro", "€", "EUR", "€0.00", "0.00", 3.5, "euro, euro, euro, euro / eurocentów, eurocent, eurocenty, eurocentów"},
    {"Dolar", "$", "USD", "$0.00", "0.00", 2.7, "dolarów, dolar, dolary, dolarów / centów, cent, centy, centów"},
};

template <size_t rows, size_t columns>
constexpr std::array<SeedRow, rows> Rows(const SeedCell (&cells)[rows][columns]) {
  std::array<SeedRow, rows> result;
  for (size_t i = 0; i < rows; ++i) result[i].cells = std::span<const SeedCell>(cells[i], columns);
  return result;
}

constexpr auto kFormyRows = Rows(kFormy);
constexpr auto kCustomerGroupRows = Rows(kCustomerGroups);
constexpr auto kUnitRows = Rows(kUnits);
constexpr auto kRateRows = Rows(kRates);
constexpr auto kCountryRows = Rows(kCountries);
constexpr auto kRegionRows = Rows(kRegions);
constexpr auto kDocumentTypeRows = Rows(kDocumentTypes);
constexpr auto kCurrencyRows = Rows(kCurrencies);
// Record 1 with every field empty stands for none.
constexpr std::array<SeedRow, 1> kBlankRow{};

struct TableRows {
  int table;
  std::span<const SeedRow> rows;
};
constexpr TableRows kTableRows[] = {
    {kFormyPlatn, kFormyRows},         {kGrupaTU, kBlankRow},    {kGrupy, kCustomerGroupRows},
    {kJednMiary, kUnitRows},           {kOdbiorcy, kBlankRow},   {kPracownicy, kBlankRow},
    {kStawkiVat, kRateRows},           {kPanstwa, kCountryRows}, {kRegiony, kRegionRows},
    {kDokumentKat, kDocumentTypeRows}, {kWaluty, kCurrencyRows},
};

}  // namespace

std::span<const SeedRow> SeedRows(int table) {
  for (const TableRows& entry : kTableRows) {
    if (entry.table == table) return entry.rows;
  }
  return {};
}

}  // namespace ostrinka
