// What one round of all the computer's readings costs, beside reading the same files without looking into them, and
// beside one refresh of top and btop.
//
//   Telemetry [--rounds 200]
//
// Times are processor time, medians for our own, and for peers the difference between a long and a short run divided by
// the refreshes in between. System calls are counted by strace in runs of their own, in the same way.
// "--ticks N" and "--floor N" do nothing but that many rounds.

#include <dirent.h>
#include <fmt/format.h>
#include <fstream>
#include <poll.h>
#include <pty.h>
#include <signal.h>
#include <sstream>
#include <time.h>

#include "bench/ProcessCost.h"
#include "platform/linux/ProcReadings.h"
#include "platform/linux/telemetry/LinuxTelemetry.h"

namespace ambrel::bench {
namespace {

constexpr double budget = 2.0;

// As the bar does it: the tick of two seconds, and every reading that a tile can ask for. A sampler asks for most of
// them far less often than the tick comes.
class Tick {
 public:
  Tick() : telemetry_(LinuxTelemetry::runningSystem()) {}
  // Those of the two seconds.
  void always() {
    readings_.processor();
    readings_.memory();
    readings_.network();
    readings_.sinceBoot();
  }
  void everything() {
    always();
    readings_.startUpVolume();
    telemetry_.gpu();
    telemetry_.pressure();
    telemetry_.diskCounters();
    snapshot_ = telemetry_.processes();
    telemetry_.batteryHealth();
    telemetry_.power();
    telemetry_.thermal();
    telemetry_.wifi();
    telemetry_.volumes();
    telemetry_.addresses();
  }
  void processes() { snapshot_ = telemetry_.processes(); }
  std::size_t processCount() const { return snapshot_ ? snapshot_->samples.size() : 0; }

 private:
  ProcReadings readings_;
  LinuxTelemetry telemetry_;
  std::optional<ProcessSnapshot> snapshot_;
};

// The same bytes of the kernel's, and nothing done with them.
void floorTick() {
  static char buffer[16384];
  const auto take = [](int folder, const char* path) {
    const int file = openat(folder, path, O_RDONLY | O_CLOEXEC);
    if (file < 0) return;
    while (read(file, buffer, sizeof buffer) == sizeof buffer) {
    }
    close(file);
  };
  for (const char* path : {"/proc/stat", "/proc/meminfo", "/proc/net/dev", "/proc/pressure/memory", "/proc/diskstats",
                           "/proc/self/mountinfo"})
    take(AT_FDCWD, path);
  DIR* folder = opendir("/proc");
  if (!folder) return;
  while (const dirent* entry = readdir(folder)) {
    if (entry->d_name[0] < '1' || entry->d_name[0] > '9') continue;
    char path[300];
    std::snprintf(path, sizeof path, "%s/stat", entry->d_name);
    take(dirfd(folder), path);
  }
  closedir(folder);
}

double medianMicroseconds(int rounds, const std::function<void()>& work) {
  const auto processor = [] {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) / 1e3;
  };
  std::vector<double> times;
  for (int round = 0; round < rounds; ++round) {
    const double before = processor();
    work();
    times.push_back(processor() - before);
  }
  std::sort(times.begin(), times.end());
  return times[times.size() / 2];
}

// A program on a terminal that nobody sees, ended by the key `q` after so many seconds; 0 seconds: until it ends by
// itself.
Cost onTerminal(const std::vector<std::string>& command, double seconds, const std::string& home) {
  int terminal = -1;
  winsize size{};
  size.ws_row = 50;
  size.ws_col = 180;
  const pid_t child = forkpty(&terminal, nullptr, nullptr, &size);
  if (child < 0) throw std::runtime_error("no terminal");
  if (child == 0) {
    setenv("HOME", home.c_str(), 1);
    setenv("XDG_CONFIG_HOME", (home + "/.config").c_str(), 1);
    setenv("TERM", "xterm-256color", 1);
    setenv("LC_ALL", "C.UTF-8", 1);
    std::vector<char*> words;
    for (const std::string& word : command) words.push_back(const_cast<char*>(word.c_str()));
    words.push_back(nullptr);
    execvp(words[0], words.data());
    _exit(127);
  }
  const auto start = std::chrono::steady_clock::now();
  bool isAskedToEnd = seconds == 0;
  char buffer[65536];
  for (;;) {
    const double now = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    if (!isAskedToEnd && now >= seconds) {
      isAskedToEnd = true;
      if (write(terminal, "q", 1) != 1) kill(child, SIGTERM);
    }
    if (now > seconds + 60) kill(child, SIGKILL);
    pollfd ready{.fd = terminal, .events = POLLIN, .revents = 0};
    if (poll(&ready, 1, 50) > 0 && read(terminal, buffer, sizeof buffer) <= 0) break;
  }
  close(terminal);
  rusage usage{};
  int status = 0;
  if (wait4(child, &status, 0, &usage) != child || status != 0) throw std::runtime_error("it failed");
  return {.processor = bench::seconds(usage)};
}

// What one refresh costs.
struct Refresh {
  double microseconds = 0;
  double calls = 0;  // 0: not counted
};

class Peers {
 public:
  Peers() {
    std::string name = (std::filesystem::temp_directory_path() / "telemetry-XXXXXX").string();
    if (!mkdtemp(name.data())) throw std::runtime_error("cannot make a folder");
    home_ = name;
    std::filesystem::create_directories(home_ / ".config/btop");
    std::ofstream(home_ / ".config/btop/btop.conf") << "update_ms = 500\n";
  }
  ~Peers() {
    std::error_code ignored;
    std::filesystem::remove_all(home_, ignored);
  }

