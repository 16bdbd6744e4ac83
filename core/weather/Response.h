#pragma once
// Reading an answer: every look-up forgives, and null is a gap.

#include <cmath>
#include <optional>
#include <string_view>

#include "core/base/JSON.h"

namespace ambrel {

// A whole number in the range of int, also when it is written with a fraction of zero.
inline std::optional<int> wholeNumber(const JSON& value) {
  if (!value.is_number()) return std::nullopt;
  const double number = value.get<double>();
  if (std::trunc(number) != number || std::abs(number) > 2147483647.0) return std::nullopt;
  return static_cast<int>(number);
}

inline std::optional<double> realNumber(const JSON& value) {
  if (!value.is_number()) return std::nullopt;
  return value.get<double>();
}

inline std::optional<std::string_view> textValue(const JSON& value) {
  if (!value.is_string()) return std::nullopt;
  return value.get_ref<const std::string&>();
}

// The element of a list that may be absent or too short.
inline const JSON* elementAt(const JSON* list, std::size_t index) {
  return list && index < list->size() ? &(*list)[index] : nullptr;
}

template <typename Read>
auto readAtIndex(const JSON* list, std::size_t index, Read read) -> decltype(read(*list)) {
  const JSON* element = elementAt(list, index);
  return element ? read(*element) : std::nullopt;
}

// The object of an answer, or why there is none. The services report errors as {"error":true,"reason":TEXT}.
struct Answer {
  JSON root;
  std::string problem;

  explicit Answer(std::string_view text) {
    auto parsed = parseJSON(text);
    if (!parsed) {
      problem = "it is no JSON document";
    } else if (!parsed->is_object()) {
      problem = "it is no JSON object";
    } else if (boolField(*parsed, "error").value_or(false)) {
      problem = "the service reports an error: " + stringField(*parsed, "reason").value_or("no reason given");
    } else {
      root = std::move(*parsed);
    }
  }
};

}  // namespace ambrel
