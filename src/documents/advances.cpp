// Settling an advance invoice by negative lines.
#include <vector>

#include "base/text.h"
#include "company/tables.h"
#include "documents/lines.h"
#include "documents/numbering.h"

namespace ostrinka {

namespace {

// Sums of the advance's lines by the record of their rate, in single precision.
struct RateSum {
  int16_t rate = 0;
  float net = 0, gross = 0, vat = 0;
};

std::vector<RateSum> SumByRate(Program& program, int32_t document_id) {
  ClassQDBASE& lines = Table(program, kSprzedane);
  ClassQDBASE& articles = Table(program, kTowaryUslugi);
  ClassQDBASE& rates = Table(program, kStawkiVat);
  std::vector<RateSum> sums(static_cast<size_t>(std::max(0, rates.RECORD_COUNT())) + 1);
  for (const int32_t line : LinesOf(program, document_id)) {
    if (!lines.RECORD_LOAD(line) || !articles.RECORD_LOAD(lines.Int(".NAZWA_T_U"))) continue;
    const int32_t record = articles.Int(".STAWKA_VAT");
    if (record < 1 || record >= static_cast<int32_t>(sums.size()) || !rates.RECORD_LOAD(record)) continue;
    RateSum& sum = sums[static_cast<size_t>(record)];
    const double percent = rates.Real("WARTOSC");
    sum.rate = percent > -32768 && percent < 32768 ? static_cast<int16_t>(percent) : int16_t{0};
    const float net = static_cast<float>(lines.Real("WARTOSC_NETTO")), gross = static_cast<float>(lines.Real("WARTOSC_BRUTTO"));
    sum.net += net;
    sum.gross += gross;
    sum.vat += gross - net;
  }
  return sums;
}

bool AddSettlementLine(Program& program, int32_t document_id, int32_t article, Currency net, Currency gross) {
  ClassQDBASE& lines = Table(program, kSprzedane);
  if (!lines.RECORD_ADD()) return false;
  const int32_t line = lines.RECORD_ADDED();
  if (!lines.RECORD_LOAD(line)) return false;
  lines.FIELD("ID_DOK", document_id);
  lines.FIELD("NAZWA_T_U", article);
  lines.FIELD("ILOSC", Currency::FromWhole(1));
  for (const char* field : {"CENA_NETTO", "WARTOSC_NETTO"}) lines.FIELD(field, net);
  for (const char* field : {"CENA_BRUTTO", "WARTOSC_BRUTTO"}) lines.FIELD(field, gross);
  lines.FIELD("RABAT", int16_t{0});
  lines.RECORD_SHOW(line);
  if (!lines.RECORD_SAVE(line)) return false;
  lines.RECORD_POSITION(line);
  return true;
}

}  // namespace

bool SettleAdvance(Program& program, int32_t document_id, int32_t currency_record, int32_t advance) {
  ClassQDBASE& documents = Table(program, kDokSprzed);
  KeepPositions keep(program, {kDokSprzed, kDokumentKat, kTowaryUslugi, kStawkiVat});
  if (advance < 1 || !documents.RECORD_LOAD(advance)) {
    program.Message("msg.info.cantadddocfz", MessageKind::kInformation);
    return false;
  }
  const int32_t advance_id = documents.Int("ID_DOK");
  const std::string name = Trim(doc_print_title(program, advance)) + " " + Trim(doc_number_text(program, advance));
  const std::vector<RateSum> sums = SumByRate(program, advance_id);
  bool added = false;
  for (size_t record = 1; record < sums.size(); ++record) {
    const RateSum& sum = sums[record];
    if (sum.net == 0 && sum.gross == 0) continue;
    const auto net = Currency::FromFloat(-sum.net), gross = Currency::FromFloat(-sum.gross);
    if (!net || !gross) {
      program.Message("msg.info.error", MessageKind::kError);
      return added;
    }
    const int32_t article = AddHiddenArticle(program, [&](ClassQDBASE& row) {
      row.FIELD("NAZWA", name + "\r\nStawka VAT " + std::to_string(sum.rate) + "%");
      row.FIELD("STAWKA_VAT", static_cast<int32_t>(record));
      row.FIELD("JEDNOSTKA_MIARY", int32_t{1});
      row.FIELD("WALUTA", currency_record);
    });
    if (article >= 1 && AddSettlementLine(program, document_id, article, *net, *gross)) added = true;
  }
  if (!added) program.Message("msg.info.cantadddocfzv0", MessageKind::kInformation);
  return added;
}

}  // namespace ostrinka
