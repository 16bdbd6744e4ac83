#pragma once

#include <string>

namespace ambrel {

// A message of the desktop; a later one with the same identifier replaces it.
struct FocusNotice {
  std::string identifier;
  std::string title;
  std::string body;
  friend bool operator==(const FocusNotice&, const FocusNotice&) = default;
};

}  // namespace ambrel
