#include "desktop/file_pictures.h"

#include <QPainter>
#include <array>

#include "base/text.h"

namespace ostrinka {
namespace {

constexpr QRgb kOutline = 0xFF3A424E, kRed = 0xFFC0281E, kBlue = 0xFF2F6FB5, kGreen = 0xFF2E8B57, kAmber = 0xFFF0B93F, kSky = 0xFFBFE0F5;

struct Ending {
  std::string_view text;
  FileKind kind;
};
constexpr Ending kEndings[] = {
    {"bmp", FileKind::kPicture},  {"gif", FileKind::kPicture},  {"heic", FileKind::kPicture}, {"jpeg", FileKind::kPicture},
    {"jpg", FileKind::kPicture},  {"png", FileKind::kPicture},  {"svg", FileKind::kPicture},  {"tif", FileKind::kPicture},
    {"tiff", FileKind::kPicture}, {"webp", FileKind::kPicture}, {"pdf", FileKind::kPdf},      {"doc", FileKind::kText},
    {"docx", FileKind::kText},    {"eml", FileKind::kText},     {"htm", FileKind::kText},     {"html", FileKind::kText},
    {"log", FileKind::kText},     {"md", FileKind::kText},      {"msg", FileKind::kText},     {"odt", FileKind::kText},
    {"rtf", FileKind::kText},     {"txt", FileKind::kText},     {"xml", FileKind::kText},     {"csv", FileKind::kTable},
    {"ods", FileKind::kTable},    {"tsv", FileKind::kTable},    {"xls", FileKind::kTable},    {"xlsx", FileKind::kTable},
    {"7z", FileKind::kArchive},   {"bz2", FileKind::kArchive},  {"gz", FileKind::kArchive},   {"rar", FileKind::kArchive},
    {"tar", FileKind::kArchive},  {"xz", FileKind::kArchive},   {"zip", FileKind::kArchive},
};

void Lines(QPainter& painter, QRgb colour, std::initializer_list<QLineF> lines) {
  painter.setPen(QPen(QColor(colour), 1, Qt::SolidLine, Qt::FlatCap));
  for (const QLineF& line : lines) painter.drawLine(line);
}

void Sheet(QPainter& painter) {
  painter.setPen(QPen(QColor(kOutline), 1));
  painter.setBrush(Qt::white);
  painter.drawPolygon(QPolygonF({{2.5, 0.5}, {9.5, 0.5}, {13.5, 4.5}, {13.5, 15.5}, {2.5, 15.5}}));
  painter.drawPolyline(QPolygonF({{9.5, 0.5}, {9.5, 4.5}, {13.5, 4.5}}));
}

// A landscape in a frame.
void Picture(QPainter& painter) {
  painter.setPen(QPen(QColor(kOutline), 1));
  painter.setBrush(QColor(kSky));
  painter.drawRect(QRectF(0.5, 2.5, 15, 11));
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(kAmber));
  painter.drawEllipse(QRectF(2.5, 4.5, 3.5, 3.5));
  painter.setBrush(QColor(kGreen));
  painter.drawPolygon(QPolygonF({{1, 13}, {1, 11}, {4.5, 8.5}, {7, 10.5}, {10.5, 6}, {15, 11}, {15, 13}}));
}

// A sheet under a red band with the three letters.
void Pdf(QPainter& painter) {
  Sheet(painter);
  painter.fillRect(QRectF(0, 6, 16, 7), QColor(kRed));
  constexpr double kTop = 7, kBottom = 12, kMiddle = 9.5;
  Lines(painter, 0xFFFFFFFF, {{2.5, kTop, 2.5, kBottom}, {3, 7.5, 5, 7.5}, {5.5, 8, 5.5, 9}, {3, kMiddle, 5, kMiddle}});
  Lines(painter, 0xFFFFFFFF, {{7.5, kTop, 7.5, kBottom}, {8, 7.5, 9, 7.5}, {9.5, 8, 9.5, 11}, {8, 11.5, 9, 11.5}});
  Lines(painter, 0xFFFFFFFF, {{11.5, kTop, 11.5, kBottom}, {12, 7.5, 14, 7.5}, {12, kMiddle, 13.5, kMiddle}});
}

void Text(QPainter& painter) {
  Sheet(painter);
  Lines(painter, kBlue, {{4, 4.5, 8, 4.5}, {4, 6.5, 12, 6.5}, {4, 8.5, 12, 8.5}, {4, 10.5, 12, 10.5}, {4, 12.5, 9, 12.5}});
}

// Cells under a filled head.
void Table(QPainter& painter) {
  painter.setPen(QPen(QColor(kOutline), 1));
  painter.setBrush(Qt::white);
  painter.drawRect(QRectF(0.5, 1.5, 15, 13));
  painter.fillRect(QRectF(1, 2, 14, 3), QColor(kGreen));
  Lines(painter, kGreen, {{1, 8.5, 15, 8.5}, {1, 11.5, 15, 11.5}, {5.5, 5, 5.5, 14}, {10.5, 5, 10.5, 14}});
}

// A parcel with a zip down its middle.
void Archive(QPainter& painter) {
  painter.setPen(QPen(QColor(kOutline), 1));
  painter.setBrush(QColor(kAmber));
  painter.drawRect(QRectF(1.5, 3.5, 13, 11));
  painter.drawRect(QRectF(0.5, 1.5, 15, 3));
  Lines(painter, kOutline, {{7, 6.5, 8, 6.5}, {8, 7.5, 9, 7.5}, {7, 8.5, 8, 8.5}, {8, 9.5, 9, 9.5}});
  painter.fillRect(QRectF(7, 10, 2, 3), QColor(kOutline));
}

constexpr std::array<void (*)(QPainter&), 6> kPainters = {Picture, Pdf, Text, Table, Archive, Sheet};

}  // namespace

FileKind KindOfFile(std::string_view name) {
  const size_t dot = name.rfind('.');
  const std::string ending = dot == std::string_view::npos ? std::string() : Lower(std::string(name.substr(dot + 1)));
  for (const Ending& row : kEndings) {
    if (row.text == ending) return row.kind;
  }
  return FileKind::kOther;
}

QPixmap FilePicture(FileKind kind, double ratio) {
  QPixmap picture(QSize(kFilePictureSize, kFilePictureSize) * ratio);
  picture.setDevicePixelRatio(ratio);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  kPainters[static_cast<size_t>(kind)](painter);
  return picture;
}

}  // namespace ostrinka
