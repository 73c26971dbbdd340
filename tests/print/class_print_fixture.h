// A job of ClassPRINT without a printer, and what a player and a reader of its PDF see of it.
#pragma once

#include <gtest/gtest.h>

#include "platform/recording_canvas.h"
#include "print/pdf_reader.h"
#include "print/print.h"
#include "support/test_platform.h"

namespace ostrinka {

using Call = RecordingCanvas::Call;

class ClassPrintTest : public testing::Test {
 protected:
  // What a player draws of a page, at 10 pixels a mm of a portrait sheet.
  std::vector<Call> Played(int page) {
    RecordingCanvas canvas(2100, 2970);
    print->PRINT_PAGE_(page, &canvas, 10);
    return canvas.calls();
  }
  std::vector<std::string> PlayedTexts(int page) {
    std::vector<std::string> texts;
    for (const Call& call : Played(page)) {
      if (call.kind == Call::Kind::kText) texts.push_back(call.text);
    }
    return texts;
  }
  std::string Pdf() {
    EXPECT_TRUE(print->MAKE_PDF(surroundings.folder / "job.pdf"));
    return FileContent(surroundings.folder / "job.pdf");
  }
  std::vector<std::string> PdfTextsOf(int page) {
    std::vector<std::string> texts;
    for (const PdfText& text : PdfTexts(Pdf())) {
      if (text.page == page) texts.push_back(text.text);
    }
    return texts;
  }
  static std::string Repeated(const std::string& text, int count) {
    std::string result;
    while (count-- > 0) result += text;
    return result;
  }

  TestPlatform surroundings;
  Program program{surroundings.platform};
  std::unique_ptr<ClassPRINT> print = std::make_unique<ClassPRINT>(program);
};

}  // namespace ostrinka
