// ostrinka-bench FOLDER N CATALOGUES [WORD]: measures with the data in FOLDER, making it when it is not there. The status is 1 when a row
// is over its figure, 2 when something could not be measured.
#include <charconv>
#include <cstdio>
#include <filesystem>
#include <string>

#include "rows.h"

int main(int count, char** words) {
  using namespace ostrinka::bench;
  if (count == 4 && std::string(words[1]) == "--field-delete") return MeasureFieldDelete(words[2], words[3]);
  int32_t customers = 0;
  const std::string number = count >= 4 ? words[2] : "";
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), customers);
  if (error != std::errc() || end != number.data() + number.size() || customers < 100 || customers > 1000000) {
    std::fprintf(stderr, "usage: ostrinka-bench FOLDER N CATALOGUES [WORD], with N from 100 to 1000000\n");
    return 2;
  }
  Report report(count > 4 ? words[4] : "");
  Data data(std::filesystem::absolute(words[1]).string() + "/", words[3], customers);
  SelectionRows(data, report);
  RecordRows(data, report);
  StructureRows(data, report);
  OpeningRows(data, report);
  PdfRows(data, report);
  std::filesystem::remove_all(data.scratch);
  return report.any_over() ? 1 : 0;
}
