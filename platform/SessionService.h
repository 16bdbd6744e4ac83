#pragma once
// One running bar per session, and the way for others to ask something of it.

#include <functional>
#include <optional>

#include "core/workspace/Wish.h"

namespace ambrel {

enum class SessionRole {
  owner,        // this is the bar of the session
  handedOver,   // a bar was running and has taken the wish: this process should end
  notAnswered,  // a bar has the name but does not answer: this process should say so and end
  alone,        // there is no session bus: run without the service
};

class SessionService {
 public:
  virtual ~SessionService() = default;

  // Tries to become the session's bar. When one runs already it gets `wish`, or Reveal when there is none.
  virtual SessionRole start(const std::optional<Wish>& wish) = 0;
  // `handler` gets, on the main thread, what others ask from then on. Wishes that came earlier are kept for it.
  virtual void setWishHandler(std::function<void(const Wish&)> handler) = 0;
};

}  // namespace ambrel
