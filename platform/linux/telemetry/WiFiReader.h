#pragma once

#include <filesystem>
#include <optional>

#include "core/telemetry/WiFi.h"
#include "platform/linux/telemetry/Netlink.h"

namespace ambrel {

// The wireless connection: the hardware and its switches below `root`, the rest from the kernel's wireless interface
// (nl80211), or from /proc/net/wireless where that does not answer.
class WiFiReader {
 public:
  WiFiReader(std::filesystem::path root, netlink::Exchange exchange)
      : root_(std::move(root)), exchange_(std::move(exchange)) {}
  std::optional<WiFiReading> read();

 private:
  bool hasHardware() const;
  bool isOn() const;
  bool readConnection(WiFiReading& reading);
  void readStation(std::uint32_t interface, WiFiReading& reading);
  std::optional<int> noiseOf(std::uint32_t interface);
  std::optional<std::string> networkOf(std::uint32_t interface);
  std::optional<std::vector<netlink::Reply>> ask(std::uint8_t command, std::optional<std::uint32_t> interface = {});

  std::filesystem::path root_;
  netlink::Exchange exchange_;
  std::optional<std::uint16_t> family_;
};

}  // namespace ambrel
