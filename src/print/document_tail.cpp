#include "print/document_tail.h"

#include <algorithm>
#include <cmath>

#include "base/format.h"

namespace ostrinka {
namespace {

constexpr double kCell = 5;         // height of a head cell of a block
constexpr double kCellText = 0.75;  // from the top of a cell to its text
constexpr double kInset = 1;
constexpr double kTextSize = 10;
constexpr double kRowAir = 1.2;   // between the rows of the payment
constexpr double kNoteAir = 1.5;  // above the note on the rate of exchange
constexpr double kPayWidth = 90, kBesidePay = 10;
constexpr double kSignatureWidth = 70, kSignatureHeight = 24, kNoteSize = 7;
constexpr double kSigningRoom = 8;  // between a name and the note under it

using TextLines = std::vector<std::string>;

double TextHeight(const PageFlow& flow, const TextLines& lines) {
  return flow.Pitch() * static_cast<double>(lines.size());
}

// A label at the left of the payment block, its value at the right, broken where it is too long.
struct PaymentRow {
  std::string label;
  TextLines value;
};

// The payment set in its words.
struct PaymentTexts {
  std::string to_pay, sum;
  std::vector<PaymentRow> rows;  // form, share paid at once, due date
  TextLines words, rate_note;
  double left_height = 0, right_height = 0;
};

double RowHeight(const PageFlow& flow, const PaymentRow& row) {
  return flow.Pitch() * static_cast<double>(std::max<size_t>(row.value.size(), 1)) + kRowAir;
}

PaymentTexts SetPayment(PageFlow& flow, const PrintedDocument& document, const PaymentTerms& terms, const PaymentKeys& keys,
                        double words_width) {
  const Program& program = flow.program();
  PaymentTexts texts;
  texts.to_pay = document.Money(terms.to_pay);
  texts.sum = document.Money(terms.by_transfer);
  flow.Font(kTextSize);
  const auto add = [&](const std::string& label, const std::string& value) {
    const double room = kPayWidth - 2 * kInset - flow.TextWidth(label) - 3;
    texts.rows.push_back({label, flow.Break(value, std::max(room, kPayWidth / 3))});
  };
  add(program.Text(keys.form), terms.form);
  if (terms.percent_at_once != 0) {
    add(program.Text(keys.at_once) + " " + FormatNumber(terms.percent_at_once, "0\\%"), document.Money(terms.at_once));
  }
  if (terms.has_due_date) add(program.Text(keys.due), document.DateText(terms.due));
  texts.words = flow.Break(terms.words, words_width - 2 * kInset);
  texts.rate_note = flow.Break(terms.rate_note, words_width - 2 * kInset);
  texts.left_height = 2 * kCell + 2 * kRowAir;
  for (const PaymentRow& row : texts.rows) texts.left_height += RowHeight(flow, row);
  texts.right_height = kCell + kRowAir + TextHeight(flow, texts.words);
  if (!texts.rate_note.empty()) texts.right_height += kNoteAir + TextHeight(flow, texts.rate_note);
  return texts;
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
  flow.Font(kTextSize, true);
  flow.Head(flow.program().Text(key), flow.Left(), at, kPayWidth, kCell);
  flow.Line(flow.Left() + kPayWidth - kInset, at + kCellText, amount, -1);
}

void DrawPayment(PageFlow& flow, const PaymentTexts& texts, const PaymentKeys& keys) {
  PrintAmountCell(flow, keys.to_pay, texts.to_pay, flow.y);
  flow.Font(kTextSize);
  double at = flow.y + kCell + kRowAir;
  for (const PaymentRow& row : texts.rows) at = PrintPaymentRow(flow, row, at);
  at = flow.y + texts.left_height - kCell;
  PrintAmountCell(flow, keys.sum, texts.sum, at);
  flow.Rule(flow.Left(), at + kCell, flow.Left() + kPayWidth, at + kCell);

  const double left = flow.Left() + kPayWidth + kBesidePay, width = flow.Right() - left;
  flow.Font(kTextSize, true);
  flow.Head(flow.program().Text(keys.words), left, flow.y, width, kCell);
  flow.Font(kTextSize);
  at = flow.Lines(left + kInset, flow.y + kCell + kRowAir, texts.words, width - 2 * kInset);
  flow.Lines(left + kInset, at + kNoteAir, texts.rate_note, width - 2 * kInset);
  flow.y += std::max(texts.left_height, texts.right_height);
}

void DrawSignature(PageFlow& flow, const SignatureBox& box, double left, double height) {
  const double bottom = flow.y + height, inner = kSignatureWidth - 2 * kInset;
  flow.Font(kTextSize, true);
  flow.Head(flow.program().Text(box.heading_key), left, flow.y, kSignatureWidth, kCell);
  flow.Rule(left, flow.y, left, bottom);
  flow.Rule(left + kSignatureWidth, flow.y, left + kSignatureWidth, bottom);
  flow.Rule(left, bottom, left + kSignatureWidth, bottom);
  flow.Font(kTextSize);
  flow.Lines(left + kInset, flow.y + kCell + 1, flow.Break(box.name, inner), inner);
  flow.Font(kNoteSize);
  const TextLines note = flow.Break(box.note, inner);
  flow.Lines(left + kInset, bottom - 1 - TextHeight(flow, note), note, inner);
}

void DrawNotes(PageFlow& flow, TextLines lines, double width) {
  flow.Font(kTextSize, true);
  flow.Head(flow.program().Text("sdoc.info.notices"), flow.Left(), flow.y, flow.Right() - flow.Left(), kCell);
  flow.y += kCell + 1;
  flow.Font(kTextSize);
  while (!lines.empty()) {
    const auto room = std::max<double>(1, std::floor((flow.Bottom() - 1 - flow.y) / flow.Pitch()));
    const auto end = lines.begin() + static_cast<std::ptrdiff_t>(std::min(lines.size(), static_cast<size_t>(room)));
    flow.y = flow.Lines(flow.Left() + kInset, flow.y, {lines.begin(), end}, width);
    lines.erase(lines.begin(), end);
    if (!lines.empty()) flow.NextPage();
  }
}

}  // namespace

PageBlock PaymentBlock(PageFlow& flow, const PrintedDocument& document, const PaymentTerms& terms, const PaymentKeys& keys) {
  const double words_width = flow.Right() - flow.Left() - kPayWidth - kBesidePay;
  PageBlock block;
  PaymentTexts texts = SetPayment(flow, document, terms, keys, words_width);
  block.height = std::max(texts.left_height, texts.right_height);
  block.draw = [texts = std::move(texts), keys](PageFlow& to) { DrawPayment(to, texts, keys); };
  return block;
}

PageBlock SignatureBlock(PageFlow& flow, const std::vector<SignatureBox>& boxes) {
  const double inner = kSignatureWidth - 2 * kInset;
  PageBlock block;
  block.height = kSignatureHeight;
  block.with_previous = true;
  for (const SignatureBox& box : boxes) {
    flow.Font(kTextSize);
    double needed = kCell + 1 + TextHeight(flow, flow.Break(box.name, inner)) + kSigningRoom;
    flow.Font(kNoteSize);
    needed += TextHeight(flow, flow.Break(box.note, inner)) + 1;
    block.height = std::max(block.height, needed);
  }
  block.draw = [boxes, height = block.height](PageFlow& to) {
    for (size_t i = 0; i < boxes.size(); ++i) DrawSignature(to, boxes[i], i == 0 ? to.Left() : to.Right() - kSignatureWidth, height);
    to.y += height;
  };
  return block;
}

PageBlock NotesBlock(PageFlow& flow, const std::string& notes) {
  const double width = flow.Right() - flow.Left() - 2 * kInset;
  flow.Font(kTextSize);
  TextLines lines = flow.Break(notes, width);
  PageBlock block;
  if (lines.empty()) return block;
  block.height = kCell + 1 + 2 * flow.Pitch();  // the head and two lines: the rest may break
  block.draw = [lines = std::move(lines), width](PageFlow& to) { DrawNotes(to, lines, width); };
  return block;
}

}  // namespace ostrinka
