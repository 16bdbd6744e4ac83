#pragma once
// How texts are folded before they are compared in a search.

#include <string>
#include <string_view>

namespace ambrel {

struct SearchFolding {
  bool hasDotlessI = false;  // Turkish and Azerbaijani, where I is the capital of ı

  // From an ICU or POSIX locale name ("tr_TR.UTF-8").
  static SearchFolding forLocale(std::string_view locale);
  // Case and diacritics do not count.
  std::string folded(std::string_view text) const;
  // Case alone does not count.
  std::string caseFolded(std::string_view text) const;
  // Whether the part is in the text, both folded; an empty part is in none.
  bool contains(std::string_view text, std::string_view part) const;
  // Whether folding changes no more than the capitals of ASCII.
  bool leavesSearchable(std::string_view text) const;

  friend bool operator==(const SearchFolding&, const SearchFolding&) = default;
};

// ASCII letters in lower case, written to `out`, which has room for the text.
void lowerASCII(std::string_view text, char* out);

}  // namespace ambrel
