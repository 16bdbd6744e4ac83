#pragma once
// A key with the modifiers that are held: what a person writes and what is stored, "Ctrl+Super+Alt+D".

#include <cstdint>
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

// Where a letter or a digit is on a keyboard of the usual shape, as X11 and Wayland number keys; 0 for anything else.
std::uint8_t usualPlace(char key);
// The letter (A to Z) or the digit that a pressed key stands for: the character it types, in upper case, or the one
// that is usually at its place, where a layout has no Latin letters there, or its digits only with Shift. Anything else
// is as it was.
std::uint32_t usualKey(std::uint32_t typed, std::uint32_t place);

}  // namespace ambrel
