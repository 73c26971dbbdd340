#include "print/document_blocks.h"

#include <algorithm>
#include <cmath>

#include "base/format.h"
#include "base/text.h"
#include "print/amount_in_words.h"

namespace ostrinka {
namespace {

constexpr double kCell = 5;         // height of a head cell of a block
constexpr double kCellText = 0.75;  // from the top of a cell to its text
constexpr double kInset = 1;
constexpr double kTextSize = 10;
constexpr double kGap = 5;       // above a block
constexpr double kRowAir = 1.2;  // between the rows of the payment
constexpr double kLogoWidth = 70, kLogoHeight = 25;
constexpr double kPairsWidth = 90;
constexpr double kPayWidth = 90;
constexpr double kSignatureWidth = 70, kSignatureHeight = 24, kNoteSize = 7;

using Pairs = std::vector<std::pair<const char*, std::string>>;

// Place and dates as a small table at the right; its lower end.
double PrintPairs(PageFlow& flow, const Pairs& pairs, double top) {
  flow.Font(kTextSize, true);
  double head = 0;
  for (const auto& [key, value] : pairs) head = std::max(head, flow.TextWidth(flow.program().Text(key)) + 2 * kInset + 1);
  head = std::min(head, kPairsWidth * 0.6);
  const double left = flow.Right() - kPairsWidth, middle = left + head;
  double at = top;
  for (const auto& [key, value] : pairs) {
    flow.Font(kTextSize);
    const std::vector<std::string> lines = flow.Break(value, flow.Right() - middle - kInset);
    const double height = std::max(kCell, flow.Pitch() * static_cast<double>(lines.size()) + 2 * kCellText);
    flow.Head(flow.program().Text(key), left, at, head, kCell);
    flow.Lines(middle + kInset, at + kCellText, lines, flow.Right() - middle - kInset);
    flow.Rule(middle, at, flow.Right(), at);
    at += height;
  }
  flow.Rule(left, at, flow.Right(), at);
  return at;
}

// The company's picture in its box at the left margin, in its own proportions; false when there is none.
bool PrintLogo(PageFlow& flow, double top) {
  Program& program = flow.program();
  const std::string path = program.DatabaseFolder() + "_logo.img";
  if (!program.platform.files.FileExists(path)) return false;
  double width = kLogoWidth, height = kLogoHeight;
  const std::optional<Picture> picture = program.platform.pictures.Decode(path);
  if (picture && picture->width > 0 && picture->height > 0) {
    const double scale = std::min(kLogoWidth / picture->width, kLogoHeight / picture->height);
    width = picture->width * scale;
    height = picture->height * scale;
  }
  flow.print().IMAGE_ADD(static_cast<float>(flow.Left()), static_cast<float>(top), static_cast<float>(flow.Left() + width),
                         static_cast<float>(top + height), path);
  return true;
}

struct TitleLine {
  const std::string& text;
  double size;
  bool bold;
};

// Visits the lines of the title; the lower end of the last one.
template <typename Draw>
double WalkTitle(PageFlow& flow, const DocumentHead& head, const TitlePlace& place, const Draw& draw) {
  double at = place.top;
  for (const TitleLine& line : {TitleLine{head.title, 16, true}, {head.copy_label, 12, false}, {head.label_date, 10, false}}) {
    if (line.text.empty()) continue;
    flow.Font(line.size, line.bold);
    const std::vector<std::string> lines = flow.Break(line.text, place.width);
    draw(at, lines);
    at += flow.Pitch() * static_cast<double>(lines.size()) + 0.8;
  }
  return at;
}

// A label at the left of the payment block, its value at the right, broken where it is too long.
struct PaymentRow {
  std::string label;
  std::vector<std::string> value;
};

struct Payment {
  std::string total, sum;          // the document's gross value, and what is paid by the form
  std::vector<PaymentRow> rows;    // form, share paid at once, term
  std::vector<std::string> words;  // the amount in words
  std::vector<std::string> rate;   // the note on the rate of exchange
};

// The note on the average rate, on a document in another currency.
std::string RateNote(Program& program, const PrintedDocument& document) {
  if (document.rate_of_exchange <= 0 || document.rate_of_exchange == 1) return "";
  if (!program.settings.Boolean(kCommon, "prgSettings", "VDopAddUNBP", true)) return "";
  const std::string name = document.currency_code.empty() ? document.currency_symbol : document.currency_code;
  return program.Text("sdoc.info.nbp") + " 1 " + name + " = " + FormatNumber(document.rate_of_exchange, "0.0000") + " PLN";
}

Payment GatherPayment(PageFlow& flow, const PrintedDocument& document, double words_width) {
  Program& program = flow.program();
  const int32_t percent = document.paid_at_once_percent;
  const double share = static_cast<double>(static_cast<float>(percent * 0.01));
  const double at_once = RoundByPattern(document.gross * share, document.amount_pattern);
  Payment payment;
  payment.total = document.Money(document.gross);
  payment.sum = document.Money(percent < 100 ? document.gross - at_once : document.gross);
  flow.Font(kTextSize);
  const auto add = [&](const std::string& label, const std::string& value) {
    const double room = kPayWidth - 2 * kInset - flow.TextWidth(label) - 3;
    payment.rows.push_back({label, flow.Break(value, std::max(room, kPayWidth / 3))});
  };
  add(program.Text("sdoc.info.paytype"), document.payment_form);
  if (percent != 0) add(program.Text("sdoc.info.payps") + " " + FormatNumber(percent, "0\\%"), document.Money(at_once));
  if (percent < 100) add(program.Text("sdoc.info.payeod"), document.DateText(document.due));
  payment.words = flow.Break(TotalInWords(program, document.gross, document.grammar), words_width - 2 * kInset);
  payment.rate = flow.Break(RateNote(program, document), words_width - 2 * kInset);
  return payment;
}

double RowHeight(const PageFlow& flow, const PaymentRow& row) {
  return flow.Pitch() * static_cast<double>(std::max<size_t>(row.value.size(), 1)) + kRowAir;
}

double PrintPaymentRow(PageFlow& flow, const PaymentRow& row, double at) {
  flow.Line(flow.Left() + kInset, at, row.label);
  double line_at = at;
  for (const std::string& line : row.value) {
    flow.Line(flow.Left() + kPayWidth - kInset, line_at, line, -1);
    line_at += flow.Pitch();
  }
  return at + RowHeight(flow, row);
}

void PrintAmountCell(PageFlow& flow, const char* key, const std::string& amount, double at) {
  flow.Font(10, true);
  flow.Head(flow.program().Text(key), flow.Left(), at, kPayWidth, kCell);
  flow.Line(flow.Left() + kPayWidth - kInset, at + kCellText, amount, -1);
}

}  // namespace

TitlePlace PrintDocumentHead(PageFlow& flow, const DocumentHead& head) {
  const double top = flow.y;
  double lowest = PrintPairs(flow, head.pairs, top);
  // Beside the dates, or across the page under the logo.
  TitlePlace place{top - 1, flow.Right() - flow.Left() - kPairsWidth - 4};
  if (head.with_logo && PrintLogo(flow, top)) {
    lowest = std::max(lowest, top + kLogoHeight);
    place = {lowest + 4, flow.Right() - flow.Left()};
  }
  flow.y = std::max(lowest, WalkTitle(flow, head, place, [](double, const std::vector<std::string>&) {})) + kGap;
  return place;
}

void PrintTitle(PageFlow& flow, const DocumentHead& head, const TitlePlace& place) {
  WalkTitle(flow, head, place, [&](double at, const std::vector<std::string>& lines) { flow.Lines(flow.Left(), at, lines, place.width); });
  flow.Font(10);
}

void PrintPayment(PageFlow& flow, const PrintedDocument& document) {
  const double words_left = flow.Left() + kPayWidth + 10, words_width = flow.Right() - words_left;
  const Payment payment = GatherPayment(flow, document, words_width);
  flow.Font(kTextSize);
  const auto text_height = [&](const std::vector<std::string>& lines) { return flow.Pitch() * static_cast<double>(lines.size()); };
  double left_height = 2 * kCell + 2 * kRowAir;
  for (const PaymentRow& row : payment.rows) left_height += RowHeight(flow, row);
  const double right_height = kCell + 1.2 + text_height(payment.words) + (payment.rate.empty() ? 0 : 1.5 + text_height(payment.rate));
  flow.y += kGap;
  flow.Need(std::max(left_height, right_height));

  PrintAmountCell(flow, "sdoc.info.topay", payment.total, flow.y);
  flow.Font(kTextSize);
  double at = flow.y + kCell + kRowAir;
  for (const PaymentRow& row : payment.rows) at = PrintPaymentRow(flow, row, at);
  at = flow.y + left_height - kCell;
  PrintAmountCell(flow, "sdoc.info.sumpay", payment.sum, at);
  flow.Rule(flow.Left(), at + kCell, flow.Left() + kPayWidth, at + kCell);

  flow.Font(kTextSize, true);
  flow.Head(flow.program().Text("sdoc.info.wordval"), words_left, flow.y, words_width, kCell);
  flow.Font(kTextSize);
  at = flow.Lines(words_left + kInset, flow.y + kCell + 1.2, payment.words, words_width - 2 * kInset);
  flow.Lines(words_left + kInset, at + 1.5, payment.rate, words_width - 2 * kInset);
  flow.y += std::max(left_height, right_height);
}

void PrintSignatures(PageFlow& flow, const std::vector<SignatureBox>& boxes) {
  flow.y += kGap;
  double height = kSignatureHeight;
  const double inner = kSignatureWidth - 2 * kInset;
  for (const SignatureBox& box : boxes) {
    flow.Font(kTextSize);
    double needed = kCell + 1 + flow.Pitch() * static_cast<double>(flow.Break(box.name, inner).size()) + 8;
    flow.Font(kNoteSize);
    needed += flow.Pitch() * static_cast<double>(flow.Break(box.note, inner).size()) + 1;
    height = std::max(height, needed);
  }
  flow.Need(height);
  for (size_t i = 0; i < boxes.size(); ++i) {
    const double left = i == 0 ? flow.Left() : flow.Right() - kSignatureWidth, bottom = flow.y + height;
    flow.Font(kTextSize, true);
    flow.Head(flow.program().Text(boxes[i].heading_key), left, flow.y, kSignatureWidth, kCell);
    flow.Rule(left, flow.y, left, bottom);
    flow.Rule(left + kSignatureWidth, flow.y, left + kSignatureWidth, bottom);
    flow.Rule(left, bottom, left + kSignatureWidth, bottom);
    flow.Font(kTextSize);
    flow.Lines(left + kInset, flow.y + kCell + 1, flow.Break(boxes[i].name, inner), inner);
    flow.Font(kNoteSize);
    const std::vector<std::string> note = flow.Break(boxes[i].note, inner);
    flow.Lines(left + kInset, bottom - 1 - flow.Pitch() * static_cast<double>(note.size()), note, inner);
  }
  flow.y += height;
}

void PrintNotes(PageFlow& flow, const std::string& notes) {
  const double width = flow.Right() - flow.Left() - 2 * kInset;
  flow.Font(kTextSize);
  std::vector<std::string> lines = flow.Break(notes, width);
  if (lines.empty()) return;
  const double pitch = flow.Pitch();
  flow.y += kGap;
  flow.Need(kCell + 1 + 2 * pitch);
  flow.Font(kTextSize, true);
  flow.Head(flow.program().Text("sdoc.info.notices"), flow.Left(), flow.y, flow.Right() - flow.Left(), kCell);
  flow.y += kCell + 1;
  flow.Font(kTextSize);
  while (!lines.empty()) {
    const auto room = std::max<double>(1, std::floor((flow.Bottom() - 1 - flow.y) / pitch));
    const size_t count = std::min(lines.size(), static_cast<size_t>(room));
    const auto end = lines.begin() + static_cast<std::ptrdiff_t>(count);
    flow.y = flow.Lines(flow.Left() + kInset, flow.y, {lines.begin(), end}, width);
    lines.erase(lines.begin(), end);
    if (!lines.empty()) flow.NextPage();
  }
}

}  // namespace ostrinka
