// How long the usage scanner takes for a tree of logs, beside one memmem pass over the same bytes.
//
//   UsageScan [--megabytes 600] [--seed 1] [--rounds 7]
//
// Everything is warm; floor and scan take turns, and the medians are compared. Ends with 1 when a budget is missed.

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <fmt/format.h>
#include <functional>
#include <string>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "bench/UsageTree.h"
#include "core/agents/SessionFiles.h"
#include "core/base/Files.h"
#include "core/usage.h"

namespace ambrel {
namespace {

constexpr double coldBudget = 1.2;
constexpr double memoryBudget = 64.0;  // MiB

using Files = std::vector<SessionFile>;

struct Time {
  double wall = 0, processor = 0;  // seconds; processor: of all threads

  friend bool operator<(const Time& a, const Time& b) { return a.wall < b.wall; }
};

double processorSeconds() {
  rusage usage = {};
  getrusage(RUSAGE_SELF, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

Time timeOf(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  const double before = processorSeconds();
  work();
  return {std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count(), processorSeconds() - before};
}

// By the wall clock.
Time median(std::vector<Time> times) {
  std::sort(times.begin(), times.end());
  return times[times.size() / 2];
}

// The unavoidable work: every byte is looked at once.
std::size_t memmemPass(const Files& files) {
  static constexpr std::string_view key = "\"usage\"";
  std::size_t found = 0;
  for (const SessionFile& file : files) {
    const FileDescriptor fd = openForReading(file.path);
    void* map = mmap(nullptr, file.size, PROT_READ, MAP_PRIVATE, fd.get(), 0);
    if (map == MAP_FAILED) throw FileError("cannot map", file.path, errno);
    const char* at = static_cast<const char*>(map);
    const char* end = at + file.size;
    while (const void* hit = memmem(at, static_cast<std::size_t>(end - at), key.data(), key.size())) {
      ++found;
      at = static_cast<const char*>(hit) + key.size();
    }
    munmap(map, file.size);
  }
  return found;
}

// Peak memory of a process that scans once, in MiB.
double peakMemory(const std::function<void()>& scan) {
  const pid_t child = fork();
  if (child == 0) {
    scan();
    _exit(0);
  }
  rusage usage = {};
  int status = 0;
  if (wait4(child, &status, 0, &usage) != child || status != 0) throw std::runtime_error("the scanning process failed");
  return static_cast<double>(usage.ru_maxrss) / 1024;
}

class TemporaryHome {
 public:
  TemporaryHome() {
    std::string name = (std::filesystem::temp_directory_path() / "usage-scan-XXXXXX").string();
    if (!mkdtemp(name.data())) throw std::runtime_error("cannot make a folder");
    path = name;
  }
  TemporaryHome(const TemporaryHome&) = delete;
  ~TemporaryHome() {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
  }
  std::filesystem::path path;
};

// The usual command-line tool for the same logs, when it is installed; absent otherwise.
std::optional<double> peer(const std::filesystem::path& home) {
  if (std::system("command -v ccusage >/dev/null 2>&1") != 0) return std::nullopt;
  setenv("CLAUDE_CONFIG_DIR", (home / ".claude").c_str(), 1);
  int status = 0;
  const double seconds = timeOf([&] { status = std::system("ccusage daily --json --offline >/dev/null 2>&1"); }).wall;
  return status == 0 ? std::optional(seconds) : std::nullopt;
}

int run(std::uint64_t megabytes, std::uint32_t seed, int rounds) {
  const Instant now = *parseISO8601("2026-11-21T12:00:00Z");
  const Calendar calendar("UTC", "en_US");
  const TemporaryHome home;
  const UsageTree tree = writeUsageTree(home.path, megabytes * 1'000'000, seed, now);
  fmt::print("{} logs, {:.0f} MB, {} replies, seed {}\n", tree.files, static_cast<double>(tree.bytes) / 1e6,
             tree.replies, seed);

  const auto files = recentSessionFiles(home.path / ".claude/projects", advanced(now, Seconds(-86400)), true);
  const auto coldScan = [&] {
    const auto snapshot = ClaudeUsageScanner().scan(home.path, now, calendar);
    if (snapshot.today != UsageTotal{tree.tokens, static_cast<std::int64_t>(tree.replies)})
      throw std::runtime_error("the scan found something else than was written");
  };
  const double memory = peakMemory(coldScan);

  ClaudeUsageScanner warm;
  warm.scan(home.path, now, calendar);
  std::size_t found = 0;
  std::vector<Time> floor, cold, listing, idle;
  for (int i = 0; i < rounds; ++i) {
    floor.push_back(timeOf([&] { found += memmemPass(files); }));
    cold.push_back(timeOf(coldScan));
    listing.push_back(
        timeOf([&] { recentSessionFiles(home.path / ".claude/projects", advanced(now, Seconds(-86400)), true); }));
    idle.push_back(timeOf([&] { warm.scan(home.path, now, calendar); }));
  }
  if (found != tree.replies * static_cast<std::size_t>(rounds)) throw std::runtime_error("the floor missed some bytes");
  const Time floorTime = median(floor), coldTime = median(cold), listTime = median(listing), idleTime = median(idle);
  const double ratio = coldTime.wall / floorTime.wall;
  fmt::print("{:24}{:>10}{:>12}\n", "milliseconds", "wall", "processor");
  const auto line = [](std::string_view name, const Time& time) {
    fmt::print("{:24}{:>10.2f}{:>12.2f}", name, time.wall * 1e3, time.processor * 1e3);
  };
  line("floor, one memmem pass", floorTime);
  line("\ncold scan", coldTime);
  fmt::print("   ratio {:.2f} (processor {:.2f}), budget {:.2f}", ratio, coldTime.processor / floorTime.processor,
             coldBudget);
  line("\nlist and stat", listTime);
  line("\nnothing changed", idleTime);
  fmt::print("   ratio to list and stat {:.2f}\n", idleTime.wall / listTime.wall);
  fmt::print("peak memory of a cold scan {:.1f} MiB, budget {:.0f}\n", memory, memoryBudget);
  if (const auto seconds = peer(home.path))
    fmt::print("ccusage {:.0f} ms, ratio {:.2f}\n", *seconds * 1e3, *seconds / floorTime.wall);
  else
    fmt::print("ccusage is not installed\n");
  return ratio <= coldBudget && memory <= memoryBudget ? 0 : 1;
}

}  // namespace
}  // namespace ambrel

int main(int count, char** arguments) {
  std::uint64_t megabytes = 600;
  std::uint32_t seed = 1;
  int rounds = 7;
  for (int i = 1; i + 1 < count; i += 2) {
    const std::string_view name = arguments[i];
    const auto value = std::strtoul(arguments[i + 1], nullptr, 10);
    if (name == "--megabytes") megabytes = value;
    if (name == "--seed") seed = static_cast<std::uint32_t>(value);
    if (name == "--rounds") rounds = std::max(1, static_cast<int>(value));
  }
  try {
    return ambrel::run(megabytes, seed, rounds);
  } catch (const std::exception& error) {
    fmt::print(stderr, "UsageScan: {}\n", error.what());
    return 1;
  }
}
