#include "core/base/JSON.h"

#include <cmath>

namespace ambrel {
namespace {

const JSON* field(const JSON& object, std::string_view key) {
  if (!object.is_object()) return nullptr;
  const auto found = object.find(key);
  return found == object.end() ? nullptr : &*found;
}

}  // namespace

std::optional<JSON> parseJSON(std::string_view text) {
  // Printing and comparing a value walk it recursively, so a hostile depth must not get in.
  constexpr int deepest = 200;
  bool isTooDeep = false;
  const auto guard = [&](int depth, JSON::parse_event_t, JSON&) {
    isTooDeep = isTooDeep || depth > deepest;
    return !isTooDeep;
  };
  JSON value = JSON::parse(text.begin(), text.end(), guard, false);
  if (isTooDeep || value.is_discarded()) return std::nullopt;
  return value;
}

std::string prettyJSON(const JSON& value) { return value.dump(2, ' ', false, JSON::error_handler_t::replace) + "\n"; }

std::string compactJSON(const JSON& value) { return value.dump(-1, ' ', false, JSON::error_handler_t::replace); }

const JSON* objectField(const JSON& object, std::string_view key) {
  const JSON* value = field(object, key);
  return value && value->is_object() ? value : nullptr;
}

const JSON* arrayField(const JSON& object, std::string_view key) {
  const JSON* value = field(object, key);
  return value && value->is_array() ? value : nullptr;
}

std::optional<std::string> stringField(const JSON& object, std::string_view key) {
  const JSON* value = field(object, key);
  if (!value || !value->is_string()) return std::nullopt;
  return value->get<std::string>();
}

std::optional<bool> boolField(const JSON& object, std::string_view key) {
  const JSON* value = field(object, key);
  if (!value || !value->is_boolean()) return std::nullopt;
  return value->get<bool>();
}

std::optional<double> numberField(const JSON& object, std::string_view key) {
  const JSON* value = field(object, key);
  if (!value || !value->is_number()) return std::nullopt;
  return value->get<double>();
}

std::optional<std::int64_t> integerField(const JSON& object, std::string_view key) {
  const JSON* value = field(object, key);
  if (!value || !value->is_number()) return std::nullopt;
  if (value->is_number_integer() && !value->is_number_unsigned()) return value->get<std::int64_t>();
  const double number = std::trunc(value->get<double>());
  if (!(number >= -9.2e18 && number <= 9.2e18)) return std::nullopt;
  return value->is_number_unsigned() ? static_cast<std::int64_t>(value->get<std::uint64_t>())
                                     : static_cast<std::int64_t>(number);
}

void to_json(JSON& json, const UUID& id) { json = id.text(); }

void from_json(const JSON& json, UUID& id) {
  const auto parsed = json.is_string() ? UUID::parse(json.get_ref<const std::string&>()) : std::nullopt;
  if (!parsed) throw DecodingError("an identifier is not a UUID");
  id = *parsed;
}

}  // namespace ambrel
