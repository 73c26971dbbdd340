// A text file of rows and fields, as this program and spreadsheets write it.
//
// Fields stand between semicolons, commas or tabs, texts may stand in double or single quotes: which of them a file uses is found from its
// first lines. A quoted text may hold separators, line ends and its own quote, doubled or in this program's notation "&H22". Files are
// Windows-1250, UTF-8 or UTF-16 with its mark; lines end with CR LF, LF or CR. Nothing in a file is trusted: its size, the length of a row
// and the quotes are checked, and after a damaged row reading goes on with the next line.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

namespace ostrinka {

inline constexpr int64_t kSeparatedFileLimit = int64_t{64} << 20;  // bytes
inline constexpr size_t kSeparatedRowLimit = size_t{64} << 10;     // bytes of a row in UTF-8

enum class RowFault {
  kNone,
  kTooLong,
  kOpenQuote,       // a quoted text does not end, or not within a row's length
  kTextAfterQuote,  // something stands between a closing quote and the next separator
  kControlLetter,   // a character that is no text
};

struct SeparatedRow {
  int number = 0;  // as a spreadsheet counts the rows, from 1
  RowFault fault = RowFault::kNone;
  std::vector<std::string> fields;  // UTF-8; empty in a damaged row
};

class SeparatedFile {
 public:
  enum class OpenResult { kOpened, kUnreadable, kTooLarge, kNotText, kEmpty };
  OpenResult Open(FileSystem& files, const std::string& path);
  // The same from the bytes of a file.
  OpenResult OpenBytes(const std::string& bytes);

  // The next row that is not blank; false at the end.
  bool Next(SeparatedRow& row);

  char separator() const { return separator_; }
  char quote() const { return quote_; }

 private:
  bool AtFieldEnd(size_t at) const;
  size_t AfterBlanks(size_t at) const;
  void FindSeparator();
  void FindQuote();
  int QuotedFields(char quote) const;
  RowFault ReadRow(std::vector<std::string>& fields);
  RowFault ReadPlain(std::string& field, size_t limit);
  RowFault ReadQuoted(std::string& field, size_t limit);
  void PassLineEnd();

  std::string text_;
  size_t position_ = 0;
  int row_ = 0;
  char separator_ = ';', quote_ = '"';
};

}  // namespace ostrinka