  // Calls of a run of ours; absent without strace.
  std::optional<double> callsPerRound(const char* option) const {
    const std::string self = std::filesystem::read_symlink("/proc/self/exe");
    const auto calls = [&](const char* rounds) {
      return counted([&](std::vector<std::string> words) {
        words.insert(words.end(), {self, option, rounds});
        onTerminal(words, 0, home_);
      });
    };
    const auto few = calls("20"), many = calls("120");
    return few && many ? std::optional((*many - *few) / 100) : std::nullopt;
  }
  std::optional<Refresh> top() const {
    return refresh(40, [&](std::vector<std::string> words, bool isLong) {
      words.insert(words.end(), {"top", "-b", "-d", "0.1", "-n", isLong ? "41" : "1"});
      return onTerminal(words, 0, home_);
    });
  }
  std::optional<Refresh> btop() const {
    return refresh(20, [&](std::vector<std::string> words, bool isLong) {
      words.push_back("btop");
      return onTerminal(words, isLong ? 12 : 2, home_);
    });
  }

 private:
  template <typename Run>
  std::optional<double> counted(Run run) const {
    const std::string table = home_ / "calls";
    try {
      run({"strace", "-f", "-c", "-U", "calls,name", "-o", table});
    } catch (const std::exception&) {
      return std::nullopt;
    }
    std::ifstream file(table);
    std::string line;
    double calls = 0;
    while (std::getline(file, line)) {
      std::istringstream words(line);
      double count = 0;
      std::string name;
      if (words >> count >> name && name == "total") calls = count;
    }
    return calls > 0 ? std::optional(calls) : std::nullopt;
  }
  template <typename Run>
  std::optional<Refresh> refresh(int between, Run run) const {
    try {
      const double once = run({}, false).processor, often = run({}, true).processor;
      Refresh cost{.microseconds = (often - once) / between * 1e6};
      const auto few = counted([&](std::vector<std::string> words) { run(std::move(words), false); });
      const auto many = counted([&](std::vector<std::string> words) { run(std::move(words), true); });
      if (few && many) cost.calls = (*many - *few) / between;
      return cost;
    } catch (const std::exception&) {
      return std::nullopt;
    }
  }

  std::filesystem::path home_;
};

std::string callText(std::optional<double> calls) {
  return calls && *calls > 0 ? fmt::format("{:.0f} system calls", *calls) : std::string("system calls not counted");
}

int run(int rounds) {
  Tick tick;
  // The first round describes sensors and primes counters.
  tick.everything();
  const Peers peers;
  const double floor = medianMicroseconds(rounds, floorTick);
  const double everything = medianMicroseconds(rounds, [&] { tick.everything(); });
  const double always = medianMicroseconds(rounds, [&] { tick.always(); });
  const double processes = medianMicroseconds(rounds, [&] { tick.processes(); });
  const auto floorCalls = peers.callsPerRound("--floor"), ownCalls = peers.callsPerRound("--ticks");
  fmt::print("{} processes\n", tick.processCount());
  fmt::print("the same files, only read: {:.0f} us, {}\n", floor, callText(floorCalls));
  fmt::print("every reading once:        {:.0f} us, {} (the tick alone {:.0f} us, the processes {:.0f} us)\n",
             everything, callText(ownCalls), always, processes);
  const auto peer = [&](const char* name, const std::optional<Refresh>& cost) {
    if (!cost) return fmt::print("a refresh of {}: not here\n", name);
    fmt::print("a refresh of {}: {:.0f} us, {}; {:.1f} times ours\n", name, cost->microseconds, callText(cost->calls),
               cost->microseconds / everything);
  };
  peer("top", peers.top());
  peer("btop", peers.btop());
  const double ratio = everything / floor;
  fmt::print("every reading once: ratio {:.2f}, budget {:.1f}: {}\n", ratio, budget,
             ratio <= budget ? "kept" : "MISSED");
  return ratio <= budget ? 0 : 1;
}

}  // namespace
}  // namespace ambrel::bench

int main(int count, char** words) {
  using namespace ambrel::bench;
  int rounds = 200;
  for (int i = 1; i + 1 < count; i += 2) {
    const std::string_view option = words[i];
    const int number = std::max(1, std::atoi(words[i + 1]));
    if (option == "--rounds") rounds = number;
    if (option == "--floor") {
      for (int round = 0; round < number; ++round) floorTick();
      return 0;
    }
    if (option == "--ticks") {
      Tick tick;
      for (int round = 0; round < number; ++round) tick.everything();
      return 0;
    }
  }
  try {
    return run(rounds);
  } catch (const std::exception& error) {
    fmt::print(stderr, "Telemetry: {}\n", error.what());
    return 2;
  }
}
