#include "engine/table_fixture.h"

namespace ostrinka {
namespace {

class ExportTest : public TableTest {
 protected:
  std::string target = surroundings.folder / "out";

  std::unique_ptr<ClassQDBASE> Linked() {
    auto groups = Create(surroundings.folder / "grupy.ovd");
    EXPECT_TRUE(groups->FIELD_ADD("OPIS", kText, 10, "", ""));
    for (const char* name : {"stal", "17"}) EXPECT_TRUE(groups->RECORD_ADD({std::string(name)}));
    auto table = Create(path);
    EXPECT_TRUE(table->FIELD_ADD("ŁĄKA", kText, 20, "", ""));
    EXPECT_TRUE(table->FIELD_ADD("CENA", kCurrency, 0, "", ""));
    EXPECT_TRUE(table->FIELD_ADD("DATA", kDate, 0, "", ""));
    EXPECT_TRUE(table->FIELD_ADD("GRUPA", kLink, 0, "grupy.ovd", "OPIS"));
    EXPECT_TRUE(table->RECORD_ADD({std::string("A&B \"ż\""), std::string("12,5"), std::string("2008-03-05"), 1}));
    EXPECT_TRUE(table->RECORD_ADD({std::string("deleted")}));
    EXPECT_TRUE(table->RECORD_ADD({std::string("x;y"), std::string("-1"), std::string("2007-01-02"), 2}));
    EXPECT_TRUE(table->RECORD_DELETE(2));
    return table;
  }
};

TEST_F(ExportTest, SeparatedValues) {
  auto table = Linked();
  SetBytes(target, std::string(5000, 'x'));
  EXPECT_TRUE(table->DATABASE_EXPORT(target, kSeparatedValues, false, ';', '"'));
  EXPECT_EQ(Bytes(target), ToCp1250("ŁĄKA;CENA;DATA;GRUPA\r\n"
                                    "\"A&B &H22ż&H22\";12,5;\"2008-03-05\";\"stal\"\r\n"
                                    "\"x;y\";-1;\"2007-01-02\";17\r\n"));
  table->SELECTION("*", "CENA < 0", "", ordAsc);
  table->DATABASE_EXPORT(target, kSeparatedValues, true, ',', '\'');
  EXPECT_EQ(Bytes(target), ToCp1250("ŁĄKA,CENA,DATA,GRUPA\r\n'x;y',-1,'2007-01-02',17\r\n"));
}

TEST_F(ExportTest, Xml) {
  auto table = Linked();
  EXPECT_TRUE(table->DATABASE_EXPORT(target, kXml, true, 0, 0));
  EXPECT_EQ(Bytes(target),
            "<DATABASE>\r\n<STRUCTURE>\r\n"
            "<FIELD nr=\"1\" name=\"LAKA\" type=\"9\" size=\"20\"/>\r\n<FIELD nr=\"2\" name=\"CENA\" type=\"7\" size=\"0\"/>\r\n"
            "<FIELD nr=\"3\" name=\"DATA\" type=\"8\" size=\"0\"/>\r\n<FIELD nr=\"4\" name=\"GRUPA\" type=\"100\" size=\"0\"/>\r\n"
            "</STRUCTURE>\r\n<DATA>\r\n"
            "<RECORD nr=\"1\">\r\n<FIELDS LAKA=\"A&#38;B &#39;&#191;&#39;\" CENA=\"12&#44;5\" DATA=\"2008&#45;03&#45;05\" GRUPA=\"stal\" "
            "/></RECORD>\r\n"
            "<RECORD nr=\"3\">\r\n<FIELDS LAKA=\"x&#59;y\" CENA=\"&#45;1\" DATA=\"2007&#45;01&#45;02\" GRUPA=\"17\" /></RECORD>\r\n"
            "</DATA>\r\n</DATABASE>\r\n");
  table->SELECTION("CENA", "CENA > 0", "", ordAsc);
  table->DATABASE_EXPORT(target, kXml, false, 0, 0);
  EXPECT_EQ(Bytes(target),
            "<STRUCTURE>\r\n<FIELD nr=\"2\" name=\"CENA\" type=\"7\" size=\"0\"/>\r\n</STRUCTURE>\r\n<DATA>\r\n"
            "<RECORD nr=\"1\">\r\n<FIELDS CENA=\"12&#44;5\" /></RECORD>\r\n</DATA>\r\n");
}

TEST_F(ExportTest, AnUnknownFormatWritesNothingAndAPathThatFailsIsTold) {
  auto table = Linked();
  EXPECT_TRUE(table->DATABASE_EXPORT(target, 1, true, ';', '"'));
  EXPECT_FALSE(surroundings.files.FileExists(target));
  EXPECT_FALSE(table->DATABASE_EXPORT(surroundings.folder / "no/out", kXml, true, 0, 0));
  EXPECT_EQ(table->last_error_code(), 0);
}

}  // namespace
}  // namespace ostrinka
