// Settling an advance invoice by negative lines.
#include "base/text.h"
#include "books/books.h"
#include "books/dictionary_rows.h"
#include "documents/lines.h"
#include "documents/numbering.h"
#include "documents/rate_sums.h"

namespace ostrinka {

namespace {

// Sums of the advance's lines by the record of their rate, in single precision.
std::vector<RateAmounts<float>> SumsOf(Program& program, int32_t document_id) {
  return SumByRate<float>(LinesOfDocument(program, document_id), [&](const StoredLine& line) {
    const int32_t rate = ReadColumn(program, article_columns::kRate, line.row.article);
    return RateAmounts<float>{rate, static_cast<float>(line.row.net.ToDouble()), static_cast<float>(line.row.gross.ToDouble())};
  });
}

// The percent as the line tells it: without a fraction, 0 for what no rate can be.
int16_t WholePercent(float percent) {
  return percent > -32768 && percent < 32768 ? static_cast<int16_t>(percent) : int16_t{0};
}

bool AddSettlementLine(Program& program, int32_t document_id, const Article& article, Currency net, Currency gross) {
  SalesLine line;
  line.article = AddHiddenArticle(program, article);
  if (line.article < 1) return false;
  line.document = document_id;
  line.quantity = Currency::FromWhole(1);
  line.net_price = line.net = net;
  line.gross_price = line.gross = gross;
  const int32_t record = Add(program, line);
  if (record < 1) return false;
  ClassQDBASE& lines = Table(program, kSprzedane);
  lines.RECORD_SHOW(record);
  lines.RECORD_POSITION(record);
  return true;
}

}  // namespace

AdvanceOutcome SettleAdvance(Program& program, int32_t document_id, int32_t currency_record, int32_t advance) {
  const auto document = Read<SalesDocument>(program, advance);
  if (!document) return AdvanceOutcome::kNoAdvance;
  const std::string name = Trim(doc_print_title(program, advance)) + " " + Trim(doc_number_text(program, advance));
  AdvanceOutcome outcome = AdvanceOutcome::kNoValue;
  for (const auto& [rate_record, net_sum, gross_sum] : SumsOf(program, document->identity)) {
    const auto rate = Read<VatRate>(program, rate_record);
    if (!rate || (net_sum == 0 && gross_sum == 0)) continue;
    const auto net = Currency::FromFloat(-net_sum), gross = Currency::FromFloat(-gross_sum);
    if (!net || !gross) return AdvanceOutcome::kTooLarge;
    Article article;
    article.name = name + "\r\nStawka VAT " + std::to_string(WholePercent(rate->percent)) + "%";
    article.rate = rate_record;
    article.unit = 1;
    article.currency = currency_record;
    if (!AddSettlementLine(program, document_id, article, *net, *gross)) return AdvanceOutcome::kNotWritten;
    outcome = AdvanceOutcome::kSettled;
  }
  return outcome;
}

}  // namespace ostrinka
