#include <gtest/gtest.h>
#include <signal.h>

#include <QEventLoop>

#include "desktop/end_signals.h"

namespace ostrinka {
namespace {

TEST(EndSignalsTest, EachSignalEndsTheProgramFromItsLoopOfEvents) {
  for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
    int ended = 0;
    QEventLoop loop;
    const EndSignals signals_of_the_system([&] {
      ++ended;
      loop.quit();
    });
    raise(signal);
    EXPECT_EQ(ended, 0) << "not in the handler";
    loop.exec();
    EXPECT_EQ(ended, 1) << signal;
  }
  {
    // One that comes while the program starts, before any loop hears it.
    const EndSignals early([] {});
    EXPECT_FALSE(early.Asked());
    raise(SIGTERM);
    EXPECT_TRUE(early.Asked());
    EXPECT_TRUE(early.Asked());
  }
  struct sigaction after;
  sigaction(SIGTERM, nullptr, &after);
  EXPECT_EQ(after.sa_handler, SIG_DFL);
}

}  // namespace
}  // namespace ostrinka
