#pragma once
// Our own documents as JSON. Other tools' logs are read with LineJSON instead.
// The library's header is heavy: include this in sources, and <nlohmann/json_fwd.hpp> in headers.

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>

#include "core/base/Instant.h"
#include "core/base/UUID.h"

namespace ambrel {

using JSON = nlohmann::json;

// A document did not have the form that it should have. Says what was expected.
class DecodingError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Absent for anything that is no JSON, and for nesting deeper than 200.
std::optional<JSON> parseJSON(std::string_view text);
// Pretty-printed with sorted keys and a final newline; bytes that are no UTF-8 become U+FFFD.
std::string prettyJSON(const JSON& value);
// On one line.
std::string compactJSON(const JSON& value);

// A field of an object: absent when it is missing or of another type.
const JSON* objectField(const JSON& object, std::string_view key);
const JSON* arrayField(const JSON& object, std::string_view key);
std::optional<std::string> stringField(const JSON& object, std::string_view key);
std::optional<bool> boolField(const JSON& object, std::string_view key);
std::optional<double> numberField(const JSON& object, std::string_view key);
std::optional<std::int64_t> integerField(const JSON& object, std::string_view key);

// Dates are ISO 8601 texts, identifiers their text form. Throw DecodingError.
void to_json(JSON& json, const UUID& id);
void from_json(const JSON& json, UUID& id);

}  // namespace ambrel

template <>
struct nlohmann::adl_serializer<ambrel::Instant> {
  static void to_json(json& out, ambrel::Instant value) { out = ambrel::iso8601(value); }
  static void from_json(const json& in, ambrel::Instant& value) {
    const auto parsed = in.is_string() ? ambrel::parseISO8601(in.get_ref<const std::string&>()) : std::nullopt;
    if (!parsed) throw ambrel::DecodingError("a date is not in ISO 8601 form");
    value = *parsed;
  }
};
