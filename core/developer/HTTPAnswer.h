#pragma once
// An answer of HTTP/1.1, read until the connection was closed.

#include <optional>
#include <string>
#include <string_view>

namespace ambrel {

struct HTTPAnswer {
  int status = 0;
  std::string body;
  bool operator==(const HTTPAnswer&) const = default;
};

// Absent when it is no answer, or did not come whole.
std::optional<HTTPAnswer> parseHTTPAnswer(std::string_view bytes);

}  // namespace ambrel
