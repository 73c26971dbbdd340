#include "desktop/end_signals.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <unistd.h>

#include <utility>

namespace ostrinka {
namespace {

constexpr int kSignals[] = {SIGTERM, SIGHUP, SIGINT};
int pipe_ends[2] = {-1, -1};  // what a handler can reach

void Tell(int) {
  const char byte = 1;
  [[maybe_unused]] const ssize_t written = write(pipe_ends[1], &byte, 1);
}

}  // namespace

EndSignals::EndSignals(std::function<void()> end) {
  if (pipe2(pipe_ends, O_CLOEXEC | O_NONBLOCK) != 0) return;
  notifier_ = std::make_unique<QSocketNotifier>(pipe_ends[0], QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this, end = std::move(end)] {
    asked_ = true;
    char bytes[16];
    while (read(pipe_ends[0], bytes, sizeof bytes) > 0) continue;
    end();
  });
  struct sigaction action = {};
  action.sa_handler = Tell;
  action.sa_flags = SA_RESTART;
  for (const int signal : kSignals) sigaction(signal, &action, nullptr);
}

bool EndSignals::Asked() const {
  pollfd waiting{pipe_ends[0], POLLIN, 0};
  return asked_ || (notifier_ && poll(&waiting, 1, 0) > 0);
}

EndSignals::~EndSignals() {
  if (!notifier_) return;
  for (const int number : kSignals) signal(number, SIG_DFL);
  notifier_.reset();
  for (int& end : pipe_ends) close(std::exchange(end, -1));
}

}  // namespace ostrinka
