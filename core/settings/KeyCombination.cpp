#include "core/settings/KeyCombination.h"

#include "core/base/Text.h"

namespace ambrel {
namespace {

struct Modifier {
  std::string_view name, otherName;
  bool KeyCombination::*isHeld;
};
constexpr Modifier modifiers[] = {{"Ctrl", "control", &KeyCombination::control},
                                  {"Super", "meta", &KeyCombination::command},
                                  {"Alt", "option", &KeyCombination::option},
                                  {"Shift", "shift", &KeyCombination::shift}};

bool isKey(char c) { return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9'); }

bool takeModifier(KeyCombination& keys, std::string_view name) {
  for (const Modifier& modifier : modifiers)
    if (name == asciiLower(modifier.name) || name == modifier.otherName) return keys.*modifier.isHeld = true;
  return false;
}

}  // namespace

std::string keysText(const KeyCombination& keys) {
  if (keys.key == 0) return {};
  std::string text;
  for (const Modifier& modifier : modifiers)
    if (keys.*modifier.isHeld) text.append(modifier.name).append("+");
  const bool isLetter = keys.key >= 'a' && keys.key <= 'z';
  return text + (isLetter ? static_cast<char>(keys.key - 'a' + 'A') : keys.key);
}

std::optional<KeyCombination> parseKeys(std::string_view text) {
  KeyCombination keys;
  if (trimmed(text).empty()) return keys;
  for (const std::string_view piece : split(text, '+')) {
    const std::string name = asciiLower(trimmed(piece));
    if (takeModifier(keys, name)) continue;
    if (keys.key != 0 || name.size() != 1 || !isKey(name.front())) return std::nullopt;
    keys.key = name.front();
  }
  return keys.isComplete() ? std::optional(keys) : std::nullopt;
}

}  // namespace ambrel
