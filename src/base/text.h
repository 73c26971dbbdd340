// Text: UTF-8 in memory, Windows-1250 in files; Polish case and folding.
//
// Where a rule speaks of characters, code points count; where of bytes or codes, those of Windows-1250.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ostrinka {

// The Windows-1250 byte of a code point; nothing when the code page lacks it. The five unassigned bytes stand for the control
// characters of the same number, so that any byte survives a round trip.
std::optional<uint8_t> Cp1250Byte(char32_t code_point);
char32_t CodePointOfCp1250(uint8_t byte);

// UTF-8 to Windows-1250; a letter that the code page lacks becomes '?', a malformed sequence too.
std::string ToCp1250(std::string_view utf8);
std::string FromCp1250(std::string_view bytes);

bool IsUtf8(std::string_view bytes);
// A file's text as UTF-8: taken as it is when it is valid UTF-8 (a byte order mark is dropped), else read as Windows-1250.
std::string DecodeFileText(std::string_view bytes);

std::u32string CodePoints(std::string_view utf8);  // malformed bytes become U+FFFD
std::string FromCodePoints(std::u32string_view code_points);
size_t CharacterCount(std::string_view utf8);
// The first `count` characters.
std::string LeftCharacters(std::string_view utf8, size_t count);

// Blanks at both ends are taken away; other white space stays.
std::string Trim(std::string_view text);
// The same for blanks, tabs and line ends.
std::string TrimWhite(std::string_view text);

// Letters of Latin-1, Latin Extended-A and ASCII change case; everything else stays.
std::string Lower(std::string_view utf8);
std::string Upper(std::string_view utf8);
// Lower case, then ą ć ę ł ń ó ś ź ż as a c e l n o s z z: the key that lists are sorted by.
std::string FoldPolish(std::string_view utf8);
// Whether the first letter of `name`, in any case and a Polish one as the letter that it is made from, lies from `first` to `last`. False
// for an empty name.
bool BeginsWithin(std::string_view name, std::string_view first, std::string_view last);
// "mailto:" and the address with everything encoded that would end it or add to it.
std::string MailAddress(std::string_view address);

// Lower-case and folded forms byte by byte in Windows-1250, for comparing what lies in a table without decoding it.
const uint8_t* Cp1250LowerTable();  // 256 entries
const uint8_t* Cp1250FoldTable();   // 256 entries

std::string ReplaceAll(std::string_view text, std::string_view what, std::string_view with);
std::vector<std::string> Split(std::string_view text, char separator);
bool Contains(std::string_view text, std::string_view part);
bool StartsWith(std::string_view text, std::string_view start);
bool IsAllDigits(std::string_view text);  // false for an empty text

// CR LF, LF CR and lone LF become CR; the text is split at CR.
std::vector<std::string> Paragraphs(std::string_view text);

// The last part of a path; both slashes separate, and a drive's colon too. Never holds a separator; "." and ".." give "".
std::string BareFileName(std::string_view path);

}  // namespace ostrinka
