// Damaged and hostile table files: opening fails or gives what can be read; nothing else happens.
#include <random>

#include "engine/table_fixture.h"
#include "platform/recording_canvas.h"

namespace ostrinka {
namespace {

class DamageTest : public TableTest {
 protected:
  std::string good;

  void SetUp() override {
    auto groups = Create(surroundings.folder / "grupy.ovd");
    EXPECT_TRUE(groups->FIELD_ADD("OPIS", kText, 10, "", ""));
    EXPECT_TRUE(groups->RECORD_ADD({std::string("stal")}));
    auto table = FilledGoods();
    EXPECT_TRUE(table->FIELD_ADD("GRUPA", kLink, 0, "grupy.ovd", "OPIS"));
    EXPECT_TRUE(table->FIELD_ADD("PLIKI", kMemo, 0, "", ""));
    EXPECT_TRUE(table->FIELD_ADD("KURS", kSingle, 0, "", ""));
    EXPECT_TRUE(table->FIELD_ADD("WAGA", kDouble, 0, "", ""));
    good = Bytes(path);
  }
  // Everything that a user of a table does; true when it opened.
  bool UseAll() {
    ClassQDBASE table(surroundings.platform);
    if (!table.DATABASE_OPEN(path, "kreda", "kreda", false, true, true)) return false;
    for (const char* condition : {"NAZWA # \"a\"", "CENA > 1 AND DATA < 2008-01-01", "GRUPA = stal", "WAGA <> 0 OR KURS >= 1"}) {
      table.SELECTION("~", condition, "@GRUPA", ordDesc);
    }
    for (const char* order : {"NAZWA", "CENA", "DATA", "WAGA"}) table.SELECTION("*", "*", order, ordAsc);
    RecordingCanvas canvas(600, 300);
    table.TABLE_DRAW(canvas, 1, 0, true, {});
    for (int32_t n = 1; n <= std::min(table.RECORD_COUNT(), 10); ++n) {
      if (table.RECORD_LOAD(n)) static_cast<void>(table.RECORD_SAVE(n));
      for (int field = 0; field <= table.FIELD_COUNT() + 1; ++field) table.Text(field);
    }
    table.MOVE_FIRST();
    table.MEMO_EXEC("PLIKI", 1);
    table.DATABASE_EXPORT(surroundings.folder / "out", kXml, true, 0, 0);
    static_cast<void>(table.RECORD_ADD({std::string("Hak")}));
    static_cast<void>(table.RECORD_DELETE(1));
    static_cast<void>(table.FIELD_ADD("NOWE", kLong, 0, "", ""));
    static_cast<void>(table.FIELD_DELETE(1));
    return true;
  }
};

TEST_F(DamageTest, AnyLengthOfTheFileIsSurvived) {
  for (const size_t length : {0, 1, 3, 7, 10247, 33802, 33803, 33805, 33806, 33807, 33808, 33850, 33900}) {
    SetBytes(path, good.substr(0, length));
    EXPECT_EQ(UseAll(), length >= 33803) << length;
  }
}

TEST_F(DamageTest, CountsAndWidthsThatCannotBeAreRefused) {
  const struct {
    const char* what;
    size_t at;
    int32_t value;
    int size;
    bool opens;
  } rows[] = {
      {"no fields", 5, 0, 2, true},
      {"negative field count", 5, -7, 2, true},
      {"too many fields", 5, 257, 2, false},
      {"all slots as fields", 5, 256, 2, true},
      {"no users", 3, 0, 2, false},
      {"negative users", 3, -1, 2, false},
      {"too many users", 3, 300, 2, false},
      {"huge text", 10247 + 20, 0x7FFFFFFF, 4, false},
      {"negative text", 10247 + 20, -1, 4, false},
      {"text of nothing", 10247 + 20, 0, 4, true},
      {"unknown type", 10247 + 16, 77, 4, true},
      {"text for a number", 10247 + 92 + 16, 9, 4, true},
      {"position", 10247 + 24, 0x7FFFFFF0, 4, true},
      {"record count", 33803, -1, 4, true},
      {"record count", 33803, 0x7FFFFFFF, 4, true},
  };
  for (const auto& row : rows) {
    std::string bytes = good;
    std::memcpy(&bytes[row.at], &row.value, row.size);
    SetBytes(path, bytes);
    EXPECT_EQ(UseAll(), row.opens) << row.what;
  }
}

TEST_F(DamageTest, RandomBytesAndCutsDoNoHarm) {
  std::mt19937 random(2008);
  const auto below = [&](size_t limit) { return random() % limit; };
  // The parts that mean something: counts, the first user, the used field slots, the records.
  const std::pair<size_t, size_t> parts[] = {{0, 47}, {10247, 9 * 92}, {33799, good.size() - 33799}};
  int opened = 0;
  for (int round = 0; round < 300; ++round) {
    std::string bytes = good;
    for (size_t flips = 1 + below(8); flips > 0; --flips) {
      const auto& [from, length] = parts[below(3)];
      bytes[from + below(length)] = static_cast<char>(random());
    }
    if (below(4) == 0) bytes.resize(33800 + below(bytes.size() - 33800));
    SetBytes(path, bytes);
    opened += UseAll();
  }
  EXPECT_GT(opened, 30);
}

}  // namespace
}  // namespace ostrinka
