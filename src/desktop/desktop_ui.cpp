#include "desktop/desktop_ui.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QUrl>

#include "app/program.h"
#include "base/text.h"
#include "desktop/form_window.h"
#include "desktop/message_window.h"
#include "desktop/preview_window.h"

namespace ostrinka {
namespace {

constexpr const char* kFilesSection = "Windows\\Files";
constexpr const char* kFilesKey = "Folder";

QStringList FilterList(const std::vector<FileFilter>& filters) {
  QStringList list;
  for (const FileFilter& filter : filters) {
    QStringList patterns;
    for (const std::string& pattern : filter.patterns) patterns << ToQt(pattern);
    // What the name already says in brackets is not said twice.
    const QString name = ToQt(filter.name).section('(', 0, 0).trimmed();
    list << name + " (" + patterns.join(' ') + ")";
  }
  return list;
}

QString RememberedFolder(Program& program) {
  const QString folder = ToQt(program.settings.Text(kOstrinka, kFilesSection, kFilesKey));
  return QFileInfo(folder).isDir() ? folder : QString();
}

// The name that the person chose, its folder remembered.
std::optional<std::string> Chosen(Program& program, const QString& file) {
  if (file.isEmpty()) return std::nullopt;
  const QString folder = QFileInfo(file).absolutePath();
  if (folder != RememberedFolder(program)) program.settings.SaveSettingValue(kOstrinka, kFilesSection, kFilesKey, Value(FromQt(folder)));
  return FromQt(file);
}

// The window that a new one stands before. When that one is gone, it is active again, also where no window manager sees to it, and a button
// in the middle of whose press the new one opened is no longer down.
class Behind {
 public:
  explicit Behind(QWidget* window) : window_(window) {}
  ~Behind() {
    if (!window_ || !window_->isVisible()) return;
    for (QAbstractButton* button : window_->findChildren<QAbstractButton*>()) {
      if (button->isDown()) button->setDown(false);
    }
    window_->activateWindow();
  }
  Behind(const Behind&) = delete;
  operator QWidget*() const { return window_; }

 private:
  const QPointer<QWidget> window_;
};

// While a person is asked, the pointer is no hourglass.
class PointerFree {
 public:
  PointerFree() {
    while (QApplication::overrideCursor()) {
      QApplication::restoreOverrideCursor();
      ++taken_;
    }
  }
  ~PointerFree() {
    while (taken_-- > 0) QApplication::setOverrideCursor(Qt::WaitCursor);
  }
  PointerFree(const PointerFree&) = delete;

