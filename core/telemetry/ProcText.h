#pragma once
#include <charconv>
#include <cstdint>
#include <optional>
#include <string_view>

namespace ambrel {

// Calls `visit` with each line, without its end.
template <typename Visit>
void eachLine(std::string_view text, Visit visit) {
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    visit(text.substr(0, end));
    if (end == std::string_view::npos) return;
    text.remove_prefix(end + 1);
  }
}

// The number at the start of `text` behind blanks; it is removed from the text.
inline std::optional<std::uint64_t> takeNumber(std::string_view& text) {
  const std::size_t begin = text.find_first_not_of(" \t");
  if (begin == std::string_view::npos) return std::nullopt;
  text.remove_prefix(begin);
  std::uint64_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc()) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return value;
}

}  // namespace ambrel
