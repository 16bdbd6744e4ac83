#pragma once
// Further texts of the kernel, read into records. A line that is not understood is passed over.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/telemetry.h"

namespace ambrel {

// /proc/pressure/memory: percent of the last ten seconds in which some task, or all of them, waited for memory.
struct MemoryStalls {
  double some = 0;
  double all = 0;
  friend bool operator==(const MemoryStalls&, const MemoryStalls&) = default;
};
std::optional<MemoryStalls> parsePressure(std::string_view text);
// Stalls tell the pressure; without them (kernels before 4.20, or built without) what is left of the memory does.
PressureReading pressureReading(const MemoryReading& memory, const std::optional<MemoryStalls>& stalls);

// A line of /proc/diskstats: disks, partitions and what is layered on top of them alike.
struct BlockDevice {
  std::string name;  // "nvme0n1"
  std::uint64_t readBytes = 0;
  std::uint64_t writtenBytes = 0;
  friend bool operator==(const BlockDevice&, const BlockDevice&) = default;
};
std::vector<BlockDevice> parseDiskstats(std::string_view text);

// /proc/PID/stat: who it is, and the processor time it has used.
struct ProcessTimes {
  std::int32_t pid = 0;
  std::string name = {};  // at most 15 bytes, which may be anything but NUL
  bool isKernelThread = false;
  std::uint64_t cpuTicks = 0;
  std::uint64_t startTicks = 0;  // since boot; with the pid it names a process for good
  friend bool operator==(const ProcessTimes&, const ProcessTimes&) = default;
};
std::optional<ProcessTimes> parseProcessTimes(std::string_view text);
// The kernel cuts names off at 15 bytes. The whole one where the program's path in its command line begins with it.
std::string wholeName(std::string_view name, std::string_view commandLine);

// A line of /proc/self/mountinfo.
struct Mount {
  std::string device;  // "8:17"
  std::string path;
  std::string type;        // "ext4"
  std::string source;      // "/dev/sdb1", "nas:/films"
  std::string root = "/";  // which folder of the file system is mounted: "/" except for bind mounts and subvolumes
  friend bool operator==(const Mount&, const Mount&) = default;
};
// In order. What is mounted over is left out. Blanks and control characters are written as octal escapes.
std::vector<Mount> parseMountinfo(std::string_view text);
// Those in the folders that drives of users are mounted in, each file system once; not the system's own.
std::vector<Mount> externalMounts(const std::vector<Mount>& mounts);
// Asking such a file system for its size may wait for another computer without end.
bool isRemote(const Mount& mount);
// The last part of the path, which file managers name after the drive; valid UTF-8.
std::string volumeName(const Mount& mount);

// The interface of the default route with the lowest metric: /proc/net/route, /proc/net/ipv6_route.
std::optional<std::string> defaultInterface(std::string_view routes, std::string_view routes6);

// /proc/net/wireless by interface: signal and noise in dBm. Drivers that count in units of their own are left out.
struct WirelessLine {
  std::string interface;
  int signal = 0;
  std::optional<int> noise = {};
  friend bool operator==(const WirelessLine&, const WirelessLine&) = default;
};
std::vector<WirelessLine> parseWireless(std::string_view text);

}  // namespace ambrel
