#include "company/list_columns.h"

#include <algorithm>

namespace ostrinka {
namespace {

using enum ColumnKind;

constexpr ListColumn kSales[] = {
    {"TYP", 100, "tdb.sdoc.type"},
    {"ZDFISK", 40, "tdb.sdoc.dfisk", kLeftSide, kAsStored, "", true},
    {"DATA_WYSTAWIENIA", 110, "tdb.sdoc.mdate", kLeftSide, kScreenDate},
    {"NR_DOK", 40, "tdb.sdoc.nrdoc", kRightSide, kPattern, "#"},
    {"KONTRAHENT", 250, "tdb.sdoc.cust"},
    {"WARTOSC_NETTO", 80, "tdb.sdoc.netto", kRightSide, kMoney},
    {"WARTOSC_BRUTTO", 80, "tdb.sdoc.brutto", kRightSide, kMoney},
    {"WALUTA", 20, ""},
    {"ZAPLACONO", 60, "tdb.sdoc.pay"},
};
constexpr ListColumn kPurchases[] = {
    {"DATA_WYSTAWIENIA", 110, "tdb.pdoc.mdate", kLeftSide, kScreenDate},
    {"NSTR_DOK", 80, "tdb.pdoc.nrdoc"},
    {"KONTRAHENT", 200, "tdb.pdoc.cust"},
    {"PRZEDM_OP", 180, "tdb.pdoc.taxp"},
    {"WARTOSC_NETTO", 80, "tdb.pdoc.netto", kRightSide, kMoney},
    {"WARTOSC_BRUTTO", 80, "tdb.pdoc.brutto", kRightSide, kMoney},
};
constexpr ListColumn kPaymentForms[] = {
    {"NAZWA", 170, "tdb.payt.name"},
    {"TERMIN", 50, "tdb.payt.eodate", kRightSide, kPatternKey, "tdb.payt.eodate.format"},
    {"PROCENT", 65, "tdb.payt.precent", kRightSide},
    {"PRZELEW", 80, "tdb.payt.printpf"},
};
constexpr ListColumn kArticleGroups[] = {{"NAZWA", 200, "tdb.psgroup.name"}};
constexpr ListColumn kCustomerGroups[] = {{"NAZWA", 150, "tdb.custgroup.name"}, {"OPIS", 400, "tdb.custgroup.desc"}};
constexpr ListColumn kUnits[] = {
    {"NAZWA", 100, "tdb.units.name"},
    {"SYMBOL", 55, "tdb.units.symbol"},
    {"FORMAT", 110, "tdb.units.format"},
};
constexpr ListColumn kCustomers[] = {
    {"SYMBOL", 50, "tdb.cust.symbol"},   {"GRUPA", 100, "tdb.cust.group"},          {"NAZWA", 225, "tdb.cust.name"},
    {"NIP", 85, "tdb.cust.nip"},         {"ULICA", 115, "tdb.cust.street"},         {"NR_DOMU", 50, "tdb.cust.house"},
    {"NR_LOKALU", 55, "tdb.cust.local"}, {"KOD_POCZTOWY", 50, "tdb.cust.postcode"}, {"MIEJSCOWOSC", 140, "tdb.cust.city"},
};
constexpr ListColumn kCountries[] = {{"NAZWA", 200, "tdb.countr.name"}, {"SKROT", 50, "tdb.countr.shortcut"}};
constexpr ListColumn kEmployees[] = {{"PRACOWNIK", 150, "tdb.employ.name"}, {"UWAGI", 300, "tdb.employ.notices"}};
constexpr ListColumn kLines[] = {
    {"ILOSC", 45, "tdb.sps.count", kRightSide},
    {"NAZWA_T_U", 250, "tdb.sps.psname"},
    {"CENA_NETTO", 70, "tdb.sps.price", kRightSide, kMoney},
    {"RABAT", 35, "tdb.sps.rabat", kRightSide},
    {"WARTOSC_NETTO", 95, "tdb.sps.netto", kRightSide, kMoney},
    {"WARTOSC_BRUTTO", 95, "tdb.sps.brutto", kRightSide, kMoney},
};
constexpr ListColumn kRates[] = {
    {"NAZWA", 175, "tdb.vat.name"},
    {"SYMBOL", 60, "tdb.vat.symbol"},
    {"WARTOSC", 60, "tdb.vat.value", kRightSide},
};
constexpr ListColumn kArticles[] = {
    {"USLUGA", 50, "tdb.prsr.type", kLeftSide, kPatternKey, "tdb.prsr.psboo"},
    {"SYMBOL", 50, "tdb.prsr.symbol"},
    {"NAZWA", 150, "tdb.prsr.name"},
    {"DETAL_NETTO", 90, "tdb.prsr.dnetto", kRightSide, kMoney},
    {"DETAL_BRUTTO", 90, "tdb.prsr.dbrutto", kRightSide, kMoney},
    {"HURT_NETTO", 90, "tdb.prsr.hnetto", kRightSide, kMoney},
    {"HURT_BRUTTO", 90, "tdb.prsr.hbrutto", kRightSide, kMoney},
    {"WALUTA", 20, ""},
    {"OPIS", 400, "tdb.prsr.desc"},
};
constexpr ListColumn kRegions[] = {
    {"KOD", 30, "tdb.reg.code", kRightSide},
    {"NAZWA", 200, "tdb.reg.name"},
    {"PANSTWO", 100, "tdb.reg.country"},
};
constexpr ListColumn kDocumentTypes[] = {
    {"NAZWA", 100, "tdb.doct.name"},    {"DRUK_TYT", 160, "tdb.doct.lname"},
    {"FORMAT", 150, "tdb.doct.format"}, {"ZESTAW", 50, "tdb.doct.cnr", kRightSide},
    {"OPCJE", 100, "tdb.doct.opt"},
};
constexpr ListColumn kCurrencies[] = {
    {"NAZWA", 80, "tdb.curr.name"},    {"KODWAL", 65, "tdb.curr.code"},
    {"SYMBOL", 50, "tdb.curr.symbol"}, {"KURS", 70, "tdb.curr.value", kRightSide},
    {"FORMAT", 50, "tdb.curr.format"}, {"FORMATNCH", 100, "tdb.curr.formatdn"},
    {"ODM", 360, "tdb.curr.grammar"},
};

// The work tables of the reports. The builders put net, gross and VAT into D1, D2 and D3 (by goods into D2, D3 and D4); the lists show net,
// VAT, gross.
constexpr ListColumn kBalance[] = {
    {"S1", 200, "tdb.rep.bil.type"},
    {"D1", 100, "tdb.rep.bil.netto", kRightSide, kMoney},
    {"D3", 100, "tdb.rep.bil.vat", kRightSide, kMoney},
    {"D2", 100, "tdb.rep.bil.brutto", kRightSide, kMoney},
};
constexpr ListColumn kSalesList[] = {
    {"S1", 100, "tdb.rep.sell.mdate"},
    {"S2", 80, "tdb.rep.sell.nrdoc"},
    {"S3", 200, "tdb.rep.sell.cust"},
    {"S4", 250, "tdb.rep.sell.custaddr"},
    {"S5", 100, "tdb.rep.sell.doctype"},
    {"D1", 100, "tdb.rep.sell.netto", kRightSide, kMoney},
    {"D2", 100, "tdb.rep.sell.brutto", kRightSide, kMoney},
};
constexpr ListColumn kByGoods[] = {
    {"S1", 70, "tdb.rep.asrt.symbol"},
    {"S2", 250, "tdb.rep.asrt.name"},
    {"S3", 120, "tdb.rep.asrt.group"},
    {"D1", 70, "tdb.rep.asrt.count", kRightSide},
    {"D2", 100, "tdb.rep.asrt.netto", kRightSide, kMoney},
    {"D4", 100, "tdb.rep.asrt.vat", kRightSide, kMoney},
    {"D3", 100, "tdb.rep.asrt.brutto", kRightSide, kMoney},
};
constexpr ListColumn kByCustomer[] = {
    {"S1", 70, "tdb.rep.cust.symbol"},
    {"S2", 200, "tdb.rep.cust.cust"},
    {"S3", 250, "tdb.rep.cust.custaddr"},
    {"S4", 100, "tdb.rep.cust.group"},
    {"D1", 100, "tdb.rep.cust.netto", kRightSide, kMoney},
    {"D3", 100, "tdb.rep.cust.vat", kRightSide, kMoney},
    {"D2", 100, "tdb.rep.cust.brutto", kRightSide, kMoney},
};
constexpr ListColumn kByGroup[] = {
    {"S1", 200, "tdb.rep.prod.group"},
    {"D1", 100, "tdb.rep.prod.netto", kRightSide, kMoney},
    {"D3", 100, "tdb.rep.prod.vat", kRightSide, kMoney},
    {"D2", 100, "tdb.rep.prod.brutto", kRightSide, kMoney},
};
// By day; the builder heads S1 anew when the chart goes by month or week.
constexpr ListColumn kChart[] = {
    {"S1", 150, "tdb.rep.diag.day"},
    {"D1", 100, "tdb.rep.diag.netto", kRightSide, kMoney},
    {"D2", 100, "tdb.rep.diag.brutto", kRightSide, kMoney},
};
constexpr ListColumn kDebtsByDocument[] = {
    {"S1", 100, "tdb.rep.nfv.date"},
    {"S2", 80, "tdb.rep.nfv.docnr"},
    {"S3", 250, "tdb.rep.nfv.cust"},
    {"S4", 100, "tdb.rep.nfv.eod"},
    {"L1", 70, "tdb.rep.nfv.delay", kRightSide},
    {"D1", 100, "tdb.rep.nfv.value", kRightSide, kMoney},
    {"D2", 100, "tdb.rep.nfv.pay", kRightSide, kMoney},
};
constexpr ListColumn kDebtsByCustomer[] = {
    {"S1", 70, "tdb.rep.ncu.symbol"},
    {"S2", 200, "tdb.rep.ncu.cust"},
    {"S3", 250, "tdb.rep.ncu.addr"},
    {"S4", 100, "tdb.rep.ncu.group"},
    {"L1", 70, "tdb.rep.ncu.delay", kRightSide},
    {"D1", 100, "tdb.rep.ncu.value", kRightSide, kMoney},
    {"D2", 100, "tdb.rep.ncu.pay", kRightSide, kMoney},
};
constexpr ListColumn kPriceList[] = {
    {"S1", 120, "tdb.rep.prcl.group"},
    {"S2", 70, "tdb.rep.prcl.symbol"},
    {"S3", 250, "tdb.rep.prcl.name"},
    {"D1", 100, "tdb.rep.prcl.netto", kRightSide, kMoney},
    {"D2", 100, "tdb.rep.prcl.brutto", kRightSide, kMoney},
    {"S4", 60, "tdb.rep.prcl.uq"},
    {"S5", 250, "tdb.rep.prcl.desc"},
};

struct TableColumns {
  int table;
  std::span<const ListColumn> columns;
};
constexpr TableColumns kTableColumns[] = {
    {kDokSprzed, kSales},
    {kDokZakupu, kPurchases},
    {kFormyPlatn, kPaymentForms},
    {kGrupaTU, kArticleGroups},
    {kGrupy, kCustomerGroups},
    {kJednMiary, kUnits},
    {kKontrahenci, kCustomers},
    {kPanstwa, kCountries},
    {kPracownicy, kEmployees},
    {kSprzedane, kLines},
    {kStawkiVat, kRates},
    {kTowaryUslugi, kArticles},
    {kRegiony, kRegions},
    {kDokumentKat, kDocumentTypes},
    {kWaluty, kCurrencies},
    {kZestawienieQ00, kBalance},
    {kZestawienieQ00 + 1, kSalesList},
    {kZestawienieQ00 + 2, kByGoods},
    {kZestawienieQ00 + 3, kByCustomer},
    {kZestawienieQ00 + 4, kByGroup},
    {kZestawienieQ00 + 5, kChart},
    {kZestawienieQ00 + 6, kDebtsByDocument},
    {kZestawienieQ00 + 7, kDebtsByCustomer},
    {kZestawienieQ00 + 8, kPriceList},
};

std::string PatternOf(Program& program, const ListColumn& column) {
  switch (column.kind) {
    case kAsStored:
      return "";
    case kPattern:
      return column.pattern;
    case kPatternKey:
      return program.Text(column.pattern);
    case kMoney:
      return PricePattern(program, 0, false);
    case kScreenDate:
      return ScreenDatePattern(program);
  }
  return "";
}

int WidthOf(Program& program, int table, const ListColumn& column) {
  const int32_t width = program.settings.Integer(kOstrinka, WidthSection(table), column.field, column.width);
  return std::clamp(static_cast<int>(width), kMinColumnWidth, kMaxColumnWidth);
}

}  // namespace

std::span<const ListColumn> ListColumns(int table) {
  for (const TableColumns& entry : kTableColumns) {
    if (entry.table == table) return entry.columns;
  }
  return {};
}

bool FiscalPrinting(Program& program) {
  return program.settings.Integer(kCommon, "prgSettings", "FPModel", 0) > 0;
}

std::string WidthSection(int table) {
  return "Windows\\Tables\\" + std::to_string(table);
}

void ShowListColumns(Program& program, int number, ClassQDBASE& table) {
  const bool fiscal = FiscalPrinting(program);
  std::string fields;
  for (const ListColumn& column : ListColumns(number)) {
    // A column that is not shown has its width and heading all the same, so that they are right when it is shown again.
    const std::string heading = *column.heading ? program.Text(column.heading) : "";
    table.TABLE_FIELD_FORMAT(column.field, WidthOf(program, number, column), heading, PatternOf(program, column), false, column.side);
    if (column.fiscal_only && !fiscal) continue;
    fields += (fields.empty() ? "" : ",") + std::string(column.field);
  }
  table.SELECTION(fields.empty() ? "*" : fields, "!", "", ordAsc);
}

}  // namespace ostrinka
