#include "core/base/DefaultsJSON.h"

#include "core/base/JSON.h"
#include "core/base/Overloaded.h"
#include "core/base/Text.h"

namespace ambrel {
namespace {

DefaultsValue decodedObject(const JSON& json) {
  if (json.size() == 1) {
    if (const auto data = stringField(json, "$data"))
      if (auto bytes = base64Decoded(*data)) return {DefaultsData{std::move(*bytes)}};
    if (const auto text = stringField(json, "$date"))
      if (const auto date = parseISO8601(*text)) return {*date};
    if (const JSON* inner = objectField(json, "$dictionary")) return {defaultsDictionary(*inner)};
  }
  return {defaultsDictionary(json)};
}

}  // namespace

JSON defaultsJSON(const DefaultsValue& value) {
  return std::visit(Overloaded{[](const DefaultsData& data) {
                                 return JSON{{"$data", base64Encoded(data.bytes)}};
                               },
                               [](const Instant& date) {
                                 return JSON{{"$date", iso8601(date)}};
                               },
                               [](const DefaultsArray& array) {
                                 JSON out = JSON::array();
                                 for (const auto& element : array) out.push_back(defaultsJSON(element));
                                 return out;
                               },
                               [](const DefaultsDictionary& dictionary) {
                                 const bool isAmbiguous =
                                     dictionary.size() == 1 && dictionary.begin()->first.starts_with('$');
                                 JSON out = defaultsJSON(dictionary);
                                 return isAmbiguous ? JSON{{"$dictionary", std::move(out)}} : out;
                               },
                               [](const auto& plain) { return JSON(plain); }},
                    value.value);
}

JSON defaultsJSON(const DefaultsDictionary& dictionary) {
  JSON out = JSON::object();
  for (const auto& [key, value] : dictionary) out[key] = defaultsJSON(value);
  return out;
}

DefaultsDictionary defaultsDictionary(const JSON& json) {
  DefaultsDictionary out;
  for (const auto& [key, value] : json.items())
    if (auto entry = defaultsValue(value)) out.emplace(key, std::move(*entry));
  return out;
}

std::optional<DefaultsValue> defaultsValue(const JSON& json) {
  switch (json.type()) {
    case JSON::value_t::boolean:
      return DefaultsValue{json.get<bool>()};
    case JSON::value_t::number_integer:
      return DefaultsValue{json.get<std::int64_t>()};
    case JSON::value_t::number_unsigned:
      if (json.get<std::uint64_t>() > static_cast<std::uint64_t>(INT64_MAX)) return DefaultsValue{json.get<double>()};
      return DefaultsValue{json.get<std::int64_t>()};
    case JSON::value_t::number_float:
      return DefaultsValue{json.get<double>()};
    case JSON::value_t::string:
      return DefaultsValue{json.get<std::string>()};
    case JSON::value_t::array: {
      DefaultsArray array;
      for (const auto& element : json)
        if (auto value = defaultsValue(element)) array.push_back(std::move(*value));
      return DefaultsValue{std::move(array)};
    }
    case JSON::value_t::object:
      return decodedObject(json);
    case JSON::value_t::null:
    case JSON::value_t::binary:
    case JSON::value_t::discarded:
      return std::nullopt;
  }
  return std::nullopt;
}

}  // namespace ambrel
