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
  struct sigaction after;
  sigaction(SIGTERM, nullptr, &after);
  EXPECT_EQ(after.sa_handler, SIG_DFL);
}

}  // namespace
}  // namespace ostrinka
