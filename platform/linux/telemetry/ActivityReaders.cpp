#include "platform/linux/telemetry/ActivityReaders.h"

#include <algorithm>
#include <array>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <unistd.h>

#include "core/base/Files.h"
#include "core/base/Text.h"
#include "core/telemetry/CounterRate.h"
#include "platform/linux/telemetry/SmallFiles.h"

namespace ambrel {

bool DiskCounterReader::isWholeDisk(const std::string& name) {
  const auto known = isWholeDisk_.find(name);
  if (known != isWholeDisk_.end()) return known->second;
  std::string folder = name;
  std::ranges::replace(folder, '/', '!');  // "cciss/c0d0"
  const auto path = root_ / "sys/block" / folder;
  // Partitions have no folder there, and what is made of other disks is no device. Hidden are the single paths to a
  // disk that is reached by several.
  const bool is = isThere(path / "device") && readWord(path / "hidden") != "1";
  isWholeDisk_.emplace(name, is);
  return is;
}

std::optional<DiskCounters> DiskCounterReader::read() {
  const auto text = readText(root_ / "proc/diskstats");
  if (!text) return std::nullopt;
  std::map<std::string, BlockDevice> disks;
  const auto devices = parseDiskstats(*text);
  for (const BlockDevice& device : devices)
    if (isWholeDisk(device.name)) disks.emplace(device.name, device);
  if (disks.empty()) return std::nullopt;

  for (const auto& [name, disk] : disks) {
    const auto before = last_ ? last_->find(name) : disks.end();
    if (!last_) {
      sum_.read += disk.readBytes;
      sum_.written += disk.writtenBytes;
    } else if (before != last_->end()) {
      sum_.read += CounterRate::difference(before->second.readBytes, disk.readBytes).value_or(0);
      sum_.written += CounterRate::difference(before->second.writtenBytes, disk.writtenBytes).value_or(0);
    }
  }
  // A name that is gone may come back as something else.
  std::erase_if(isWholeDisk_, [&](const auto& entry) {
    return std::ranges::find(devices, entry.first, &BlockDevice::name) == devices.end();
  });
  last_ = std::move(disks);
  sum_.uptimeNanoseconds = clock_();
  return sum_;
}

namespace {

// One read: these files come whole.
std::string_view readInto(std::array<char, 4096>& buffer, int folder, const char* path) {
  const FileDescriptor file(openat(folder, path, O_RDONLY | O_CLOEXEC));
  if (!file) return {};
  const ssize_t count = read(file.get(), buffer.data(), buffer.size());
  return {buffer.data(), count > 0 ? static_cast<std::size_t>(count) : 0};
}

}  // namespace

const std::string& ProcessTimesReader::nameOf(int folder, const ProcessTimes& process) {
  Name& known = names_[process.pid];
  known.isAlive = true;
  if (known.startTicks == process.startTicks && known.cut == process.name) return known.whole;
  known.startTicks = process.startTicks;
  known.cut = process.name;
  constexpr std::size_t cutOffAt = 15;
  std::string name = process.name;
  if (!process.isKernelThread && name.size() >= cutOffAt) {
    std::array<char, 4096> buffer;
    name = wholeName(name, readInto(buffer, folder, (std::to_string(process.pid) + "/cmdline").c_str()));
  }
  known.whole = repairedUTF8(name);
  return known.whole;
}

std::optional<ProcessSnapshot> ProcessTimesReader::read() {
  const std::unique_ptr<DIR, int (*)(DIR*)> stream(opendir((root_ / "proc").c_str()), closedir);
  if (!stream) return std::nullopt;
  for (auto& [pid, name] : names_) name.isAlive = false;
  ProcessSnapshot snapshot;
  snapshot.uptimeNanoseconds = clock_();
  snapshot.samples.reserve(names_.size() + names_.size() / 8);
  std::array<char, 4096> buffer;
  std::string path;
  while (const dirent* entry = readdir(stream.get())) {
    if (entry->d_name[0] < '1' || entry->d_name[0] > '9') continue;
    path.assign(entry->d_name).append("/stat");
    const auto process = parseProcessTimes(readInto(buffer, dirfd(stream.get()), path.c_str()));
    if (!process) continue;
    snapshot.samples.push_back({process->pid, nameOf(dirfd(stream.get()), *process),
                                nanosecondsFromTicks(process->cpuTicks, 1'000'000'000, ticksPerSecond_)});
  }
  std::erase_if(names_, [](const auto& entry) { return !entry.second.isAlive; });
  if (snapshot.samples.empty()) return std::nullopt;
  return snapshot;
}

}  // namespace ambrel
