#include "platform/linux/telemetry/GPUReader.h"

#include <algorithm>
#include <cstdlib>

#include "core/telemetry/CounterRate.h"
#include "platform/linux/telemetry/NVIDIAManagement.h"
#include "platform/linux/telemetry/SmallFiles.h"

namespace ambrel {
namespace {

constexpr std::chrono::milliseconds firstSpan{100};
// A card that was found idle is left alone for so long: it cannot fall asleep while it is asked all the time.
constexpr std::uint64_t restNanoseconds = 30'000'000'000;

// Cards that cannot sleep have no such file.
bool isAsleep(const std::filesystem::path& device) {
  const std::string status = readWord(device / "power/runtime_status");
  return status == "suspended" || status == "suspending";
}

// "card0", not its connectors "card0-HDMI-A-1".
bool isCard(const std::string& name) {
  return name.size() > 4 && std::all_of(name.begin() + 4, name.end(), [](char c) { return c >= '0' && c <= '9'; });
}

std::optional<double> share(std::optional<long long> percent) {
  if (!percent || *percent < 0) return std::nullopt;
  return std::min(1.0, static_cast<double>(*percent) / 100);
}

void raise(std::optional<double>& busiest, std::optional<double> load) {
  if (load) busiest = std::max(busiest.value_or(0), *load);
}

}  // namespace

std::optional<double> GPUReader::loadFromIdleTime(const Path& counter) {
  const auto read = [&]() -> std::optional<IdleTime> {
    const auto milliseconds = readNumber(counter);
    if (!milliseconds || *milliseconds < 0) return std::nullopt;
    return IdleTime{static_cast<std::uint64_t>(*milliseconds), surroundings_.clock()};
  };
  const auto load = [](const IdleTime& before, const IdleTime& now) -> std::optional<double> {
    const auto elapsed = elapsedSeconds(before.at, now.at);
    if (!elapsed) return std::nullopt;
    const auto idle = CounterRate::perSecond(before.milliseconds, now.milliseconds, *elapsed);
    return idle ? std::optional(std::clamp(1 - *idle / 1000, 0.0, 1.0)) : std::nullopt;
  };
  auto now = read();
  if (!now) return std::nullopt;
  const auto before = idleTimes_.find(counter);
  auto result = before != idleTimes_.end() ? load(before->second, *now) : std::nullopt;
  if (!result) {
    surroundings_.pause(firstSpan);
    const IdleTime first = *now;
    now = read();
    if (!now) return std::nullopt;
    result = load(first, *now);
  }
  idleTimes_[counter] = *now;
  return result;
}

std::optional<double> GPUReader::cardLoad(const Path& card) {
  const Path device = card / "device";
  // NVIDIA's driver is asked in its own way.
  if (readWord(device / "vendor") == "0x10de" && !isThere(device / "gpu_busy_percent")) return std::nullopt;
  if (isAsleep(device)) return 0;
  if (const auto busy = share(readNumber(device / "gpu_busy_percent"))) return busy;
  std::optional<double> busiest;
  for (const std::string& engine : namesIn(card / "gt", "gt"))
    raise(busiest, loadFromIdleTime(card / "gt" / engine / "rc6_residency_ms"));
  if (!busiest) busiest = loadFromIdleTime(card / "power/rc6_residency_ms");
  for (const std::string& tile : namesIn(device, "tile"))
    for (const std::string& engine : namesIn(device / tile, "gt"))
      raise(busiest, loadFromIdleTime(device / tile / engine / "gtidle/idle_residency_ms"));
  return busiest;
}

std::optional<double> GPUReader::nvidiaLoad(const std::string& busID) {
  const Path device = surroundings_.root / "sys/bus/pci/devices" / busID;
  if (isAsleep(device)) {
    restsUntil_.erase(busID);
    return 0;
  }
  const auto rest = restsUntil_.find(busID);
  if (rest != restsUntil_.end() && surroundings_.clock() < rest->second) return 0;
  restsUntil_.erase(busID);
  const auto load = nvidiaUtilization(surroundings_.managementLibrary, busID);
  if (load == 0 && readWord(device / "power/control") == "auto")
    restsUntil_[busID] = surroundings_.clock() + restNanoseconds;
  return load;
}

std::optional<double> GPUReader::boardLoad() {
  std::optional<double> busiest;
  const Path folder = surroundings_.root / "sys/class/devfreq";
  for (const std::string& name : namesIn(folder)) {
    if (name.find("gpu") == std::string::npos && name.find("mali") == std::string::npos) continue;
    // "12@400000000Hz"
    const std::string load = readWord(folder / name / "load");
    if (load.empty() || load[0] < '0' || load[0] > '9') continue;
    raise(busiest, share(std::atoi(load.c_str())));
  }
  return busiest;
}

std::optional<double> GPUReader::read() {
  std::optional<double> busiest;
  const Path cards = surroundings_.root / "sys/class/drm";
  for (const std::string& name : namesIn(cards, "card"))
    if (isCard(name)) raise(busiest, cardLoad(cards / name));
  // Its driver's folder holds a link for each card ("0000:01:00.0") beside files of its own.
  for (const std::string& name : namesIn(surroundings_.root / "sys/bus/pci/drivers/nvidia"))
    if (name.find(':') != std::string::npos) raise(busiest, nvidiaLoad(name));
  raise(busiest, boardLoad());
  return busiest;
}

}  // namespace ambrel
