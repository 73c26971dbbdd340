#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "controls/event.h"

namespace ostrinka {
namespace {

class EventTest : public testing::Test {
 protected:
  Event event;
  std::string heard;
  std::function<void()> Says(char letter) {
    return [this, letter] { heard += letter; };
  }
  std::string Raised() {
    heard.clear();
    event.Raise();
    return heard;
  }
};

TEST_F(EventTest, AHandlerIsCalledUntilItsConnectionGoes) {
  EXPECT_FALSE(event.IsHeard());
  EXPECT_EQ(Raised(), "");
  {
    const Connection first = event.Connect(Says('a'));
    Connection second = event.Connect(Says('b'));
    EXPECT_EQ(Raised(), "ab") << "in the order of connecting";
    second.Disconnect();
    EXPECT_EQ(Raised(), "a");
    Connection moved = event.Connect(Says('c'));
    second = std::move(moved);
    EXPECT_EQ(Raised(), "ac");
    second = event.Connect(Says('d'));
    EXPECT_EQ(Raised(), "ad") << "what stood in its place ended";
  }
  EXPECT_FALSE(event.IsHeard());
  event += Says('e');
  EXPECT_EQ(Raised(), "e");
  EXPECT_TRUE(event.IsHeard());
}

TEST_F(EventTest, HandlersMayComeAndGoWhileItIsRaised) {
  Connection own, later, added;
  own = event.Connect([&] {
    heard += '1';
    own.Disconnect();
    later.Disconnect();
    added = event.Connect(Says('n'));
  });
  const Connection between = event.Connect(Says('2'));
  later = event.Connect(Says('3'));
  EXPECT_EQ(Raised(), "12n") << "the third ended before its turn";
  EXPECT_EQ(Raised(), "2n");
  // Raised within itself.
  int depth = 0;
  Connection nested;
  nested = event.Connect([&] {
    if (++depth == 3) nested.Disconnect();
    if (depth < 3) event.Raise();
  });
  EXPECT_EQ(Raised(), "2n2n2n");
  EXPECT_EQ(Raised(), "2n");
}

TEST_F(EventTest, TheEventMayGoFirst) {
  Connection left, last;
  {
    Event shorter;
    left = shorter.Connect(Says('x'));
  }
  left.Disconnect();
  auto raised = std::make_unique<Event>();
  *raised += [&] {
    heard += '1';
    raised.reset();
  };
  last = raised->Connect(Says('2'));
  raised->Raise();
  EXPECT_EQ(heard, "1") << "who listened to what is gone is not called";
}

TEST_F(EventTest, WhatAHandlerKeepsGoesWithItsConnection) {
  auto kept = std::make_shared<int>(1);
  Connection connection = event.Connect([kept, this] {
    heard += std::to_string(*kept);
    if (*kept == 2) heard += '!';
  });
  EXPECT_EQ(Raised(), "1");
  connection.Disconnect();
  EXPECT_EQ(kept.use_count(), 1);
}

}  // namespace
}  // namespace ostrinka
