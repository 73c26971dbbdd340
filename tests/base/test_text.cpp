#include <gtest/gtest.h>

#include "base/text.h"

namespace ostrinka {
namespace {

TEST(CodePage, EveryByteSurvivesTheRoundTrip) {
  std::string bytes;
  for (int b = 0; b < 256; ++b) bytes.push_back(static_cast<char>(b));
  EXPECT_EQ(ToCp1250(FromCp1250(bytes)), bytes);
  EXPECT_EQ(ToCp1250("Żółć €"), "\xAF\xF3\xB3\xE6 \x80");
  EXPECT_EQ(ToCp1250("中\xFF"), "??");
}

TEST(CodePage, MalformedTextIsSeen) {
  for (const char* text : {"\xC0\x80", "\xED\xA0\x80", "\xF5\x80\x80\x80", "\xC5", "a\x80"}) EXPECT_FALSE(IsUtf8(text));
  EXPECT_EQ(DecodeFileText("\xEF\xBB\xBFż"), "ż");
  EXPECT_EQ(DecodeFileText("\xBF"), "ż");
}

TEST(Letters, CaseAndFoldingKnowPolish) {
  EXPECT_EQ(Lower("ŻÓŁĆ ĄĘŚŹŃ ÄÖÜ Š"), "żółć ąęśźń äöü š");
  EXPECT_EQ(Upper("zażółć gęślą jaźń é"), "ZAŻÓŁĆ GĘŚLĄ JAŹŃ É");
  EXPECT_EQ(FoldPolish("Żary Łódź ĄĆĘŃÓŚŹ"), "zary lodz acenosz");
  const std::string mixed = ToCp1250("ŻółwŚ");
  std::string folded;
  for (const char c : mixed) folded.push_back(static_cast<char>(Cp1250FoldTable()[static_cast<uint8_t>(c)]));
  EXPECT_EQ(folded, "zolws");
}

TEST(Letters, ANameBelongsToTheRangeOfItsBaseLetter) {
  const struct {
    const char *name, *range;
    bool within;
  } rows[] = {{"Ćwik", "AD", true},  {"Łęcki", "IL", true}, {"Ósemka", "MP", true}, {"Śliwa", "QT", true}, {"Źródło", "XZ", true},
              {"Żuraw", "XZ", true}, {"żuk", "XZ", true},   {"Ćwik", "EH", false},  {" Ada", "AD", true},  {"3 Maja", "09", true},
              {"Ada", "09", false},  {"", "AD", false},     {"ÄB", "AD", false}};
  for (const auto& row : rows) {
    const std::string_view range = row.range;
    EXPECT_EQ(BeginsWithin(row.name, range.substr(0, 1), range.substr(1)), row.within) << row.name << row.range;
  }
}

TEST(Addresses, NothingIsAddedToAMailAddress) {
  EXPECT_EQ(MailAddress("jan.kowalski+vat@poczta.example"), "mailto:jan.kowalski+vat@poczta.example");
  EXPECT_EQ(MailAddress("a@b.pl?attach=/etc/passwd&cc=c#d %41"), "mailto:a@b.pl%3Fattach%3D%2Fetc%2Fpasswd%26cc%3Dc%23d%20%2541");
  EXPECT_EQ(MailAddress("żuk@b.pl"), "mailto:%C5%BCuk@b.pl");
}

TEST(FileNames, LoseEveryFolderPart) {
  const struct {
    const char* path;
    const char* name;
  } rows[] = {{"/etc/passwd", "passwd"}, {"..\\..\\x.exe", "x.exe"}, {"C:evil", "evil"}, {"..", ""}, {".", ""}, {"a/", ""},
              {"skan.pdf ", "skan.pdf"}};
  for (const auto& row : rows) EXPECT_EQ(BareFileName(row.path), row.name) << row.path;
}

TEST(Texts, ParagraphsAndCutting) {
  EXPECT_EQ(Paragraphs("a\r\nb\nc\rd\n\re"), (std::vector<std::string>{"a", "b", "c", "d", "e"}));
  EXPECT_EQ(LeftCharacters("żółw", 2), "żó");
  EXPECT_EQ(Trim("  a\t "), "a\t");
  EXPECT_EQ(ReplaceAll("aaa", "aa", "b"), "ba");
}

}  // namespace
}  // namespace ostrinka
