// Whatever an air-quality service sends is a reading with a label, or rejected.

#include <cstdlib>

#include "core/weather.h"

using namespace ambrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto decoded = decodeAirQuality({reinterpret_cast<const char*>(data), size});
  if (decoded.value.has_value() != decoded.problem.empty()) std::abort();
  if (!decoded.value) return 0;
  for (const auto scale : allCases<AirQualityScale>())
    if (const auto value = airQualityValue(*decoded.value, scale)) {
      const int band = airQualityBand(scale, *value);
      if (band < 0 || band > 5 || airQualityLabel(scale, band).empty()) std::abort();
    }
  return 0;
}
