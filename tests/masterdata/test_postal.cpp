#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "base/text.h"
#include "masterdata/postal.h"
#include "support/test_platform.h"

namespace ostrinka {
namespace {

// The stored form of a field, the other way round than the table reads it.
std::string Scrambled(const std::string& text, size_t length) {
  std::string bytes = ToCp1250(text);
  bytes.resize(length, ' ');
  for (size_t i = 0; i < length; ++i) bytes[i] = static_cast<char>((static_cast<uint8_t>(bytes[i]) ^ 0x80) + i + 1);
  return bytes;
}

std::string Record(const std::string& code, const std::string& town) {
  return Scrambled(code, 6) + Scrambled(town, 25) + "!";
}

class PostalTest : public testing::Test {
 protected:
  bool Load(const std::string& content) {
    EXPECT_TRUE(platform_.files.WriteAll(folder() + "psc.bin", content));
    return table_.LoadPostalCodes(platform_.files, folder());
  }
  std::string folder() const { return platform_.folder / "app/"; }

  TestPlatform platform_;
  PostalTable table_;
};

TEST_F(PostalTest, AStoredByteLosesItsPositionAndItsHighestBit) {
  // 0xC2 at position 1 is "A", 0xC4 at position 2 is "B"; a subtraction below zero wraps: 0x02 at position 3 is 0x7F.
  std::string record = Record("00-001", "");
  record[6] = '\xC2';
  record[7] = '\xC4';
  record[8] = '\x02';
  ASSERT_TRUE(Load(record));
  EXPECT_EQ(table_.TownOfCode("00-001"), "AB\x7F");
}

TEST_F(PostalTest, FirstMatchInFileOrderWins) {
  ASSERT_TRUE(Load(Record("90-001", "Łódź") + Record("95-100", "Zgierz") + Record("90-002", "Łódź") + Record("95-100", "Lućmierz") +
                   Record("05-091", "Ząbki") + Record("43-300", "Bielsko-Biała")));
  EXPECT_EQ(table_.Count(), 6u);
  EXPECT_EQ(table_.TownOfCode(" 95-100 "), "Zgierz");
  EXPECT_EQ(table_.CodeOfTown("Łódź "), "90-001");
  const struct {
    const char *town, *hint, *code;
  } hints[] = {{"Łódź", "90-002", "90-002"}, {"Łódź", " 90-418 ", "90-418"}, {"Łódź", "95-100", "90-001"},
               {"Łódź", "90", "90-001"},     {"Zgierz", "95-101", "95-101"}, {"Pcim", "32-432", ""}};
  for (const auto& row : hints) EXPECT_EQ(table_.CodeOfTown(row.town, row.hint), row.code) << row.town << " " << row.hint;
  EXPECT_EQ(table_.PostalIndexOf("90-002"), 3);
  EXPECT_EQ(table_.CodeOfTown("łódź"), "");
  EXPECT_EQ(table_.CodeOfTown("Bielsko-Biała"), "43-300");
  EXPECT_EQ(table_.TownOfCode("99-999"), "");
  EXPECT_EQ(table_.PostalIndexOf("99-999"), 0);
  EXPECT_EQ(table_.PostalIndexOf(""), 0);
}

TEST_F(PostalTest, AMissingEmptyOrCutFileLeavesOneBlankRowInWhichNothingIsFound) {
  const std::string record = Record("90-001", "Łódź");
  ASSERT_TRUE(Load(record));
  ASSERT_TRUE(platform_.files.Remove(folder() + "psc.bin"));
  EXPECT_FALSE(table_.LoadPostalCodes(platform_.files, folder()));
  EXPECT_EQ(table_.Count(), 1u);
  for (const std::string& content : {std::string(), record.substr(0, 31)}) {
    EXPECT_FALSE(Load(content));
    EXPECT_EQ(table_.Count(), 1u);
    EXPECT_EQ(table_.TownOfCode("90-001"), "");
    EXPECT_EQ(table_.TownOfCode(""), "");
    EXPECT_EQ(table_.CodeOfTown(""), "");
    EXPECT_EQ(table_.PostalIndexOf(""), 0);
  }
  ASSERT_TRUE(Load(record + record.substr(0, 20)));
  EXPECT_EQ(table_.Count(), 1u);
  EXPECT_EQ(table_.TownOfCode("90-001"), "Łódź");
}

TEST_F(PostalTest, AnyBytesAreReadAsTheyAre) {
  std::string bytes;
  for (int i = 0; i < 8192; ++i) bytes += static_cast<char>(i * 7 + i / 256);
  ASSERT_TRUE(Load(bytes));
  EXPECT_EQ(table_.Count(), 256u);
  EXPECT_EQ(table_.TownOfCode("00-001"), "");
}

TEST(PostalRegion, FollowsFromTheFirstTwoDigits) {
  const struct {
    const char* code;
    int32_t region;
  } rows[] = {
      {"00-950", 14}, {"09-400", 14}, {"10-001", 28},   {"14-200", 28}, {"15-001", 20}, {"19-300", 28}, {"20-001", 6},  {"25-001", 26},
      {"26-600", 14}, {"27-400", 26}, {"30-001", 12},   {"34-500", 12}, {"35-001", 18}, {"38-500", 18}, {"40-001", 24}, {"42-200", 24},
      {"45-001", 16}, {"47-220", 16}, {"50-001", 2},    {"59-220", 2},  {"60-001", 30}, {"64-920", 30}, {"65-001", 8},  {"66-400", 8},
      {"70-001", 32}, {"75-001", 32}, {"76-200", 22},   {"78-100", 32}, {"80-001", 22}, {"84-200", 22}, {"85-001", 4},  {"87-100", 4},
      {"90-001", 10}, {"99-300", 10}, {" 61-001 ", 30}, {"61001", 30},  {"79-001", 0},  {"", 0},        {"6", 0},       {"61-00", 0},
      {"61-0011", 0}, {"AB-CDE", 0},  {"61 001", 0},    {"D-1011", 0},  {"ą1-001", 0},
  };
  for (const auto& row : rows) EXPECT_EQ(PostalTable::RegionOfCode(row.code), row.region) << row.code;
}

// The list that is supplied, put through the tool that makes the table.
class PostalToolTest : public PostalTest {
 protected:
  bool Make(const std::string& list) {
    const std::string command =
        "python3 -I -S '" OSTRINKA_SOURCE "/tools/make_psc.py' '" + list + "' '" + folder() + "psc.bin' 2>/dev/null";
    return std::system(command.c_str()) == 0;
  }
};

TEST_F(PostalToolTest, SuppliedListReadsBackWithTheMainCodesOfTheCities) {
  ASSERT_TRUE(Make(OSTRINKA_SOURCE "/resources/postal_codes.txt"));
  ASSERT_TRUE(table_.LoadPostalCodes(platform_.files, folder()));
  EXPECT_GE(table_.Count(), 900u);
  // The cities with the rights of a county.
  for (const char* city : {"Białystok",
                           "Bielsko-Biała",
                           "Biała Podlaska",
                           "Bydgoszcz",
                           "Bytom",
                           "Chełm",
                           "Chorzów",
                           "Częstochowa",
                           "Elbląg",
                           "Gdańsk",
                           "Gdynia",
                           "Gliwice",
                           "Grudziądz",
                           "Jaworzno",
                           "Jelenia Góra",
                           "Kalisz",
                           "Katowice",
                           "Kielce",
                           "Konin",
                           "Koszalin",
                           "Krosno",
                           "Legnica",
                           "Leszno",
                           "Lublin",
                           "Łomża",
                           "Mysłowice",
                           "Nowy Sącz",
                           "Olsztyn",
                           "Opole",
                           "Ostrołęka",
                           "Piekary Śląskie",
                           "Płock",
                           "Poznań",
                           "Przemyśl",
                           "Radom",
                           "Rybnik",
                           "Rzeszów",
                           "Siedlce",
                           "Skierniewice",
                           "Słupsk",
                           "Sopot",
                           "Sosnowiec",
                           "Suwałki",
                           "Szczecin",
                           "Świętochłowice",
                           "Tarnobrzeg",
                           "Tarnów",
                           "Toruń",
                           "Tychy",
                           "Wałbrzych",
                           "Włocławek",
                           "Wrocław",
                           "Zabrze",
                           "Zamość",
                           "Zielona Góra",
                           "Ruda Śląska",
                           "Dąbrowa Górnicza",
                           "Gorzów Wielkopolski",
                           "Jastrzębie-Zdrój",
                           "Piotrków Trybunalski",
                           "Siemianowice Śląskie"}) {
    EXPECT_NE(table_.CodeOfTown(city), "") << city;
  }
  const struct {
    const char* town;
    const char* code;
    int32_t region;
  } rows[] = {
      {"Warszawa", "00-001", 14}, {"Kraków", "30-001", 12},      {"Łódź", "90-001", 10},
      {"Zakopane", "34-500", 12}, {"Świnoujście", "72-600", 32}, {"Konstancin-Jeziorna", "05-510", 14},
      {"Ełk", "19-300", 28},      {"Żory", "44-240", 24},        {"Brodnica", "87-300", 4},
      {"Leszno", "64-100", 30},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(table_.CodeOfTown(row.town), row.code);
    EXPECT_EQ(table_.TownOfCode(row.code), row.town);
    EXPECT_EQ(PostalTable::RegionOfCode(row.code), row.region) << row.town;
  }
}

TEST_F(PostalToolTest, ABadLineWritesNoTable) {
  const std::string list = platform_.folder / "list.txt";
  for (const char* line : {"1-001;Olsztyn", "10-001,Olsztyn", "10-001;", "10-001; Olsztyn", "10-001;Öłsztyñ",
                           "10-001;Olsztyn\n10-001;Olsztyn", "10-001;Abcdefghijklmnopqrstuvwxyz", ""}) {
    ASSERT_TRUE(platform_.files.WriteAll(list, std::string("# list\n") + line + "\n"));
    EXPECT_FALSE(Make(list)) << line;
    EXPECT_FALSE(platform_.files.FileExists(folder() + "psc.bin")) << line;
  }
}

}  // namespace
}  // namespace ostrinka
