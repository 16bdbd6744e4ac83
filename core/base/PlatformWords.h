#pragma once
// What the machine and its parts are called on this desktop. Texts name them by placeholders, which are filled in when
// the program is compiled: "Keeps the {machine} awake"_local. A port to another desktop brings another table.

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <string_view>

namespace ambrel {

// Each fits into the sentence in the place of the original desktop's name, unless noted without an article before it.
struct PlatformWord {
  std::string_view placeholder, words;
};
inline constexpr PlatformWord platformWords[] = {
    {"machine", "computer"},  // after "the", "your", "this"
    {"system", "Linux"},
    {"fileManager", "the file manager"},
    {"activityMonitor", "the kernel"},
    {"fullDiskAccess", "Read permission"},   // at the start of a sentence, singular
    {"intelligence", "The language model"},  // at the start of a sentence
    {"shelfKeys", "Super+Alt+V"},
    {"notesKeys", "Ctrl+Super+Alt+N"},
};

namespace detail {

template <std::size_t size>
struct Literal {
  // NOLINTNEXTLINE(google-explicit-constructor): a string literal is the only way in.
  consteval Literal(const char (&text)[size]) { std::copy_n(text, size, characters); }
  constexpr std::string_view view() const { return {characters, size - 1}; }
  char characters[size]{};
};

// Passes on the pieces of the text, placeholders replaced. A placeholder that is in no table does not compile.
constexpr void fillPlatformWords(std::string_view text, auto&& piece) {
  while (!text.empty()) {
    const std::size_t open = text.find('{');
    piece(text.substr(0, open));
    if (open == std::string_view::npos) return;
    const std::size_t close = text.find('}', open);
    if (close == std::string_view::npos) throw "a placeholder without its end";
    const std::string_view name = text.substr(open + 1, close - open - 1);
    const auto found = std::ranges::find(platformWords, name, &PlatformWord::placeholder);
    if (found == std::end(platformWords)) throw "an unknown placeholder";
    piece(found->words);
    text.remove_prefix(close + 1);
  }
}

template <Literal text>
struct Filled {
  static constexpr std::size_t size = [] {
    std::size_t sum = 0;
    fillPlatformWords(text.view(), [&](std::string_view piece) { sum += piece.size(); });
    return sum;
  }();
  static constexpr auto characters = [] {
    std::array<char, size + 1> all{};
    auto* end = all.data();
    fillPlatformWords(text.view(), [&](std::string_view piece) { end = std::ranges::copy(piece, end).out; });
    return all;
  }();
};

}  // namespace detail

inline namespace literals {

template <detail::Literal text>
consteval std::string_view operator""_local() {
  using Filled = detail::Filled<text>;
  return {Filled::characters.data(), Filled::size};
}

}  // namespace literals

}  // namespace ambrel
