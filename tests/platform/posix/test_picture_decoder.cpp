// Picture files: every kind and depth, damaged ones, and those made to harm.
#include <gtest/gtest.h>

#include <random>

#include "platform/posix/picture_decoder.h"
#include "support/picture_files.h"
#include "support/test_platform.h"

namespace ostrinka {
namespace {

class PictureDecoderTest : public testing::Test {
 protected:
  std::optional<Picture> Decoded(const std::string& bytes) {
    EXPECT_TRUE(files.WriteAll(folder / "picture", bytes));
    return decoder.Decode(folder / "picture");
  }
  void ExpectPixels(const std::string& bytes, const Picture& expected, const std::string& what) {
    const std::optional<Picture> picture = Decoded(bytes);
    ASSERT_TRUE(picture) << what;
    EXPECT_EQ(picture->width, expected.width) << what;
    EXPECT_EQ(picture->height, expected.height) << what;
    EXPECT_EQ(picture->pixels, expected.pixels) << what;
  }

  TemporaryFolder folder;
  PosixFileSystem files;
  FilePictureDecoder decoder{files};
};

TEST_F(PictureDecoderTest, BitmapsOfEveryDepthStandUprightAndTopDown) {
  const Picture black_and_white{3, 2, {0xFF000000, 0xFFFFFFFF, 0xFF000000, 0xFFFFFFFF, 0xFFFFFFFF, 0xFF000000}};
  for (const bool top_down : {false, true}) {
    ExpectPixels(BitmapOf(black_and_white, 1, top_down), black_and_white, "1 bit");
    for (const int bits : {4, 8, 16, 24, 32})
      ExpectPixels(BitmapOf(SixColours(), bits, top_down), SixColours(), std::to_string(bits) + " bits");
  }
  // Rows longer than a byte, with the last byte partly used.
  Picture wide{11, 1, {}};
  for (int x = 0; x < 11; ++x) wide.pixels.push_back(x % 3 == 0 ? 0xFF102030 : 0xFFA0B0C0);
  for (const int bits : {1, 4}) ExpectPixels(BitmapOf(wide, bits), wide, std::to_string(bits) + " bits wide");
}

TEST_F(PictureDecoderTest, BitmapsOfTheOldestHeaderWithMasksAndWithRunsAreRead) {
  std::string old = "BM";
  for (const uint32_t value : {0u, 0u, 26u + 2 * 3, 12u}) AppendLe(old, value);
  for (const uint16_t value : {2, 1, 1, 8}) AppendLe(old, value);
  old += std::string("\x01\x02\x03\xFF\x00\x80", 6) + std::string("\x01\x00\x00\x00", 4);
  ExpectPixels(old, {2, 1, {0xFF8000FF, 0xFF030201}}, "oldest header");

  const auto with_masks = [](int bits, const std::vector<uint32_t>& masks, const std::string& pixels, int width) {
    std::string file = BitmapHead(width, 1, bits, masks.size() == 4 ? 6 : 3, masks.size() * 4);
    for (const uint32_t mask : masks) AppendLe(file, mask);
    return file + pixels;
  };
  ExpectPixels(with_masks(16, {0xF800, 0x07E0, 0x001F}, std::string("\x00\xF8\xE0\x07", 4), 2), {2, 1, {0xFFFF0000, 0xFF00FF00}}, "5-6-5");
  ExpectPixels(with_masks(32, {0xFF, 0xFF00, 0xFF0000, 0xFF000000}, std::string("\x01\x02\x03\x80\x01\x02\x03\x00", 8), 2),
               {2, 1, {0x80010203, 0x00010203}}, "with alpha");
  ExpectPixels(with_masks(32, {0xFF, 0xFF00, 0xFF0000, 0xFF000000}, std::string("\x01\x02\x03\x00", 4), 1), {1, 1, {0xFF010203}},
               "alpha that nobody filled");

  const std::string palette("\x00\x00\x00\x00\xFF\x00\x00\x00\x00\xFF\x00\x00", 12);  // black, blue, green
  const uint32_t k = 0xFF000000, b = 0xFF0000FF, g = 0xFF00FF00;
  // Three of blue; end of row; as they stand: green, black, blue with a filling byte; end of picture.
  ExpectPixels(BitmapHead(3, 2, 8, 1, 12, 3) + palette + std::string("\x03\x01\x00\x00\x00\x03\x02\x00\x01\x00\x00\x01", 12),
               {3, 2, {g, k, b, b, b, b}}, "runs of 8 bits");
  // Green and blue in turn, five times into a row of three; a step up and right leaves black.
  ExpectPixels(BitmapHead(3, 2, 4, 2, 12, 3) + palette + std::string("\x05\x21\x00\x00\x00\x02\x02\x00\x01\x10\x00\x01", 12),
               {3, 2, {k, k, b, g, b, g}}, "runs of 4 bits");
  EXPECT_FALSE(Decoded(BitmapHead(3, 2, 8, 1, 12, 3) + palette + std::string("\x03\x01", 2))) << "runs that end too early";
}

TEST_F(PictureDecoderTest, PngAndGifGiveTheirPixelsWithWhatIsTransparent) {
  const Picture faint{2, 1, {0x80102030, 0x00000000}};
  ExpectPixels(PngOf(faint), faint, "png with alpha");
  ExpectPixels(PngOf(SixColours(), PNG_COLOR_TYPE_RGB, 8), SixColours(), "png of 24 bits");
  ExpectPixels(PngOf(SixColours(), PNG_COLOR_TYPE_RGB, 16), SixColours(), "png of 48 bits");
  for (const int depth : {4, 8}) ExpectPixels(PngOf(SixColours(), PNG_COLOR_TYPE_PALETTE, depth), SixColours(), "png with a palette");
  const Picture grey{2, 1, {0xFF000000, 0xFFFFFFFF}};
  for (const int depth : {1, 8, 16}) ExpectPixels(PngOf(grey, PNG_COLOR_TYPE_GRAY, depth), grey, "grey png");

  ExpectPixels(GifOf(SixColours()), SixColours(), "gif");
  Picture tall{2, 13, {}};
  for (uint32_t y = 0; y < 13; ++y) tall.pixels.insert(tall.pixels.end(), {0xFF000000 | y, 0xFF000000 | y << 8});
  ExpectPixels(GifOf(tall, true), tall, "interlaced gif");
  ExpectPixels(GifOf({1, 1, {0xFFFF0000}}, false, NO_TRANSPARENT_COLOR, 1, 1), {2, 2, {0, 0, 0, 0xFFFF0000}},
               "gif smaller than its screen");
  ExpectPixels(GifOf({2, 1, {0xFFFF0000, 0xFF00FF00}}, false, 1), {2, 1, {0xFFFF0000, 0}}, "gif with a transparent colour");
}

TEST_F(PictureDecoderTest, JpegOfEveryColourSpaceComesNearItsPixels) {
  Picture halves{32, 16, {}};
  for (int i = 0; i < 32 * 16; ++i) halves.pixels.push_back(i % 32 < 16 ? 0xFFC83214 : 0xFF1464C8);
  const struct {
    const char* what;
    std::string file;
    bool grey;
  } rows[] = {{"colours", JpegOf(halves), false},
              {"progressive", JpegOf(halves, JCS_RGB, true), false},
              {"inks", JpegOf(halves, JCS_CMYK), false},
              {"grey", JpegOf(halves, JCS_GRAYSCALE), true}};
  for (const auto& row : rows) {
    const std::optional<Picture> picture = Decoded(row.file);
    ASSERT_TRUE(picture) << row.what;
    ASSERT_EQ(picture->pixels.size(), halves.pixels.size()) << row.what;
    for (const size_t at : {size_t{0}, size_t{8 * 32 + 8}, size_t{8 * 32 + 24}}) {
      for (const int shift : {0, 8, 16, 24}) {
        const int expected = static_cast<int>(halves.pixels[at] >> (row.grey && shift < 24 ? 8 : shift) & 255);
        EXPECT_NEAR(static_cast<int>(picture->pixels[at] >> shift & 255), expected, 4) << row.what << " " << at;
      }
    }
  }
}

TEST_F(PictureDecoderTest, ADamagedPictureIsNoneOrOneOfItsSize) {
  Picture large{40, 20, {}};
  for (uint32_t i = 0; i < 800; ++i) large.pixels.push_back(0xFF000000 | (i * 7 % 16) * 0x101010);
  const std::string whole[] = {BitmapOf(large, 4), BitmapOf(large, 24), PngOf(large),  PngOf(large, PNG_COLOR_TYPE_PALETTE, 4),
                               GifOf(large),       GifOf(large, true),  JpegOf(large), JpegOf(large, JCS_RGB, true)};
  std::mt19937 random(7);
  for (const std::string& file : whole) {
    ASSERT_TRUE(Decoded(file));
    // A picture that is cut off is none; what may be missing at the end are padding and end marks.
    for (size_t length = 0; length + 24 < file.size(); length += 1 + file.size() / 40) {
      EXPECT_FALSE(Decoded(file.substr(0, length))) << file.substr(1, 3) << " " << length << " of " << file.size();
    }
    for (int attempt = 0; attempt < 200; ++attempt) {
      std::string bad = file;
      for (int i = 0; i < 3; ++i) bad[random() % std::min<size_t>(bad.size(), 400)] = static_cast<char>(random());
      const std::optional<Picture> picture = Decoded(bad);
      if (!picture) continue;
      EXPECT_GT(picture->width, 0);
      EXPECT_EQ(picture->pixels.size(), static_cast<size_t>(picture->width) * static_cast<size_t>(picture->height));
    }
  }
  EXPECT_FALSE(Decoded(""));
  EXPECT_FALSE(Decoded(std::string(70000, 'A')));
  EXPECT_FALSE(decoder.Decode(folder / "missing"));
}

TEST_F(PictureDecoderTest, APictureThatClaimsMorePixelsThanMayBeIsRefused) {
  const auto bitmap = [](int32_t width, int32_t height, int bits) {
    return BitmapHead(width, height, bits, 0, 0) + std::string(4096, '\0');
  };
  for (const auto& [width, height] : {std::pair{2000000000, 2000000000},
                                      {INT32_MAX, 1},
                                      {INT32_MIN, 1},
                                      {1, INT32_MIN},
                                      {60000, 60000},
                                      {8001, 8000},
                                      {0, 4},
                                      {4, 0},
                                      {-4, 4},
                                      {200, 200}}) {
    EXPECT_FALSE(Decoded(bitmap(width, height, 24))) << width << " x " << height;
  }
  EXPECT_FALSE(Decoded(BitmapHead(60000, 60000, 8, 1, 0) + std::string("\x00\x01", 2)));  // runs need no pixels in the file
  EXPECT_FALSE(Decoded(BitmapHead(2, 2, 24, 0, 2000000000) + std::string(64, '\0')));

  const auto with = [](std::string file, size_t at, const std::string& bytes) { return file.replace(at, bytes.size(), bytes); };
  EXPECT_FALSE(Decoded(with(GifOf(SixColours()), 6, "\xFF\xFF\xFF\xFF"))) << "a gif's screen";
  const std::string jpeg = JpegOf(SixColours());
  const size_t frame = jpeg.find("\xFF\xC0") + 5;
  EXPECT_FALSE(Decoded(with(jpeg, frame, std::string("\xFF\x00\xFF\x00", 4)))) << "a jpeg's frame";
  EXPECT_FALSE(Decoded(with(jpeg, frame, "\x7F"))) << "more rows of a jpeg than it has data for";
  EXPECT_TRUE(Decoded(BitmapHead(8000, 8000, 1, 0, 8) + std::string(8 + 1000 * 8000, '\0')));  // the most that may be
}

}  // namespace
}  // namespace ostrinka
