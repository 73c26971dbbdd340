#include "exchange/separated_file.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "base/text.h"

namespace ostrinka {
namespace {

constexpr std::array<char, 3> kSeparators = {';', '\t', ','};  // of equally many the first counts
constexpr size_t kSample = size_t{64} << 10;                   // what the quote is found from
constexpr char kEndOfFile = '\x1A';                            // as old editors end a text

bool IsLineEnd(char letter) {
  return letter == '\r' || letter == '\n';
}

bool IsControl(char letter) {
  const auto code = static_cast<unsigned char>(letter);
  return (code < 0x20 && letter != '\t' && !IsLineEnd(letter)) || code == 0x7F;
}

// UTF-16 of either byte order behind its mark; unpaired halves become U+FFFD.
std::string FromUtf16(std::string_view bytes, bool little_endian) {
  std::u32string letters;
  const auto unit = [&](size_t at) -> char32_t {
    const auto first = static_cast<unsigned char>(bytes[at]), second = static_cast<unsigned char>(bytes[at + 1]);
    return static_cast<char32_t>(little_endian ? second << 8 | first : first << 8 | second);
  };
  for (size_t at = 2; at + 1 < bytes.size(); at += 2) {
    char32_t letter = unit(at);
    if (letter >= 0xD800 && letter < 0xDC00 && at + 3 < bytes.size() && unit(at + 2) >= 0xDC00 && unit(at + 2) < 0xE000) {
      letter = 0x10000 + ((letter - 0xD800) << 10) + (unit(at + 2) - 0xDC00);
      at += 2;
    } else if (letter >= 0xD800 && letter < 0xE000) {
      letter = 0xFFFD;
    }
    letters.push_back(letter);
  }
  return FromCodePoints(letters);
}

std::string DecodeText(const std::string& bytes) {
  if (StartsWith(bytes, "\xFF\xFE")) return FromUtf16(bytes, true);
  if (StartsWith(bytes, "\xFE\xFF")) return FromUtf16(bytes, false);
  // A mark says what the file is, also where a part of it is spoilt.
  if (StartsWith(bytes, "\xEF\xBB\xBF") && !IsUtf8(bytes)) return FromCodePoints(CodePoints(std::string_view(bytes).substr(3)));
  return DecodeFileText(bytes);
}

bool IsBlank(const std::vector<std::string>& fields) {
  return std::all_of(fields.begin(), fields.end(), [](const std::string& field) { return TrimWhite(field).empty(); });
}

}  // namespace

SeparatedFile::OpenResult SeparatedFile::Open(FileSystem& files, const std::string& path) {
  const int64_t size = files.FileSize(path);
  if (size > kSeparatedFileLimit) return OpenResult::kTooLarge;
  std::string bytes;
  if (size < 0 || !files.ReadAll(path, bytes, kSeparatedFileLimit)) return OpenResult::kUnreadable;
  return OpenBytes(bytes);
}

SeparatedFile::OpenResult SeparatedFile::OpenBytes(const std::string& bytes) {
  text_ = DecodeText(bytes);
  position_ = 0;
  row_ = 0;
  while (!text_.empty() && text_.back() == kEndOfFile) text_.pop_back();
  if (TrimWhite(text_).empty()) return OpenResult::kEmpty;
  if (text_.find('\0') != std::string::npos) return OpenResult::kNotText;
  FindSeparator();
  FindQuote();
  return OpenResult::kOpened;
}

bool SeparatedFile::AtFieldEnd(size_t at) const {
  return at >= text_.size() || text_[at] == separator_ || IsLineEnd(text_[at]);
}

size_t SeparatedFile::AfterBlanks(size_t at) const {
  return std::min(text_.find_first_not_of(' ', at), text_.size());
}

// The separator of the first line that stands there most often outside of quotes.
void SeparatedFile::FindSeparator() {
  std::array<int, kSeparators.size()> counts{};
  char quote = 0;
  bool blank = true;
  for (const char letter : std::string_view(text_).substr(0, kSeparatedRowLimit)) {
    if (IsLineEnd(letter) && quote == 0 && !blank) break;
    blank = blank && (letter == ' ' || IsLineEnd(letter));
    if (letter == '"') quote = quote == 0 ? letter : 0;
    if (quote == 0) {
      for (size_t i = 0; i < kSeparators.size(); ++i) counts[i] += letter == kSeparators[i] ? 1 : 0;
    }
  }
  separator_ = kSeparators[static_cast<size_t>(std::max_element(counts.begin(), counts.end()) - counts.begin())];
}

void SeparatedFile::FindQuote() {
  quote_ = QuotedFields('\'') > QuotedFields('"') ? '\'' : '"';
}

// How many fields of the sample stand whole, and on one line, between two such quotes.
int SeparatedFile::QuotedFields(char quote) const {
  int found = 0;
  const size_t end = std::min(text_.size(), kSample);
  for (size_t at = 0; at < end; ++at) {
    if (text_[at] != quote || (at > 0 && !AtFieldEnd(at - 1))) continue;
    size_t close = at + 1;
    while (close < end && !IsLineEnd(text_[close]) && (text_[close] != quote || !AtFieldEnd(close + 1))) ++close;
    if (close < end && text_[close] == quote) ++found;
    at = close;  // where the line ends first, no later quote on it has its end either
  }
  return found;
}

bool SeparatedFile::Next(SeparatedRow& row) {
  while (position_ < text_.size()) {
    const size_t start = position_;
    row.number = ++row_;
    row.fault = ReadRow(row.fields);
    if (row.fault != RowFault::kNone) {
      row.fields.clear();
      position_ = std::min(text_.find_first_of("\r\n", start), text_.size());
      PassLineEnd();
      return true;
    }
    if (!IsBlank(row.fields)) return true;
  }
  return false;
}

RowFault SeparatedFile::ReadRow(std::vector<std::string>& fields) {
  fields.clear();
  const size_t limit = position_ + kSeparatedRowLimit;
  while (true) {
    std::string& field = fields.emplace_back();
    const size_t first = AfterBlanks(position_);
    const bool quoted = first < text_.size() && text_[first] == quote_;
    if (quoted) position_ = first;
    const RowFault fault = quoted ? ReadQuoted(field, limit) : ReadPlain(field, limit);
    if (fault != RowFault::kNone) return fault;
    if (std::any_of(field.begin(), field.end(), IsControl)) return RowFault::kControlLetter;
    if (position_ >= text_.size() || text_[position_] != separator_) break;
    ++position_;
  }
  PassLineEnd();
  return RowFault::kNone;
}

RowFault SeparatedFile::ReadPlain(std::string& field, size_t limit) {
  const size_t start = position_;
  while (!AtFieldEnd(position_)) {
    if (++position_ > limit) return RowFault::kTooLong;
  }
  field = text_.substr(start, position_ - start);
  return RowFault::kNone;
}

RowFault SeparatedFile::ReadQuoted(std::string& field, size_t limit) {
  char code[8];
  std::snprintf(code, sizeof code, "&H%X", static_cast<unsigned>(quote_));
  for (++position_; position_ < text_.size(); ++position_) {
    if (position_ > limit) return RowFault::kOpenQuote;
    if (text_[position_] != quote_) {
      field += text_[position_];
    } else if (position_ + 1 < text_.size() && text_[position_ + 1] == quote_) {
      field += text_[position_++];
    } else {
      position_ = AfterBlanks(position_ + 1);
      field = ReplaceAll(field, code, std::string_view(&quote_, 1));
      return AtFieldEnd(position_) ? RowFault::kNone : RowFault::kTextAfterQuote;
    }
  }
  return RowFault::kOpenQuote;
}

void SeparatedFile::PassLineEnd() {
  if (position_ >= text_.size()) return;
  const bool pair = text_[position_] == '\r' && position_ + 1 < text_.size() && text_[position_ + 1] == '\n';
  position_ += pair ? 2 : 1;
}

}  // namespace ostrinka
