#include "platform/linux/telemetry/VolumeReader.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <ifaddrs.h>
#include <memory>
#include <net/if.h>
#include <sys/statvfs.h>

#include "core/base/Text.h"
#include "core/telemetry/KernelTexts.h"
#include "platform/linux/ProcReadings.h"
#include "platform/linux/telemetry/SmallFiles.h"

namespace ambrel {

std::optional<std::vector<VolumeInfo>> readVolumes(const std::filesystem::path& root) {
  const auto text = readText(root / "proc/self/mountinfo");
  if (!text) return std::nullopt;
  std::vector<VolumeInfo> volumes;
  for (const Mount& mount : externalMounts(parseMountinfo(*text))) {
    VolumeInfo volume{
        .url = "file://" + percentEncodedPath(mount.path), .name = volumeName(mount), .isRemote = isRemote(mount)};
    struct statvfs info {};
    if (!volume.isRemote && statvfs((root / std::filesystem::path(mount.path).relative_path()).c_str(), &info) == 0) {
      const VolumeSizes sizes = volumeSizes(info);
      volume.freeBytes = sizes.freeBytes;
      volume.totalBytes = sizes.totalBytes;
      volume.usedBytes = sizes.usedBytes;
    }
    volumes.push_back(std::move(volume));
  }
  std::ranges::stable_sort(
      volumes, {}, [](const VolumeInfo& volume) { return std::pair(volume.isRemote, asciiLower(volume.name)); });
  return volumes;
}

std::vector<NetworkAddress> readAddresses(const std::filesystem::path& root) {
  const auto outward = defaultInterface(readText(root / "proc/net/route").value_or(""),
                                        readText(root / "proc/net/ipv6_route").value_or(""));
  ifaddrs* list = nullptr;
  if (getifaddrs(&list) != 0) return {};
  const std::unique_ptr<ifaddrs, void (*)(ifaddrs*)> owner(list, freeifaddrs);
  std::vector<NetworkAddress> addresses;
  for (const ifaddrs* entry = list; entry; entry = entry->ifa_next) {
    if (!entry->ifa_addr || !(entry->ifa_flags & IFF_UP)) continue;
    const int family = entry->ifa_addr->sa_family;
    const void* bytes = nullptr;
    if (family == AF_INET) bytes = &reinterpret_cast<const sockaddr_in*>(entry->ifa_addr)->sin_addr;
    if (family == AF_INET6) bytes = &reinterpret_cast<const sockaddr_in6*>(entry->ifa_addr)->sin6_addr;
    std::array<char, INET6_ADDRSTRLEN> text{};
    if (!bytes || !inet_ntop(family, bytes, text.data(), text.size())) continue;
    addresses.push_back({.interface = entry->ifa_name,
                         .text = text.data(),
                         .isIPv6 = family == AF_INET6,
                         .isDefault = outward == entry->ifa_name});
  }
  return rankedAddresses(std::move(addresses));
}

}  // namespace ambrel
