#pragma once
// The emoji of Unicode, from the file emoji-test.txt of its data (unicode.org/reports/tr51, section "Emoji Keyboards").

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/base/SearchFolding.h"

namespace ambrel {

struct Emoji {
  std::string text;                // UTF-8, fully qualified
  std::string name;                // "grinning face", in English
  std::string group;               // "Smileys & Emotion"
  std::string subgroup;            // "face-smiling"
  std::vector<std::string> tones;  // the same in the five tones of skin, from light to dark; empty without
  friend bool operator==(const Emoji&, const Emoji&) = default;
};

inline constexpr int skinTones = 5;

// In the file's order, which is that of a keyboard. Lines of another form are passed over.
std::vector<Emoji> parseEmojiList(std::string_view file);

// Those whose name, group or subgroup has a word that begins with each word of the query; first those whose name
// begins with it. All of them for an empty query.
std::vector<const Emoji*> emojiMatching(std::span<const Emoji> emoji, std::string_view query, SearchFolding folding);

}  // namespace ambrel
