#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/bytes.h"
#include "platform/recording_canvas.h"
#include "print/page_file.h"

namespace ostrinka {
namespace {

using Call = RecordingCanvas::Call;

constexpr int32_t kWidth = 210 * kPageScale, kHeight = 297 * kPageScale;

// Keeps what the recording canvas leaves out.
class TestCanvas : public RecordingCanvas {
 public:
  TestCanvas() : RecordingCanvas(2100, 2970) {}
  Picture picture;
  std::vector<double> advances;
  void DrawText(PointF at, std::string_view text, const FontSpec& font, Colour colour, Anchor anchor, double advance) override {
    advances.push_back(advance);
    RecordingCanvas::DrawText(at, text, font, colour, anchor, advance);
  }
  void DrawPicture(const RectF& area, const Picture& drawn) override {
    picture = drawn;
    RecordingCanvas::DrawPicture(area, drawn);
  }
};

// Every kind of record.
std::string SampleFile() {
  PageFileWriter writer(kWidth, kHeight);
  writer.UsePen(1, 126, Rgb(10, 20, 30));
  writer.Line({2500, -5000}, {5000, -5000});
  writer.Rectangle({2500, -2500}, {5000, -5000}, Rgb(200, 0, 0));
  writer.UsePen(0, 1, 0);
  writer.Ellipse({0, 0}, {2500, -2500});
  writer.Polyline(std::vector<PagePoint>{{0, 0}, {2500, 0}, {2500, -2500}});
  writer.Polygon(std::vector<PagePoint>{{0, 0}, {2500, 0}, {2500, -2500}}, Rgb(0, 0, 255));
  writer.UseFont({"Arial CE", 1000, 0, true}, Rgb(1, 2, 3));
  writer.Text({2500, -2500}, u"Żółw", std::vector<int32_t>{600, 500, 300, 800}, Anchor::kRight);
  writer.UseFont({"Tahoma", 500, -900, false}, 0);
  writer.Text({0, -2500}, u"abc", std::vector<int32_t>{250, 250, 250}, Anchor::kLeft);
  Picture picture{3, 2, {0xFFFF0000, 0xFF00FF00, 0xFF0000FF, 0xFF010203, 0x00000000, 0x80000000}};
  writer.Stretch({2500, -2500}, 5000, 2500, picture);
  return writer.Finish();
}

std::vector<std::pair<EmfRecord, std::string>> Records(const std::string& file) {
  std::vector<std::pair<EmfRecord, std::string>> records;
  PageFileReader reader(file);
  EmfRecord type;
  std::string_view record;
  while (reader.Next(type, record)) records.emplace_back(type, record);
  return records;
}

TEST(PageFile, HeaderTellsSizeCountAndFrame) {
  std::string file = SampleFile();
  auto records = Records(file);
  auto field = [&](size_t at) { return LoadLe<int32_t>(file.data() + at); };
  EXPECT_EQ(field(4), 124);
  EXPECT_EQ(field(16), 2099);
  EXPECT_EQ(field(20), 2969);
  EXPECT_EQ(field(32), kWidth);
  EXPECT_EQ(field(36), kHeight);
  EXPECT_EQ(field(48), static_cast<int32_t>(file.size()));
  EXPECT_EQ(field(52), static_cast<int32_t>(records.size()));
  EXPECT_EQ(file.substr(108, 16), std::string("@\0@\0@\0@\0@\0@\0\0\0\0\0", 16));
  EXPECT_EQ(records.back().first, EmfRecord::kEnd);
  EXPECT_EQ(records.back().second.size(), 20u);
  ASSERT_TRUE(SizeOfPageFile(file));
  EXPECT_EQ(SizeOfPageFile(file)->width, 210);
  EXPECT_EQ(SizeOfPageFile(file)->height, 297);
}

TEST(PageFile, RecordsHaveTheSizesThatOtherPlayersExpect) {
  for (const auto& [type, record] : Records(SampleFile())) {
    size_t characters = type == EmfRecord::kText ? LoadLe<uint32_t>(record.data() + 44) : 0;
    switch (type) {
      case EmfRecord::kCreatePen:
        EXPECT_EQ(record.size(), 28u);
        break;
      case EmfRecord::kCreateBrush:
        EXPECT_EQ(record.size(), 24u);
        break;
      case EmfRecord::kCreateFont:
        EXPECT_EQ(record.size(), 332u);
        EXPECT_EQ(record[35], '\xEE');
        break;
      case EmfRecord::kText:
        EXPECT_EQ(record.size(), (76 + 2 * characters + 3) / 4 * 4 + 4 * characters);
        break;
      case EmfRecord::kPicture:
        EXPECT_EQ(record.size(), 120u + 2 * 12);
        break;
      case EmfRecord::kPolygon:
        EXPECT_EQ(record.size(), 28u + 8 * 3);
        break;
      default:
        break;
    }
  }
}

TEST(PageFile, PlaysWhatWasRecorded) {
  TestCanvas canvas;
  ASSERT_TRUE(PlayPageFile(SampleFile(), canvas, {0, 0, 2100, 2970}));
  const std::vector<Call>& calls = canvas.calls();
  ASSERT_EQ(calls.size(), 8u);
  EXPECT_EQ(calls[0].kind, Call::Kind::kLine);
  EXPECT_EQ(calls[0].area, (RectF{100, 200, 200, 200}));
  EXPECT_EQ(calls[0].pen.style, PenStyle::kDash);
  EXPECT_EQ(calls[0].pen.colour, Rgb(10, 20, 30));
  EXPECT_NEAR(calls[0].pen.width, 126 / 25.0, 1e-9);
  EXPECT_EQ(calls[1].kind, Call::Kind::kFill);
  EXPECT_EQ(calls[1].area, (RectF{100, 100, 200, 200}));
  EXPECT_EQ(calls[1].colour, Rgb(200, 0, 0));
  EXPECT_EQ(calls[2].kind, Call::Kind::kEllipse);
  EXPECT_EQ(calls[2].area, (RectF{0, 0, 100, 100}));
  EXPECT_EQ(calls[2].colour, Rgb(255, 255, 255));
  EXPECT_EQ(calls[2].pen.width, 1);
  EXPECT_EQ(calls[3].points, (std::vector<PointF>{{0, 0}, {100, 0}, {100, 100}}));
  EXPECT_EQ(calls[4].kind, Call::Kind::kPolygon);
  EXPECT_EQ(calls[4].colour, Rgb(0, 0, 255));
  EXPECT_EQ(calls[5].text, "Żółw");
  EXPECT_EQ(calls[5].area.left, 100);
  EXPECT_EQ(calls[5].area.top, 100);
  EXPECT_EQ(calls[5].anchor, Anchor::kRight);
  EXPECT_EQ(calls[5].colour, Rgb(1, 2, 3));
  EXPECT_EQ(calls[5].font.face, "Arial");  // from "Arial CE"
  EXPECT_EQ(calls[5].font.height, 40);
  EXPECT_TRUE(calls[5].font.bold);
  EXPECT_EQ(canvas.advances[0], 2200 / 25.0);
  EXPECT_EQ(calls[6].font.angle, 90);
  EXPECT_EQ(calls[6].font.face, "Tahoma");
  EXPECT_FALSE(calls[6].font.bold);
  EXPECT_EQ(calls[7].area, (RectF{100, 100, 300, 200}));
  // Rows from the top again; what is transparent is white.
  EXPECT_EQ(canvas.picture.pixels, (std::vector<uint32_t>{0xFFFF0000, 0xFF00FF00, 0xFF0000FF, 0xFF010203, 0xFFFFFFFF, 0xFF7F7F7F}));
}

TEST(PageFile, PlaysIntoAFrameAnywhere) {
  TestCanvas canvas;
  PlayPageFile(SampleFile(), canvas, {50, 1000, 50 + 1050, 1000 + 1485});
  EXPECT_EQ(canvas.calls()[1].area, (RectF{100, 1050, 150, 1100}));
  EXPECT_EQ(canvas.calls()[5].font.height, 20);
}

TEST(PageFile, ACopyKeepsTheRecordsAndTakesMore) {
  std::string old_file = SampleFile();
  PageFileWriter writer(kWidth, kHeight);
  EXPECT_TRUE(writer.CopyRecords(old_file));
  writer.UseFont({"Arial CE", 1000, 0, false}, 0);
  writer.Text({0, 0}, u"12", std::vector<int32_t>{250, 250}, Anchor::kLeft);
  TestCanvas before, after;
  EXPECT_TRUE(PlayPageFile(old_file, before, {0, 0, 2100, 2970}));
  EXPECT_TRUE(PlayPageFile(writer.Finish(), after, {0, 0, 2100, 2970}));
  ASSERT_EQ(after.calls().size(), before.calls().size() + 1);
  for (size_t i = 0; i < before.calls().size(); ++i) EXPECT_EQ(after.calls()[i].area, before.calls()[i].area);
  EXPECT_EQ(after.calls().back().text, "12");
}

TEST(PageFile, ACutFileEndsThePlaying) {
  std::string file = SampleFile();
  TestCanvas whole;
  ASSERT_TRUE(PlayPageFile(file, whole, {0, 0, 2100, 2970}));
  for (size_t length = 0; length < file.size(); ++length) {
    TestCanvas canvas;
    std::string cut(file.data(), length);
    ASSERT_FALSE(PlayPageFile(cut, canvas, {0, 0, 2100, 2970})) << length;
    ASSERT_LE(canvas.calls().size(), whole.calls().size());
  }
}

// A false number in any place may change the picture, but neither crash nor read outside nor draw out of all bounds.
TEST(PageFile, ADamagedFileIsPlayedSafely) {
  std::string file = SampleFile();
  for (size_t at = 0; at + 4 <= file.size(); at += 2) {
    for (uint32_t value : {0u, 1u, 8u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu, 0xFFFFFFFCu, 0x10000u}) {
      std::string damaged = file;
      StoreLe(&damaged[at], value);
      TestCanvas canvas;
      PlayPageFile(damaged, canvas, {0, 0, 2100, 2970});
      for (const Call& call : canvas.calls()) {
        for (double edge : {call.area.left, call.area.top, call.area.right, call.area.bottom}) ASSERT_LE(std::fabs(edge), 8 * 2970) << at;
        ASSERT_LE(call.font.height, 2970) << at;
        ASSERT_LE(call.pen.width, 2100) << at;
      }
      PageFileWriter writer(kWidth, kHeight);
      writer.CopyRecords(damaged);
    }
  }
}

TEST(PageFile, RecordsThatLieEndThePlaying) {
  auto with = [](EmfRecord type, size_t at, uint32_t value) {
    std::string file = SampleFile();
    PageFileReader reader(file);
    EmfRecord found;
    std::string_view record;
    while (reader.Next(found, record)) {
      if (found == type) break;
    }
    StoreLe(&file[static_cast<size_t>(record.data() - file.data()) + at], value);
    return file;
  };
  const struct {
    EmfRecord type;
    size_t at;
    uint32_t value;
  } rows[] = {
      {EmfRecord::kHeader, 40, 0},                                              // signature
      {EmfRecord::kHeader, 32, 0},                                              // a frame without width
      {EmfRecord::kHeader, 56, 2},                                              // fewer handles than used
      {EmfRecord::kMapMode, 8, 8},           {EmfRecord::kCreatePen, 4, 24},    // shorter than its fields
      {EmfRecord::kCreatePen, 8, 70000},     {EmfRecord::kSelectObject, 8, 3},  // nothing made under that handle
      {EmfRecord::kDeleteObject, 8, 0},      {EmfRecord::kPolyline, 24, 4},     // one point more than there are
      {EmfRecord::kPolygon, 24, 0xFFFFFFFF}, {EmfRecord::kText, 44, 5},          {EmfRecord::kText, 44, 0x80000001},
      {EmfRecord::kText, 48, 0xFFFFFFFF},    {EmfRecord::kText, 72, 0xFFFFFFF0}, {EmfRecord::kPicture, 84, 0x7FFFFFFF},  // columns
      {EmfRecord::kPicture, 88, 3},                                                                                      // rows
      {EmfRecord::kPicture, 56, 124},                                                                                    // bits
      {EmfRecord::kPicture, 48, 0xFFFFFFF0},                                                                             // bitmap header
  };
  for (const auto& row : rows) {
    TestCanvas canvas;
    EXPECT_FALSE(PlayPageFile(with(row.type, row.at, row.value), canvas, {0, 0, 2100, 2970}))
        << static_cast<int>(row.type) << " at " << row.at;
  }
}

}  // namespace
}  // namespace ostrinka
