#include "core/telemetry/KernelTexts.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <set>

#include "core/base/Text.h"
#include "core/telemetry/ProcText.h"

namespace ambrel {
namespace {

// Of the last ten seconds, in percent.
constexpr double warningSome = 10, criticalAll = 10;
// Of the memory, free to use. Without news of stalls little room is a worse sign.
constexpr double warningLeft = 0.05, warningLeftAlone = 0.10, criticalLeftAlone = 0.04;

template <typename Number>
std::optional<Number> whole(std::string_view text, int base = 10) {
  Number number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
  if (text.empty() || error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

std::optional<double> fraction(std::string_view text) {
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (text.empty() || error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

// The fields between runs of blanks.
std::vector<std::string_view> fields(std::string_view text) {
  std::vector<std::string_view> found;
  for (;;) {
    const std::size_t begin = text.find_first_not_of(" \t");
    if (begin == std::string_view::npos) return found;
    const std::size_t end = std::min(text.find_first_of(" \t", begin), text.size());
    found.push_back(text.substr(begin, end - begin));
    text.remove_prefix(end);
  }
}

std::string withoutOctals(std::string_view text) {
  std::string plain;
  const auto isOctal = [](char c) { return c >= '0' && c <= '7'; };
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\\' && i + 3 < text.size() && isOctal(text[i + 1]) && isOctal(text[i + 2]) &&
        isOctal(text[i + 3])) {
      plain += static_cast<char>(((text[i + 1] - '0') << 6) | ((text[i + 2] - '0') << 3) | (text[i + 3] - '0'));
      i += 3;
    } else {
      plain += text[i];
    }
  }
  return plain;
}

bool isBelow(std::string_view path, std::string_view folder) {
  return path.size() > folder.size() && path.starts_with(folder);
}

}  // namespace

std::optional<MemoryStalls> parsePressure(std::string_view text) {
  std::optional<double> some, all;
  eachLine(text, [&](std::string_view line) {
    constexpr std::string_view key = "avg10=";
    const auto parts = fields(line);
    if (parts.size() < 2 || !parts[1].starts_with(key)) return;
    if (parts[0] == "some") some = fraction(parts[1].substr(key.size()));
    if (parts[0] == "full") all = fraction(parts[1].substr(key.size()));
  });
  if (!some) return std::nullopt;
  return MemoryStalls{.some = *some, .all = all.value_or(0)};
}

PressureReading pressureReading(const MemoryReading& memory, const std::optional<MemoryStalls>& stalls) {
  PressureReading reading;
  if (memory.totalBytes > 0)
    reading.fraction =
        std::min(1.0, static_cast<double>(memory.availableBytes) / static_cast<double>(memory.totalBytes));
  if (memory.swapTotalBytes > memory.swapFreeBytes)
    reading.swapUsedBytes = memory.swapTotalBytes - memory.swapFreeBytes;
  const bool isCritical = stalls ? stalls->all >= criticalAll : reading.fraction < criticalLeftAlone;
  const bool isWarning =
      stalls ? stalls->some >= warningSome || reading.fraction < warningLeft : reading.fraction < warningLeftAlone;
  if (isCritical)
    reading.level = MemoryPressure::critical;
  else if (isWarning)
    reading.level = MemoryPressure::warning;
  return reading;
}

std::vector<BlockDevice> parseDiskstats(std::string_view text) {
  // Counted in units of 512 bytes, whatever the disk's own.
  constexpr std::uint64_t sector = 512;
  std::vector<BlockDevice> devices;
  eachLine(text, [&](std::string_view line) {
    const auto parts = fields(line);
    if (parts.size() < 10) return;
    const auto read = whole<std::uint64_t>(parts[5]), written = whole<std::uint64_t>(parts[9]);
    if (read && written) devices.push_back({std::string(parts[2]), *read * sector, *written * sector});
  });
  return devices;
}

std::optional<ProcessTimes> parseProcessTimes(std::string_view text) {
  // Behind the name: state (field 3 of proc(5)), parent ... Read for every process, so nothing is taken apart that is
  // not wanted.
  constexpr int flags = 9, userTime = 14, systemTime = 15, startTime = 22;
  constexpr std::uint64_t kernelThread = 0x0020'0000;
  const auto open = text.find('('), close = text.rfind(')');
  if (open == text.npos || close == text.npos || close < open) return std::nullopt;
  const auto pid = whole<std::int32_t>(trimmed(text.substr(0, open)));
  if (!pid) return std::nullopt;
  ProcessTimes process{.pid = *pid, .name = std::string(text.substr(open + 1, close - open - 1))};
  std::string_view rest = text.substr(close + 1);
  for (int field = 3; field <= startTime; ++field) {
    const std::size_t begin = rest.find_first_not_of(' ');
    if (begin == rest.npos) return std::nullopt;
    rest.remove_prefix(begin);
    if (field == flags || field == userTime || field == systemTime || field == startTime) {
      const auto value = takeNumber(rest);
      if (!value || (!rest.empty() && rest.front() != ' ')) return std::nullopt;
      if (field == flags) process.isKernelThread = (*value & kernelThread) != 0;
      if (field == userTime || field == systemTime) process.cpuTicks += *value;
      if (field == startTime) process.startTicks = *value;
    } else {
      rest.remove_prefix(std::min(rest.find(' '), rest.size()));
    }
  }
  return process;
}

std::string wholeName(std::string_view name, std::string_view commandLine) {
  constexpr std::size_t cutOffAt = 15;
  std::string_view program = commandLine.substr(0, commandLine.find('\0'));
  if (const auto slash = program.rfind('/'); slash != program.npos) program.remove_prefix(slash + 1);
  return std::string(name.size() >= cutOffAt && program.starts_with(name) ? program : name);
}

std::vector<Mount> parseMountinfo(std::string_view text) {
  std::vector<Mount> mounts;
  eachLine(text, [&](std::string_view line) {
    const auto parts = fields(line);
    const auto dash = std::ranges::find(parts, "-");
    if (parts.size() < 6 || parts.end() - dash < 3 || dash - parts.begin() < 6) return;
    mounts.push_back({.device = std::string(parts[2]),
                      .path = withoutOctals(parts[4]),
                      .type = std::string(dash[1]),
                      .source = withoutOctals(dash[2]),
                      .root = withoutOctals(parts[3])});
  });
  // The last one at a path is on top.
  std::set<std::string> covered;
  std::vector<Mount> visible;
  for (auto mount = mounts.rbegin(); mount != mounts.rend(); ++mount)
    if (covered.insert(mount->path).second) visible.push_back(std::move(*mount));
  std::ranges::reverse(visible);
  return visible;
}

bool isRemote(const Mount& mount) {
  constexpr std::array<std::string_view, 13> types{"nfs",         "nfs4",        "cifs",          "smb3",  "smbfs",
                                                   "9p",          "ceph",        "afs",           "davfs", "fuse.sshfs",
                                                   "fuse.rclone", "fuse.davfs2", "fuse.glusterfs"};
  return std::ranges::find(types, mount.type) != types.end();
}

std::vector<Mount> externalMounts(const std::vector<Mount>& mounts) {
  constexpr std::array<std::string_view, 3> folders{"/media/", "/run/media/", "/mnt/"};
  std::set<std::string_view> seen;
  // A folder of the system's own drive that is shown elsewhere is not a drive.
  for (const Mount& mount : mounts)
    if (mount.path == "/" || isBelow(mount.path, "/boot")) seen.insert(mount.device);
  std::vector<Mount> external;
  for (const Mount& mount : mounts) {
    if (!std::ranges::any_of(folders, [&](auto folder) { return isBelow(mount.path, folder); })) continue;
    if (!mount.source.starts_with("/dev/") && !isRemote(mount)) continue;
    if (seen.insert(mount.device).second) external.push_back(mount);
  }
  return external;
}

std::string volumeName(const Mount& mount) {
  return repairedUTF8(std::string_view(mount.path).substr(mount.path.rfind('/') + 1));
}

std::optional<std::string> defaultInterface(std::string_view routes, std::string_view routes6) {
  std::optional<std::string> best;
  std::uint64_t lowest = UINT64_MAX;
  const auto offer = [&](std::string_view interface, std::optional<std::uint64_t> metric) {
    if (!metric || *metric >= lowest || interface == "lo") return;
    lowest = *metric;
    best = interface;
  };
  constexpr std::uint64_t isUp = 1;
  eachLine(routes, [&](std::string_view line) {
    const auto parts = fields(line);
    if (parts.size() < 8 || parts[1] != "00000000" || parts[7] != "00000000") return;
    if (whole<std::uint64_t>(parts[3], 16).value_or(0) & isUp) offer(parts[0], whole<std::uint64_t>(parts[6]));
  });
  if (best) return best;
  eachLine(routes6, [&](std::string_view line) {
    const auto parts = fields(line);
    if (parts.size() < 10 || parts[1] != "00" || parts[0].find_first_not_of('0') != std::string_view::npos) return;
    if (whole<std::uint64_t>(parts[8], 16).value_or(0) & isUp) offer(parts[9], whole<std::uint64_t>(parts[5], 16));
  });
  return best;
}

std::vector<WirelessLine> parseWireless(std::string_view text) {
  // A figure is followed by a dot when it is new.
  const auto figure = [](std::string_view field) {
    if (field.ends_with('.')) field.remove_suffix(1);
    return whole<int>(field);
  };
  constexpr int weakest = -130;  // drivers that do not know write 0 or -256
  std::vector<WirelessLine> lines;
  eachLine(text, [&](std::string_view line) {
    const std::size_t colon = line.find(':');
    if (colon == std::string_view::npos) return;
    const auto parts = fields(line.substr(colon + 1));
    if (parts.size() < 4) return;
    const auto signal = figure(parts[2]), noise = figure(parts[3]);
    if (!signal || *signal >= 0 || *signal < weakest) return;
    WirelessLine read{.interface = std::string(trimmed(line.substr(0, colon))), .signal = *signal};
    if (noise && *noise < 0 && *noise >= weakest) read.noise = noise;
    lines.push_back(std::move(read));
  });
  return lines;
}

}  // namespace ambrel
