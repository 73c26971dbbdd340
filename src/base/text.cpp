#include "base/text.h"

#include <algorithm>
#include <array>

#include "base/cp1250_table.h"

namespace ostrinka {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

// Decodes one code point at `position` and moves past it; a malformed byte gives U+FFFD and moves by one.
char32_t NextCodePoint(std::string_view text, size_t& position, bool* malformed = nullptr) {
  const auto byte = [&](size_t i) { return static_cast<uint8_t>(text[i]); };
  const uint8_t first = byte(position++);
  if (first < 0x80) return first;
  const int extra = first >= 0xF0 && first < 0xF5 ? 3 : first >= 0xE0 && first < 0xF0 ? 2 : first >= 0xC2 && first < 0xE0 ? 1 : 0;
  const auto fail = [&] {
    if (malformed) *malformed = true;
    return kReplacement;
  };
  if (extra == 0 || position + static_cast<size_t>(extra) > text.size()) return fail();
  char32_t code = extra == 3 ? first & 0x07u : extra == 2 ? first & 0x0Fu : first & 0x1Fu;
  for (int i = 0; i < extra; ++i) {
    const uint8_t next = byte(position + static_cast<size_t>(i));
    if ((next & 0xC0) != 0x80) return fail();
    code = code << 6 | (next & 0x3Fu);
  }
  const char32_t smallest = extra == 3 ? 0x10000 : extra == 2 ? 0x800 : 0x80;
  if (code < smallest || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) return fail();
  position += static_cast<size_t>(extra);
  return code;
}

void AppendCodePoint(std::string& to, char32_t code) {
  const auto put = [&](char32_t byte) { to.push_back(static_cast<char>(static_cast<uint8_t>(byte))); };
  if (code < 0x80) {
    put(code);
  } else if (code < 0x800) {
    put(0xC0 | code >> 6);
    put(0x80 | (code & 0x3F));
  } else if (code < 0x10000) {
    put(0xE0 | code >> 12);
    put(0x80 | (code >> 6 & 0x3F));
    put(0x80 | (code & 0x3F));
  } else {
    put(0xF0 | code >> 18);
    put(0x80 | (code >> 12 & 0x3F));
    put(0x80 | (code >> 6 & 0x3F));
    put(0x80 | (code & 0x3F));
  }
}

struct HighByte {
  char32_t code;
  uint8_t byte;
};

std::array<HighByte, 128> SortedHighBytes() {
  std::array<HighByte, 128> result{};
  for (int i = 0; i < 128; ++i) result[static_cast<size_t>(i)] = {kCp1250High[i], static_cast<uint8_t>(128 + i)};
  std::sort(result.begin(), result.end(), [](const HighByte& a, const HighByte& b) { return a.code < b.code; });
  return result;
}

char32_t LowerCodePoint(char32_t c) {
  if (c >= 'A' && c <= 'Z') return c + 32;
  if (c >= 0xC0 && c <= 0xDE && c != 0xD7) return c + 32;
  if ((c >= 0x100 && c <= 0x137) || (c >= 0x14A && c <= 0x177)) return c % 2 == 0 ? c + 1 : c;
  if ((c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E)) return c % 2 == 1 ? c + 1 : c;
  if (c == 0x178) return 0xFF;
  return c;
}

char32_t UpperCodePoint(char32_t c) {
  if (c >= 'a' && c <= 'z') return c - 32;
  if (c >= 0xE0 && c <= 0xFE && c != 0xF7) return c - 32;
  if (c == 0x131) return 'I';
  if ((c >= 0x100 && c <= 0x137) || (c >= 0x14A && c <= 0x177)) return c % 2 == 1 ? c - 1 : c;
  if ((c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E)) return c % 2 == 0 ? c - 1 : c;
  if (c == 0xFF) return 0x178;
  return c;
}

// Of a lower-case letter.
char32_t BaseOfPolish(char32_t c) {
  switch (c) {
    case U'ą':
      return 'a';
    case U'ć':
      return 'c';
    case U'ę':
      return 'e';
    case U'ł':
      return 'l';
    case U'ń':
      return 'n';
    case U'ó':
      return 'o';
    case U'ś':
      return 's';
    case U'ź':
    case U'ż':
      return 'z';
    default:
      return c;
  }
}

template <typename Map>
std::string MapCodePoints(std::string_view text, Map map) {
  std::string result;
  result.reserve(text.size());
  for (size_t i = 0; i < text.size();) {
    if (static_cast<uint8_t>(text[i]) < 0x80) {
      result.push_back(static_cast<char>(map(static_cast<uint8_t>(text[i++]))));
    } else {
      AppendCodePoint(result, map(NextCodePoint(text, i)));
    }
  }
  return result;
}

template <typename Map>
std::array<uint8_t, 256> MapBytes(Map map) {
  std::array<uint8_t, 256> table{};
  for (size_t b = 0; b < 256; ++b) {
    const auto mapped = Cp1250Byte(map(CodePointOfCp1250(static_cast<uint8_t>(b))));
    table[b] = mapped.value_or(static_cast<uint8_t>(b));
  }
  return table;
}

}  // namespace

std::optional<uint8_t> Cp1250Byte(char32_t code) {
  if (code < 128) return static_cast<uint8_t>(code);
  static const std::array<HighByte, 128> table = SortedHighBytes();
  const auto found = std::lower_bound(table.begin(), table.end(), code, [](const HighByte& entry, char32_t c) { return entry.code < c; });
  if (found == table.end() || found->code != code) return std::nullopt;
  return found->byte;
}

