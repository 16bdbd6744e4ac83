#pragma once
// What a piece of work costs: wall clock, processor time and peak memory, of this process or of another program.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace ambrel::bench {

struct Cost {
  double wall = 0, processor = 0;  // seconds; processor: of all threads
  double peak = 0;                 // MiB; 0 when it was not asked for
  friend bool operator<(const Cost& a, const Cost& b) { return a.wall < b.wall; }
};

inline double seconds(const rusage& usage) {
  const auto one = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  return one(usage.ru_utime) + one(usage.ru_stime);
}

inline Cost costOf(const std::function<void()>& work) {
  rusage before = {}, after = {};
  getrusage(RUSAGE_SELF, &before);
  const auto start = std::chrono::steady_clock::now();
  work();
  const double wall = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  getrusage(RUSAGE_SELF, &after);
  return {.wall = wall, .processor = seconds(after) - seconds(before)};
}

// Runs a program without its output and prints its cost; the process that costOfProgram starts.
//
// A child's peak memory begins at what its parent holds when it forks, so the parent must be a small one.
inline int printCost(char** command) {
  const auto start = std::chrono::steady_clock::now();
  const pid_t child = fork();
  if (child == 0) {
    const int null = open("/dev/null", O_RDWR);
    for (int fd = 0; fd < 3; ++fd) dup2(null, fd);
    // Some programs leave scripts where they are started.
    if (chdir(std::filesystem::temp_directory_path().c_str()) == 0) execvp(command[0], command);
    _exit(127);
  }
  rusage usage = {};
  int status = 0;
  if (child < 0 || wait4(child, &status, 0, &usage) != child || status != 0) return 1;
  const double wall = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  return std::printf("%.9f %.9f %.3f\n", wall, seconds(usage), static_cast<double>(usage.ru_maxrss) / 1024) > 0 ? 0 : 1;
}

// Absent when the program is not installed or fails. `main` hands "--cost PROGRAM..." to printCost.
inline std::optional<Cost> costOfProgram(const std::vector<std::string>& command) {
  std::vector<char*> words{const_cast<char*>("/proc/self/exe"), const_cast<char*>("--cost")};
  for (const std::string& word : command) words.push_back(const_cast<char*>(word.c_str()));
  words.push_back(nullptr);
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) return std::nullopt;
  const pid_t child = fork();
  if (child == 0) {
    dup2(ends[1], 1);
    execv(words[0], words.data());
    _exit(127);
  }
  close(ends[1]);
  char text[128] = {};
  const ssize_t length = read(ends[0], text, sizeof text - 1);
  close(ends[0]);
  int status = 0;
  waitpid(child, &status, 0);
  Cost cost;
  if (status != 0 || length <= 0 || std::sscanf(text, "%lf %lf %lf", &cost.wall, &cost.processor, &cost.peak) != 3)
    return std::nullopt;
  return cost;
}

inline Cost median(std::vector<Cost> costs) {
  std::sort(costs.begin(), costs.end());
  return costs[costs.size() / 2];
}

}  // namespace ambrel::bench
