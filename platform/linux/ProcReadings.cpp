#include "platform/linux/ProcReadings.h"

#include <algorithm>
#include <cerrno>
#include <sys/statvfs.h>
#include <time.h>
#include <unistd.h>

namespace ambrel {
namespace {

namespace fs = std::filesystem;

bool isThere(const fs::path& path) {
  std::error_code error;
  return fs::exists(path, error);
}

}  // namespace

VolumeSizes volumeSizes(const struct statvfs& info) {
  const auto unit = static_cast<std::int64_t>(info.f_frsize);
  const auto bytes = [unit](fsblkcnt_t blocks) { return static_cast<std::int64_t>(blocks) * unit; };
  return {.freeBytes = bytes(info.f_bavail),
          .totalBytes = bytes(info.f_blocks),
          .usedBytes = bytes(info.f_blocks - std::min(info.f_bfree, info.f_blocks))};
}

std::optional<std::string_view> KeptText::read(std::size_t limit) {
  if (!file_) file_ = openForReading(path_);
  if (!file_) return std::nullopt;
  std::size_t filled = 0;
  // A short read is not the end: the kernel gives whole lines.
  while (filled < limit) {
    if (buffer_.size() == filled) buffer_.resize(std::min(limit, std::max<std::size_t>(4096, 2 * filled)));
    const ssize_t got = pread(file_.get(), buffer_.data() + filled, std::min(limit, buffer_.size()) - filled,
                              static_cast<off_t>(filled));
    if (got == 0) break;
    if (got < 0 && errno != EINTR) {
      file_.reset();
      return std::nullopt;
    }
    if (got > 0) filled += static_cast<std::size_t>(got);
  }
  return std::string_view(buffer_).substr(0, filled);
}

ProcReadings::ProcReadings(std::filesystem::path root)
    : root_(std::move(root)),
      stat_(root_ / "proc/stat"),
      meminfo_(root_ / "proc/meminfo"),
      networkDevices_(root_ / "proc/net/dev") {}

std::optional<ProcessorTicks> ProcReadings::processor() const {
  // The sum of all processors is the first line; what follows grows with the computer.
  constexpr std::size_t firstLine = 512;
  const auto text = stat_.read(firstLine);
  return text ? parseProcStat(text->substr(0, text->find('\n'))) : std::nullopt;
}

std::optional<MemoryReading> ProcReadings::memory() const {
  const auto text = meminfo_.read();
  return text ? parseMeminfo(*text) : std::nullopt;
}

ProcReadings::Interface ProcReadings::kindOf(const std::string& name) const {
  const fs::path folder = root_ / "sys/class/net" / name;
  if (isThere(folder / "device")) return Interface::hardware;
  if (name == "lo" || isThere(folder / "bridge") || isThere(folder / "tun_flags")) return Interface::countedElsewhere;
  return Interface::other;
}

NetworkCounters ProcReadings::network() const {
  const auto text = networkDevices_.read();
  if (!text) return {};
  NetworkCounters all = parseNetDev(*text);
  // What an interface is changes only when interfaces come or go.
  if (!std::ranges::equal(all, interfaces_, {}, &NetworkCounters::value_type::first,
                          &decltype(interfaces_)::value_type::first)) {
    interfaces_.clear();
    for (const auto& [name, bytes] : all) interfaces_.emplace(name, kindOf(name));
  }
  const bool hasHardware =
      std::ranges::any_of(interfaces_, [](const auto& entry) { return entry.second == Interface::hardware; });
  // In a container no interface is hardware; then the remaining ones count as the network.
  std::erase_if(all, [&](const auto& entry) {
    return interfaces_.at(entry.first) != (hasHardware ? Interface::hardware : Interface::other);
  });
  return all;
}

std::optional<VolumeSizes> ProcReadings::startUpVolume() const {
  struct statvfs info;
  if (statvfs(root_.c_str(), &info) != 0 || info.f_blocks == 0) return std::nullopt;
  return volumeSizes(info);
}

Seconds ProcReadings::sinceBoot() const {
  struct timespec time;
  if (clock_gettime(CLOCK_BOOTTIME, &time) != 0) return Seconds(0);
  return Seconds(static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9);
}

}  // namespace ambrel
