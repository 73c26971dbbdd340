// A company with documents, to be printed; and what stands on the pages, in mm.
#pragma once

#include <algorithm>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "base/text.h"
#include "documents/trade.h"
#include "print/font_widths.h"
#include "print/print.h"

namespace ostrinka {

using Fields = TestCompany::Row;

// One line of text as it stands on a page.
struct PlacedText {
  int page = 0;
  double left = 0, top = 0, right = 0, bottom = 0;
  int align = 1;
  bool bold = false;
  double size = 0;
  std::string text;
};

inline Value Money(const char* text) {
  return *ReadCurrency(text);
}
inline Date Day(int year, int month, int day) {
  return *Date::FromYmd(year, month, day);
}

// Decodes anything to a picture of a fixed size.
class FixedPicture : public PictureDecoder {
 public:
  std::optional<Picture> Decode(const std::string&) override {
    return Picture{width, height, std::vector<uint32_t>(static_cast<size_t>(width * height))};
  }
  int width = 40, height = 30;
};

class SalesFixture : public Trade {
 protected:
  SalesFixture() {
    CopyCatalogues(platform.platform.application_folder);
    program->catalogue.LoadProgramCatalogue("program.lang");
    const std::pair<const char*, const char*> details[] = {{"nazwa", "Zakład Usług Informatycznych Łącznik sp. z o.o."},
                                                           {"mwdok", "Ostrów"},
                                                           {"ulica", "Żwirowa"},
                                                           {"nrdomu", "12"},
                                                           {"nrlokalu", "3a"},
                                                           {"kod", "63-400"},
                                                           {"miasto", "Ostrów"},
                                                           {"nip", "622-000-11-22"},
                                                           {"konto", "12 1020 2212 0000 1234 5678 9012"}};
    for (const auto& [key, value] : details) User(key, value);
  }
  ~SalesFixture() override { CurrentPrintJob(*program).reset(); }

  std::string DataFolder() { return program->DatabaseFolder(); }
  void Setting(const char* section, const char* key, const std::string& value) {
    program->settings.SaveSettingValue(kCommon, section, key, value);
  }
  void User(const std::string& key, const std::string& value) { program->settings.SaveSettingValue(kCommon, "user", key, value); }

  int32_t AddCustomer(const std::string& name, Fields more = {}) {
    Fields fields = {{"NAZWA", name},
                     {"ULICA", std::string("Lipowa")},
                     {"NR_DOMU", std::string("7")},
                     {"KOD_POCZTOWY", std::string("00-950")},
                     {"MIEJSCOWOSC", std::string("Warszawa")},
                     {"NIP", std::string("521-000-22-33")}};
    fields.insert(fields.end(), more.begin(), more.end());
    return Add(kKontrahenci, fields);
  }
  // `rate` is a record of stawki_vat: 1 22%, 2 7%, 5 zw.
  int32_t AddArticle(const std::string& name, int32_t rate = 1, Fields more = {}) {
    Fields fields = {
        {"NAZWA", name}, {"STAWKA_VAT", rate}, {"JEDNOSTKA_MIARY", int32_t{1}}, {"WALUTA", int32_t{1}}, {"PKWIU", std::string("72.60.10")}};
    fields.insert(fields.end(), more.begin(), more.end());
    return Add(kTowaryUslugi, fields);
  }
  // A document of type 1 (VAT invoice) of 5 March 2008, paid by transfer in 14 days.
  int32_t AddDocument(int32_t customer, int32_t number, Fields more = {}) {
    identity_ = 1000 + number;
    Fields fields = {{"TYP", int32_t{1}},
                     {"NR_DOK", number},
                     {"ID_DOK", identity_},
                     {"KONTRAHENT", customer},
                     {"DATA_WYSTAWIENIA", Day(2008, 3, 5)},
                     {"DATA_SPRZEDAZY", Day(2008, 3, 4)},
                     {"TERMIN_ZAPLATY", Day(2008, 3, 19)},
                     {"FORMA_PLATNOSCI", int32_t{2}},
                     {"WALUTA", int32_t{1}},
                     {"KURS", 1.0f}};
    fields.insert(fields.end(), more.begin(), more.end());
    return document_ = Add(kDokSprzed, fields);
  }
  // A line of the document added last; the document's totals follow.
  void AddLine(int32_t article, const char* quantity, const char* net, const char* gross, int16_t discount = 0) {
    ClassQDBASE& line = At(kSprzedane, AddStoredLine(identity_, article, quantity, net, gross, discount));
    const double net_value = RoundByPattern(line.Real("WARTOSC_NETTO"), "0.00");
    const double gross_value = RoundByPattern(line.Real("WARTOSC_BRUTTO"), "0.00");
    ClassQDBASE& document = At(kDokSprzed, document_);
    Change(
        kDokSprzed, document_,
        {{"WARTOSC_NETTO", document.Real("WARTOSC_NETTO") + net_value}, {"WARTOSC_BRUTTO", document.Real("WARTOSC_BRUTTO") + gross_value}});
  }

