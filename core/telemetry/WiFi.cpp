#include "core/telemetry/WiFi.h"

namespace ambrel {

int WiFiReading::bars() const {
  if (!isConnected()) return 0;
  if (rssi >= -55) return 4;
  if (rssi >= -67) return 3;
  return rssi >= -75 ? 2 : 1;
}

}  // namespace ambrel
