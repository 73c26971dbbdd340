// The system's wish that the program end: a session that closes, a terminal that goes, an interrupt.
#pragma once

#include <QSocketNotifier>
#include <functional>
#include <memory>

namespace ostrinka {

class EndSignals {
 public:
  // `end` runs in the loop of events, not in the signal's handler. One object at a time.
  explicit EndSignals(std::function<void()> end);
  ~EndSignals();
  EndSignals(const EndSignals&) = delete;
  // Whether a signal has come since this object was made, also before any loop of events could hear it.
  bool Asked() const;

 private:
  std::unique_ptr<QSocketNotifier> notifier_;
  bool asked_ = false;
};

}  // namespace ostrinka
