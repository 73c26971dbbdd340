// A company to take pictures of, in a program whose day is fixed and whose forms are played instead of shown.
#pragma once

#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "app/program.h"
#include "controls/form.h"
#include "desktop/desktop_ui.h"
#include "desktop/qt_platform.h"
#include "print/doc_preview.h"

namespace ostrinka {

class FixedClock : public Clock {
 public:
  Date Now() override { return Date(Date::FromYmd(2008, 3, 5)->days() + 0.5); }
};

// Forms are handed to `play`, the preview to `play_preview`, and not shown.
class PlayedUi : public DesktopUi {
 public:
  std::function<void(Form&)> play;
  std::function<void(frm_DocPreview&)> play_preview;
  void ShowModal(Modal& modal) override {
    if (auto* preview = dynamic_cast<frm_DocPreview*>(&modal)) {
      if (play_preview) play_preview(*preview);
    } else if (auto* form = dynamic_cast<Form*>(&modal)) {
      form->Open();
      if (play) play(*form);
    }
  }
  // Questions are answered with no: nothing is deleted or replaced for a picture.
  Answer ShowMessage(const std::string& text, MessageKind kind) override {
    std::fprintf(stderr, "message: %s\n", text.c_str());
    return kind == MessageKind::kQuestion ? Answer::kNo : Answer::kOk;
  }
  std::optional<std::string> AskOpenFile(const std::vector<FileFilter>&) override { return std::nullopt; }
  std::optional<std::string> AskSaveFile(const std::vector<FileFilter>&, const std::string&, size_t&) override { return std::nullopt; }
  std::optional<std::string> AskFolder(const std::string&) override { return std::nullopt; }
  bool OpenWithSystem(const std::string&) override { return true; }
  bool OpenAddress(const std::string&) override { return true; }
  void Beep() override {}
};

// What a person enters: fields by their names.
using Entries = std::initializer_list<std::pair<const char*, const char*>>;
void Fill(Form& form, Entries entries);

class SampleCompany {
 public:
  // `application` is the program's folder, `scratch` one for the settings and the company; both with a closing slash.
  SampleCompany(const std::string& application, const std::string& scratch);
  ~SampleCompany();

  // Opens a copy of the company in the folder `company`, or a small one made anew when it is "".
  bool Open(const std::string& company);

  Program& program() { return program_; }
  PlayedUi& ui() { return ui_; }
  // Records of a customer and an article that have something in every field.
  int32_t customer() const { return customer_; }
  int32_t article() const { return article_; }

 private:
  void Make();
  int32_t AddCustomer(Entries entries);
  int32_t AddArticle(Entries entries);

  PlayedUi ui_;
  FixedClock clock_;
  QtPlatform surroundings_;
  Platform platform_;
  Program program_;
  std::string company_folder_;
  int32_t customer_ = 0, article_ = 0;
};

}  // namespace ostrinka
