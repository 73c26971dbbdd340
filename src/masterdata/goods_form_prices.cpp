// The live price arithmetic of the goods editor.
#include <cmath>

#include "base/text.h"
#include "books/dictionary_rows.h"
#include "documents/arithmetic.h"
#include "documents/goods_prices.h"
#include "masterdata/goods_form.h"

namespace ostrinka {

double frm_TowUslugi_::Amount(const TextBoxControl& box) const {
  return NumberOr0(box.Text());
}

void frm_TowUslugi_::Write(TextBoxControl& box, double amount) {
  if (std::isfinite(amount)) box.SetText(FormatNumber(Value(amount), PricePattern(program_, 0, false), program_.locale));
}

bool frm_TowUslugi_::TakePrice(TextBoxControl& box) {
  const bool too_small = Amount(box) < kSmallestPrice;
  if (too_small) Write(box, kSmallestPrice);
  return too_small || box.Edited();
}

std::optional<double> frm_TowUslugi_::Rate() {
  const std::string symbol = Trim(txtStawkaVAT.Text());
  if (symbol.empty()) return std::nullopt;
  auto rate = Read<VatRate>(program_, txtStawkaVAT.Value());
  if (!rate || Trim(rate->symbol) != symbol) rate = Read<VatRate>(program_, VatRateBySymbol(program_, symbol, RateRows::kAlsoDeleted));
  return rate ? std::optional<double>(rate->percent) : std::nullopt;
}

void frm_TowUslugi_::WriteGross(size_t i) {
  if (const std::optional<double> rate = Rate()) Write(txtBrutto[i], GrossFromNet(Amount(txtNetto[i]), *rate));
}

void frm_TowUslugi_::WriteNetFromGross(size_t i) {
  if (const std::optional<double> rate = Rate()) Write(txtNetto[i], NetFromGross(Amount(txtBrutto[i]), *rate));
}

void frm_TowUslugi_::WriteProfit(size_t i) {
  Write(txtZysk[i], ProfitOf(Amount(txtNetto[i]), Amount(txtCenaZakupu)));
}

void frm_TowUslugi_::WriteMarginAndMarkup(size_t i) {
  Write(txtMarża[i], MarginOf(Amount(txtZysk[i]), Amount(txtNetto[i])));
  Write(txtNarzut[i], MarkupOf(Amount(txtZysk[i]), Amount(txtCenaZakupu)));
}

// The net prices stay.
void frm_TowUslugi_::PurchaseLeft() {
  if (!TakePrice(txtCenaZakupu)) return;
  for (size_t i = 0; i < kPriceSets; ++i) WriteProfit(i);
  for (size_t i = 0; i < kPriceSets; ++i) WriteMarginAndMarkup(i);
}

void frm_TowUslugi_::NetLeft(size_t i) {
  if (!TakePrice(txtNetto[i])) return;
  WriteGross(i);
  WriteProfit(i);
  WriteMarginAndMarkup(i);
  Reformat(txtNetto[i]);
}

void frm_TowUslugi_::GrossLeft(size_t i) {
  if (!TakePrice(txtBrutto[i])) return;
  WriteNetFromGross(i);
  WriteProfit(i);
  WriteMarginAndMarkup(i);
  Reformat(txtBrutto[i]);
}

void frm_TowUslugi_::ProfitLeft(size_t i) {
  if (!txtZysk[i].Edited()) return;
  Reformat(txtZysk[i]);
  Write(txtNetto[i], NetFromProfit(Amount(txtCenaZakupu), Amount(txtZysk[i])));
  WriteGross(i);
  WriteMarginAndMarkup(i);
}

void frm_TowUslugi_::MarginLeft(size_t i) {
  if (!txtMarża[i].Edited()) return;
  Reformat(txtMarża[i]);
  Write(txtNetto[i], NetFromMargin(Amount(txtCenaZakupu), Amount(txtMarża[i])));
  WriteGross(i);
  WriteProfit(i);
  WriteMarginAndMarkup(i);
}

void frm_TowUslugi_::MarkupLeft(size_t i) {
  if (!txtNarzut[i].Edited()) return;
  Reformat(txtNarzut[i]);
  Write(txtNetto[i], NetFromMarkup(Amount(txtCenaZakupu), Amount(txtNarzut[i])));
  WriteGross(i);
  WriteProfit(i);
  WriteMarginAndMarkup(i);
}

void frm_TowUslugi_::RateLeft() {
  if (!txtStawkaVAT.Edited()) return;
  for (size_t i = 0; i < kPriceSets; ++i) WriteGross(i);
}

// The stored prices stay in the record's own currency.
void frm_TowUslugi_::CurrencyChosen() {
  if (txtWaluta.Value() == 0) {
    program_.Message("msg.info.noselcurdef", MessageKind::kInformation);
    txtWaluta.SetListIndex(0);
  }
  float now = CurrencyRate(program_, txtWaluta.Value());
  if (now == 0) {
    program_.Message("msg.info.noselcur", MessageKind::kInformation);
    now = 1;
  }
  float before = CurrencyRate(program_, currency_shown_);
  if (before == 0) before = 1;  // as it counted when it was chosen
  const double factor = static_cast<double>(before) / static_cast<double>(now);
  Write(txtCenaZakupu, Amount(txtCenaZakupu) * factor);
  for (size_t i = 0; i < kPriceSets; ++i) Write(txtNetto[i], Amount(txtNetto[i]) * factor);
  for (size_t i = 0; i < kPriceSets; ++i) {
    WriteGross(i);
    WriteProfit(i);
    WriteMarginAndMarkup(i);
  }
  currency_shown_ = txtWaluta.Value();
}

}  // namespace ostrinka
