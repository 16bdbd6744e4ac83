#pragma once
// White space as people mean it, beyond ASCII: a copied text may end in a no-break space.

#include <string_view>

namespace ambrel {

// A space separator of any script, or a tab.
bool isBlank(char32_t character);
// A line or paragraph end of any kind.
bool isNewline(char32_t character);

std::string_view trimmedOfBlanks(std::string_view text);
std::string_view trimmedOfWhitespace(std::string_view text);
// Whether any character is a blank or a newline.
bool hasWhitespace(std::string_view text);

}  // namespace ambrel
