#pragma once

#include <functional>
#include <utility>

namespace ambrel {

// A fake of what tells of its changes.
template <typename Interface>
class Told : public Interface {
 public:
  void setChangeHandler(std::function<void()> handler) override { handler_ = std::move(handler); }

  bool isListenedTo() const { return handler_ != nullptr; }
  // The user, or another program, changes something.
  template <typename Change>
  void change(Change apply) {
    apply();
    if (handler_) handler_();
  }

 private:
  std::function<void()> handler_;
};

}  // namespace ambrel
