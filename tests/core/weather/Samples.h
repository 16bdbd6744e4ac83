#pragma once
#include <gtest/gtest.h>
#include <string>

#include "core/base/Files.h"
#include "core/weather.h"
#include "tests/Time.h"

namespace ambrel {

inline std::string sample(const std::string& name) {
  const auto bytes = readFile(std::string(AMBREL_CASES "/weather/") + name);
  if (!bytes) throw std::invalid_argument(name);
  return *bytes;
}

inline Forecast forecastOf(const std::string& name) {
  auto decoded = decodeForecast(sample(name));
  if (!decoded.value) throw std::invalid_argument(name + ": " + decoded.problem);
  return *decoded.value;
}

}  // namespace ambrel