 private:
  int taken_ = 0;
};

// A web address as people type it. Only these kinds leave the program.
QUrl WebAddress(const QString& target) {
  if (target.startsWith("mailto:", Qt::CaseInsensitive)) return QUrl(target, QUrl::TolerantMode);
  const QUrl url(target, QUrl::TolerantMode);
  const QString scheme = url.scheme().toLower();
  if (scheme == "http" || scheme == "https") return url.host().isEmpty() ? QUrl() : url;
  if (target.contains("://") || target.contains('\\') || target.startsWith('/')) return {};
  const QUrl guessed("http://" + target, QUrl::TolerantMode);
  return guessed.host().contains('.') ? guessed : QUrl();
}

}  // namespace

QWidget* DesktopUi::Front() const {
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  return window_ && window_->isVisible() ? window_.data() : nullptr;
}

void DesktopUi::ShowModal(Modal& modal) {
  if (!program_ || !look_) return;
  const PointerFree pointer;
  const Behind behind(Front());
  if (auto* form = dynamic_cast<Form*>(&modal)) {
    FormWindow window(*program_, *look_, *form, behind);
    window.Run();
  } else if (auto* preview = dynamic_cast<frm_DocPreview*>(&modal)) {
    PreviewWindow window(*look_, *preview, behind);
    preview_ = &window;
    window.Run();
  }
}

Answer DesktopUi::ShowMessage(const std::string& text, MessageKind kind) {
  if (!look_) return kind == MessageKind::kQuestion ? Answer::kNo : Answer::kOk;
  const PointerFree pointer;
  const Behind behind(Front());
  MessageWindow box(*look_, ToQt(text).replace("\r\n", "\n"), kind, behind);
  return box.Run();
}

std::optional<std::string> DesktopUi::AskOpenFile(const std::vector<FileFilter>& filters) {
  const PointerFree pointer;
  const Behind behind(Front());
  return Chosen(*program_, QFileDialog::getOpenFileName(behind, QString(), RememberedFolder(*program_), FilterList(filters).join(";;")));
}

std::optional<std::string> DesktopUi::AskSaveFile(const std::vector<FileFilter>& filters, const std::string& proposal, size_t& filter) {
  const PointerFree pointer;
  const Behind behind(Front());
  const QString folder = RememberedFolder(*program_);
  QString start = ToQt(proposal);
  if (!folder.isEmpty() && !start.contains('/')) start = folder + "/" + start;
  const QStringList list = FilterList(filters);
  QString chosen = list.value(static_cast<int>(filter));
  QString file = QFileDialog::getSaveFileName(behind, QString(), start, list.join(";;"), &chosen);
  filter = static_cast<size_t>(std::max<qsizetype>(0, list.indexOf(chosen)));
  // A name typed without an ending gets that of the filter.
  if (!file.isEmpty() && QFileInfo(file).suffix().isEmpty() && filter < filters.size() && !filters[filter].patterns.empty()) {
    const QString ending = ToQt(filters[filter].patterns.front()).section('*', -1);
    if (ending.startsWith('.')) file += ending;
  }
  return Chosen(*program_, file);
}

std::optional<std::string> DesktopUi::AskFolder(const std::string& title) {
  const PointerFree pointer;
  const Behind behind(Front());
  const QString folder = QFileDialog::getExistingDirectory(behind, ToQt(title), RememberedFolder(*program_));
  if (folder.isEmpty()) return std::nullopt;
  return FromQt(folder);
}

void DesktopUi::ShowStatus(const std::string& text) {
  if (hooks.show_status) hooks.show_status(text);
  if (preview_) preview_->ShowStatus(ToQt(text));
}

void DesktopUi::TurnEvents() {
  // Under the hourglass the window draws itself; what the person does waits.
  QApplication::processEvents(busy_ > 0 ? QEventLoop::ExcludeUserInputEvents : QEventLoop::AllEvents);
}

void DesktopUi::Beep() {
  QApplication::beep();
}

void DesktopUi::SetBusy(bool busy) {
  if (busy == (busy_ > 0)) return;
  busy_ = busy ? 1 : 0;
  busy ? QApplication::setOverrideCursor(Qt::WaitCursor) : QApplication::restoreOverrideCursor();
}

void DesktopUi::ShowSplash(bool shown) {
  if (hooks.show_splash) hooks.show_splash(shown);
}

void DesktopUi::ShowMainWindow() {
  if (hooks.show_main_window) hooks.show_main_window();
}

void DesktopUi::RedrawMainWindow() {
  if (hooks.redraw_main_window) hooks.redraw_main_window();
}

void DesktopUi::StartMainTimer(int milliseconds) {
  if (hooks.start_timer) hooks.start_timer(milliseconds);
}

void DesktopUi::StopMainTimer() {
  if (hooks.stop_timer) hooks.stop_timer();
}

bool DesktopUi::OpenWithSystem(const std::string& path) {
  const QString text = ToQt(path).trimmed();
  if (text.isEmpty()) return false;
  const QString folder = QFileInfo(ToQt(program_->platform.files.TemporaryFolder())).canonicalFilePath();
  const QFileInfo file(text);
  return file.isFile() && !folder.isEmpty() && file.canonicalFilePath().startsWith(folder + "/") &&
         QDesktopServices::openUrl(QUrl::fromLocalFile(file.canonicalFilePath()));
}

bool DesktopUi::OpenAddress(const std::string& target) {
  const QString text = ToQt(target).trimmed();
  if (text.isEmpty()) return false;
  const QUrl address = WebAddress(text);
  return address.isValid() && !address.isEmpty() && QDesktopServices::openUrl(address);
}

void DesktopUi::AppearanceChanged(bool skin) {
  if (hooks.appearance_changed) hooks.appearance_changed(skin);
}

void DesktopUi::EndProgram() {
  if (hooks.end_program) hooks.end_program();
}

}  // namespace ostrinka
