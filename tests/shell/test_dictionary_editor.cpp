#include "shell/commands.h"
#include "shell/main_window.h"
#include "shell/options_form.h"
#include "shell/skin.h"
#include "support/company.h"

namespace ostrinka {
namespace {

class DictionaryTest : public CompanyTest {
 protected:
  DictionaryTest() {
    CopyCatalogues(program.ApplicationFolder());
    window = std::make_unique<MainWindow>(program);
    window->UserCommand("SŁOWNIK.STAWKIVAT");
  }

  DictionaryEditor& editor() { return window->dictionary; }
  std::string Stored(int32_t record, const char* field) {
    ClassQDBASE& table = Table(program, kStawkiVat);
    return table.RECORD_LOAD(record) ? table.Text(field) : "none";
  }
  bool Complained() {
    const bool told = !ui.messages.empty() && ui.messages.back() == std::pair(program.Text("mdi.message.dict.error"), MessageKind::kError);
    ui.messages.clear();
    return told;
  }

  TestPlatform& surroundings = platform;
  TestUserInterface& ui = platform.ui;
  std::unique_ptr<MainWindow> window;
};

TEST_F(DictionaryTest, APickShowsItsTableAndTicksItsToolAlone) {
  EXPECT_EQ(window->ribbon.TabID(), "SŁOWNIKI");
  std::vector<std::string_view> tools;
  for (const RibbonRow& row : RibbonRows()) {
    if (std::string_view(row.parent) == "SŁOWNIKI.WYBÓR") tools.push_back(row.key);
  }
  EXPECT_EQ(tools.size(), 10u);
  for (const std::string_view key : tools) {
    window->UserCommand(key);
    EXPECT_EQ(window->list.TableNumber(), FindCommand(key)->table);
    EXPECT_GT(window->ViewTable()->MAX_COLUMNS(), 0) << key;
    for (const std::string_view other : tools) EXPECT_EQ(window->ribbon.ButtonChecked(other), other == key);
  }
}

TEST_F(DictionaryTest, ARecordThatAnotherWorkstationHoldsOrDeletedIsLeftAlone) {
  ClassQDBASE other(surroundings.platform);
  ASSERT_TRUE(OpenPrivate(program, kStawkiVat, other, false));
  const std::string before = Stored(2, "NAZWA");
  ASSERT_TRUE(other.RECORD_LOCK(2));
  ASSERT_TRUE(window->UserCell(2, 1));
  EXPECT_TRUE(editor().txtEdit.UserSet("Zajęta"));
  EXPECT_FALSE(editor().VSC_GOTO_END_());
  EXPECT_TRUE(Complained());
  EXPECT_EQ(editor().Front(), nullptr);
  EXPECT_EQ(Stored(2, "NAZWA"), before);
  ASSERT_TRUE(other.RECORD_UNLOCK(2));
  window->UserCell(2, 1);
  editor().txtEdit.UserSet("Wolna");
  EXPECT_TRUE(editor().VSC_GOTO_END_());
  EXPECT_EQ(Stored(2, "NAZWA"), "Wolna");
  window->UserCell(3, 1);
  editor().txtEdit.UserSet("Usunięta");
  ASSERT_TRUE(other.RECORD_DELETE(3));
  EXPECT_FALSE(editor().VSC_GOTO_END_());
  EXPECT_TRUE(Complained());
  EXPECT_FALSE(Table(program, kStawkiVat).RECORD_EXIST(3));
}

TEST_F(DictionaryTest, ACellLeftAsItWasOverwritesNothing) {
  ClassQDBASE other(surroundings.platform);
  ASSERT_TRUE(OpenPrivate(program, kStawkiVat, other, false));
  window->UserCell(1, 1);
  ASSERT_TRUE(other.RECORD_LOAD(1));
  ASSERT_TRUE(other.FIELD("NAZWA", std::string("Zmieniona obok")));
  ASSERT_TRUE(other.FIELD("SYMBOL", std::string("obok")));
  ASSERT_TRUE(other.RECORD_SAVE(1));
  EXPECT_TRUE(editor().VSC_GOTO_END_());
  EXPECT_EQ(Stored(1, "NAZWA"), "Zmieniona obok");
  // One that was changed writes its own field alone.
  window->UserCell(1, 1);
  editor().txtEdit.UserSet("Tutejsza");
  editor().VSC_GOTO_END_();
  EXPECT_EQ(Stored(1, "NAZWA") + "/" + Stored(1, "SYMBOL"), "Tutejsza/obok");
}

TEST_F(DictionaryTest, EditingBelongsToItsTab) {
  const int beeps = ui.beeps;
  window->UserTab("KONTRAHENCI");
  window->UserCommand("SŁOWNIK.REKORD.EDYTUJ");
  EXPECT_EQ(ui.beeps, beeps + 1);
  EXPECT_EQ(editor().Front(), nullptr);
  window->UserTab("SŁOWNIKI");
  window->UserKey(kKeyEnter);
  EXPECT_EQ(editor().Front(), &editor().txtEdit);
  window->UserTab("KONTRAHENCI");
  EXPECT_EQ(editor().Front(), nullptr);
}

TEST_F(DictionaryTest, ARateThatDocumentsReferToIsDeletedAndStaysReadable) {
  ClassQDBASE& articles = Table(program, kTowaryUslugi);
  ASSERT_TRUE(articles.RECORD_ADD());
  ASSERT_TRUE(articles.RECORD_LOAD(1));
  ASSERT_TRUE(articles.FIELD("STAWKA_VAT", int32_t{1}));
  ASSERT_TRUE(articles.RECORD_SAVE(1));
  window->UserRow(1);
  ui.answers = {Answer::kYes};
  window->UserKey(kKeyDelete);
  EXPECT_FALSE(Table(program, kStawkiVat).RECORD_EXIST(1));
  EXPECT_EQ(window->ViewTable()->RECORD_POSITION(), 2);
  EXPECT_TRUE(articles.RECORD_LOAD(1));
  EXPECT_EQ(articles.Text("@STAWKA_VAT"), "22%");
}

TEST_F(DictionaryTest, DueSubscriptionsShowTheTaskEntryWithTheirCount) {
  EXPECT_FALSE(window->ribbon.PopupMenuVisible("STREM"));
  ClassQDBASE& documents = Table(program, kDokSprzed);
  for (int n = 1; n <= 2; ++n) {
    ASSERT_TRUE(documents.RECORD_ADD());
    ASSERT_TRUE(documents.RECORD_LOAD(n));
    ASSERT_TRUE(documents.FIELD("ABN_KONIEC", true));
    ASSERT_TRUE(documents.FIELD("ABN_KONIEC_DATA", surroundings.clock.now.PlusDays(7)));
    ASSERT_TRUE(documents.FIELD("ABN_KONIEC_DNI", int32_t{n == 1 ? 7 : 14}));
    ASSERT_TRUE(documents.RECORD_SAVE(n));
  }
  window->refresh_tasks_();
  EXPECT_TRUE(window->ribbon.PopupMenuVisible("STREM"));
  EXPECT_TRUE(window->ribbon.PopupMenuVisible("STR1"));
  EXPECT_EQ(window->ribbon.ButtonText("STREM"), program.Text("mdi.tasks", {"2"}));
  surroundings.clock.now = surroundings.clock.now.PlusDays(-1);
  window->refresh_tasks_();
  EXPECT_EQ(window->ribbon.ButtonText("STREM"), program.Text("mdi.tasks", {"1"}));
  // Deleting the last one hides the entry.
  window->UserTab("SPRZEDAŻ");
  window->UserRecord(2);
  ui.answers = {Answer::kYes};
  window->UserCommand("SPRZEDAŻ.USUŃ");
  EXPECT_FALSE(window->ribbon.PopupMenuVisible("STREM"));
  EXPECT_FALSE(window->ribbon.PopupMenuVisible("STR1"));
}

TEST_F(DictionaryTest, TheFiscalEntryOfTheMenuComesAndGoesWithThePrinter) {
  const auto shown = [&] {
    return window->ribbon.PopupMenuVisible("SPRZEDAŻ.FISKALIZUJ") && window->ribbon.PopupMenuVisible("SPRZEDAŻ.FP");
  };
  EXPECT_FALSE(shown());
  program.settings.SaveSettingValue(kCommon, "prgSettings", "FPModel", int32_t{2});
  window->UserCommand("SET.GUI");
  EXPECT_TRUE(shown());
  program.settings.SaveSettingValue(kCommon, "prgSettings", "FPModel", int32_t{0});
  window->UserCommand("SET.GUI");
  EXPECT_FALSE(window->ribbon.PopupMenuVisible("SPRZEDAŻ.FP"));
}

TEST_F(DictionaryTest, TheSkinOfTheSettingsNamesItsPackage) {
  const struct {
    const char* setting;
    const char* file;
    const char* caption;
  } rows[] = {{"2", "black", "guiopt.skin.black"}, {"1", "silver", "guiopt.skin.silver"}, {"0", "blue", "guiopt.skin.blue"},
              {"7", "blue", "guiopt.skin.blue"},   {"-1", "blue", "guiopt.skin.blue"},    {"x", "black", "guiopt.skin.black"}};
  for (const auto& row : rows) {
    program.settings.SaveSettingValue(kCommon, "GUI", "Skin", std::string(row.setting));
    EXPECT_EQ(SkinChoose(program), program.ApplicationFolder() + "skins/" + row.file + ".skin");
    OPT_ form(program, window->ribbon);
    form.reload_();
    EXPECT_EQ(form.txtSKIN.Text(), program.Text(row.caption));
    // A skin that was not changed is neither stored nor loaded again.
    int loads = 0;
    ui.on_appearance = [&](bool skin) { loads += skin; };
    form.Open();
    EXPECT_TRUE(form.btnSave.UserPress());
    EXPECT_EQ(loads, 0);
    EXPECT_EQ(program.settings.Text(kCommon, "GUI", "Skin"), row.setting);
    ui.on_appearance = nullptr;
  }
}

}  // namespace
}  // namespace ostrinka
