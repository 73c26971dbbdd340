#include "documents/lines.h"

#include <cmath>

#include "books/books.h"

namespace ostrinka {

namespace {

std::optional<Currency> Scaled(Currency amount, double factor) {
  return Currency::FromDouble(amount.ToDouble() * factor);
}

std::optional<Currency> LineValue(Currency quantity, Currency price, Currency factor) {
  const auto whole = Multiply(quantity, price);
  return whole ? Multiply(*whole, factor) : std::nullopt;
}

struct Values {
  Currency net, gross;
};
std::optional<Values> DiscountedValues(const LineEntry& entry) {
  const auto factor = Currency::FromDouble(DiscountFactor(entry.discount.ToDouble()));
  if (!factor) return std::nullopt;
  const auto net = LineValue(entry.quantity, entry.net, *factor);
  const auto gross = LineValue(entry.quantity, entry.gross, *factor);
  if (!net || !gross) return std::nullopt;
  return Values{*net, *gross};
}

int16_t StoredDiscount(const LineEntry& entry) {
  return static_cast<int16_t>(std::lround(HeldDiscount(entry.discount.ToDouble())));
}

LineOutcome Written(bool written) {
  return written ? LineOutcome::kDone : LineOutcome::kNotWritten;
}

// The rate of the article's currency; 1 for an article without one.
float RateOfArticle(Program& program, int32_t article) {
  const int32_t currency = ReadColumn(program, article_columns::kCurrencyLink, article);
  return currency >= 1 && currency <= Table(program, kWaluty).RECORD_COUNT() ? CurrencyRate(program, currency) : 1;
}

}  // namespace

AddedLine AddLine(Program& program, int32_t document_id, const LineEntry& entry, float rate) {
  const double ratio = RateRatio(RateOfArticle(program, entry.article), rate);
  const auto net = Scaled(entry.net, ratio), gross = Scaled(entry.gross, ratio);
  const auto values = DiscountedValues(entry);
  if (!net || !gross || !values) return {LineOutcome::kTooLarge};
  SalesLine line;
  line.document = document_id;
  line.article = entry.article;
  line.quantity = entry.quantity;
  line.net_price = *net;
  line.gross_price = *gross;
  // kept: the values of a new line are counted from the prices before their conversion; the recalculation that follows sets them right
  line.net = values->net;
  line.gross = values->gross;
  line.discount = StoredDiscount(entry);
  const int32_t record = Add(program, line);
  if (record < 1) return {LineOutcome::kNotWritten};
  ClassQDBASE& lines = Table(program, kSprzedane);
  lines.RECORD_SHOW(record);
  lines.RECORD_POSITION(record);
  return {LineOutcome::kDone, record};
}

LineOutcome RewriteLine(Program& program, int32_t line, const LineEntry& entry) {
  const auto values = DiscountedValues(entry);
  if (!values) return LineOutcome::kTooLarge;
  using namespace line_columns;
  ColumnValues changes;
  changes.Set(kArticle, entry.article).Set(kQuantity, entry.quantity).Set(kNetPrice, entry.net).Set(kGrossPrice, entry.gross);
  changes.Set(kNet, values->net).Set(kGross, values->gross).Set(kDiscount, StoredDiscount(entry));
  return Written(Store(program, kSprzedane, line, changes));
}

LineOutcome RecalculateLine(Program& program, int32_t line) {
  const auto row = Read<SalesLine>(program, line);
  if (!row) return LineOutcome::kNotWritten;
  const double quantity = row->quantity.ToDouble();
  const float factor = static_cast<float>(DiscountFactor(row->discount));
  const auto net = Currency::FromDouble(factor * (row->net_price.ToDouble() * quantity));
  const auto gross = Currency::FromDouble(factor * (row->gross_price.ToDouble() * quantity));
  if (!net || !gross) return LineOutcome::kTooLarge;
  return Written(Store(program, kSprzedane, line, ColumnValues().Set(line_columns::kNet, *net).Set(line_columns::kGross, *gross)));
}

LineOutcome ZeroLine(Program& program, int32_t line) {
  using namespace line_columns;
  ColumnValues nothing;
  for (const Column<Currency>& amount : {kNetPrice, kGrossPrice, kNet, kGross}) nothing.Set(amount, Currency());
  return Written(Store(program, kSprzedane, line, nothing));
}

bool CopyLines(Program& program, int32_t from, int32_t to) {
  bool copied = true;
  for (const int32_t source : LinesOf(program, from)) {
    copied = AddCopy(program, kSprzedane, source, ColumnValues().Set(line_columns::kDocument, to)) >= 1 && copied;
  }
  return copied;
}

LineOutcome ConvertLines(Program& program, int32_t document_id, float old_rate, float new_rate) {
  const float ratio = (old_rate == 0 ? 1.0F : old_rate) / (new_rate == 0 ? 1.0F : new_rate);
  for (StoredLine& line : LinesOfDocument(program, document_id)) {
    for (Currency* amount : {&line.row.net_price, &line.row.gross_price, &line.row.net, &line.row.gross}) {
      const auto converted = Scaled(*amount, ratio);
      if (!converted) return LineOutcome::kTooLarge;
      *amount = *converted;
    }
    if (!Store(program, line.record, line.row)) return LineOutcome::kNotWritten;
  }
  return LineOutcome::kDone;
}

int32_t AddHiddenArticle(Program& program, const Article& article) {
  const int32_t record = Add(program, article);
  return record >= 1 && Table(program, kTowaryUslugi).RECORD_DELETE(record) ? record : 0;
}

}  // namespace ostrinka
