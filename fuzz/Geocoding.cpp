// Whatever a geocoding service sends, the places in it can be stored, read back and asked for.

#include <cstdlib>

#include "core/base/Text.h"
#include "core/weather.h"

using namespace ambrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const auto decoded = decodePlaces(text);
  if (decoded.value.has_value() != decoded.problem.empty()) std::abort();
  if (decoded.value) {
    if (decoded.value->size() > 6) std::abort();
    for (const auto& [place, region] : *decoded.value) {
      if (decodedPlace(encodedPlace(place)) != place) std::abort();
      if (forecastRequest(place, false).find_first_of(" \n\"<>") != std::string::npos) std::abort();
    }
  }
  decodedPlace(text);
  // A name is asked for in characters that need no further care.
  const std::string request = geocodingRequest(text);
  if (request.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-._~%/?=&") !=
      std::string::npos)
    std::abort();
  const std::string_view name = std::string_view(request).substr(16, request.size() - 16 - 20);
  if (percentDecoded(name) != text) std::abort();
  return 0;
}
