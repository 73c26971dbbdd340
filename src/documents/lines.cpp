#include "documents/lines.h"

#include <cmath>

#include "base/text.h"
#include "company/tables.h"
#include "documents/numbering.h"

namespace ostrinka {

namespace {

constexpr const char* kAmounts[] = {"CENA_NETTO", "CENA_BRUTTO", "WARTOSC_NETTO", "WARTOSC_BRUTTO"};

bool Overflow(Program& program) {
  program.Message("msg.info.error", MessageKind::kError);
  return false;
}

std::optional<Currency> Scaled(Currency amount, double factor) {
  return Currency::FromDouble(amount.ToDouble() * factor);
}

std::optional<Currency> LineValue(Currency quantity, Currency price, Currency factor) {
  const auto whole = Multiply(quantity, price);
  return whole ? Multiply(*whole, factor) : std::nullopt;
}

// Adds an empty record and loads it; its number, 0 on failure.
int32_t AddEmpty(ClassQDBASE& table) {
  if (!table.RECORD_ADD()) return 0;
  const int32_t record = table.RECORD_ADDED();
  return table.RECORD_LOAD(record) ? record : 0;
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

}  // namespace

int32_t AddLine(Program& program, int32_t document_id, const LineEntry& entry, float rate) {
  float article_rate = 1;
  {
    KeepPositions keep(program, {kTowaryUslugi, kWaluty});
    ClassQDBASE& articles = Table(program, kTowaryUslugi);
    const int32_t currency = articles.RECORD_LOAD(entry.article) ? articles.Int(".WALUTA") : 0;
    if (currency >= 1 && currency <= Table(program, kWaluty).RECORD_COUNT()) article_rate = CurrencyRate(program, currency);
  }
  const double ratio = RateRatio(article_rate, rate);
  const auto net = Scaled(entry.net, ratio), gross = Scaled(entry.gross, ratio);
  const auto values = DiscountedValues(entry);
  if (!net || !gross || !values) return Overflow(program);

  ClassQDBASE& lines = Table(program, kSprzedane);
  const int32_t line = AddEmpty(lines);
  if (line < 1) return 0;
  lines.FIELD("ID_DOK", document_id);
  lines.FIELD("NAZWA_T_U", entry.article);
  lines.FIELD("ILOSC", entry.quantity);
  lines.FIELD("CENA_NETTO", *net);
  lines.FIELD("CENA_BRUTTO", *gross);
  lines.FIELD("WARTOSC_NETTO", values->net);
  lines.FIELD("WARTOSC_BRUTTO", values->gross);
  lines.FIELD("RABAT", StoredDiscount(entry));
  if (!lines.RECORD_SAVE(line)) return 0;
  lines.RECORD_SHOW(line);
  lines.RECORD_POSITION(line);
  return line;
}

bool RewriteLine(Program& program, int32_t line, const LineEntry& entry) {
  const auto values = DiscountedValues(entry);
  if (!values) return Overflow(program);
  ClassQDBASE& lines = Table(program, kSprzedane);
  if (!lines.RECORD_LOAD(line)) return false;
  lines.FIELD("NAZWA_T_U", entry.article);
  lines.FIELD("ILOSC", entry.quantity);
  lines.FIELD("CENA_NETTO", entry.net);
  lines.FIELD("CENA_BRUTTO", entry.gross);
  lines.FIELD("WARTOSC_NETTO", values->net);
  lines.FIELD("WARTOSC_BRUTTO", values->gross);
  lines.FIELD("RABAT", StoredDiscount(entry));
  return lines.RECORD_SAVE(line);
}

bool RecalculateLine(Program& program, int32_t line) {
  ClassQDBASE& lines = Table(program, kSprzedane);
  if (line < 1 || !lines.RECORD_LOAD(line)) return false;
  const double quantity = lines.Real("ILOSC");
  const float factor = static_cast<float>(DiscountFactor(FloatOr0(lines.FIELD("RABAT"))));
  const auto net = Currency::FromDouble(factor * (lines.Real("CENA_NETTO") * quantity));
  const auto gross = Currency::FromDouble(factor * (lines.Real("CENA_BRUTTO") * quantity));
  if (!net || !gross) return Overflow(program);
  lines.FIELD("WARTOSC_NETTO", *net);
  lines.FIELD("WARTOSC_BRUTTO", *gross);
  return lines.RECORD_SAVE(line);
}

bool ZeroLine(Program& program, int32_t line) {
  ClassQDBASE& lines = Table(program, kSprzedane);
  if (!lines.RECORD_LOAD(line)) return false;
  for (const char* amount : kAmounts) lines.FIELD(amount, Currency());
  return lines.RECORD_SAVE(line);
}

bool CopyLines(Program& program, int32_t from, int32_t to) {
  ClassQDBASE& lines = Table(program, kSprzedane);
  bool ok = true;
  for (const int32_t source : LinesOf(program, from)) {
    const int32_t copy = AddEmpty(lines);
    ok = copy >= 1 && lines.RECORD_LOAD(source) && lines.FIELD("ID_DOK", to) && lines.RECORD_SAVE(copy) && ok;
  }
  return ok;
}

bool ConvertLines(Program& program, int32_t document_id, float old_rate, float new_rate) {
  const float ratio = (old_rate == 0 ? 1.0F : old_rate) / (new_rate == 0 ? 1.0F : new_rate);
  ClassQDBASE& lines = Table(program, kSprzedane);
  for (const int32_t line : LinesOf(program, document_id)) {
    if (!lines.RECORD_LOAD(line)) continue;
    for (const char* amount : kAmounts) {
      const auto converted = Scaled(lines.Money(amount), ratio);
      if (!converted) return Overflow(program);
      lines.FIELD(amount, *converted);
    }
    if (!lines.RECORD_SAVE(line)) return false;
  }
  return true;
}

int32_t AddHiddenArticle(Program& program, const std::function<void(ClassQDBASE&)>& fill) {
  KeepPositions keep(program, {kTowaryUslugi});
  ClassQDBASE& articles = Table(program, kTowaryUslugi);
  const int32_t article = AddEmpty(articles);
  if (article < 1) return 0;
  fill(articles);
  const bool saved = articles.RECORD_SAVE(article);
  articles.RECORD_DELETE(article);
  return saved ? article : 0;
}

}  // namespace ostrinka
