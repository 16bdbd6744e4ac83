#pragma once
// System-wide key combinations that work while another program is in front.

#include <functional>
#include <string>

namespace ambrel {

// Command is Super, Option is Alt, Control is Control.
struct KeyCombination {
  char key = 0;  // a lower-case letter or a digit
  bool command = false;
  bool option = false;
  bool control = false;
  bool shift = false;
  bool operator==(const KeyCombination&) const = default;
};

enum class HotKeyResult {
  registered,
  taken,         // another program, or an earlier registration, has it
  notAvailable,  // no window system that gives out global keys
};

class HotKeys {
 public:
  virtual ~HotKeys() = default;

  // `action` runs on the main thread at each press, for as long as this object lives. A combination that was taken
  // stays unregistered.
  virtual HotKeyResult add(const KeyCombination& combination, std::function<void()> action) = 0;
};

}  // namespace ambrel
