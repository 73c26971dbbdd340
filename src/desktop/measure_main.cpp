// ostrinka-measure COMPANY SAMPLE: measures the window, offscreen or on a display.
//
// COMPANY is a large company, SAMPLE a small one; both are copied first. Prints a line for each figure with its limit; the status is 1 when
// one is over it, 2 when something could not be measured. With --start FOLDER it only starts on the company there and ends once the window
// is usable.
#include <QApplication>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <vector>

#include "company/tables.h"
#include "desktop/desktop_ui.h"
#include "desktop/dialog_style.h"
#include "desktop/form_window.h"
#include "desktop/main_window_view.h"
#include "desktop/qt_platform.h"
#include "platform/posix/command_line.h"
#include "sales/sales_form.h"
#include "startup/startup.h"

namespace ostrinka {
namespace {

constexpr int kRounds = 15;
constexpr double kStartLimit = 1000, kPageLimit = 16, kEditorLimit = 300, kMemoryLimit = 200;

template <typename Function>
double Milliseconds(Function&& function) {
  const auto start = std::chrono::steady_clock::now();
  function();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

bool Figure(const char* name, double figure, double limit, const char* unit) {
  std::printf("%-66s %8.1f  at most %6.0f %-3s %s\n", name, figure, limit, unit, figure > limit ? "OVER" : "ok");
  std::fflush(stdout);
  return figure <= limit;
}

// What the process holds, and how much of it are tables seen through memory: pages of the system's file cache, which it takes back at will.
struct Memory {
  double own = 0, tables = 0;  // MiB
};

Memory ResidentMemory(const std::string& folder) {
  Memory memory;
  std::ifstream maps("/proc/self/smaps");
  bool table = false;
  for (std::string line; std::getline(maps, line);) {
    const bool head = line.find('-') < line.find(' ');
    if (head) table = line.find(folder) != std::string::npos;
    if (line.rfind("Rss:", 0) == 0) (table ? memory.tables : memory.own) += std::strtod(line.c_str() + 4, nullptr) / 1024;
  }
  return memory;
}

// The program with its window on the company in `folder`/firma/, its settings beside it.
class Running {
 public:
  explicit Running(const std::string& folder)
      : surroundings_(ui_, ExecutableFolder() + "Ostrinka/"), program_(Settled(folder)), look_(program_), startup_(program_) {
    DialogStyle::Install(look_);
    ui_.Attach(program_, look_);
    ui_.hooks.show_main_window = [this] { Show(); };
    ui_.hooks.redraw_main_window = [this] {
      if (view_) view_->Refresh();
    };
    startup_.Start("");
    if (!view_) Show();
    Paint();
  }
  ~Running() {
    ui_.hooks = {};
    view_.reset();
    if (MainWindow* window = startup_.window()) window->on_exit = nullptr;
  }
  void Paint() {
    QApplication::processEvents();
    view_->grab();
  }
  Program& program() { return program_; }
  MainWindow& window() { return *startup_.window(); }
  MainWindowView& view() { return *view_; }
  const Look& look() const { return look_; }

 private:
  Platform& Settled(const std::string& folder) {
    surroundings_.platform.user_settings = folder + "user-settings/";
    Program program(surroundings_.platform);
    program.settings.SaveSettingValue(kCommon, "dbPath", "Remote", Value(true));
    program.settings.SaveSettingValue(kCommon, "dbPath", "Path", Value(folder + "firma/"));
    for (const char* key : {"username", "password"})
      program.settings.SaveSettingValue(kCommon, "dbLogin", key, Value(std::string("kreda")));
    program.settings.SaveSettingValue(kCommon, "system", "fRun", Value(false));
    return surroundings_.platform;
  }
  void Show() {
    if (!view_ && startup_.window()) view_ = std::make_unique<MainWindowView>(program_, *startup_.window(), look_);
    if (view_) view_->ShowInPlace();
  }
  DesktopUi ui_;
  QtPlatform surroundings_;
  Program program_;
  Look look_;
  Startup startup_;
  std::unique_ptr<MainWindowView> view_;
};

bool Copied(const std::string& company, const std::string& folder) {
  std::error_code failed;
  std::filesystem::create_directories(folder + "user-settings", failed);
  std::filesystem::copy(company, folder + "firma", std::filesystem::copy_options::recursive, failed);
  return !failed;
}

// The whole process: from its start to the window drawn with its list.
bool MeasureStart(const std::string& folder) {
  std::vector<double> times;
  for (int i = 0; i < 5; ++i) {
    int status = -1;
    times.push_back(Milliseconds([&] { status = QProcess::execute(QCoreApplication::applicationFilePath(), {"--start", ToQt(folder)}); }));
    if (status != 0) return false;
  }
  return Figure("start to a usable window, sample company, splash included", Median(times), kStartLimit, "ms");
}

bool MeasureList(Running& running) {
  ClassQDBASE* table = running.window().ViewTable();
  if (!table || table->MAX_ROWS() < 1) return false;
  ListView& list = running.view().list();
  QImage page(list.size() * list.devicePixelRatioF(), QImage::Format_ARGB32_Premultiplied);
  page.setDevicePixelRatio(list.devicePixelRatioF());
  std::vector<double> times;
  const int step = std::max(table->MAX_ROWS() / (kRounds + 1), 1);
  for (int i = 0; i < kRounds; ++i) {
    running.window().list.first_row = 1 + i * step;
    list.Refresh();
    times.push_back(Milliseconds([&] { list.render(&page); }));
  }
  const std::string name = "a page of a list of " + std::to_string(table->MAX_ROWS()) + " documents is drawn";
  return Figure(name.c_str(), Median(times), kPageLimit, "ms");
}

bool MeasureEditor(Running& running) {
  std::vector<double> times;
  for (int i = 0; i < 5; ++i) {
    times.push_back(Milliseconds([&] {
      frm_Dok_sprzed form(running.program());
      form.reload_();
      form.Open();
      FormWindow window(running.program(), running.look(), form, &running.view());
      window.show();
      window.grab();
      form.Close();
    }));
  }
  const std::string name =
      "sales editor with " + std::to_string(Table(running.program(), kKontrahenci).RECORD_COUNT()) + " customers opens";
  return Figure(name.c_str(), Median(times), kEditorLimit, "ms");
}

int Measure(const std::string& company, const std::string& sample) {
  QTemporaryDir scratch;
  const std::string top = scratch.path().toStdString();
  if (!scratch.isValid() || !Copied(company, top + "/large/") || !Copied(sample, top + "/small/")) {
    std::fputs("the companies could not be copied\n", stderr);
    return 2;
  }
  bool within = MeasureStart(top + "/small/");
  Running running(top + "/large/");
  if (!running.program().database_open) {
    std::fputs("the large company could not be opened\n", stderr);
    return 2;
  }
  within = MeasureList(running) && within;
  within = MeasureEditor(running) && within;
  for (const char* tab : {"KONTRAHENCI", "TOWARYUSŁUGI", "ZAKUP", "SPRZEDAŻ"}) {
    running.window().UserTab(tab);
    running.Paint();
  }
  const Memory memory = ResidentMemory(top + "/large/firma/");
  within = Figure("resident memory with that company, every list shown", memory.own, kMemoryLimit, "MiB") && within;
  std::printf("  beside it %.0f MiB of table files seen through the system's cache\n", memory.tables);
  return within ? 0 : 1;
}

}  // namespace
}  // namespace ostrinka

int main(int argc, char** argv) {
  QApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  std::string company, sample, start;
  ostrinka::CommandLine line("ostrinka-measure", "Measures the window on a large company and on a sample; both are copied first.");
  CLI::Option* large = line.Word("COMPANY", company, "Folder of the large company")->type_name("");
  CLI::Option* small = line.Word("SAMPLE", sample, "Folder of the small one")->type_name("")->needs(large);
  large->needs(small);
  line.Word("--start", start, "Only starts on the company there, and ends once the window is usable")->type_name("FOLDER")->excludes(large);
  line.options().require_option(1, 2);
  if (const auto status = line.Read(argc, argv)) return *status;
  if (!start.empty()) {
    const ostrinka::Running running(start);
    return 0;
  }
  return ostrinka::Measure(company, sample);
}
