#include "sales/line_form.h"

#include <span>

#include "base/format.h"
#include "base/text.h"
#include "books/books.h"
#include "documents/numbering.h"
#include "forms/form_helpers.h"
#include "forms/list_choice.h"

namespace ostrinka {

namespace {

struct ListColumn {
  const char* field;
  int width;
  const char* title;  // catalogue key
  bool money, day;
};
constexpr ListColumn kAdvanceColumns[] = {
    {"DATA_WYSTAWIENIA", 110, "tdb.sdoc.mdate", false, true},
    {"NR_DOK", 40, "tdb.sdoc.nrdoc", false, false},
    {"WARTOSC_NETTO", 80, "tdb.sdoc.netto", true, false},
    {"WARTOSC_BRUTTO", 80, "tdb.sdoc.brutto", true, false},
    {"WALUTA", 20, "", false, false},
    {"ZAPLACONO", 60, "tdb.sdoc.pay", false, false},
};
constexpr ListColumn kArticleColumns[] = {
    {"USLUGA", 50, "tdb.prsr.type", false, false},      {"SYMBOL", 50, "tdb.prsr.symbol", false, false},
    {"NAZWA", 200, "tdb.prsr.name", false, false},      {"WALUTA", 20, "", false, false},
    {"DETAL_NETTO", 80, "tdb.prsr.netto", true, false}, {"DETAL_BRUTTO", 80, "tdb.prsr.brutto", true, false},
    {"HURT_NETTO", 80, "tdb.prsr.netto", true, false},  {"HURT_BRUTTO", 80, "tdb.prsr.brutto", true, false},
    {"SPEC_NETTO", 80, "tdb.prsr.netto", true, false},  {"SPEC_BRUTTO", 80, "tdb.prsr.brutto", true, false},
};

void FormatColumns(Program& program, ClassQDBASE& table, std::span<const ListColumn> columns) {
  const std::string money = EntryPricePattern(program), day = ScreenDatePattern(program);
  for (const ListColumn& column : columns) {
    std::string pattern;
    if (column.money) pattern = money;
    if (column.day) pattern = day;
    const std::string title = *column.title ? program.Text(column.title) : std::string();
    table.TABLE_FIELD_FORMAT(column.field, column.width, title, pattern, false, column.money ? -1 : 1);
  }
}

}  // namespace

frm_Dok_add_TU::frm_Dok_add_TU(Program& program)
    : Form("frm_Dok_add_TU", "adps.title"),
      program_(program),
      articles_(program, kTowaryUslugi, true),
      advances_(program, kDokSprzed, true),
      article_rows_(articles_.table()),
      advance_rows_(advances_.table()) {
  place_section = "Windows\\ATU";
  picTU.source = &article_rows_;
  picFZ.source = &advance_rows_;
  nt_TowarUsługa.MultiLine = true;
  txtIlość.SelectAllOnEntry = true;
  RegisterControls();
  LayOut();
  Connect();
}

void frm_Dok_add_TU::RegisterControls() {
  const std::pair<const char*, Control*> named[] = {
      {"tuType", &tuType},
      {"txtTU", &txtTU},
      {"txtComboTU", &txtComboTU},
      {"picTU", &picTU},
      {"ScrollVX", &ScrollVX},
      {"txtCennik", &txtCennik},
      {"txtIlość", &txtIlość},
      {"txtCenaNetto", &txtCenaNetto},
      {"txtCenaBrutto", &txtCenaBrutto},
      {"nt_TowarUsługa", &nt_TowarUsługa},
      {"nt_PKWiU", &nt_PKWiU},
      {"nt_Ilość", &nt_Ilość},
      {"nt_Jednostka", &nt_Jednostka},
      {"nt_VAT", &nt_VAT},
      {"nt_CenaNETTO", &nt_CenaNETTO},
      {"nt_CenaBRUTTO", &nt_CenaBRUTTO},
      {"label_home_currency", &label_home_currency},
      {"txtRabat", &txtRabat},
      {"picFZ", &picFZ},
      {"ScrollFZ", &ScrollFZ},
      {"btnOK", &btnOK},
      {"btnCancel", &btnCancel},
  };
  for (const auto& [name, control] : named) Register(name, *control);
}

void frm_Dok_add_TU::LayOut() {
  btnOK.icon = "btnsave.ico";
  btnCancel.icon = "btncancel.ico";
  Page("STD", "adps.tab.std")
      .Row({{"adps.lbl.source", tuType, 6}, Cell(6)})
      .When(tuType, kCatalogue)
      .Row({{"adps.lbl.search", txtTU, 4}, {"adps.lbl.article", txtComboTU, 8}})
      .Table(picTU, kStretch)
      .Row({{"adps.lbl.pricekind", txtCennik, 3},
            {"adps.lbl.count", txtIlość, 3, kRight},
            {"adps.lbl.net", txtCenaNetto, 3, kRight},
            {"adps.lbl.gross", txtCenaBrutto, 3, kRight}})
      .When(tuType, kFreeText)
      .Row({{"adps.lbl.name", nt_TowarUsługa, 12, kTall}})
      .Row({{"adps.lbl.pkwiu", nt_PKWiU, 4}, {"adps.lbl.unit", nt_Jednostka, 4}, {"adps.lbl.vat", nt_VAT, 4}})
      .Row({{"adps.lbl.count", nt_Ilość, 4, kRight},
            {"adps.lbl.net", nt_CenaNETTO, 4, kRight},
            {"adps.lbl.gross", nt_CenaBRUTTO, 4, kRight}})
      .Row({{"", label_home_currency, 12, kCollapse}})
      .Always()
      .Row({{"adps.lbl.discount", txtRabat, 3, kRight}, Cell(9)});
  Page("ZAL", "adps.tab.fvz").Table(picFZ, kStretch);
  Buttons({{"adps.btn.ok", btnOK, kDefault}, {"adps.btn.cancel", btnCancel, kCancel}});
}

void frm_Dok_add_TU::Connect() {
  tuType.Changed += [this] { ShowOk(); };
  PageChanged += [this] { ShowOk(); };
  txtTU.Changed += [this] { Search(); };
  txtComboTU.Changed += [this] { ArticleChosenByName(); };
  picTU.Clicked += [this] { PickRow(picTU.clicked_row()); };
  picFZ.Clicked += [this] { program_.current_advance = advance_rows_.RecordOf(picFZ.clicked_row()); };
  txtCennik.Changed += [this] {
    ShowArticleColumns();
    putPrice_();
  };
  txtIlość.Left += [this] { QuantityLeft(txtIlość); };
  txtRabat.Left += [this] { DiscountLeft(); };
  txtCenaNetto.Left += [this] { NetLeft(); };
  txtCenaBrutto.Left += [this] { GrossLeft(); };
  nt_CenaNETTO.Left += [this] { nt_oblicz_brutto(); };
  nt_CenaBRUTTO.Left += [this] { nt_oblicz_netto(); };
  nt_VAT.Changed += [this] { nt_oblicz_brutto(); };
  btnOK.Clicked += [this] { Confirm(); };
  btnCancel.Clicked += [this] { Close(); };
}

void frm_Dok_add_TU::reload_() {
  OK = false;
  Article = 0;
  shown_article_ = 0;
  changed_ = false;
  program_.current_advance = 0;
  ShowPage("STD");
  SetPageVisible("ZAL", Mode == EditMode::kNew);
  FillLists();
  for (TextBoxControl* box : {&txtTU, &txtIlość, &txtCenaNetto, &txtCenaBrutto, &txtRabat, &nt_TowarUsługa, &nt_PKWiU, &nt_Ilość,
                              &nt_CenaNETTO, &nt_CenaBRUTTO}) {
    box->SetText("");
  }
  if (Mode == EditMode::kNew) {
    txtIlość.SetText("1");
    txtRabat.SetText("0");
    nt_Ilość.SetText("1");
    nt_Jednostka.SetListIndex(0);
    nt_VAT.SetListIndex(0);
  }
  ShowArticleColumns();
  ShowAdvances();
  ShowHomeCurrencyNote();
  ShowOk();
  SetFocus(txtTU);
  SetDirty(false);
}

void frm_Dok_add_TU::FillLists() {
  const auto fill = [this](ComboControl& list, std::initializer_list<const char*> keys) {
    list.Clear();
    for (const char* key : keys) list.AddItem(program_.Text(key), list.ListCount() + 1);
    list.SetListIndex(0);
  };
  fill(tuType, {"adps.ctype.1", "adps.ctype.2"});
  fill(txtCennik, {"adps.prtype.detal", "adps.prtype.hurt", "adps.prtype.spec"});
  FillFromTable(program_, article_columns::kName, txtComboTU, true);
  FillFromTable(program_, unit_columns::kSymbol, nt_Jednostka, false);
  FillFromTable(program_, vat_rate_columns::kSymbol, nt_VAT, false);
  LimitToField(program_, article_columns::kName, nt_TowarUsługa);
  LimitToField(program_, article_columns::kCode, nt_PKWiU);
}

void frm_Dok_add_TU::ShowArticleColumns() {
  ClassQDBASE& table = articles_.table();
  if (!articles_.IsOpen()) return;
  FormatColumns(program_, table, kArticleColumns);
  table.TABLE_FIELD_FORMAT("USLUGA", kArticleColumns[0].width, program_.Text("tdb.prsr.type"), program_.Text("tdb.prsr.psboo"), false, 1);
  const char* columns = "USLUGA, SYMBOL, NAZWA, WALUTA, DETAL_NETTO, DETAL_BRUTTO";
  if (txtCennik.Text() == program_.Text("adps.prtype.hurt")) columns = "USLUGA, SYMBOL, NAZWA, HURT_NETTO, HURT_BRUTTO";
  if (txtCennik.Text() == program_.Text("adps.prtype.spec")) columns = "USLUGA, SYMBOL, NAZWA, SPEC_NETTO, SPEC_BRUTTO";
  table.SELECTION(columns, SearchCondition(), "", ordAsc);
  ScrollVX.SetScrollMax(table.MAX_ROWS());
  picTU.Repaint.Raise();
}

void frm_Dok_add_TU::ShowAdvances() {
  ClassQDBASE& table = advances_.table();
  if (!advances_.IsOpen()) return;
  const int32_t type = first_type_with(program_, "FZ");
  const std::string of_customer = ".KONTRAHENT = " + std::to_string(program_.current_customer) + " AND .TYP = " + std::to_string(type);
  FormatColumns(program_, table, kAdvanceColumns);
  table.SELECTION("DATA_WYSTAWIENIA, NR_DOK, WARTOSC_NETTO, WARTOSC_BRUTTO, WALUTA, ZAPLACONO", type == 0 ? "!" : of_customer,
                  "DATA_WYSTAWIENIA", ordDesc);
  ScrollFZ.SetScrollMax(table.MAX_ROWS());
}

void frm_Dok_add_TU::ShowHomeCurrencyNote() {
  const bool foreign = Mode == EditMode::kNew && DocumentCurrency > 1;
  label_home_currency.SetVisible(foreign);
  label_home_currency.SetText(foreign ? program_.Text("adps.lbl.homecurrency") : std::string());
}

void frm_Dok_add_TU::ShowLine(int32_t line) {
  const auto row = Read<SalesLine>(program_, line);
  if (!row) return;
  const std::string name = LinkText(program_, line_columns::kArticle, line);
  const int32_t article = row->article;
  SetTitle(program_.Text("adps.title.edit", {name}));
  const bool alive = IsLive(program_, kTowaryUslugi, article);
  tuType.SelectValue(alive ? kCatalogue : kFreeText);
  if (const auto known = Read<ostrinka::Article>(program_, article)) {
    shown_article_ = article;
    Article = article;
    txtComboTU.SelectValue(article);
    article_rows_.SelectRow(article_rows_.RowOf(article));
    for (TextBoxControl* box : {&txtIlość, &nt_Ilość}) box->SetText(FormatNumber(row->quantity, "0.00##", program_.locale));
    for (TextBoxControl* box : {&txtCenaNetto, &nt_CenaNETTO}) box->SetText(FormattedPrice(row->net_price));
    for (TextBoxControl* box : {&txtCenaBrutto, &nt_CenaBRUTTO}) box->SetText(FormattedPrice(row->gross_price));
    txtRabat.SetText(FormatNumber(int32_t{row->discount}, "0", program_.locale));
    nt_TowarUsługa.SetText(name);
    nt_PKWiU.SetText(Trim(known->code));
    ShowUnitAndRate(article, *known);
  }
  shown_ = TypedText();
  ShowOk();
  SetFocus(alive ? txtIlość : nt_TowarUsługa);
  SetDirty(false);
}

}  // namespace ostrinka
