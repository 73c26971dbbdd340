#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <set>

#include "base/bytes.h"
#include "base/text.h"
#include "shell/ribbon_table.h"
#include "shell/skin.h"
#include "support/test_platform.h"

namespace ostrinka {
namespace {

// A package entry; a `length` other than that of the data is a lie.
std::string Entry(std::string name, const std::string& data, std::optional<int32_t> length = std::nullopt) {
  name.resize(96, ' ');
  AppendLe<int32_t>(name, length.value_or(static_cast<int32_t>(data.size())));
  return name + data;
}

class SkinTest : public ::testing::Test {
 protected:
  // Loads a package of these bytes.
  bool Load(const std::string& package) {
    const std::string path = folder / "a.skin";
    EXPECT_TRUE(files.WriteAll(path, package));
    return skin.SkinLoad(files, path);
  }
  bool LoadIni(const std::string& ini) { return Load(Entry("skin.ini", ini)); }
  std::string Image(std::string_view name) {
    const std::string* bytes = skin.SkinImage(name);
    return bytes ? *bytes : "none";
  }

  TemporaryFolder folder;
  PosixFileSystem files;
  Skin skin;
};

TEST_F(SkinTest, ImagesAreFoundByNameInAnyCaseAndTheLaterOfTwoCounts) {
  ASSERT_TRUE(Load(Entry("title.std.01.bmp", "old") + Entry("Tab.Over.E1.02.BMP", std::string("b\0c", 3)) + Entry("readme.txt", "x") +
                   Entry("title.std.01.bmp", "new")));
  EXPECT_EQ(Image("TITLE.std.01.bmp"), "new");
  EXPECT_EQ(Image("tab.over.e1.02.bmp"), std::string("b\0c", 3));
  EXPECT_EQ(skin.SkinImage("readme.txt"), nullptr);
  EXPECT_EQ(skin.SkinImage("title.std.02.bmp"), nullptr);
  EXPECT_EQ(files.ListFiles(folder.path()), std::vector<std::string>{"a.skin"});
}

TEST_F(SkinTest, AnotherSkinReplacesAllImages) {
  Load(Entry("a.01.bmp", "1") + Entry("b.01.bmp", "1"));
  Load(Entry("b.01.bmp", "2"));
  EXPECT_EQ(Image("a.01.bmp"), "none");
  EXPECT_EQ(Image("b.01.bmp"), "2");
}

TEST_F(SkinTest, ColoursAreNumberedInTheOrderOfTheKeysAndReadInBothForms) {
  const Colour standard = Skin().SkinColor(12);
  ASSERT_TRUE(
      LoadIni("color_main_menu=#0a0B0c\r\n"
              "  COLOR_Popup_Menu = # 10 20 30\n"
              "color_popup_margin=001 020 255\r"
              "color_tab_text_std=000000000\r\n"
              "color_toolbar_text=256000000\r\n"
              "color_toolbar_text=#12345\r\ncolor_toolbar_text=#12345g\r\ncolor_toolbar_text=+12+34+56\r\ncolor_toolbar_text=\r\n"
              "no equals sign\r\n=\r\ncolor_unknown=#FFFFFF\r\n"
              "color_text_border=#FFFFFF\r\ncolor_text_border=#abcdef"));
  EXPECT_EQ(skin.SkinColor(2), Rgb(0x0A, 0x0B, 0x0C));
  EXPECT_EQ(skin.SkinColor(3), Rgb(0x10, 0x20, 0x30));
  EXPECT_EQ(skin.SkinColor(4), Rgb(1, 20, 255));
  EXPECT_EQ(skin.SkinColor(10), Rgb(0, 0, 0));
  EXPECT_EQ(skin.SkinColor(12), standard);
  EXPECT_EQ(skin.SkinColor(24), Rgb(0xAB, 0xCD, 0xEF));
  for (int outside : {-1, 0, 1, 25}) EXPECT_EQ(skin.SkinColor(outside), Rgb(0, 0, 0)) << outside;
}

TEST_F(SkinTest, CornersAreRoundUnlessFalseAndScaleStaysInItsBounds) {
  const struct {
    const char* ini;
    bool round;
    int scale;
  } rows[] = {
      {"round_corners=FALSE\nscale=2", false, 2}, {"x=1", true, 1},
      {"round_corners=no\nscale=9", true, 1},     {" Round_Corners = f a l s e \nscale=-2", false, 1},
      {"round_corners=\nscale = 4", true, 4},
  };
  for (const auto& row : rows) {
    ASSERT_TRUE(LoadIni(row.ini));
    EXPECT_EQ(skin.round_corners, row.round) << row.ini;
    EXPECT_EQ(skin.scale, row.scale) << row.ini;
  }
}

TEST_F(SkinTest, ReadingEndsAtALengthOutOfBoundsAndKeepsTheEntriesBefore) {
  const std::string before = Entry("a.01.bmp", "first"), after = Entry("c.01.bmp", "third");
  const std::string largest(999999, 'x');
  const std::string bad[] = {
      Entry("b.01.bmp", "", 0),
      Entry("b.01.bmp", "second", -6),
      Entry("b.01.bmp", "second", INT32_MIN),
      Entry("b.01.bmp", "second", INT32_MAX),
      Entry("b.01.bmp", largest + "x"),
  };
  for (const std::string& middle : bad) {
    ASSERT_TRUE(Load(before + middle + after));
    EXPECT_EQ(Image("a.01.bmp"), "first");
    EXPECT_EQ(Image("b.01.bmp"), "none");
    EXPECT_EQ(Image("c.01.bmp"), "none");
  }
  ASSERT_TRUE(Load(before + Entry("b.01.bmp", largest) + after));
  EXPECT_EQ(Image("b.01.bmp"), largest);
  EXPECT_EQ(Image("c.01.bmp"), "third");
}

TEST_F(SkinTest, ACutPackageKeepsTheWholeEntries) {
  const std::string whole = Entry("a.01.bmp", "first"), package = whole + Entry("b.01.bmp", "second");
  for (size_t length = whole.size(); length < package.size(); ++length) {
    ASSERT_TRUE(Load(package.substr(0, length))) << length;
    ASSERT_EQ(Image("a.01.bmp"), "first");
    ASSERT_EQ(Image("b.01.bmp"), "none") << length;
  }
}

TEST_F(SkinTest, NamesLoseTheirFoldersAndNamesThatAreNoneArePassedOver) {
  ASSERT_TRUE(Load(Entry("..\\..\\a.01.bmp", "1") + Entry("/etc/b.01.bmp", "2") + Entry("C:c.01.bmp", "3") + Entry("..", "4") +
                   Entry("", "5") + Entry(std::string("d.01.bmp\0/e.01.bmp", 18), "6") + Entry("x/", "7") +
                   Entry("../skin.ini", "color_main_menu=#010203")));
  EXPECT_EQ(Image("a.01.bmp"), "1");
  EXPECT_EQ(Image("b.01.bmp"), "2");
  EXPECT_EQ(Image("c.01.bmp"), "3");
  EXPECT_EQ(Image("d.01.bmp"), "6");
  EXPECT_EQ(Image("e.01.bmp"), "none");
  EXPECT_EQ(skin.SkinColor(2), Rgb(1, 2, 3));
  EXPECT_FALSE(files.FileExists(folder / "../a.01.bmp"));
}

TEST_F(SkinTest, APackageThatCannotBeReadLeavesWhatIsLoaded) {
  ASSERT_TRUE(Load(Entry("skin.ini", "round_corners=false\ncolor_main_menu=#010203") + Entry("a.01.bmp", "kept")));
  EXPECT_FALSE(skin.SkinLoad(files, ""));
  EXPECT_FALSE(skin.SkinLoad(files, folder / "missing.skin"));
  EXPECT_FALSE(skin.SkinLoad(files, folder.path()));
  EXPECT_FALSE(Load(""));
  EXPECT_FALSE(Load(std::string(99, ' ')));
  EXPECT_FALSE(Load(std::string(5000, '\xFF')));
  EXPECT_EQ(Image("a.01.bmp"), "kept");
  EXPECT_EQ(skin.SkinColor(2), Rgb(1, 2, 3));
  EXPECT_FALSE(skin.round_corners);
}

TEST_F(SkinTest, APackageOfNoEndIsReadToABound) {
  std::string package;
  for (int i = 0; i < 2049; ++i) package += Entry(std::to_string(i) + ".bmp", "x");
  ASSERT_TRUE(Load(package));
  EXPECT_EQ(Image("2047.bmp"), "x");
  EXPECT_EQ(Image("2048.bmp"), "none");
}

// What the tools draw, made anew into a folder of the test.
class DrawnTest : public SkinTest {
 protected:
  std::string Draw(const std::string& tool, const std::string& into) {
    EXPECT_TRUE(files.MakeFolder(folder / into));
    EXPECT_EQ(std::system(("python3 '" OSTRINKA_SOURCE "/tools/" + tool + "' '" + folder.path() + into + "'").c_str()), 0);
    return folder / into + "/";
  }
  std::string Content(const std::string& path) {
    std::string content;
    EXPECT_TRUE(files.ReadAll(path, content)) << path;
    return content;
  }
};

TEST_F(DrawnTest, EachSkinHasAllColoursAndAReadableImageForEachNameOfTheList) {
  const std::string once = Draw("make_skins.py", "once"), twice = Draw("make_skins.py", "twice");
  std::ifstream list(OSTRINKA_SOURCE "/resources/skin_images.txt");
  std::set<std::string> names;
  for (std::string line; std::getline(list, line);) {
    if (!line.empty() && line[0] != '#') names.insert(line);
  }
  EXPECT_EQ(names.size(), 399u);
  for (const char* file : {"skins/black.skin", "skins/silver.skin", "skins/blue.skin"}) {
    EXPECT_EQ(Content(once + file), Content(twice + file)) << file;
    Skin loaded;
    ASSERT_TRUE(loaded.SkinLoad(files, once + file));
    EXPECT_EQ(loaded.scale, 2);
    EXPECT_EQ(Upper(Content(once + file).substr(100, 14)), "ROUND_CORNERS=");
    for (const std::string& name : names) {
      const std::string* image = loaded.SkinImage(name);
      ASSERT_NE(image, nullptr) << name;
      ASSERT_GT(image->size(), 122u);
      const int32_t width = LoadLe<int32_t>(image->data() + 18), height = LoadLe<int32_t>(image->data() + 22);
      EXPECT_EQ(image->substr(0, 2), "BM");
      EXPECT_TRUE(width > 0 && width % 2 == 0 && height > 0 && height % 2 == 0) << name << " " << width << " x " << height;
      EXPECT_EQ(image->size(), 122u + 4u * static_cast<size_t>(width) * static_cast<size_t>(height)) << name;
    }
  }
}

TEST_F(DrawnTest, EveryIconThatTheRibbonNamesStandsInFiveSizesNormalAndHot) {
  const std::string icons = Draw("make_icons.py", "once") + "Icons/", again = Draw("make_icons.py", "twice") + "Icons/";
  std::set<std::string> names = {"btnsave.ico",   "btncancel.ico",   "error.ico",   "ostrinka.ico",
                                 "msg.error.ico", "msg.warning.ico", "msg.info.ico"};
  for (const RibbonRow& row : RibbonRows()) {
    if (*row.icon) {
      for (const char* state : {".0.ico", ".1.ico"}) names.insert(ReplaceAll(row.icon, "-", ".") + state);
    }
  }
  for (const std::string& name : names) {
    const std::string icon = Content(icons + name);
    ASSERT_GT(icon.size(), 86u) << name;
    EXPECT_EQ(LoadLe<uint16_t>(icon.data() + 4), 5) << name;
    const int sizes[] = {16, 24, 32, 48, 64};
    for (size_t i = 0; i < 5; ++i) {
      EXPECT_EQ(icon[6 + 16 * i], sizes[i]) << name;
      EXPECT_LE(size_t{LoadLe<uint32_t>(icon.data() + 14 + 16 * i)} + LoadLe<uint32_t>(icon.data() + 18 + 16 * i), icon.size()) << name;
    }
    EXPECT_EQ(icon, Content(again + name)) << name;
  }
  EXPECT_NE(Content(icons + "qdb.01.0.ico"), Content(icons + "qdb.01.1.ico"));
}

}  // namespace
}  // namespace ostrinka