char32_t CodePointOfCp1250(uint8_t byte) {
  return byte < 128 ? byte : kCp1250High[byte - 128];
}

std::string ToCp1250(std::string_view utf8) {
  std::string result;
  result.reserve(utf8.size());
  for (size_t i = 0; i < utf8.size();) result.push_back(static_cast<char>(Cp1250Byte(NextCodePoint(utf8, i)).value_or('?')));
  return result;
}

std::string FromCp1250(std::string_view bytes) {
  std::string result;
  result.reserve(bytes.size() + bytes.size() / 8);
  for (const char c : bytes) AppendCodePoint(result, CodePointOfCp1250(static_cast<uint8_t>(c)));
  return result;
}

bool IsUtf8(std::string_view bytes) {
  bool malformed = false;
  for (size_t i = 0; i < bytes.size() && !malformed;) NextCodePoint(bytes, i, &malformed);
  return !malformed;
}

std::string DecodeFileText(std::string_view bytes) {
  if (!IsUtf8(bytes)) return FromCp1250(bytes);
  if (StartsWith(bytes, "\xEF\xBB\xBF")) bytes.remove_prefix(3);
  return std::string(bytes);
}

std::u32string CodePoints(std::string_view utf8) {
  std::u32string result;
  result.reserve(utf8.size());
  for (size_t i = 0; i < utf8.size();) result.push_back(NextCodePoint(utf8, i));
  return result;
}

std::string FromCodePoints(std::u32string_view code_points) {
  std::string result;
  for (const char32_t code : code_points) AppendCodePoint(result, code);
  return result;
}

size_t CharacterCount(std::string_view utf8) {
  size_t count = 0;
  for (size_t i = 0; i < utf8.size(); ++count) NextCodePoint(utf8, i);
  return count;
}

std::string LeftCharacters(std::string_view utf8, size_t count) {
  size_t i = 0;
  for (; i < utf8.size() && count > 0; --count) NextCodePoint(utf8, i);
  return std::string(utf8.substr(0, i));
}

namespace {

std::string TrimOf(std::string_view text, std::string_view white) {
  const size_t first = text.find_first_not_of(white);
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(white) - first + 1));
}

}  // namespace

std::string Trim(std::string_view text) {
  return TrimOf(text, " ");
}
std::string TrimWhite(std::string_view text) {
  return TrimOf(text, " \t\r\n");
}

std::string Lower(std::string_view utf8) {
  return MapCodePoints(utf8, LowerCodePoint);
}
std::string Upper(std::string_view utf8) {
  return MapCodePoints(utf8, UpperCodePoint);
}
std::string FoldPolish(std::string_view utf8) {
  return MapCodePoints(utf8, [](char32_t c) { return BaseOfPolish(LowerCodePoint(c)); });
}

bool BeginsWithin(std::string_view name, std::string_view first, std::string_view last) {
  const std::string letter = FoldPolish(LeftCharacters(Trim(name), 1));
  return !letter.empty() && letter >= FoldPolish(first) && letter <= FoldPolish(last);
}

std::string MailAddress(std::string_view address) {
  constexpr std::string_view kPlain = "-._~@+,", kDigits = "0123456789ABCDEF";
  std::string text = "mailto:";
  for (const char c : address) {
    const auto byte = static_cast<unsigned char>(c);
    const bool plain = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || kPlain.find(c) != kPlain.npos;
    text += plain ? std::string(1, c) : std::string{'%', kDigits[byte >> 4], kDigits[byte & 15]};
  }
  return text;
}

const uint8_t* Cp1250LowerTable() {
  static const auto table = MapBytes(LowerCodePoint);
  return table.data();
}

const uint8_t* Cp1250FoldTable() {
  static const auto table = MapBytes([](char32_t c) { return BaseOfPolish(LowerCodePoint(c)); });
  return table.data();
}

std::string ReplaceAll(std::string_view text, std::string_view what, std::string_view with) {
  if (what.empty()) return std::string(text);
  std::string result;
  size_t from = 0;
  for (size_t at; (at = text.find(what, from)) != std::string_view::npos; from = at + what.size()) {
    result.append(text.substr(from, at - from)).append(with);
  }
  return result.append(text.substr(from));
}

std::vector<std::string> Split(std::string_view text, char separator) {
  std::vector<std::string> parts;
  size_t from = 0;
  for (size_t at; (at = text.find(separator, from)) != std::string_view::npos; from = at + 1)
    parts.emplace_back(text.substr(from, at - from));
  parts.emplace_back(text.substr(from));
  return parts;
}

bool Contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}
bool StartsWith(std::string_view text, std::string_view start) {
  return text.substr(0, start.size()) == start;
}

bool IsAllDigits(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

std::vector<std::string> Paragraphs(std::string_view text) {
  const std::string crs = ReplaceAll(ReplaceAll(ReplaceAll(text, "\r\n", "\r"), "\n\r", "\r"), "\n", "\r");
  return Split(crs, '\r');
}

std::string BareFileName(std::string_view path) {
  const size_t cut = path.find_last_of("/\\:");
  std::string name(cut == std::string_view::npos ? path : path.substr(cut + 1));
  name.erase(std::remove_if(name.begin(), name.end(), [](char c) { return static_cast<uint8_t>(c) < 32; }), name.end());
  name = Trim(name);
  return name == "." || name == ".." ? std::string() : name;
}

}  // namespace ostrinka
