#pragma once
// Connected drives, and the addresses of this computer.

#include <cstdint>
#include <string>
#include <vector>

namespace ambrel {

struct VolumeInfo {
  std::string url = {};         // of the mount point: "file:///media/anna/STICK"
  std::string name = {};        // valid UTF-8
  std::int64_t freeBytes = 0;   // for those who are not root
  std::int64_t totalBytes = 0;  // 0 while unknown
  std::int64_t usedBytes = 0;   // without what is reserved for root
  // A folder of another computer. Its sizes are unknown, as asking for them may wait without end, and there is no
  // drive to eject.
  bool isRemote = false;
  friend bool operator==(const VolumeInfo&, const VolumeInfo&) = default;
};

struct NetworkAddress {
  std::string interface = {};  // "wlp3s0"
  std::string text = {};       // "192.168.1.20", "2001:db8::7"
  bool isIPv6 = false;
  bool isDefault = false;  // of the interface that the way to the Internet leads through
  friend bool operator==(const NetworkAddress&, const NetworkAddress&) = default;
};
// Without what leads nowhere else (loopback, link-local, addresses of bridges and containers where there are others).
// Those of the default interface first, IPv4 before IPv6.
std::vector<NetworkAddress> rankedAddresses(std::vector<NetworkAddress> addresses);

}  // namespace ambrel
