// The PDF of a job, from its element list.
#include <map>
#include <tuple>

#include "base/text.h"
#include "print/pdf.h"
#include "print/print.h"

namespace ostrinka {

namespace {

constexpr double kSizeOfText = 0.333;  // of the element's size
constexpr double kLinePitch = 0.425;   // of the element's size, mm
constexpr double kNoWrap = 0.01;       // a wrap width below is none
constexpr double kInHand = 1;          // mm of the box that wrapped words leave free

// "%p" is the page's number; other marks stay.
std::string WithPageNumber(const std::string& text, const std::string& number) {
  return Contains(text, "%") ? ReplaceAll(ReplaceAll(text, "%p", number), "%P", number) : text;
}

}  // namespace

bool ClassPRINT::MAKE_PDF(const std::string& path) {
  ClassPDF pdf(program_.platform.files, program_.locale);
  pdf.Clear();
  for (int face = 0; face < kFaces; ++face) pdf.FontAdd(FaceName(static_cast<Face>(face)));
  // The page of an element is never below that of the one before, so that one walk serves all pages. A page is drawn when it is written;
  // its pictures are numbered now, among the pages.
  auto element = elements_.begin();
  // A picture is read once, and made once for each size that it is shown in.
  std::map<std::tuple<std::string, float, float>, int> known;
  int32_t number = 0;
  for (const PageRecord& page : pages_) {
    ++number;
    const auto first = element;
    auto pictures = std::make_shared<std::vector<int>>();
    pdf.PageAdd(page.Width, page.Height, [this, first, number, pictures, text = std::to_string(page.PageNumber)](ClassPDF& to) {
      auto picture = pictures->cbegin();
      for (auto at = first; at != elements_.end() && at->Page == number; ++at) {
        AddToPdf(to, *at, text, at->Kind == ElementKind::kImage ? *picture++ : 0);
      }
    });
    for (; element != elements_.end() && element->Page == number; ++element) {
      if (element->Kind != ElementKind::kImage) continue;
      const auto key = std::tuple(element->Text, element->X[1] - element->X[0], element->Y[1] - element->Y[0]);
      const auto [at, added] = known.try_emplace(key, 0);
      pictures->push_back(added ? at->second = AddPictureToPdf(pdf, *element) : pdf.ImageAgain(at->second));
    }
  }
  pdf.Save(path);
  return pdf.written();
}

void ClassPRINT::AddToPdf(ClassPDF& pdf, const PageElement& element, const std::string& page_number, int picture) const {
  pdf.SetAttrs(element.Colour, element.Colour, element.PenStyle, element.WidthStyle);
  switch (element.Kind) {
    case ElementKind::kLine:
      pdf.DrawLine(element.X[0], element.Y[0], element.X[1], element.Y[1]);
      break;
    case ElementKind::kRectangle:
      pdf.DrawRect(element.X[0], element.Y[0], element.X[1], element.Y[1]);
      break;
    case ElementKind::kText:
      AddTextToPdf(pdf, element, page_number);
      break;
    case ElementKind::kCircle:
      pdf.DrawEllipse(element.X[0], element.Y[0], element.R0, element.R0);
      break;
    case ElementKind::kPolyline:
      break;  // does not reach the PDF, kept
    case ElementKind::kPolygon:
      pdf.VertexClear();
      for (size_t i = 0; i < element.VertexX.size(); ++i) pdf.VertexAdd(element.VertexX[i], element.VertexY[i]);
      pdf.DrawPolygon();
      break;
    case ElementKind::kImage:
      pdf.PlaceImage(element.X[0], element.Y[0], element.X[1], element.Y[1], picture);
      break;
  }
}

// Wraps by a rule of its own: 1 mm stays in hand, and the first word of a line never breaks, kept.
void ClassPRINT::AddTextToPdf(ClassPDF& pdf, const PageElement& element, const std::string& page_number) const {
  int font = static_cast<int>(FaceOf(element.Font, element.Bold)) + 1;
  double size = double{element.S0} * kSizeOfText, left = element.X[0], y = element.Y[0], pitch = double{element.S0} * kLinePitch;
  for (const std::string& line : Paragraphs(element.Text)) {
    if (element.WrapWidth < kNoWrap || pdf.GetTextWidth(line, font, size) <= element.WrapWidth) {
      pdf.DrawText(WithPageNumber(line, page_number), font, size, left, y, element.Align, element.Vertical ? 90 : 0);
    } else {
      double x = left;
      for (const std::string& part : Split(line, ' ')) {
        std::string word = Trim(part) + ' ';
        double width = pdf.GetTextWidth(word, font, size);
        if (x > left && left + element.WrapWidth - kInHand < x + width) {
          x = left;
          y += pitch;
        }
        pdf.DrawText(WithPageNumber(word, page_number), font, size, x, y, 1, 0);
        x += width;
      }
    }
    y += pitch;
  }
}

}  // namespace ostrinka
