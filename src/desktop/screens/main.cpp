// ostrinka-screens OUTDIR: saves a picture of the main window on every tab and of every dialog, and looks for texts that are not fit to be
// seen. Exit status 1 when a window has a fault; each is told on standard error.
#include <QApplication>
#include <QDir>
#include <QTemporaryDir>
#include <cstdio>
#include <cstdlib>

#include "desktop/screens/shots.h"
#include "platform/posix/command_line.h"

namespace ostrinka {
namespace {

// What the command line asks for.
struct Wishes {
  PictureFiles files;
  std::string application, company;
  bool windows = true, dialogs = true;
};

bool ReadSize(const std::string& text, QSize& size) {
  const QStringList sides = ToQt(text).split('x');
  bool width = false, height = false;
  if (sides.size() == 2) size = QSize(sides[0].toInt(&width), sides[1].toInt(&height));
  return width && height && size.isValid();
}

std::optional<int> ReadWishes(int count, const char* const* words, Wishes& wishes) {
  std::string folder, mark;
  bool windows = false, dialogs = false;
  CommandLine line("ostrinka-screens", "Saves a picture of every window and looks for texts that are not fit to be seen.");
  line.Word("OUTDIR", folder, "Folder of the pictures")->required()->type_name("");
  line.Word("--app", wishes.application, "The program's folder; the one beside the executable when not given")->type_name("DIR");
  line.Word("--company", wishes.company, "A company, which is copied first; a small one is made when not given")->type_name("DIR");
  line.Word("--mark", mark, "Ends the names of the pictures; --mark=-TEXT when it begins with a dash")->type_name("TEXT");
  line.Checked("--size", "Size of the main window", [&](const std::string& text) { return ReadSize(text, wishes.files.size); })
      ->type_name("WxH");
  CLI::Option* only = line.options().add_flag("--windows", windows, "Only the main window");
  line.options().add_flag("--dialogs", dialogs, "Only the dialogs")->excludes(only);
  if (const auto status = line.Read(count, words)) return status;
  wishes.files.folder = ToQt(folder);
  wishes.files.mark = ToQt(mark);
  wishes.application = wishes.application.empty() ? ExecutableFolder() + "Ostrinka/" : wishes.application + "/";
  wishes.windows = !dialogs;
  wishes.dialogs = !windows;
  return std::nullopt;
}

int Run(const Wishes& wishes) {
  QTemporaryDir scratch;
  if (!scratch.isValid() || !QDir().mkpath(wishes.files.folder)) return 1;
  SampleCompany company(wishes.application, FromQt(scratch.path()) + "/");
  Screens screens(company, wishes.files);
  if (!company.Open(wishes.company)) {
    std::fputs("the company could not be made or opened\n", stderr);
    return 1;
  }
  if (wishes.dialogs) {
    screens.Dialogs();
    screens.Wizard();
    screens.Boxes();
    screens.Commands();
  }
  if (wishes.windows) screens.Windows();
  return screens.failures() == 0 ? 0 : 1;
}

}  // namespace
}  // namespace ostrinka

int main(int argc, char** argv) {
  ostrinka::Wishes wishes;
  if (!std::getenv("DISPLAY") && !std::getenv("WAYLAND_DISPLAY")) setenv("QT_QPA_PLATFORM", "offscreen", 0);
  QApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  if (const auto status = ostrinka::ReadWishes(argc, argv, wishes)) return *status;
  return ostrinka::Run(wishes);
}
