#pragma once
// A desktop that keeps the keys: programs ask it for some, and the user decides there.

#include <functional>
#include <string>
#include <vector>

#include "core/settings/KeyCombination.h"

namespace ambrel {

struct OfferedKey {
  std::string id;           // by which the desktop remembers what the user has chosen: "toggle-clipboard"
  std::string description;  // "Opens the clipboard shelf"
  KeyCombination preferred;
  std::function<void()> action;
};

class KeyKeeper {
 public:
  enum class Answer {
    none,     // nothing is asked, or there is nobody to ask: the user has to bind commands
    waiting,  // for the desktop, or for the user
    given,    // presses arrive
    refused,  // by the user
  };
  virtual ~KeyKeeper() = default;

  // As in XDG_CURRENT_DESKTOP; empty for an unknown one.
  virtual std::string desktop() const = 0;
  // Takes the place of what was asked before; with no keys, what was given is given back. What the user has refused is
  // asked once more. The desktop's service may come and go: it is asked whenever it comes.
  virtual void ask(std::vector<OfferedKey> keys) = 0;
  virtual Answer answer() const = 0;
  // What is to be pressed, in the desktop's words. Empty: no key, or the desktop does not tell.
  virtual std::string trigger(const std::string& id) const = 0;
  // Whether the desktop has a window in which the user changes the keys that it has given.
  virtual bool canConfigure() const = 0;
  virtual void configure() = 0;
  // After each change of the answer or of a trigger.
  virtual void setChangeHandler(std::function<void()> handler) = 0;
};

}  // namespace ambrel
