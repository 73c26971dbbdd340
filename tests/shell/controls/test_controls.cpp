#include <gtest/gtest.h>

#include "shell/controls/form.h"

namespace ostrinka {
namespace {

class TestForm : public Form {
 public:
  TestForm() : Form("frm_Test", "test.title") {
    Register("txtA", text);
    Register("cbo", list);
    Register("cal", calendar);
    Register("opt", options);
    Register("btnOK", button);
    options[0].JoinGroup({&options[0], &options[1]});
    options[1].JoinGroup({&options[0], &options[1]});
    Page("STD", "test.std").Row({{"test.a", text, 6}, {"", list, 6}}).When(list, 2).Row({{"", calendar}});
    Page("OTH", "test.oth");
    Buttons({{"test.ok", button, kDefault}});
  }
  TextBoxControl text;
  ComboControl list;
  CalendarControl calendar;
  std::array<OptionBoxControl, 2> options;
  ButtonControl button;
};

TEST(Controls, OnlyAPersonRaisesEventsAndMakesAFormDirty) {
  TestForm form;
  int changes = 0;
  form.text.Changed += [&] { ++changes; };
  form.text.SetText("by the program");
  EXPECT_EQ(changes, 0);
  EXPECT_FALSE(form.Dirty());
  EXPECT_TRUE(form.text.UserSet("x"));
  EXPECT_TRUE(form.text.UserSet("x"));  // also when the value is the same
  EXPECT_EQ(changes, 2);
  EXPECT_TRUE(form.Dirty());
  form.text.SetEnabled(false);
  EXPECT_FALSE(form.text.UserSet("y"));
  EXPECT_EQ(form.text.Text(), "x");
}

TEST(Controls, ATextBoxTakesWhatItsFieldCanHold) {
  TestForm form;
  form.text.Limit = 4;
  EXPECT_TRUE(form.text.Takes("żółw"));
  EXPECT_FALSE(form.text.Takes("żółwi"));
  EXPECT_FALSE(form.text.Takes("中"));
  EXPECT_FALSE(form.text.Takes("a\nb"));
  form.text.SetText(std::string(500, 'x'));  // given by the program: never cut
  EXPECT_EQ(form.text.Text().size(), 500u);
  EXPECT_TRUE(form.text.Takes(std::string(499, 'x')));
  EXPECT_FALSE(form.text.Takes(std::string(501, 'x')));
  form.text.SetText("");
  form.text.Limit = 0;
  EXPECT_FALSE(form.text.Takes(std::string(257, 'x')));
  form.text.MultiLine = true;
  EXPECT_TRUE(form.text.Takes("a\r\nb" + std::string(300, 'x')));
}

TEST(Controls, ListsSortFoldedAndKeepValueAndSelection) {
  TestForm form;
  EXPECT_EQ(form.list.ListIndex(), -1);
  for (const auto& [text, value] : {std::pair{"Żary", 1}, {"Zygmunt", 2}, {"10", 3}, {"9", 4}, {"Ćma", 5}, {"", 0}}) form.list.AddItem(text, value);
  form.list.SelectValue(1);
  form.list.Sort();
  std::string order;
  for (int i = 0; i < form.list.ListCount(); ++i) order += form.list.List(i) + ";";
  EXPECT_EQ(order, "9;10;;Ćma;Żary;Zygmunt;");
  EXPECT_EQ(form.list.Value(), 1);
  EXPECT_TRUE(form.list.UserSet("#2"));
  EXPECT_EQ(form.list.Text(), "Zygmunt");
  EXPECT_FALSE(form.list.UserSet("Kraków"));
  EXPECT_FALSE(form.list.UserSet("#99"));
  EXPECT_FALSE(form.list.SelectText("none"));
  EXPECT_EQ(form.list.Value(), 0);
}

TEST(Controls, OneOptionOfAGroupIsSet) {
  TestForm form;
  form.options[0].SetValue(true);
  EXPECT_TRUE(form.options[1].UserSet("true"));
  EXPECT_FALSE(form.options[0].Value());
  EXPECT_FALSE(form.options[1].UserSet("false"));
}

TEST(Forms, AreSearchedByNameAndLaidOutAsData) {
  TestForm form;
  EXPECT_EQ(form.Find("opt(1)"), &form.options[1]);
  EXPECT_EQ(form.Find("opt(2)"), nullptr);
  EXPECT_EQ(form.FindButton("test.ok"), &form.button);
  EXPECT_EQ(form.FindButton("txtA"), nullptr);
  EXPECT_EQ(form.page(), "STD");
  EXPECT_TRUE(form.UserShowPage("OTH"));
  form.SetPageVisible("STD", false);
  EXPECT_FALSE(form.ShowPage("STD"));
  ASSERT_EQ(form.pages()[0].content.items().size(), 2u);
  EXPECT_EQ(form.pages()[0].content.items()[0].when, nullptr);
  EXPECT_EQ(form.pages()[0].content.items()[1].when, &form.list);
}

TEST(Controls, ACalendarTakesDatesAlone) {
  TestForm form;
  EXPECT_TRUE(form.calendar.UserSet("2026-11-05"));
  EXPECT_EQ(form.calendar.ShownText(), "05-11-2026");
  EXPECT_FALSE(form.calendar.UserSet("jutro"));
}

}  // namespace
}  // namespace ostrinka
