#include "platform/linux/ProcReadings.h"

#include <sys/statvfs.h>
#include <time.h>

#include "core/base/Files.h"

namespace ambrel {
namespace {

namespace fs = std::filesystem;

bool isThere(const fs::path& path) {
  std::error_code error;
  return fs::exists(path, error);
}

}  // namespace

std::optional<ProcessorTicks> ProcReadings::processor() const {
  const auto text = readFile(root_ / "proc/stat");
  return text ? parseProcStat(*text) : std::nullopt;
}

std::optional<MemoryReading> ProcReadings::memory() const {
  const auto text = readFile(root_ / "proc/meminfo");
  return text ? parseMeminfo(*text) : std::nullopt;
}

NetworkCounters ProcReadings::network() const {
  const auto text = readFile(root_ / "proc/net/dev");
  if (!text) return {};
  NetworkCounters hardware, others;
  for (auto& [name, bytes] : parseNetDev(*text)) {
    const fs::path folder = root_ / "sys/class/net" / name;
    if (isThere(folder / "device"))
      hardware.emplace(name, bytes);
    else if (name != "lo" && !isThere(folder / "bridge") && !isThere(folder / "tun_flags"))
      others.emplace(name, bytes);
  }
  // In a container no interface is hardware; then what is left over stands for the network.
  return hardware.empty() ? others : hardware;
}

std::optional<VolumeSizes> ProcReadings::startUpVolume() const {
  struct statvfs info;
  if (statvfs(root_.c_str(), &info) != 0 || info.f_blocks == 0) return std::nullopt;
  const auto unit = static_cast<std::int64_t>(info.f_frsize);
  return VolumeSizes{.freeBytes = static_cast<std::int64_t>(info.f_bavail) * unit,
                     .totalBytes = static_cast<std::int64_t>(info.f_blocks) * unit};
}

Seconds ProcReadings::sinceBoot() const {
  struct timespec time;
  if (clock_gettime(CLOCK_BOOTTIME, &time) != 0) return Seconds(0);
  return Seconds(static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9);
}

}  // namespace ambrel
