// The rules of the line dialog: picking an article, prices, confirming.
#include <algorithm>

#include "base/format.h"
#include "base/text.h"
#include "books/books.h"
#include "forms/list_choice.h"
#include "sales/line_form.h"

namespace ostrinka {

namespace {

struct PriceKind {
  const char* key;
  size_t set;  // of the article's prices
};
constexpr PriceKind kPriceKinds[] = {
    {"adps.prtype.detal", Article::kRetail},
    {"adps.prtype.hurt", Article::kWholesale},
    {"adps.prtype.spec", Article::kSpecial},
};

// The number that the text begins with; nothing when it begins with none.
std::optional<double> LeadingNumber(std::string_view text) {
  const std::string trimmed = Trim(text);
  size_t length = 0;
  while (length < trimmed.size() && Contains("+-0123456789.,", trimmed.substr(length, 1))) ++length;
  for (; length > 0; --length) {
    if (const auto number = ReadNumber(trimmed.substr(0, length))) return number;
  }
  return std::nullopt;
}

}  // namespace

std::string frm_Dok_add_TU::FormattedPrice(const Value& price) {
  return FormatNumber(price, EntryPricePattern(program_), program_.locale);
}

// --- picking an article

std::string frm_Dok_add_TU::SearchCondition() const {
  const std::string text = Trim(ReplaceAll(txtTU.Text(), "\"", ""));
  return text.empty() ? "*" : "NAZWA # " + text + " OR SYMBOL # " + text;
}

void frm_Dok_add_TU::Search() {
  ClassQDBASE& table = articles_.table();
  if (!articles_.IsOpen()) return;
  const std::string condition = SearchCondition();
  table.SELECTION("~", condition, "", ordAsc);
  ScrollVX.SetScrollMax(table.MAX_ROWS());
  if (condition != "*") {
    if (table.MAX_ROWS() >= 1) {
      PickRow(1);
    } else if (Mode == EditMode::kNew) {
      ClearArticle();  // a line that is edited keeps what it has until another article is picked
    }
  }
  picTU.Repaint.Raise();
}

void frm_Dok_add_TU::PickRow(int row) {
  const int32_t article = article_rows_.RecordOf(row);
  if (article < 1) return;
  article_rows_.SelectRow(row);
  txtComboTU.SelectValue(article);
  SelectArticle(article);
}

void frm_Dok_add_TU::MoveRow(int step) {
  const int row = std::clamp(article_rows_.CurrentRow() + step, 1, std::max(article_rows_.Rows(), 1));
  PickRow(row);
  picTU.Repaint.Raise();
}

void frm_Dok_add_TU::ArticleChosenByName() {
  if (Trim(txtComboTU.Text()).empty()) {
    ClearArticle();
    return;
  }
  article_rows_.SelectRow(article_rows_.RowOf(txtComboTU.Value()));
  SelectArticle(txtComboTU.Value());
  picTU.Repaint.Raise();
}

void frm_Dok_add_TU::SelectArticle(int32_t article) {
  const auto row = Read<ostrinka::Article>(program_, article);
  if (!row) return;
  Article = article;
  nt_TowarUsługa.SetText(Trim(row->name));
  nt_PKWiU.SetText(Trim(row->code));
  ShowUnitAndRate(article, *row);
  nt_Ilość.SetText(txtIlość.Text());
  putPrice_();
  ShowOk();
}

void frm_Dok_add_TU::ShowUnitAndRate(int32_t record, const ostrinka::Article& article) {
  SelectOrAdd(nt_Jednostka, article.unit, Trim(LinkText(program_, article_columns::kUnit, record)));
  SelectOrAdd(nt_VAT, article.rate, Trim(LinkText(program_, article_columns::kRate, record)));
}

void frm_Dok_add_TU::ClearArticle() {
  Article = 0;
  txtComboTU.SetListIndex(0);
  txtCenaNetto.SetText(FormattedPrice(0.0));
  txtCenaBrutto.SetText(FormattedPrice(0.0));
  txtRabat.SetText(FormatNumber(0.0, "0", program_.locale));
  txtIlość.SetText("1");
  ShowOk();
}

// --- prices

void frm_Dok_add_TU::putPrice_() {
  const auto row = Read<ostrinka::Article>(program_, Article);
  if (!row) return;
  const PriceKind* kind = std::find_if(std::begin(kPriceKinds), std::end(kPriceKinds),
                                       [this](const PriceKind& known) { return program_.Text(known.key) == txtCennik.Text(); });
  if (kind == std::end(kPriceKinds)) kind = kPriceKinds;
  double factor = 1;
  if (Mode == EditMode::kEdit) {
    const float own_rate = CurrencyRate(program_, row->currency);
    double ratio = RateRatio(DocumentRate, own_rate);
    if (DocumentRate == 0) ratio = RateRatio(1, own_rate);
    factor = 1 / ratio;
  }
  const ostrinka::Article::PriceSet& prices = row->prices[kind->set];
  const std::string net = FormattedPrice(prices.net * factor), gross = FormattedPrice(prices.gross * factor);
  txtCenaNetto.SetText(net);
  nt_CenaNETTO.SetText(net);
  txtCenaBrutto.SetText(gross);
  nt_CenaBRUTTO.SetText(gross);
  txtRabat.SetText("0");  // kept: another article or price kind starts without a discount, also in a line that is edited
}

double frm_Dok_add_TU::ArticleMultiplier() {
  return VatMultiplierOf(program_, ReadColumn(program_, article_columns::kRate, Article));
}

double frm_Dok_add_TU::FreeTextMultiplier() {
  const int32_t rate = VatRateBySymbol(program_, nt_VAT.Text());
  return rate < 1 ? 0 : VatMultiplierOf(program_, rate);
}

void frm_Dok_add_TU::nt_oblicz_brutto() {
  const double multiplier = FreeTextMultiplier();
  if (multiplier < 1) return;
  nt_CenaBRUTTO.SetText(FormattedPrice(ToText(NumberOr0(nt_CenaNETTO.Text()) * multiplier)));
}

void frm_Dok_add_TU::nt_oblicz_netto() {
  const double multiplier = FreeTextMultiplier();
  if (multiplier < 1) return;
  nt_CenaNETTO.SetText(FormattedPrice(ToText(NumberOr0(nt_CenaBRUTTO.Text()) / multiplier)));
}

void frm_Dok_add_TU::NetLeft() {
  txtCenaNetto.SetText(FormattedPrice(txtCenaNetto.Text()));
  txtCenaBrutto.SetText(GrossOfNet(program_, txtCenaNetto.Text(), ArticleMultiplier()));
}

void frm_Dok_add_TU::GrossLeft() {
  txtCenaBrutto.SetText(FormattedPrice(txtCenaBrutto.Text()));
  txtCenaNetto.SetText(NetOfGross(program_, txtCenaBrutto.Text(), ArticleMultiplier()));
}

void frm_Dok_add_TU::QuantityLeft(TextBoxControl& box) {
  auto quantity = ReadNumber(FormatNumber(box.Text(), "0.00##", program_.locale));
  if (!quantity) quantity = LeadingNumber(box.Text());
  if (!quantity) {
    program_.platform.ui.Beep();
    return;
  }
  box.SetText(ToText(static_cast<float>(*quantity)));
}

void frm_Dok_add_TU::DiscountLeft() {
  const double discount = HeldDiscount(static_cast<float>(NumberOr0(txtRabat.Text())));
  txtRabat.SetText(FormatNumber(discount, "0", program_.locale));
  NetLeft();  // kept: a discount counts the gross price from the net one, so that both stay in step
}

// --- confirming

void frm_Dok_add_TU::ShowOk() {
  btnOK.SetEnabled(page() == "ZAL" || tuType.Value() == kFreeText || Article >= 1);
}

bool frm_Dok_add_TU::ReadMoney(const TextBoxControl& box, Currency& to) {
  const auto number = ReadCurrency(box.Text());
  if (!number && ReadNumber(box.Text())) return false;
  to = number.value_or(Currency());
  return true;
}

void frm_Dok_add_TU::Confirm() {
  bool read = true;
  if (page() == "ZAL") {
    Article = kAdvance;
  } else if (tuType.Value() == kFreeText) {
    read = ConfirmFreeText();
  } else {
    read = ConfirmCatalogue();
  }
  if (!read) {
    program_.Message("msg.info.error", MessageKind::kError);
    return;
  }
  OK = true;
  SetDirty(false);
  Close();
}

bool frm_Dok_add_TU::ConfirmCatalogue() {
  changed_ = Article != shown_article_;
  return ReadMoney(txtIlość, Quantity) && ReadMoney(txtCenaNetto, NetPrice) && ReadMoney(txtCenaBrutto, GrossPrice) &&
         ReadMoney(txtRabat, Discount);
}

bool frm_Dok_add_TU::ConfirmFreeText() {
  for (TextBoxControl* price : {&nt_CenaNETTO, &nt_CenaBRUTTO}) {
    if (!ReadNumber(price->Text())) price->SetText(FormattedPrice(0.0));
  }
  if (!ReadNumber(nt_Ilość.Text())) nt_Ilość.SetText(FormatNumber(0.0, "0.00##", program_.locale));
  // kept: the discount is that of the catalogue's page, so that a line which turns into a free text does not lose it
  if (!ReadMoney(nt_Ilość, Quantity) || !ReadMoney(nt_CenaNETTO, NetPrice) || !ReadMoney(nt_CenaBRUTTO, GrossPrice) ||
      !ReadMoney(txtRabat, Discount)) {
    return false;
  }
  const FreeText typed = TypedText();
  ostrinka::Article article;
  article.name = typed.name;
  article.rate = typed.rate;
  article.unit = typed.unit;
  for (ostrinka::Article::PriceSet& prices : article.prices) {
    prices.net = NetPrice.ToDouble();
    prices.gross = GrossPrice.ToDouble();
  }
  article.currency = 1;
  article.code = typed.code;
  const int32_t row = AddHiddenArticle(program_, article);
  if (row < 1) return false;
  changed_ = shown_article_ < 1 || typed != shown_;
  Article = row;
  return true;
}

frm_Dok_add_TU::FreeText frm_Dok_add_TU::TypedText() const {
  return {Trim(nt_TowarUsługa.Text()), Trim(nt_PKWiU.Text()), nt_Jednostka.Value(), nt_VAT.Value()};
}

bool frm_Dok_add_TU::ArticleChanged() const {
  return changed_;
}

// --- keys

bool frm_Dok_add_TU::UserKey(int code, bool ctrl) {
  const bool catalogue = page() == "STD" && tuType.Value() == kCatalogue;
  const bool in_list = focus() == &txtTU || focus() == &picTU;
  if (!ctrl && catalogue && in_list && (code == kKeyUp || code == kKeyDown)) {
    MoveRow(code == kKeyUp ? -1 : 1);
    return true;
  }
  if (code != kKeyEnter) return false;
  if (!ctrl && catalogue && in_list) {
    if (Article >= 1) SetFocus(txtIlość);
    return true;
  }
  if (!ctrl && focus() && (focus()->kind() == ControlKind::kButton || focus() == &nt_TowarUsługa)) return false;
  if (focus()) focus()->UserLeave();
  btnOK.UserPress();
  return true;
}

}  // namespace ostrinka
