// A thousand pages of invoices as PDF, against a PDF library that draws the same texts, lines and rectangles; and how the time grows.
#include <hpdf.h>

#include <filesystem>

#include "base/text.h"
#include "print/pdf.h"
#include "print/print.h"
#include "print/sales_document_layout.h"
#include "rows.h"

namespace ostrinka::bench {
namespace {

constexpr int32_t kPages = 1000, kFewPages = 250;
constexpr float kPointsPerMm = static_cast<float>(kPdfUnitsPerMm);
constexpr float kTextSize = 0.333f;  // points of the element's size that MAKE_PDF writes, by kPointsPerMm

// Invoices one behind the other until the job has so many pages.
std::shared_ptr<ClassPRINT> InvoiceJob(Program& program, int32_t pages) {
  PrintJob job = NewPrintJob(program);
  for (int32_t record = 1; job.print->Page() < pages; ++record) {
    const int32_t before = job.print->Page();
    job.print->CLEAR_PAGE_NUMBER_();
    PrintSalesDocument(job, {record, true, ""});
    Require(job.print->Page() > before, "a document has no page");
  }
  job.print->END_PAGE();
  return job.print;
}

void Failed(HPDF_STATUS error, HPDF_STATUS, void*) {
  GiveUp("the PDF library failed with " + std::to_string(error));
}

// Draws the elements of a job with the library. Its own Helvetica and Courier stand in for the fonts, in Windows-1250.
class LibraryPdf {
 public:
  explicit LibraryPdf(const ClassPRINT& job) : job_(job), pdf_(HPDF_New(Failed, nullptr)) {
    HPDF_SetCompressionMode(pdf_, HPDF_COMP_NONE);
    const char* names[] = {"Helvetica", "Helvetica-Bold", "Courier", "Courier-Bold", "Helvetica", "Helvetica-Bold"};
    for (int face = 0; face < kFaces; ++face) fonts_[face] = HPDF_GetFont(pdf_, names[face], "CP1250");
  }
  ~LibraryPdf() { HPDF_Free(pdf_); }
  LibraryPdf(const LibraryPdf&) = delete;
  LibraryPdf& operator=(const LibraryPdf&) = delete;

  void Make(const std::string& path) {
    auto element = job_.elements().begin();
    int32_t number = 0;
    for (const PageRecord& record : job_.pages()) {
      ++number;
      page_ = HPDF_AddPage(pdf_);
      height_ = record.Height;
      HPDF_Page_SetWidth(page_, record.Width * kPointsPerMm);
      HPDF_Page_SetHeight(page_, record.Height * kPointsPerMm);
      const std::string page_number = std::to_string(record.PageNumber);
      for (; element != job_.elements().end() && element->Page == number; ++element) Draw(*element, page_number);
    }
    HPDF_SaveToFile(pdf_, path.c_str());
  }

 private:
  static float X(float mm) { return mm * kPointsPerMm; }
  float Y(float mm) const { return (height_ - mm) * kPointsPerMm; }
  static HPDF_REAL Channel(Colour colour, int shift) { return static_cast<HPDF_REAL>(colour >> shift & 255) / 255; }

  void Draw(const PageElement& element, const std::string& page_number) {
    constexpr float kWidths[] = {0.28f, 0.28f, 1.42f, 2.83f, 4.25f, 5.67f};
    const Colour colour = element.Colour;
    switch (element.Kind) {
      case ElementKind::kLine:
        HPDF_Page_SetRGBStroke(page_, Channel(colour, 0), Channel(colour, 8), Channel(colour, 16));
        HPDF_Page_SetLineWidth(page_, kWidths[element.WidthStyle >= 2 && element.WidthStyle <= 5 ? element.WidthStyle : 0]);
        HPDF_Page_MoveTo(page_, X(element.X[0]), Y(element.Y[0]));
        HPDF_Page_LineTo(page_, X(element.X[1]), Y(element.Y[1]));
        HPDF_Page_Stroke(page_);
        break;
      case ElementKind::kRectangle:
        HPDF_Page_SetRGBFill(page_, Channel(colour, 0), Channel(colour, 8), Channel(colour, 16));
        HPDF_Page_Rectangle(page_, X(element.X[0]), Y(element.Y[1]), X(element.X[1] - element.X[0]), X(element.Y[1] - element.Y[0]));
        HPDF_Page_Fill(page_);
        break;
      case ElementKind::kText:
        DrawText(element, page_number);
        break;
      default:
        GiveUp("an invoice holds what the comparison does not draw");
    }
  }

  void DrawText(const PageElement& element, const std::string& page_number) {
    const std::string numbered = Contains(element.Text, "%") ? ReplaceAll(element.Text, "%p", page_number) : element.Text;
    const float size = element.S0 * kTextSize * kPointsPerMm;
    const Colour colour = element.Colour;
    HPDF_Page_SetRGBFill(page_, Channel(colour, 0), Channel(colour, 8), Channel(colour, 16));
    HPDF_Page_BeginText(page_);
    HPDF_Page_SetFontAndSize(page_, fonts_[static_cast<int>(FaceOf(element.Font, element.Bold))], size);
    float y = Y(element.Y[0]);
    for (const std::string& line : Paragraphs(numbered)) {
      const std::string bytes = ToCp1250(line);
      if (element.WrapWidth >= 0.01f) {
        // The rest of the page below: the text decides how far it goes.
        HPDF_Page_TextRect(page_, X(element.X[0]), y, X(element.X[0] + element.WrapWidth), 0, bytes.c_str(), HPDF_TALIGN_LEFT, nullptr);
      } else {
        const float width = element.Align == 1 ? 0 : HPDF_Page_TextWidth(page_, bytes.c_str());
        const float shift = element.Align == 0 ? width / 2 : element.Align == -1 ? width : 0;
        HPDF_Page_TextOut(page_, X(element.X[0]) - shift, y - size, bytes.c_str());
      }
      y -= element.S0 * 0.425f * kPointsPerMm;
    }
    HPDF_Page_EndText(page_);
  }

  const ClassPRINT& job_;
  HPDF_Doc pdf_;
  HPDF_Page page_ = nullptr;
  HPDF_Font fonts_[kFaces] = {};
  float height_ = 0;
};

double OurPdf(ClassPRINT& job, const std::string& path) {
  bool written = false;
  const double seconds = Seconds([&] { written = job.MAKE_PDF(path); });
  Require(written, "the PDF was not written");
  return seconds;
}

double TheirPdf(const ClassPRINT& job, const std::string& path) {
  return Seconds([&] { LibraryPdf(job).Make(path); });
}

}  // namespace

void PdfRows(Data& data, Report& report) {
  const char *library = "MAKE_PDF of 1,000 invoice pages", *growth = "MAKE_PDF, 1,000 pages to 250";
  if (!report.Wants(library) && !report.Wants(growth)) return;
  const std::shared_ptr<ClassPRINT> job = InvoiceJob(data.small.program(), kPages), few = InvoiceJob(data.small.program(), kFewPages);
  Require(job->Page() == kPages && few->Page() == kFewPages, "an invoice took more than one page at the end of the job");
  const std::string ours = data.scratch + "ours.pdf", theirs = data.scratch + "theirs.pdf";
  if (report.Wants(library)) {
    report.Ratio(library, Compare([&] { return OurPdf(*job, ours); }, [&] { return TheirPdf(*job, theirs); }), 1.2);
  }
  if (report.Wants(growth)) {
    report.Ratio(growth, Compare([&] { return OurPdf(*job, ours); }, [&] { return OurPdf(*few, data.scratch + "few.pdf"); }), 5);
  }
}

}  // namespace ostrinka::bench
