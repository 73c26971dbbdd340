#include <gtest/gtest.h>

#include "controls/form.h"

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

TEST(Controls, AFieldIsEditedFromAChangeByThePersonUntilItIsLeft) {
  TestForm form;
  bool edited = false;
  form.text.Left += [&] { edited = form.text.Edited(); };
  const auto left = [&] {
    form.text.UserLeave();
    return edited;
  };
  form.text.UserEnter();
  form.text.SetText("by the program");
  EXPECT_FALSE(left()) << "passed over";
  form.text.UserEnter();
  EXPECT_TRUE(form.text.UserSet("by the program"));
  form.text.UserEnter();  // back from another window
  EXPECT_TRUE(left()) << "the same text counts";
  form.text.UserEnter();
  EXPECT_FALSE(left());
}

TEST(Controls, AListOfFilesKeepsItsPlaceWhenItIsFilledAnew) {
  using Items = std::vector<MemoControl::Item>;
  const MemoControl::Item a{"a", 1}, b{"b", 2}, c{"c", 3}, d{"d", 4}, other_a{"a", 5}, new_b{"n", 2};
  const struct {
    Items before;
    int selected;  // in the list before
    Items after;
    int32_t chosen;
    const char* what;
  } rows[] = {
      {{}, -1, {a, b}, 1, "first filled"},
      {{a, b, c}, 1, {a, b, c}, 2, "nothing happened"},
      {{a, b, c}, 0, {a, b, c, d}, 4, "one was added at the end"},
      {{a, c}, 1, {a, new_b, c}, 2, "one took the room of a deleted one"},
      {{a, b}, 1, {a, b, other_a}, 5, "a file added twice"},
      {{a, b, c}, 1, {a, c}, 3, "deleted: the next"},
      {{a, b, c}, 2, {a, b}, 2, "the last deleted: the one before"},
      {{a, b, c}, 1, {a, c, d}, 3, "deleted here, added elsewhere"},
      {{a}, 0, {}, 0, "the only one deleted"},
      {{a, b}, 1, {c, d}, 3, "another record"},
  };
  for (const auto& row : rows) {
    MemoControl list;
    list.Refill(row.before);
    if (row.selected >= 0) {
      ASSERT_TRUE(list.UserSelect(row.selected));
    }
    list.Refill(row.after);
    EXPECT_EQ(list.GetCurrentFileID_(), row.chosen) << row.what;
  }
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
  for (const auto& [text, value] : {std::pair{"Żary", 1}, {"Zygmunt", 2}, {"10", 3}, {"9", 4}, {"Ćma", 5}, {"", 0}})
    form.list.AddItem(text, value);
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
