// ostrinka-bench FOLDER N CATALOGUES [WORD]: measures with the data in FOLDER, making it when it is not there. The status is 1 when a row
// is over its figure, 2 when something could not be measured.
#include <filesystem>
#include <string>

#include "platform/posix/command_line.h"
#include "rows.h"

int main(int count, char** words) {
  using namespace ostrinka::bench;
  std::string folder, catalogues, word;
  int32_t customers = 0;
  std::vector<std::string> field_delete;
  ostrinka::CommandLine line("ostrinka-bench", "Measures the program beside SQLite and libharu.");
  CLI::Option* places[] = {line.Word("FOLDER", folder, "The data, made when it is not there"),
                           line.Whole("N", customers, 100, 1000000, "Customers, 100 to 1000000"),
                           line.Word("CATALOGUES", catalogues, "Folder of the catalogues"),
                           line.Word("WORD", word, "Only the rows whose name holds it")};
  CLI::Option* child = line.options()
                           .add_option("--field-delete", field_delete, "The process of the row FIELD_DELETE, memory: folder and path")
                           ->expected(2)
                           ->type_name("TEXT");
  for (CLI::Option* place : places) place->type_name("")->excludes(child);
  if (const auto status = line.Read(count, words)) return *status;
  if (child->count() > 0) return MeasureFieldDelete(field_delete[0], field_delete[1]);
  if (catalogues.empty()) return line.Wrong("FOLDER, N and CATALOGUES are needed");
  Report report(word);
  Data data(std::filesystem::absolute(folder).string() + "/", catalogues, customers);
  SelectionRows(data, report);
  RecordRows(data, report);
  StructureRows(data, report);
  OpeningRows(data, report);
  PdfRows(data, report);
  std::filesystem::remove_all(data.scratch);
  return report.any_over() ? 1 : 0;
}