  ClassPRINT& Job() { return *CurrentPrintJob(*program); }

  // Every line of text of the job, in drawing order. A text in a box counts as the lines that its line ends make.
  std::vector<PlacedText> Texts() {
    std::vector<PlacedText> texts;
    for (const PageElement& element : Job().elements()) {
      if (element.Kind != ElementKind::kText) continue;
      const double size = static_cast<double>(element.S0) / 0.8, cell = size * 0.3333;
      const Face face = FaceOf(element.Font, element.Bold);
      double top = static_cast<double>(element.Y[0]) - size * 0.0333;
      for (const std::string& line : element.WrapWidth > 0 ? Paragraphs(element.Text) : std::vector<std::string>{element.Text}) {
        const double width = static_cast<double>(WidthAt125(line, face)) / kWidthCellHeight * cell;
        const double x = static_cast<double>(element.X[0]), left = element.Align < 0 ? x - width : element.Align == 0 ? x - width / 2 : x;
        texts.push_back({element.Page, left, top, left + width, top + cell, element.Align, element.Bold, size, line});
        top += cell * 1.0201;
      }
    }
    return texts;
  }
  // The lines of text that hold `part`.
  std::vector<PlacedText> Find(const std::string& part) {
    std::vector<PlacedText> found;
    for (const PlacedText& text : Texts()) {
      if (Contains(text.text, part)) found.push_back(text);
    }
    return found;
  }
  // The line of text that is this one; it must stand on the page once.
  PlacedText Only(const std::string& whole, int page = 1) {
    std::vector<PlacedText> found;
    for (const PlacedText& text : Texts()) {
      if (text.text == whole && text.page == page) found.push_back(text);
    }
    EXPECT_EQ(found.size(), 1u) << whole;
    return found.empty() ? PlacedText{} : found.front();
  }
  std::string Text(const char* key) { return program->Text(key); }

  // What every printed page must keep to: nothing beyond the margins or in the footer, no two texts over each other, no text that either
  // destination would wrap anew.
  void ExpectCleanPages() {
    constexpr double kMargin = 10 - 0.05, kRight = 200 + 0.05, kFooter = 282;
    std::map<int, std::vector<PlacedText>> by_page;
    for (const PlacedText& text : Texts()) {
      EXPECT_GE(text.left, kMargin) << text.text;
      EXPECT_LE(text.right, kRight) << text.text;
      EXPECT_GE(text.top, 8.9) << text.text;
      if (text.top < kFooter) {
        EXPECT_LE(text.bottom, kFooter) << text.text;
        by_page[text.page].push_back(text);
      }
    }
    for (const auto& [page, texts] : by_page) {
      for (size_t i = 0; i < texts.size(); ++i) {
        for (size_t j = i + 1; j < texts.size(); ++j) {
          const PlacedText &a = texts[i], &b = texts[j];
          const bool apart = a.right <= b.left + 0.02 || b.right <= a.left + 0.02 || a.bottom <= b.top + 0.12 || b.bottom <= a.top + 0.12;
          EXPECT_TRUE(apart) << "page " << page << ": \"" << a.text << "\" over \"" << b.text << "\"";
        }
      }
    }
    for (const PageElement& element : Job().elements()) {
      if (element.Kind == ElementKind::kLine || element.Kind == ElementKind::kRectangle || element.Kind == ElementKind::kImage) {
        for (const int i : {0, 1}) {
          EXPECT_GE(element.X[static_cast<size_t>(i)], kMargin);
          EXPECT_LE(element.X[static_cast<size_t>(i)], kRight);
          EXPECT_LE(element.Y[static_cast<size_t>(i)], kFooter + 0.01);
        }
      }
      if (element.Kind != ElementKind::kText || element.WrapWidth <= 0) continue;
      const double cell = static_cast<double>(element.S0) / 0.8 * 0.3333;
      for (const std::string& line : Paragraphs(element.Text)) {
        const double width = static_cast<double>(WidthAt125(line + ' ', FaceOf(element.Font, element.Bold))) / kWidthCellHeight * cell;
        EXPECT_LT(width, static_cast<double>(element.WrapWidth)) << line;
      }
    }
  }

  TestPlatform& surroundings = platform;
  Program* const program = &this->TestProgram::program;
  int32_t identity_ = 0, document_ = 0;
};

}  // namespace ostrinka
