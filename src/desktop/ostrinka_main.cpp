// ostrinka [+wiz] [+nohook]: the program in its window.
#include <QApplication>
#include <QTimer>
#include <memory>
#include <string>
#include <vector>

#include "app/program.h"
#include "desktop/desktop_ui.h"
#include "desktop/dialog_style.h"
#include "desktop/end_signals.h"
#include "desktop/main_window_view.h"
#include "desktop/qt_platform.h"
#include "desktop/splash.h"
#include "desktop/toolkit_texts.h"
#include "platform/posix/command_line.h"
#include "startup/startup.h"

namespace ostrinka {
namespace {

// The running program with its window. Members go in the reverse order: the window before the model that it shows.
class Desktop {
 public:
  Desktop() : platform_(ui_, ExecutableFolder()), program_(platform_.platform), look_(program_), startup_(program_), texts_(program_) {
    texts_.Install();
    WearLook();
    QApplication::setWindowIcon(look_.Icon("ostrinka.ico"));
    ui_.Attach(program_, look_);
    ui_.hooks.show_main_window = [this] { ShowWindow(); };
    ui_.hooks.redraw_main_window = [this] {
      if (view_ && view_->isVisible() && !ended_) view_->Refresh();
    };
    ui_.hooks.show_status = [this](const std::string& text) {
      if (view_ && !ended_) view_->ShowStatus(ToQt(text));
    };
    ui_.hooks.show_splash = [this](bool shown) { ShowSplash(shown); };
    ui_.hooks.start_timer = [this](int milliseconds) { timer_.start(milliseconds); };
    ui_.hooks.stop_timer = [this] { timer_.stop(); };
    ui_.hooks.end_program = [this] { End(); };
    ui_.hooks.end_wanted = [this] { return end_signals_.Asked(); };
    ui_.hooks.appearance_changed = [this](bool skin) {
      if (skin) look_.Reload();
      WearLook();
      if (view_ && !ended_) view_->LookChanged();
    };
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] {
      if (view_) view_->Tick();
    });
    // What tables' scans keep mapped is given back every five seconds; the next scan takes it again.
    QObject::connect(&upkeep_, &QTimer::timeout, &upkeep_, [this] { platform_.platform.files.DropViews(); });
    upkeep_.start(5000);
  }

  int Run(const std::string& command_line) {
    startup_.Start(command_line);
    // The wizard's path shows nothing by itself.
    if (!ended_ && !view_) ShowWindow();
    const int status = ended_ || end_signals_.Asked() ? 0 : QApplication::exec();
    if (!ended_ && startup_.window()) startup_.window()->save_window_();
    startup_.Stop();
    return status;
  }

 private:
  // What the toolkit paints by itself: the menus of text fields.
  void WearLook() { QApplication::setPalette(DialogStyle::Install(look_).ListPalette(), "QMenu"); }

  void ShowWindow() {
    if (!startup_.window() || ended_) return;
    if (!view_) {
      view_ = std::make_unique<MainWindowView>(program_, *startup_.window(), look_);
      ui_.SetParent(view_.get());
    }
    view_->ShowInPlace();
  }

  void ShowSplash(bool shown) {
    splash_ = shown ? std::make_unique<Splash>(look_) : nullptr;
    if (splash_) splash_->show();
  }

  void End() {
    ended_ = true;
    splash_.reset();
    if (view_) view_->hide();
    QApplication::quit();
  }

  // First of all: a company may be brought up to date before there is a window. Every open dialog ends with the loop, as if it had been
  // cancelled.
  EndSignals end_signals_{[] { QApplication::exit(); }};
  DesktopUi ui_;
  QtPlatform platform_;
  Program program_;
  Look look_;
  Startup startup_;
  ToolkitTexts texts_;
  QTimer timer_, upkeep_;
  std::unique_ptr<Splash> splash_;
  std::unique_ptr<MainWindowView> view_;
  bool ended_ = false;
};

}  // namespace
}  // namespace ostrinka

int main(int count, char** words) {
  QApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
  QApplication application(count, words);
  QApplication::setApplicationName("ostrinka");
  QApplication::setApplicationDisplayName("Ostrinka 2008");
  QApplication::setQuitOnLastWindowClosed(false);
  // What the toolkit takes for itself (-platform, -style) is gone from its words.
  std::vector<std::string> own, words_of_start;
  for (const QString& word : QApplication::arguments()) own.push_back(ostrinka::FromQt(word));
  std::vector<const char*> pointers;
  for (const std::string& word : own) pointers.push_back(word.c_str());
  ostrinka::CommandLine line("ostrinka", "Ostrinka 2008: invoices of a small business.");
  line.options()
      .add_option("WORDS", words_of_start, "+wiz starts with the first-run wizard; +nohook is taken and changes nothing")
      ->type_name("");
  if (const auto status = line.Read(static_cast<int>(pointers.size()), pointers.data())) return *status;
  std::string command_line;
  for (const std::string& word : words_of_start) command_line += word + " ";
  return ostrinka::Desktop().Run(command_line);
}
