#pragma once

#include <filesystem>
#include <map>
#include <string>

#include "core/base/Files.h"
#include "platform/SystemReadings.h"

struct statvfs;

namespace ambrel {

VolumeSizes volumeSizes(const struct statvfs& info);

// A file of /proc that is read again and again: it stays open, and the kernel makes its text again at each read from
// the start.
class KeptText {
 public:
  explicit KeptText(std::filesystem::path path) : path_(std::move(path)) {}

  // At most `limit` bytes, valid until the next read; absent when the file cannot be read.
  std::optional<std::string_view> read(std::size_t limit = 1 << 20);

 private:
  std::filesystem::path path_;
  FileDescriptor file_;
  std::string buffer_;
};

// Reads below `root` ("/" on a running system): proc/stat, proc/meminfo, proc/net/dev, sys/class/net. All but the
// volume and the clock are for one thread.
class ProcReadings : public SystemReadings {
 public:
  explicit ProcReadings(std::filesystem::path root = "/");

  std::optional<ProcessorTicks> processor() const override;
  std::optional<MemoryReading> memory() const override;
  NetworkCounters network() const override;
  std::optional<VolumeSizes> startUpVolume() const override;
  Seconds sinceBoot() const override;

 private:
  enum class Interface { hardware, other, countedElsewhere };
  Interface kindOf(const std::string& name) const;

  std::filesystem::path root_;
  mutable KeptText stat_, meminfo_, networkDevices_;
  mutable std::map<std::string, Interface, std::less<>> interfaces_;  // those of the last reading
};

}  // namespace ambrel
