#pragma once

#include <optional>
#include <string>

namespace ambrel {

struct WiFiReading {
  bool isOn = false;
  int rssi = 0;                                 // dBm; 0 while there is no connection
  std::optional<int> noise = {};                // dBm; many drivers do not tell it
  std::optional<std::string> networkName = {};  // absent while there is no connection; valid UTF-8
  double megabitsPerSecond = 0;                 // of sending; 0 while unknown
  friend bool operator==(const WiFiReading&, const WiFiReading&) = default;

  bool isConnected() const { return isOn && rssi != 0; }
  // Decibels; 25 or more is good for calls.
  std::optional<int> signalToNoise() const {
    return isConnected() && noise ? std::optional(rssi - *noise) : std::nullopt;
  }
  // 0 (no connection) to 4: from -55 dBm on four bars, -67 three, -75 two.
  int bars() const;
};

}  // namespace ambrel
