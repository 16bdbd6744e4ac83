#pragma once
// System-wide key combinations that work while another program is in front.

#include <functional>

#include "core/settings/KeyCombination.h"
#include "platform/KeyKeeper.h"

namespace ambrel {

enum class HotKeyResult {
  registered,
  taken,         // another program, or an earlier registration, has it
  notAvailable,  // no window system that gives out global keys
};

class HotKeys {
 public:
  virtual ~HotKeys() = default;

  // `action` runs on the main thread at each press, until it is removed or this object ends. A combination that was
  // taken stays unregistered.
  virtual HotKeyResult add(const KeyCombination& combination, std::function<void()> action) = 0;
  // Null where each program takes the keys that it wants.
  virtual KeyKeeper* keeper() const = 0;
  // Gives the combination back; nothing where it is not registered. Also from within its own action.
  virtual void remove(const KeyCombination& combination) = 0;
};

}  // namespace ambrel
