// Pictures on their way into the PDF: a bitmap of 24 bits as its file has it, any other as one made of it.
#include <gtest/gtest.h>

#include "platform/posix/picture_decoder.h"
#include "print/pdf_reader.h"
#include "print/print.h"
#include "support/picture_files.h"
#include "support/test_platform.h"

namespace ostrinka {
namespace {

class PicturesInPdf : public testing::Test {
 protected:
  std::string Write(const std::string& name, const std::string& bytes) {
    EXPECT_TRUE(surroundings.files.WriteAll(surroundings.folder / name, bytes));
    return surroundings.folder / name;
  }
  void Begin() {
    job = std::make_unique<ClassPRINT>(program);
    job->BEGIN_PAGE(false);
  }
  std::string Pdf() {
    job->END_PAGE();
    EXPECT_TRUE(job->MAKE_PDF(surroundings.folder / "job.pdf"));
    return FileContent(surroundings.folder / "job.pdf");
  }
  // Width, height and rows of each picture, as "3 x 2: FF0000... ...".
  static std::vector<std::string> Images(const std::string& pdf) {
    std::vector<std::string> images;
    for (size_t at = 0; (at = pdf.find("/Subtype /Image\r\n", at)) != std::string::npos; ++at) {
      const auto number = [&](const char* name) {
        return std::to_string(std::atoi(pdf.c_str() + pdf.find(name, at) + std::string(name).size()));
      };
      const size_t from = pdf.find("stream\r\n", at) + 8;
      const std::string rows = TrimWhite(pdf.substr(from, pdf.find("endstream", from) - from));
      images.push_back(number("/Width ") + " x " + number("/Height ") + ": " + ReplaceAll(rows, "\r\n", " "));
    }
    return images;
  }

  TestPlatform surroundings;
  FilePictureDecoder decoder{surroundings.files};
  Platform platform = surroundings.With(decoder);
  Program program{platform};
  std::unique_ptr<ClassPRINT> job;
};

TEST_F(PicturesInPdf, EveryKindArrivesAsABitmapOfTheSamePixels) {
  const std::string expected = "3 x 2: FFFFFF000000FF0000 FF000000FF000000FF";  // the lowest row first
  const Picture colours = SixColours();
  const struct {
    const char* what;
    std::string file;
  } rows[] = {{"4 bits", BitmapOf(colours, 4)},
              {"8 bits", BitmapOf(colours, 8)},
              {"16 bits", BitmapOf(colours, 16)},
              {"24 bits", BitmapOf(colours, 24)},
              {"24 bits top-down", BitmapOf(colours, 24, true)},
              {"32 bits", BitmapOf(colours, 32)},
              {"png", PngOf(colours)},
              {"png with a palette", PngOf(colours, PNG_COLOR_TYPE_PALETTE, 4)},
              {"png of 48 bits", PngOf(colours, PNG_COLOR_TYPE_RGB, 16)},
              {"gif", GifOf(colours)}};
  for (const auto& row : rows) {
    Begin();
    job->IMAGE_ADD(10, 10, 20, 20, Write("logo.img", row.file));
    EXPECT_EQ(Images(Pdf()), std::vector{expected}) << row.what;
  }
  Picture plain{16, 16, std::vector<uint32_t>(256, 0xFF204060)};
  Begin();
  job->IMAGE_ADD(10, 10, 20, 20, Write("logo.img", JpegOf(plain)));
  const std::vector<std::string> images = Images(Pdf());
  ASSERT_EQ(images.size(), 1u);
  EXPECT_TRUE(StartsWith(images[0], "16 x 16: ")) << images[0];
  EXPECT_NEAR(std::stol(images[0].substr(9, 2), nullptr, 16), 0x20, 3);
}

TEST_F(PicturesInPdf, WhatIsTransparentIsWhitePaper) {
  Begin();
  job->IMAGE_ADD(10, 10, 20, 20, Write("logo.img", PngOf({2, 1, {0x00000000, 0x80000000}})));
  EXPECT_EQ(Images(Pdf()), std::vector<std::string>{"2 x 1: FFFFFF7F7F7F"});
}

TEST_F(PicturesInPdf, AnUnreadableOneLeavesNoObjectAndASoundOneTheSameRowsOnEveryPage) {
  const std::string broken = Write("broken.img", PngOf(SixColours()).substr(0, 60)), logo = Write("logo.img", PngOf(SixColours()));
  Begin();
  for (int page = 1; page <= 3; ++page) {
    if (page > 1) job->BEGIN_PAGE(page == 2);
    job->IMAGE_ADD(10, 10, 20, 20, broken);
    job->IMAGE_ADD(10, 10, 20, 20, logo);
  }
  const std::string pdf = Pdf();
  const std::vector<std::string> images = Images(pdf);
  ASSERT_EQ(images.size(), 3u);  // an object a page, kept
  EXPECT_EQ(images[0], images[2]);
  int page = 0;
  for (const std::string& content : PdfPages(pdf)) {
    EXPECT_NE(content.find("/Image" + std::to_string(++page) + " Do"), std::string::npos);
    EXPECT_EQ(content.find(" Do"), content.rfind(" Do"));
  }
}

TEST_F(PicturesInPdf, ALargePictureIsMadeNoFinerThanPaper) {
  Begin();
  Picture large{480, 240, std::vector<uint32_t>(480 * 240, 0xFF102030)};
  job->IMAGE_ADD(10, 10, 20, 15, Write("logo.img", PngOf(large)));  // 10 mm hold 240 of the 480 columns
  const std::vector<std::string> images = Images(Pdf());
  ASSERT_EQ(images.size(), 1u);
  EXPECT_TRUE(StartsWith(images[0], "240 x 120: 102030102030")) << images[0].substr(0, 40);
}

}  // namespace
}  // namespace ostrinka
