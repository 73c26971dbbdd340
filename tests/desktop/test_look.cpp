// The art of the window: another skin at run time, and files of it that are missing, cut off or hostile.
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QToolButton>
#include <fstream>
#include <random>
#include <set>

#include "base/bytes.h"
#include "company/tables.h"
#include "desktop/company_window.h"
#include "desktop/form_window.h"
#include "desktop/message_window.h"
#include "desktop/qt_platform.h"
#include "desktop/splash.h"
#include "desktop/toolkit_texts.h"
#include "masterdata/customer_form.h"
#include "shell/options_form.h"

namespace ostrinka {
namespace {

class LookTest : public CompanyWindow {
 protected:
  int Setting(const char* key, int fallback) { return program->settings.Integer(kCommon, "GUI", key, fallback); }
  bool HasArt() const { return std::filesystem::exists(app + "skins/black.skin"); }
  // What a file holds; "" when there is none.
  std::string Bytes(const std::string& path) {
    std::string bytes;
    surroundings.files.ReadAll(path, bytes);
    return bytes;
  }
};

TEST_F(LookTest, TheOptionsAreStoredAndWornAtOnce) {
  Open();
  ASSERT_TRUE(HasArt()) << "the art is made by the build of everything";
  const QColor black = look->Colour(SkinColour::kMainMenu), amber = look->Accent();
  const QImage before = Turn();
  ui.on_modal = [&](Form& form) {
    ASSERT_EQ(form.form_name(), "OPT_");
    form.Open();
    auto& options = dynamic_cast<OPT_&>(form);
    EXPECT_TRUE(options.CHKS.Checked());
    EXPECT_FALSE(options.CHKT.Checked());
    EXPECT_EQ(options.txtSKIN.Text(), program->Text("guiopt.skin.black"));
    EXPECT_TRUE(options.txtSKIN.UserSet(program->Text("guiopt.skin.silver")));
    EXPECT_TRUE(options.CHKS.UserToggle());
    EXPECT_TRUE(options.CHKT.UserToggle());
    EXPECT_TRUE(options.CHKE.UserToggle());
    EXPECT_TRUE(form.FindButton("guiopt.btn.ok")->UserPress());
    EXPECT_FALSE(form.IsOpen());
  };
  EXPECT_FALSE(window->ribbon.PopupMenuVisible("EXPORT"));
  EXPECT_TRUE(window->UserCommand("SET.GUI"));
  EXPECT_TRUE(window->ribbon.PopupMenuVisible("EXPORT"));
  EXPECT_TRUE(window->ribbon.PopupMenuVisible("EK.BRK"));
  EXPECT_EQ(Setting("Skin", -1), 1);
  EXPECT_EQ(Setting("WScreen", -1), 0);
  EXPECT_EQ(Setting("TrWindows", -1), 1);
  EXPECT_EQ(Setting("ShMenuExp", -1), 1);
  EXPECT_NE(look->Colour(SkinColour::kMainMenu), black);
  EXPECT_NE(look->Accent(), amber);
  EXPECT_NEAR(view->windowOpacity(), 220 / 255.0, 0.01);
  const QImage after = Turn();
  EXPECT_NE(after.pixelColor(300, 60), before.pixelColor(300, 60));  // the strip of the tabs
  // A package that is gone leaves the skin that is worn.
  std::filesystem::remove(app + "skins/blue.skin");
  ui.on_modal = [&](Form& form) {
    form.Open();
    EXPECT_TRUE(dynamic_cast<OPT_&>(form).txtSKIN.UserSet("#0"));
    EXPECT_TRUE(dynamic_cast<OPT_&>(form).CHKT.UserToggle());
    form.FindButton("guiopt.btn.ok")->UserPress();
  };
  const QColor silver = look->Colour(SkinColour::kMainMenu);
  window->UserCommand("SET.GUI");
  EXPECT_EQ(Setting("Skin", -1), 0);
  EXPECT_EQ(look->Colour(SkinColour::kMainMenu), silver);
  EXPECT_FALSE(look->Image("title.std.04.bmp").isNull());
  EXPECT_EQ(view->windowOpacity(), 1);
  // Esc stores nothing.
  ui.on_modal = [&](Form& form) {
    form.Open();
    dynamic_cast<OPT_&>(form).CHKS.UserToggle();
    form.FindButton("guiopt.btn.cancel")->UserPress();
  };
  window->UserCommand("SET.GUI");
  EXPECT_EQ(Setting("WScreen", -1), 0);
}

// A bitmap's header that promises more than the file holds.
std::string LyingBitmap(int32_t width, int32_t height) {
  std::string bytes = "BM";
  for (const int32_t part : {1000, 0, 54, 40, width, height, 1 | 24 << 16, 0, 0, 0, 0, 0, 0}) AppendLe<int32_t>(bytes, part);
  return bytes + std::string(64, 'x');
}

std::string SkinOf(const std::string& bitmap, const std::string& ini) {
  std::string package;
  for (const auto& [entry, data] :
       {std::pair<std::string, std::string>{"skin.ini", ini}, {"title.std.04.bmp", bitmap}, {"cb.std.01.bmp", bitmap}}) {
    std::string name = entry;
    name.resize(96, ' ');
    package += name;
    AppendLe<int32_t>(package, static_cast<int32_t>(data.size()));
    package += data;
  }
  return package;
}

TEST_F(LookTest, ABrokenFileLeavesItsElementUndrawnAndTheProgramUsable) {
  Open();
  Shut();
  std::mt19937 random(7);
  std::string noise(5000, '\0');
  for (char& c : noise) c = static_cast<char>(random());
  const struct {
    const char* what;
    std::function<std::string(const std::string&)> damage;  // of what the file holds; "-" removes it
  } damages[] = {
      {"missing", [](const std::string&) { return std::string("-"); }},
      {"empty", [](const std::string&) { return std::string(); }},
      {"cut off in its head", [](const std::string& whole) { return whole.substr(0, 21); }},
      {"cut off in the middle", [](const std::string& whole) { return whole.substr(0, whole.size() / 2); }},
      {"noise", [&](const std::string&) { return noise; }},
      {"noise behind a good head", [&](const std::string& whole) { return whole.substr(0, 200) + noise; }},
      {"ones", [](const std::string& whole) { return std::string(whole.size() + 1000, '\xFF'); }},
  };
  const char* const files[] = {
      "skins/black.skin", "Icons/qdb.01.0.ico", "Icons/btnsave.ico", "Icons/msg.warning.ico", "program.lang", "printdoc.lang", "psc.bin"};
  for (const char* file : files) {
    const std::string whole = Bytes(app + file);
    for (const auto& row : damages) {
      SCOPED_TRACE(std::string(file) + " " + row.what);
      const std::string bytes = row.damage(whole);
      if (bytes == "-") {
        surroundings.files.Remove(app + file);
      } else {
        ASSERT_TRUE(surroundings.files.WriteAll(app + file, bytes));
      }
      Open();
      EXPECT_TRUE(program->database_open);
      Key(Qt::Key_F7);
      EXPECT_EQ(window->ribbon.TabID(), "KONTRAHENCI");
      const QImage picture = Turn();
      EXPECT_NE(picture.pixelColor(60, 55), picture.pixelColor(300, 300));  // the main button stands out from the list
      Splash(*look).grab();
      MessageWindow(*look, look->Text("common.unsaved"), MessageKind::kQuestion, nullptr).grab();
      int shown = 0;
      ui.on_modal = [&](Form& form) {
        FormWindow(*program, *look, form, nullptr).grab();
        ++shown;
        form.Open();
        if (TextBoxControl* name = dynamic_cast<TextBoxControl*>(form.Find("txtNazwa"))) name->UserSet("Nowy odbiorca");
        EXPECT_TRUE(form.FindButton("btnSave")->UserPress());
      };
      const int before = window->ViewTable()->RECORD_COUNT();
      window->UserCommand("KONTRAHENT.DODAJ");
      window->UserCommand("SET.GUI");
      EXPECT_EQ(shown, 2);
      EXPECT_EQ(window->ViewTable()->RECORD_COUNT(), before + 1);
      Shut();
    }
    surroundings.files.WriteAll(app + file, whole);
  }
}

TEST_F(LookTest, APictureOfASkinThatLiesAboutItsSizeIsNoPicture) {
  Open();
  const struct {
    const char* what;
    std::string bitmap, ini;
  } rows[] = {{"huge", LyingBitmap(2000000000, 2000000000), "scale=4"}, {"wide", LyingBitmap(60000, 4), "scale=999"},
              {"upside down", LyingBitmap(30000, -30000), ""},          {"nothing", LyingBitmap(0, 0), "color_main_menu=#zzzzzz"},
              {"negative", LyingBitmap(-5, 10), "round_corners=FALSE"}, {"cut off", std::string("BM"), std::string(500000, '=')}};
  for (const auto& row : rows) {
    ASSERT_TRUE(surroundings.files.WriteAll(app + "skins/black.skin", SkinOf(row.bitmap, row.ini)));
    look->Reload();
    view->LookChanged();
    EXPECT_TRUE(look->Image("title.std.04.bmp").isNull()) << row.what;
    EXPECT_TRUE(look->Image("win.close.std.01.bmp").isNull()) << row.what;
    const QImage picture = Turn();
    EXPECT_NE(picture.pixelColor(60, 55), picture.pixelColor(300, 300)) << row.what;
  }
}

TEST_F(LookTest, NoTextControlTakesALetterThatTheTablesLack) {
  Open();
  Key(Qt::Key_F7);
  frm_Kontrahenci_ customer(*program);
  customer.reload_(EditMode::kNew);
  customer.Open();
  FormWindow form(*program, *look, customer, nullptr);
  form.show();
  struct Field {
    const char* name;
    QWidget* widget;
    std::function<QString()> text;
  };
  std::vector<Field> fields;
  const auto line = [&](const char* name, QLineEdit* field) { fields.push_back({name, field, [field] { return field->text(); }}); };
  line("@FIND", view->ribbon().FindField());
  line("txtUlica", qobject_cast<QLineEdit*>(form.WidgetOf(*customer.Find("txtUlica"))));
  for (const char* name : {"txtNazwa", "txtUwagi"}) {
    auto* field = qobject_cast<QPlainTextEdit*>(form.WidgetOf(*customer.Find(name)));
    fields.push_back({name, field, [field] { return field->toPlainText(); }});
  }
  for (const Field& field : fields) {
    ASSERT_NE(field.widget, nullptr) << field.name;
    field.widget->setFocus();
    const std::function<void(const QString&)> ways[] = {[&](const QString& letter) { TypeKey(*field.widget, 0, {}, letter); },
                                                        [&](const QString& letter) {
                                                          QInputMethodEvent event;
                                                          event.setCommitString(letter);
                                                          QCoreApplication::sendEvent(field.widget, &event);
                                                        },
                                                        [&](const QString& letter) {
                                                          QApplication::clipboard()->setText(letter);
                                                          TypeKey(*field.widget, Qt::Key_V, Qt::ControlModifier);
                                                        }};
    QString held;
    for (const auto& way : ways) {
      way(QString::fromUtf8("ż"));
      held += QString::fromUtf8("ż");
      EXPECT_EQ(field.text(), held) << field.name;
      const int beeps = ui.beeps;
      way(QString::fromUtf8("я"));
      EXPECT_EQ(field.text(), held) << field.name;
      EXPECT_EQ(ui.beeps, beeps + 1) << field.name;
    }
  }
}

// What the toolkit itself says: in the menus of text fields and in its file dialogs.
QStringList ToolkitsOwnTexts(const QString& folder) {
  QStringList texts;
  QLineEdit field;
  QPlainTextEdit area;
  for (QMenu* menu : {field.createStandardContextMenu(), area.createStandardContextMenu()}) {
    for (const QAction* action : menu->actions()) texts << action->text().section('\t', 0, 0);
    delete menu;
  }
  for (const auto mode : {QFileDialog::ExistingFile, QFileDialog::AnyFile, QFileDialog::Directory}) {
    QFileDialog dialog;
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setFileMode(mode);
    dialog.setAcceptMode(mode == QFileDialog::AnyFile ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setDirectory(folder);
    for (const QLabel* label : dialog.findChildren<QLabel*>()) texts << label->text();
    for (const QPushButton* button : dialog.findChildren<QPushButton*>()) texts << button->text();
    for (const QToolButton* button : dialog.findChildren<QToolButton*>()) texts << button->toolTip();
    for (const QAction* action : dialog.findChildren<QAction*>()) texts << action->text();
    texts << dialog.findChild<QComboBox*>("fileTypeCombo")->currentText();
    for (const auto* model : dialog.findChildren<QFileSystemModel*>()) {
      for (int column = 0; column < model->columnCount(); ++column) texts << model->headerData(column, Qt::Horizontal).toString();
    }
  }
  texts.removeAll(QString());
  return texts.replaceInStrings("&", "");
}

TEST_F(LookTest, TheToolkitSpeaksPolishInTheProgramsWords) {
  Open();
  const QStringList english = ToolkitsOwnTexts(surroundings.folder.path().c_str());
  ToolkitTexts texts(*program);
  texts.Install();
  const QStringList polish = ToolkitsOwnTexts(surroundings.folder.path().c_str());
  ASSERT_GT(english.size(), 30);
  ASSERT_EQ(english.size(), polish.size());
  for (int i = 0; i < english.size(); ++i) {
    EXPECT_NE(english[i], polish[i]);
    EXPECT_FALSE(polish[i].contains("katalog", Qt::CaseInsensitive)) << polish[i].toStdString();
  }
  for (const char* word : {"Cofnij", "Ponów", "Wklej", "Folder:", "Nowy folder", "Nazwa pliku:", "Zapisz", "Anuluj"}) {
    EXPECT_TRUE(polish.contains(word)) << word;
  }
}

}  // namespace
}  // namespace ostrinka
