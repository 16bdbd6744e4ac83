#include "core/telemetry/Volumes.h"

#include <algorithm>

#include "core/telemetry.h"

namespace ambrel {
namespace {

bool leadsNowhere(const NetworkAddress& address) {
  const std::string& text = address.text;
  if (address.interface == "lo") return true;
  if (address.isIPv6) return text == "::1" || text.starts_with("fe80:");
  return text.starts_with("127.") || text.starts_with("169.254.");
}

// Of programs, not of this computer's connections.
bool isInner(const NetworkAddress& address) {
  constexpr std::string_view prefixes[] = {"docker", "br-",     "veth",   "virbr", "lxc",
                                           "lxdbr",  "vboxnet", "podman", "cni"};
  return std::ranges::any_of(prefixes, [&](auto prefix) { return address.interface.starts_with(prefix); });
}

}  // namespace

std::optional<double> usedPercent(std::int64_t usedBytes, std::int64_t freeBytes) {
  if (usedBytes < 0 || freeBytes < 0 || usedBytes + freeBytes <= 0) return std::nullopt;
  return 100.0 * static_cast<double>(usedBytes) / static_cast<double>(usedBytes + freeBytes);
}

std::vector<NetworkAddress> rankedAddresses(std::vector<NetworkAddress> addresses) {
  std::erase_if(addresses, leadsNowhere);
  if (!std::ranges::all_of(addresses, isInner)) std::erase_if(addresses, isInner);
  std::ranges::stable_sort(addresses, [](const NetworkAddress& a, const NetworkAddress& b) {
    if (a.isDefault != b.isDefault) return a.isDefault;
    return a.isIPv6 < b.isIPv6;
  });
  return addresses;
}

}  // namespace ambrel
