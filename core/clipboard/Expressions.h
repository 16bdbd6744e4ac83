#pragma once
// Regular expressions of RE2.

#include <re2/re2.h>
#include <re2/stringpiece.h>
#include <string_view>

namespace ambrel {

// What RE2 matches. Its view converts from std::string_view in some releases only.
inline re2::StringPiece expressionInput(std::string_view text) { return {text.data(), text.size()}; }

}  // namespace ambrel
