// An event that handlers listen to: for as long as the event lives, or until their connection ends.
//
// A handler may end any connection, connect another, or bring the event itself to its end while it is raised. One that is added then is
// called as well; one that was ended is not.
#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace ostrinka {

// What Event::Connect gives: ends the listening when it goes. It may outlive the event.
class Connection {
 public:
  Connection() = default;
  Connection(Connection&& other) noexcept : end_(std::exchange(other.end_, nullptr)) {}
  Connection& operator=(Connection&& other) noexcept {
    Disconnect();
    end_ = std::exchange(other.end_, nullptr);
    return *this;
  }
  ~Connection() { Disconnect(); }
  void Disconnect() {
    if (const auto end = std::exchange(end_, nullptr)) end();
  }

 private:
  friend class Event;
  explicit Connection(std::function<void()> end) : end_(std::move(end)) {}
  std::function<void()> end_;
};

class Event {
 public:
  Event() = default;
  ~Event() {
    if (listeners_) listeners_->gone = true;
  }
  Event(const Event&) = delete;
  Event& operator=(const Event&) = delete;

  // For a handler that what it uses outlives the event.
  void operator+=(std::function<void()> handler) { Add(std::move(handler)); }
  // The handler is called until the connection goes.
  [[nodiscard]] Connection Connect(std::function<void()> handler) {
    std::weak_ptr<Handler> added = Add(std::move(handler));
    return Connection([listeners = std::weak_ptr<Listeners>(listeners_), added] {
      const auto from = listeners.lock();
      const auto ended = added.lock();
      if (!from || !ended) return;
      ended->ended = true;
      from->Forget();
    });
  }
  bool IsHeard() const {
    return listeners_ && std::any_of(listeners_->handlers.begin(), listeners_->handlers.end(), [](const auto& h) { return !h->ended; });
  }
  void Raise() const {
    if (!listeners_) return;
    const std::shared_ptr<Listeners> listeners = listeners_;  // the event may go meanwhile
    const Raising raising(*listeners);
    for (size_t i = 0; i < listeners->handlers.size() && !listeners->gone; ++i) {
      const std::shared_ptr<Handler> handler = listeners->handlers[i];
      if (!handler->ended) handler->call();
    }
  }

 private:
  struct Handler {
    std::function<void()> call;
    bool ended = false;
  };
  struct Listeners {
    std::vector<std::shared_ptr<Handler>> handlers;
    int raising = 0;  // how many times over
    bool gone = false;
    // Those that ended leave the row when nobody walks along it.
    void Forget() {
      if (raising == 0) std::erase_if(handlers, [](const auto& handler) { return handler->ended; });
    }
  };
  struct Raising {
    explicit Raising(Listeners& raised) : listeners(raised) { ++listeners.raising; }
    ~Raising() {
      --listeners.raising;
      listeners.Forget();
    }
    Listeners& listeners;
  };

  std::shared_ptr<Handler> Add(std::function<void()> handler) {
    if (!listeners_) listeners_ = std::make_shared<Listeners>();
    return listeners_->handlers.emplace_back(std::make_shared<Handler>(Handler{std::move(handler)}));
  }

  std::shared_ptr<Listeners> listeners_;  // none before the first handler
};

}  // namespace ostrinka
