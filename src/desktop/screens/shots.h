// Pictures of every window of the program, looked over for texts that are not fit to be seen.
#pragma once

#include <QSize>
#include <QString>
#include <memory>
#include <string>

#include "desktop/look.h"
#include "desktop/main_window_view.h"
#include "desktop/screens/sample_company.h"

namespace ostrinka {

// Where the pictures go: into `folder`, their names ended by `mark`; `size` is the main window's.
struct PictureFiles {
  QString folder, mark;
  QSize size{1280, 800};
};

class Screens {
 public:
  Screens(SampleCompany& company, const PictureFiles& files);

  void Windows();   // the main window on each of its tabs, in each skin, with its menus and the preview
  void Dialogs();   // the editors and the setup, filled
  void Wizard();    // its steps as a person goes through them, in each skin
  void Commands();  // every form that a command opens on its own
  void Boxes();     // a message of each kind
  // Faults found so far; each was told on standard error.
  int failures() const { return failures_; }

 private:
  void Tabs(MainWindow& window, MainWindowView& view, const std::string& skin);
  void Menus(MainWindowView& view, const std::string& skin);
  void Preview(MainWindow& window, const std::string& skin);
  void SalesScreens();
  void WearSkin(int32_t skin);
  void Save(QWidget& window, const std::string& name);
  void SavePicture(const QPixmap& picture, const std::string& name);
  void Shot(Form& form, const std::string& name);
  void Opened(Form& form, const Control& control, const std::string& name);
  void Fault(const std::string& name, const QString& fault);

  SampleCompany& company_;
  PlayedUi& ui_;
  Program& program_;
  const PictureFiles files_;
  std::unique_ptr<Look> look_;
  int failures_ = 0;
};

}  // namespace ostrinka
