// Adding and deleting a field of a full table, against a plain copy of its file; the memory that the deletion takes.
#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>

#include "company/tables.h"
#include "generate_company.h"
#include "rows.h"

namespace ostrinka::bench {
namespace {

namespace fs = std::filesystem;

constexpr int kStructureRounds = 9;
constexpr size_t kBlock = size_t{1} << 20;

// The whole file to a new one, in blocks of 1 MiB.
double PlainCopy(const std::string& from, const std::string& to) {
  fs::remove(to);
  std::string block(kBlock, '\0');
  bool copied = true;
  const double seconds = Seconds([&] {
    const int source = open(from.c_str(), O_RDONLY), target = open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL, 0660);
    for (ssize_t got; (got = read(source, block.data(), block.size())) > 0;)
      copied = copied && write(target, block.data(), static_cast<size_t>(got)) == got;
    close(source);
    close(target);
  });
  Require(copied && fs::file_size(from) == fs::file_size(to), "the copy is not complete");
  fs::remove(to);
  return seconds;
}

double PeakMiB() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024;
}

// In a process of its own, whose peak is not that of what was measured before.
void MemoryRow(Report& report, const std::string& name, const std::string& folder, const std::string& path) {
  const std::string command = "'" + fs::read_symlink("/proc/self/exe").string() + "' --field-delete '" + folder + "' '" + path + "'";
  FILE* child = popen(command.c_str(), "r");
  Require(child != nullptr, "no process of its own for the memory");
  double growth = -1;
  const int read = std::fscanf(child, "%lf", &growth);
  Require(read == 1 && pclose(child) == 0 && growth >= 0, "the memory was not measured");
  char remark[80];
  std::snprintf(remark, sizeof remark, "MiB more at the peak, file of %.0f MiB", static_cast<double>(fs::file_size(path)) / (1 << 20));
  report.Figure(name, growth, 64, remark);
}

}  // namespace

int MeasureFieldDelete(const std::string& folder, const std::string& path) {
  Surroundings surroundings(folder);
  ClassQDBASE table(surroundings.script.platform);
  if (!table.DATABASE_OPEN(path, kGeneratedUser, kGeneratedPassword, false, false, false)) return 1;
  const double before = PeakMiB();
  if (!table.FIELD_DELETE(table.FIELD_COUNT())) return 1;
  std::printf("%.3f\n", PeakMiB() - before);
  return 0;
}

void StructureRows(Data& data, Report& report) {
  const std::string add = "FIELD_ADD on all documents, to a plain copy", remove = "FIELD_DELETE on all documents, to a plain copy",
                    memory = "FIELD_DELETE, memory";
  if (!report.Wants(add) && !report.Wants(remove) && !report.Wants(memory)) return;
  const std::string path = data.scratch + "fields.ovd", copy = data.scratch + "plain-copy";
  fs::copy_file(Table(data.full.program(), kDokSprzed).DATABASE_PATH(), path);
  ClassQDBASE table(data.full.platform());
  Require(table.DATABASE_OPEN(path, kGeneratedUser, kGeneratedPassword, false, false, false), "a table cannot be opened");
  Pairs adding, deleting;
  for (int round = 0; round <= kStructureRounds && (report.Wants(add) || report.Wants(remove)); ++round) {
    bool done = false;
    const double add_seconds = Seconds([&] { done = table.FIELD_ADD("POMIAR", kText, 20, "", ""); });
    Require(done, "the field was not added: " + table.last_error());
    const double add_copy = PlainCopy(path, copy);
    const double delete_seconds = Seconds([&] { done = table.FIELD_DELETE("POMIAR"); });
    Require(done, "the field was not deleted: " + table.last_error());
    const double delete_copy = PlainCopy(path, copy);
    if (round == 0) continue;  // the round that is not timed
    adding.Add(add_seconds, add_copy);
    deleting.Add(delete_seconds, delete_copy);
  }
  table.DATABASE_CLOSE();
  if (report.Wants(add)) report.Ratio(add, adding, 8);
  if (report.Wants(remove)) report.Ratio(remove, deleting, 8);
  if (report.Wants(memory)) MemoryRow(report, memory, data.scratch, path);
  fs::remove(path);
}

}  // namespace ostrinka::bench
