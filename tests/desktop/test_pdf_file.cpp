// PDF files with embedded fonts: what a reader of such files finds in them.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>

#include "desktop/pdf_file.h"
#include "platform/posix/posix_files.h"
#include "support/test_platform.h"

namespace ostrinka {
namespace {

std::string OutputOf(const std::string& command) {
  std::string output;
  FILE* pipe = popen((command + " 2>&1").c_str(), "r");
  char buffer[4096];
  for (size_t length; (length = fread(buffer, 1, sizeof buffer, pipe)) > 0;) output.append(buffer, length);
  output += "exit " + std::to_string(pclose(pipe));
  return output;
}

class PdfFileTest : public ::testing::Test {
 protected:
  // Two sheets, upright and lying, with a word each.
  bool Write(const std::string& path) {
    if (!pdf.Start(path)) return false;
    for (const bool lying : {false, true}) {
      double scale = 0;
      Canvas* sheet = lying ? pdf.StartPage(297, 210, scale) : pdf.StartPage(210, 297, scale);
      if (!sheet) return false;
      sheet->DrawText({20 * scale, 20 * scale}, "Zażółć gęślą jaźń", {"Arial CE", 5 * scale}, 0, Anchor::kLeft, 0);
    }
    return pdf.Finish();
  }
  std::string Content(const std::string& path) {
    std::string content;
    PosixFileSystem().ReadAll(path, content);
    return content;
  }
  TemporaryFolder folder;
  QtPdfFile pdf;
};

TEST_F(PdfFileTest, EachSheetHasItsSizeAndTheFontsAreInTheFile) {
  const std::string path = folder / "a.pdf";
  ASSERT_TRUE(Write(path));
  EXPECT_TRUE(OutputOf("qpdf --check " + path).ends_with("exit 0"));
  const std::string plain = OutputOf("qpdf --qdf --object-streams=disable " + path + " -");
  for (const char* part : {"/FontFile", "/ToUnicode"}) EXPECT_NE(plain.find(part), std::string::npos) << part;
  std::vector<std::string> sheets;  // in points
  for (size_t at = 0; (at = plain.find("/MediaBox", at)) != std::string::npos; ++at) {
    int width = 0, height = 0;
    std::sscanf(plain.c_str() + at, "/MediaBox [ 0 0 %d.%*d %d", &width, &height);
    sheets.push_back(std::to_string(width) + " x " + std::to_string(height));
  }
  EXPECT_EQ(sheets, (std::vector<std::string>{"595 x 842", "842 x 595"}));
}

TEST_F(PdfFileTest, WhatStoodThereStaysUntilTheNewFileIsWhole) {
  const std::string path = folder / "a.pdf";
  ASSERT_TRUE(Write(path));
  const std::string before = Content(path);
  double scale = 0;
  ASSERT_TRUE(pdf.Start(path));
  ASSERT_NE(pdf.StartPage(210, 297, scale), nullptr);
  EXPECT_EQ(Content(path), before);
  ASSERT_TRUE(pdf.Start(folder / "b.pdf"));  // gives the one begun up
  EXPECT_FALSE(pdf.Finish());                // no sheet
  EXPECT_EQ(Content(path), before);
  EXPECT_FALSE(std::filesystem::exists(folder / "b.pdf"));
  EXPECT_FALSE(pdf.Start(folder / "no such folder/a.pdf"));
  EXPECT_EQ(pdf.StartPage(210, 297, scale), nullptr);
  EXPECT_TRUE(Write(path));
}

}  // namespace
}  // namespace ostrinka
