// Reads a PDF of ClassPDF back: its objects, the texts of its pages by reversing the glyph numbers, and the entries of its offset table.
#pragma once

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "base/text.h"
#include "print/pdf_glyphs.h"

namespace ostrinka {

struct PdfText {
  int page = 0;  // from 1
  int font = 0;
  double size = 0, x = 0, y = 0;  // PDF units
  bool turned = false;
  std::string text;
};

inline std::string FileContent(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

inline std::vector<std::string> PdfLines(const std::string& bytes) {
  std::vector<std::string> lines;
  for (size_t start = 0, end; (end = bytes.find("\r\n", start)) != std::string::npos; start = end + 2)
    lines.push_back(bytes.substr(start, end - start));
  return lines;
}

// Content streams in the order of the pages.
inline std::vector<std::string> PdfPages(const std::string& bytes) {
  std::vector<std::string> pages;
  const std::string head = "/Length 0\r\n>>\r\nstream\r\n", tail = "\r\nendstream";
  for (size_t start = 0; (start = bytes.find(head, start)) != std::string::npos;) {
    start += head.size();
    size_t end = bytes.find(tail, start);
    pages.push_back(bytes.substr(start, end - start));
  }
  return pages;
}

inline std::string TextOfGlyphs(const std::string& hex) {
  std::map<int, char> bytes;
  for (int byte = 255; byte >= 32; --byte) bytes[kGlyphs[static_cast<size_t>(byte)]] = static_cast<char>(byte);
  for (const GlyphException& exception : kGlyphExceptions) {
    if (exception.byte != 0xDC) bytes[exception.glyph] = static_cast<char>(exception.byte);
  }
  std::string text;
  for (size_t i = 0; i + 4 <= hex.size(); i += 4) text += bytes[static_cast<int>(std::strtol(hex.substr(i, 4).c_str(), nullptr, 16))];
  return FromCp1250(text);
}

inline std::vector<PdfText> PdfTexts(const std::string& bytes) {
  std::vector<PdfText> texts;
  int page = 0;
  for (const std::string& content : PdfPages(bytes)) {
    ++page;
    PdfText text;
    for (const std::string& line : PdfLines(content + "\r\n")) {
      std::istringstream words(line);
      double skipped;
      if (line.ends_with(" Tf")) {
        text = PdfText{};
        text.page = page;
        text.font = std::atoi(line.c_str() + 2);
        words.ignore(8, ' ');
        words >> text.size;
      } else if (line.ends_with(" Tm")) {
        words >> skipped >> skipped >> skipped >> skipped >> text.x >> text.y;
        text.turned = true;
      } else if (line.ends_with(" Td") && !text.turned) {
        words >> text.x >> text.y;
      } else if (line.ends_with(">] TJ")) {
        text.text = TextOfGlyphs(line.substr(2, line.size() - 7));
        texts.push_back(text);
      }
    }
  }
  return texts;
}

}  // namespace ostrinka
