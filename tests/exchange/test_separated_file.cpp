#include <gtest/gtest.h>

#include <fstream>

#include "base/text.h"
#include "exchange/separated_file.h"
#include "support/test_platform.h"

namespace ostrinka {
namespace {

using Rows = std::vector<std::vector<std::string>>;
using Opened = SeparatedFile::OpenResult;

// The rows of a file without faults; a damaged row is {"!", its fault}.
Rows RowsOf(const std::string& bytes) {
  SeparatedFile file;
  EXPECT_EQ(file.OpenBytes(bytes), Opened::kOpened);
  Rows rows;
  for (SeparatedRow row; file.Next(row);) {
    rows.push_back(row.fault == RowFault::kNone ? row.fields : std::vector<std::string>{"!", std::to_string(static_cast<int>(row.fault))});
  }
  return rows;
}

std::vector<std::string> Damaged(RowFault fault) {
  return {"!", std::to_string(static_cast<int>(fault))};
}

TEST(SeparatedFile, SeparatorsAndQuotesAreFoundFromTheFirstLines) {
  const Rows expected = {{"A", "B", "C"}, {"x;y,z\t", "2", "'\""}};
  for (const char separator : {';', ',', '\t'}) {
    for (const char quote : {'"', '\''}) {
      for (const char* end : {"\r\n", "\n", "\r"}) {
        const std::string s(1, separator), q(1, quote), last = quote == '"' ? "'\"\"" : "''\"";
        const std::string bytes = "A" + s + "B" + s + "C" + end + q + "x;y,z\t" + q + s + "2" + s + q + last + q + end;
        EXPECT_EQ(RowsOf(bytes), expected) << separator << quote;
        SeparatedFile file;
        file.OpenBytes(bytes);
        EXPECT_EQ(file.separator(), separator);
        EXPECT_EQ(file.quote(), quote);
      }
    }
  }
  // A separator in a quoted heading does not count, nor those of later lines; an apostrophe that opens nothing is a letter.
  EXPECT_EQ(RowsOf("\"a,b,c\";d\n1;2"), (Rows{{"a,b,c", "d"}, {"1", "2"}}));
  EXPECT_EQ(RowsOf("\n \nnazwa\nKowal, Nowak i S-ka\n"), (Rows{{"nazwa"}, {"Kowal, Nowak i S-ka"}}));
  EXPECT_EQ(RowsOf("a;b\n't Hooft;2\n5\" rura;x 'y'\n"), (Rows{{"a", "b"}, {"'t Hooft", "2"}, {"5\" rura", "x 'y'"}}));
}

TEST(SeparatedFile, QuotedTextsHoldLineEndsQuotesAndTheNotationOfTheExport) {
  EXPECT_EQ(RowsOf("a;b\r\n\"1\r\n2\";\"say \"\"no\"\"\"\r\n\"A&H22B &H27\";&H22\r\n \"c\" ; \"\"\r\n"),
            (Rows{{"a", "b"}, {"1\r\n2", "say \"no\""}, {"A\"B &H27", "&H22"}, {"c", ""}}));
}

TEST(SeparatedFile, EncodingsGiveTheSameText) {
  const std::string text = "nazwa;miejscowość\nŻółć;Łódź\n";
  const Rows expected = {{"nazwa", "miejscowość"}, {"Żółć", "Łódź"}};
  std::string little = "\xFF\xFE", big = "\xFE\xFF";
  for (const char32_t letter : CodePoints(text)) {
    little += {static_cast<char>(letter & 255), static_cast<char>(letter >> 8)};
    big += {static_cast<char>(letter >> 8), static_cast<char>(letter & 255)};
  }
  for (const std::string& bytes : {text, "\xEF\xBB\xBF" + text, ToCp1250(text), little, big, text + "\x1A"}) {
    EXPECT_EQ(RowsOf(bytes), expected);
  }
  // A spoilt byte in a marked file stays one letter, and the mark does not become text.
  EXPECT_EQ(RowsOf("\xEF\xBB\xBFnazwa\n\xC5x\n"), (Rows{{"nazwa"}, {"\uFFFDx"}}));
}

TEST(SeparatedFile, BlankRowsArePassedOverButCounted) {
  SeparatedFile file;
  ASSERT_EQ(file.OpenBytes("\n\na;b\n;\n \n1;2\n\n"), Opened::kOpened);
  SeparatedRow row;
  ASSERT_TRUE(file.Next(row));
  EXPECT_EQ(row.number, 3);
  ASSERT_TRUE(file.Next(row));
  EXPECT_EQ(row.number, 6);
  EXPECT_EQ(row.fields, (std::vector<std::string>{"1", "2"}));
  EXPECT_FALSE(file.Next(row));
}

TEST(SeparatedFile, ADamagedRowLeavesTheOthers) {
  EXPECT_EQ(RowsOf("a;b\n\"x\"y;1\nc;d\n"), (Rows{{"a", "b"}, Damaged(RowFault::kTextAfterQuote), {"c", "d"}}));
  EXPECT_EQ(RowsOf("a;b\n\"x;1\nc;d\ne;f"), (Rows{{"a", "b"}, Damaged(RowFault::kOpenQuote), {"c", "d"}, {"e", "f"}}));
  EXPECT_EQ(RowsOf("a;b\nx\x01;1\nc;d\n"), (Rows{{"a", "b"}, Damaged(RowFault::kControlLetter), {"c", "d"}}));
  const std::string ten_megabytes(size_t{10} << 20, 'x');
  EXPECT_EQ(RowsOf("a;b\n" + ten_megabytes + "\nc;d\n"), (Rows{{"a", "b"}, Damaged(RowFault::kTooLong), {"c", "d"}}));
  EXPECT_EQ(RowsOf("a;b\n\"" + ten_megabytes + "\nc;d\n"), (Rows{{"a", "b"}, Damaged(RowFault::kOpenQuote), {"c", "d"}}));
  const std::string longest(kSeparatedRowLimit - 2, 'x');
  EXPECT_EQ(RowsOf("a;b\n" + longest + ";2\n"), (Rows{{"a", "b"}, {longest, "2"}}));
}

// Every line opens a quote that the next one closes: no line is read again and again.
TEST(SeparatedFile, ManyOpenQuotesEnd) {
  std::string bytes = "a;b\n";
  for (int i = 0; i < 200'000; ++i) bytes += "\"x\n\"\"y\n";
  const Rows rows = RowsOf(bytes);
  EXPECT_EQ(rows.size(), 400'001u);
  EXPECT_EQ(rows.back(), Damaged(RowFault::kTextAfterQuote));
}

TEST(SeparatedFile, WhatIsNoTextIsRefused) {
  SeparatedFile file;
  EXPECT_EQ(file.OpenBytes(""), Opened::kEmpty);
  EXPECT_EQ(file.OpenBytes("\xEF\xBB\xBF \r\n\r\n\x1A"), Opened::kEmpty);
  EXPECT_EQ(file.OpenBytes(std::string("nazwa;b\n1\0;2\n", 13)), Opened::kNotText);
  EXPECT_EQ(file.OpenBytes(std::string("PK\x03\x04\0\0\x08\0", 8)), Opened::kNotText);
  EXPECT_EQ(file.OpenBytes("\xFF\xFE" + std::string(4, '\0')), Opened::kNotText);
  TestPlatform platform;
  const std::string path = platform.folder / "huge.csv";
  EXPECT_EQ(file.Open(platform.files, path), Opened::kUnreadable);
  EXPECT_EQ(file.Open(platform.files, platform.folder.path()), Opened::kUnreadable) << "a folder";
  std::ofstream(path) << "nazwa\n";
  EXPECT_EQ(file.Open(platform.files, path), Opened::kOpened);
  std::filesystem::resize_file(path, static_cast<uintmax_t>(kSeparatedFileLimit) + 1);
  EXPECT_EQ(file.Open(platform.files, path), Opened::kTooLarge);
}

}  // namespace
}  // namespace ostrinka
