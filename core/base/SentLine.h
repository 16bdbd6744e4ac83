#pragma once
// Texts that others send, made fit for one line of ours.

#include <string>
#include <string_view>

namespace ambrel {

// Without control characters and without those that turn the direction of what follows; white space of any kind is one
// blank. At most that many characters (code points), the last an ellipsis where it was longer. Bytes that are no UTF-8
// become U+FFFD.
std::string sentLine(std::string_view text, std::size_t most = 300);

}  // namespace ambrel
