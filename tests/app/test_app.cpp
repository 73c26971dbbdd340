// Settings, catalogue and folders, on real files.
#include <gtest/gtest.h>

#include "app/program.h"
#include "base/text.h"
#include "support/test_platform.h"

namespace ostrinka {
namespace {

class AppTest : public ::testing::Test {
 protected:
  void Write(const std::string& name, const std::string& content) {
    ASSERT_TRUE(surroundings.files.WriteAll(surroundings.folder / name, content));
  }
  TestPlatform surroundings;
};

TEST_F(AppTest, ASettingIsOneFileWithAnEscapedName) {
  Settings settings(surroundings.files, surroundings.folder / "user/");
  EXPECT_EQ(Settings::FileName(" Velmora.common ", "prgSettings", "VDLanguage"), "Velmora.common%5CprgSettings%5CVDLanguage.ovreg");
  EXPECT_EQ(Settings::FileName("n", "Windows\\MDI", "a/b:c*?<>|\""), "n%5CWindows%5CMDI%5Ca%2Fb%3Ac%2A%3F%3C%3E%7C%22.ovreg");
  ASSERT_TRUE(settings.SaveSettingValue(kCommon, "user", "nazwa", std::string("Żółw\r\ndruga linia")));
  std::string content;
  ASSERT_TRUE(surroundings.files.ReadAll(surroundings.folder / "user/Velmora.common%5Cuser%5Cnazwa.ovreg", content));
  EXPECT_EQ(content, "\xAF\xF3\xB3w\r\ndruga linia\r\n");
  EXPECT_EQ(settings.Text(kCommon, "user", "nazwa"), "Żółw");
}

TEST_F(AppTest, DefaultsKeepTheirTypeAndAnEmptyFileIsNoDefault) {
  Settings settings(surroundings.files, surroundings.folder / "user/");
  EXPECT_EQ(settings.GetSettingValue(kCommon, "GUI", "Skin", int32_t{2}), Value(int32_t{2}));
  EXPECT_EQ(settings.GetSettingValue(kCommon, " ", "Skin", int32_t{2}), Value(int32_t{5}));
  Write("user/" + Settings::FileName(kCommon, "GUI", "Skin"), "");
  EXPECT_EQ(settings.GetSettingValue(kCommon, "GUI", "Skin", int32_t{1}), Value(std::string()));
  EXPECT_EQ(settings.Integer(kCommon, "GUI", "Skin", 1), 1);
  settings.SaveSettingValue(kCommon, "system", "fRun", false);
  EXPECT_FALSE(settings.Boolean(kCommon, "system", "fRun", true));
  Write("user/" + Settings::FileName(kCommon, "GUI", "WScreen"), std::string("\xFF\x00\x01"
                                                                             "binary",
                                                                             9));
  EXPECT_EQ(settings.Integer(kCommon, "GUI", "WScreen", 1), 1);
}

TEST_F(AppTest, AMarkerFileMakesTheProgramMobile) {
  Program fixed(surroundings.platform);
  EXPECT_FALSE(fixed.mobile);
  EXPECT_EQ(fixed.settings.folder(), surroundings.folder / "user/");
  Write("app/mobile", "");
  Program mobile(surroundings.platform);
  EXPECT_TRUE(mobile.mobile);
  EXPECT_EQ(mobile.settings.folder(), surroundings.folder / "app/settings/");
  EXPECT_TRUE(surroundings.files.FolderExists(surroundings.folder / "app/settings"));
}

TEST_F(AppTest, TheCompanyFolderFollowsTheSettings) {
  Program program(surroundings.platform);
  const std::string app = surroundings.folder / "app/";
  EXPECT_EQ(program.DatabaseFolder(), app + "data/");
  program.settings.SaveSettingValue(kCommon, "dbPath", "Remote", true);
  EXPECT_EQ(program.DatabaseFolder(), "/");
  const struct {
    const char* path;
    std::string folder;
  } rows[] = {{" /srv/firma ", "/srv/firma/"},
              {"<APP>\\data\\", app + "data/"},
              {"<APP>inna", app + "inna/"},
              {"<USB>\\firma", LeftCharacters(app, 2) + "/firma/"}};
  for (const auto& row : rows) {
    program.settings.SaveSettingValue(kCommon, "dbPath", "Path", std::string(row.path));
    EXPECT_EQ(program.DatabaseFolder(), row.folder) << row.path;
  }
}

TEST_F(AppTest, CataloguesAreReadLineByLine) {
  std::string lines = "# comment\n=abc\n A.Key = x=y|z \nA.KEY=second\nboth=program\nbad line\nargs={1} {0} {1}\r\n";
  Write("app/program.lang", lines);
  Write("app/printdoc.lang", "both=print\nonly.print=\xBF\n");  // Windows-1250
  Program program(surroundings.platform);
  ASSERT_TRUE(program.catalogue.LoadProgramCatalogue("program.lang"));
  ASSERT_TRUE(program.catalogue.LoadPrintCatalogue("printdoc.lang"));
  EXPECT_EQ(program.Text(" a.KEY "), "x=y\r\nz");
  EXPECT_EQ(program.Text("both"), "program");
  EXPECT_EQ(program.Text("only.print"), "ż");
  EXPECT_EQ(program.Text("args", {"a{1}", "b"}), "b ab b");
  EXPECT_EQ(program.Text("Missing.Key", {"x"}), "%missing.key");
  EXPECT_EQ(program.Text("=abc"), "%=abc");
}

TEST_F(AppTest, ACatalogueIsBoundedAndNeverStopsTheProgram) {
  std::string lines;
  for (int i = 1; i <= 2049; ++i) lines += "k" + std::to_string(i) + "=v\n";
  Write("app/program.lang", lines);
  Program program(surroundings.platform);
  ASSERT_TRUE(program.catalogue.LoadProgramCatalogue("program.lang"));
  EXPECT_EQ(program.Text("k2048"), "v");
  EXPECT_EQ(program.Text("k2049"), "%k2049");
  EXPECT_FALSE(program.catalogue.LoadProgramCatalogue("absent.lang"));
  EXPECT_EQ(program.Text("k1"), "%k1");
  Write("app/binary.lang", std::string(10000, '\0') + "\xFE=\xFF\n");
  EXPECT_TRUE(program.catalogue.LoadProgramCatalogue("binary.lang"));
}

}  // namespace
}  // namespace ostrinka
