#pragma once
// A key with the modifiers that are held: what a person writes and what is stored, "Ctrl+Super+Alt+D".

#include <optional>
#include <string>
#include <string_view>

namespace ambrel {

// Command is Super, Option is Alt, Control is Control.
struct KeyCombination {
  char key = 0;  // a lower-case letter or a digit; 0: no key at all
  bool command = false;
  bool option = false;
  bool control = false;
  bool shift = false;
  bool operator==(const KeyCombination&) const = default;

  // Super, Alt or Control is held, so that no text can be typed with it.
  bool isComplete() const { return key != 0 && (command || option || control); }
};

// "Ctrl+Super+Alt+Shift+D", as far as they are held; empty without a key.
std::string keysText(const KeyCombination& keys);
// In any order and case, also "control" and "meta". Empty text is no key. Absent for what is not complete.
std::optional<KeyCombination> parseKeys(std::string_view text);

}  // namespace ambrel
