#include "core/settings/KeyCombination.h"

#include <utility>

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

// The rows of keys, and the number of the first of each.
constexpr std::pair<std::string_view, std::uint8_t> rows[] = {
    {"1234567890", 10}, {"qwertyuiop", 24}, {"asdfghjkl", 38}, {"zxcvbnm", 52}};

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

std::uint8_t usualPlace(char key) {
  for (const auto& [row, first] : rows)
    if (const auto at = row.find(key); at != row.npos) return static_cast<std::uint8_t>(first + at);
  return 0;
}

std::uint32_t usualKey(std::uint32_t typed, std::uint32_t place) {
  // Greek is the first that is not Latin; what has no character comes after all of them.
  constexpr std::uint32_t afterLatin = 0x370, afterAll = 0x110000;
  if ((typed >= 'A' && typed <= 'Z') || (typed >= '0' && typed <= '9') || typed >= afterAll) return typed;
  for (const auto& [row, first] : rows) {
    if (place < first || place - first >= row.size()) continue;
    const char usual = row[place - first];
    if (usual <= '9') return static_cast<std::uint32_t>(usual);
    if (typed >= afterLatin) return static_cast<std::uint32_t>(usual - 'a' + 'A');
  }
  return typed;
}

}  // namespace ambrel
