// JPEG through libjpeg, which reports a failure by a jump: what lives between the jump's ends has nothing to destroy.
// The library's headers need those before them.
// clang-format off
#include <csetjmp>
#include <cstdio>
#include <jpeglib.h>
#include <jerror.h>
// clang-format on

#include "platform/posix/picture_formats.h"

namespace ostrinka {
namespace {

// A progressive picture is drawn in passes over all of its pixels, and a small file could ask for passes without end.
constexpr int64_t kMostScans = 500, kMostPixelsDrawn = 1'000'000'000;

struct Failure {
  jpeg_error_mgr base;
  std::jmp_buf back;
};

struct Reader {
  jpeg_decompress_struct info{};  // nothing to destroy before it is made
  ~Reader() { jpeg_destroy_decompress(&info); }
};

[[noreturn]] void GiveUp(j_common_ptr info) {
  std::longjmp(reinterpret_cast<Failure*>(info->err)->back, 1);
}

// A picture whose data end too early is none; other warnings are passed over, as every viewer does.
void OnMessage(j_common_ptr info, int level) {
  const int code = info->err->msg_code;
  if (level < 0 && (code == JWRN_JPEG_EOF || code == JWRN_HIT_MARKER)) GiveUp(info);
}

void OnProgress(j_common_ptr info) {
  const jpeg_decompress_struct& picture = *reinterpret_cast<j_decompress_ptr>(info);
  const int64_t scans = picture.input_scan_number, pixels = int64_t{picture.image_width} * picture.image_height;
  if (scans > kMostScans || scans * pixels > kMostPixelsDrawn) GiveUp(info);
}

uint32_t Opaque(uint32_t red, uint32_t green, uint32_t blue) {
  return 0xFF000000 | red << 16 | green << 8 | blue;
}

// Inks of a row as its file has them: Adobe's programs store them inverted.
void PutInks(const JSAMPLE* row, size_t width, bool inverted, uint32_t* to) {
  for (size_t x = 0; x < width; ++x, row += 4) {
    const auto ink = [&](int i) { return inverted ? uint32_t{row[i]} : 255u - row[i]; };
    to[x] = Opaque(ink(0) * ink(3) / 255, ink(1) * ink(3) / 255, ink(2) * ink(3) / 255);
  }
}

void PutColours(const JSAMPLE* row, size_t width, uint32_t* to) {
  for (size_t x = 0; x < width; ++x, row += 3) to[x] = Opaque(row[0], row[1], row[2]);
}

bool Make(jpeg_decompress_struct& info, Failure& failure) {
  if (setjmp(failure.back)) return false;
  jpeg_create_decompress(&info);
  return true;
}

// False on a failure, also one that jumps. `picture` and `row` belong to the caller, so that a jump leaves nothing behind.
bool Read(jpeg_decompress_struct& info, Failure& failure, std::string_view file, Picture& picture, std::vector<JSAMPLE>& row) {
  if (setjmp(failure.back)) return false;
  jpeg_mem_src(&info, reinterpret_cast<const unsigned char*>(file.data()), file.size());
  jpeg_read_header(&info, TRUE);
  if (!PixelsFit(info.image_width, info.image_height)) return false;
  const bool inks = info.jpeg_color_space == JCS_CMYK || info.jpeg_color_space == JCS_YCCK;
  info.out_color_space = inks ? JCS_CMYK : JCS_RGB;
  jpeg_start_decompress(&info);
  const size_t width = info.output_width;
  picture.width = static_cast<int>(info.output_width);
  picture.height = static_cast<int>(info.output_height);
  picture.pixels.resize(width * info.output_height);
  row.resize(width * static_cast<size_t>(info.output_components));
  while (info.output_scanline < info.output_height) {
    JSAMPROW rows[] = {row.data()};
    uint32_t* to = &picture.pixels[width * info.output_scanline];
    if (jpeg_read_scanlines(&info, rows, 1) != 1) return false;
    if (inks) {
      PutInks(row.data(), width, info.saw_Adobe_marker != 0, to);
    } else {
      PutColours(row.data(), width, to);
    }
  }
  return true;
}

}  // namespace

std::optional<Picture> ReadJpeg(std::string_view file) {
  Picture picture;
  std::vector<JSAMPLE> row;
  Failure failure{};
  jpeg_progress_mgr progress{};
  Reader reader;
  reader.info.err = jpeg_std_error(&failure.base);
  failure.base.error_exit = GiveUp;
  failure.base.emit_message = OnMessage;
  progress.progress_monitor = OnProgress;
  if (!Make(reader.info, failure)) return std::nullopt;
  reader.info.progress = &progress;
  if (!Read(reader.info, failure, file, picture, row)) return std::nullopt;
  return picture;
}

}  // namespace ostrinka
