#include "masterdata/postal.h"

#include <array>

#include "base/text.h"

namespace ostrinka {
namespace {

constexpr size_t kRecordSize = 32, kCodeLength = 6, kTownLength = 25;
constexpr int64_t kLargestFile = int64_t{1} << 26;

// A field in its plain form, trimmed.
std::string Unscramble(std::string_view field) {
  std::string plain;
  for (size_t i = 0; i < field.size(); ++i) {
    const auto shifted = static_cast<uint8_t>(static_cast<uint8_t>(field[i]) - (i + 1));
    plain += static_cast<char>(shifted ^ 0x80);
  }
  return Trim(FromCp1250(plain));
}

// The official numbers of the voivodeships, in the order of their names.
constexpr uint8_t kDs = 2, kKp = 4, kLu = 6, kLb = 8, kLd = 10, kMp = 12, kMz = 14, kOp = 16;      // dolnośląskie to opolskie
constexpr uint8_t kPk = 18, kPd = 20, kPm = 22, kSl = 24, kSk = 26, kWm = 28, kWp = 30, kZp = 32;  // podkarpackie to zachodniopomorskie

// The voivodeship of each postal district, the first two digits of a code: the districts of the Polish post laid over the administrative
// division of 1999, by the towns of each, as in resources/postal_codes.txt. A district that crosses a border counts as the voivodeship in
// which most of its people live: 19 (Ełk, beside Grajewo), 26 (Radom, beside Kielce county), 76 (Słupsk, beside Sławno), 77 (Bytów, beside
// Złotów), 82 (Malbork and Kwidzyn, beside Elbląg), 96 (Żyrardów and Sochaczew, beside Skierniewice). 79 is not in use.
constexpr std::array<uint8_t, 100> kVoivodeshipOfDistrict = {
    kMz, kMz, kMz, kMz, kMz, kMz, kMz, kMz, kMz, kMz,  // 00
    kWm, kWm, kWm, kWm, kWm, kPd, kPd, kPd, kPd, kWm,  // 10
    kLu, kLu, kLu, kLu, kLu, kSk, kMz, kSk, kSk, kSk,  // 20
    kMp, kMp, kMp, kMp, kMp, kPk, kPk, kPk, kPk, kPk,  // 30
    kSl, kSl, kSl, kSl, kSl, kOp, kOp, kOp, kOp, kOp,  // 40
    kDs, kDs, kDs, kDs, kDs, kDs, kDs, kDs, kDs, kDs,  // 50
    kWp, kWp, kWp, kWp, kWp, kLb, kLb, kLb, kLb, kLb,  // 60
    kZp, kZp, kZp, kZp, kZp, kZp, kPm, kPm, kZp, 0,    // 70
    kPm, kPm, kPm, kPm, kPm, kKp, kKp, kKp, kKp, kKp,  // 80
    kLd, kLd, kLd, kLd, kLd, kLd, kMz, kLd, kLd, kLd,  // 90
};

// "NN-NNN", or the five digits without the dash.
bool IsCode(std::string_view text) {
  if (text.size() == kCodeLength && text[2] == '-') return IsAllDigits(text.substr(0, 2)) && IsAllDigits(text.substr(3));
  return text.size() == 5 && IsAllDigits(text);
}

}  // namespace

bool PostalTable::LoadPostalCodes(FileSystem& files, const std::string& program_folder) {
  rows_.assign(1, Row());
  loaded_ = true;
  std::string content;
  if (!files.ReadAll(program_folder + "psc.bin", content, kLargestFile) || content.size() < kRecordSize) return false;
  const std::string_view bytes = content;
  rows_.resize(bytes.size() / kRecordSize);
  for (size_t i = 0; i < rows_.size(); ++i) {
    const std::string_view record = bytes.substr(i * kRecordSize, kRecordSize);
    rows_[i].code = Unscramble(record.substr(0, kCodeLength));
    rows_[i].town = Unscramble(record.substr(kCodeLength, kTownLength));
  }
  return true;
}

std::string PostalTable::TownOfCode(std::string_view code) const {
  const int32_t row = PostalIndexOf(code);
  return row == 0 ? std::string() : rows_[static_cast<size_t>(row) - 1].town;
}

std::string PostalTable::CodeOfTown(std::string_view town, std::string_view hint) const {
  const std::string wanted = Trim(town), known = Trim(hint);
  if (wanted.empty()) return "";
  const bool hinted = IsCode(known);
  std::string first;
  for (const Row& row : rows_) {
    if (row.town != wanted) continue;
    if (hinted && row.code.substr(0, 2) == known.substr(0, 2)) return known;
    if (first.empty()) first = row.code;
  }
  return first;
}

int32_t PostalTable::PostalIndexOf(std::string_view code) const {
  const std::string wanted = Trim(code);
  if (wanted.empty()) return 0;
  for (size_t i = 0; i < rows_.size(); ++i) {
    if (rows_[i].code == wanted) return static_cast<int32_t>(i) + 1;
  }
  return 0;
}

int32_t PostalTable::RegionOfCode(std::string_view code) {
  const std::string text = Trim(code);
  if (!IsCode(text)) return 0;
  return kVoivodeshipOfDistrict[static_cast<size_t>(text[0] - '0') * 10 + static_cast<size_t>(text[1] - '0')];
}

}  // namespace ostrinka
