// What programs cost while nothing happens: starts them together, lets them settle, and measures each with its
// children for a while. The first is the floor; the rest are printed as ratios to it.
//
//   idle_cost [--seconds N] [--settle N] [--budget NAME PROCESSOR WAKES MEMORY] NAME=COMMAND...
//
// COMMAND is split at blanks and started without a shell. The budget of a program is the ratio of its processor time,
// its wake-ups a second and the ratio of its memory; it ends with 1 when one of them is missed.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <fstream>
#include <map>
#include <optional>
#include <signal.h>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

struct Cost {
  double cpuSeconds = 0;
  double wakeUps = 0;
  double proportionalKiB = 0;
};

struct Program {
  std::string name;
  std::vector<std::string> words;
  pid_t pid = -1;
};

std::vector<int> numbersIn(const std::string& folder) {
  std::vector<int> numbers;
  if (DIR* dir = opendir(folder.c_str())) {
    while (const dirent* entry = readdir(dir))
      if (const int number = std::atoi(entry->d_name); number > 0) numbers.push_back(number);
    closedir(dir);
  }
  return numbers;
}

std::vector<int> family(int root) {
  std::multimap<int, int> children;
  for (const int pid : numbersIn("/proc")) {
    std::ifstream file("/proc/" + std::to_string(pid) + "/stat");
    std::string line;
    std::getline(file, line);
    const auto close = line.rfind(')');
    if (close == std::string::npos) continue;
    std::istringstream rest(line.substr(close + 1));
    char state = 0;
    int parent = 0;
    rest >> state >> parent;
    children.emplace(parent, pid);
  }
  std::vector<int> all{root};
  for (std::size_t i = 0; i < all.size(); ++i)
    for (auto [child, end] = children.equal_range(all[i]); child != end; ++child) all.push_back(child->second);
  return all;
}

double field(const std::string& file, const std::string& key) {
  std::ifstream in(file);
  for (std::string line; std::getline(in, line);)
    if (line.starts_with(key)) return std::atof(line.c_str() + key.size());
  return 0;
}

Cost measured(int root) {
  Cost cost;
  for (const int pid : family(root)) {
    const std::string folder = "/proc/" + std::to_string(pid);
    for (const int task : numbersIn(folder + "/task")) {
      const std::string thread = folder + "/task/" + std::to_string(task);
      double ran = 0;
      std::ifstream(thread + "/schedstat") >> ran;
      cost.cpuSeconds += ran / 1e9;
      cost.wakeUps += field(thread + "/status", "voluntary_ctxt_switches:");
    }
    cost.proportionalKiB += field(folder + "/smaps_rollup", "Pss:");
  }
  return cost;
}

struct Budget {
  std::string name;
  double processorRatio = 0, wakeUpsPerSecond = 0, memoryRatio = 0;

  // Says what was missed.
  bool isKept(const Cost& cost, const Cost& floor, int seconds) const {
    bool kept = true;
    const auto check = [&](const char* what, double measured, double budget) {
      if (measured <= budget) return;
      kept = false;
      std::printf("%s: %s %.2f, budget %.2f: missed\n", name.c_str(), what, measured, budget);
    };
    check("processor ratio", cost.cpuSeconds / floor.cpuSeconds, processorRatio);
    check("wakes/s", cost.wakeUps / seconds, wakeUpsPerSecond);
    check("memory ratio", cost.proportionalKiB / floor.proportionalKiB, memoryRatio);
    return kept;
  }
};

pid_t started(const Program& program) {
  const pid_t pid = fork();
  if (pid != 0) return pid;
  setpgid(0, 0);
  const int nowhere = open("/dev/null", O_RDWR);
  dup2(nowhere, 0);
  dup2(nowhere, 1);
  dup2(nowhere, 2);
  std::vector<char*> arguments;
  for (const std::string& word : program.words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  execvp(arguments[0], arguments.data());
  _exit(127);
}

}  // namespace

int main(int count, char** words) {
  int seconds = 60, settle = 8;
  Budget budget;
  std::vector<Program> programs;
  for (int i = 1; i < count; ++i) {
    const std::string word = words[i];
    if (word == "--seconds" && i + 1 < count) {
      seconds = std::atoi(words[++i]);
    } else if (word == "--settle" && i + 1 < count) {
      settle = std::atoi(words[++i]);
    } else if (word == "--budget" && i + 4 < count) {
      budget = {words[i + 1], std::atof(words[i + 2]), std::atof(words[i + 3]), std::atof(words[i + 4])};
      i += 4;
    } else {
      Program program{word.substr(0, word.find('=')), {}, -1};
      std::istringstream rest(word.substr(std::min(word.size(), word.find('=') + 1)));
      for (std::string piece; rest >> piece;) program.words.push_back(piece);
      if (!program.words.empty()) programs.push_back(program);
    }
  }
  if (programs.empty())
    return std::fputs("usage: idle_cost [--seconds N] [--settle N] [--budget NAME CPU WAKES PSS] NAME=COMMAND...\n",
                      stderr),
           2;

  for (Program& program : programs) program.pid = started(program);
  std::this_thread::sleep_for(std::chrono::seconds(settle));
  std::vector<Cost> before;
  for (const Program& program : programs) before.push_back(measured(program.pid));
  std::this_thread::sleep_for(std::chrono::seconds(seconds));

  std::printf("%-12s %10s %8s %10s %8s %9s %8s\n", "program", "CPU ms", "ratio", "wakes/s", "ratio", "PSS MiB",
              "ratio");
  Cost floor;
  std::optional<Cost> judged;
  for (std::size_t i = 0; i < programs.size(); ++i) {
    if (waitpid(programs[i].pid, nullptr, WNOHANG) != 0) {
      std::printf("%-12s ended by itself; not measured\n", programs[i].name.c_str());
      continue;
    }
    Cost cost = measured(programs[i].pid);
    cost.cpuSeconds -= before[i].cpuSeconds;
    cost.wakeUps -= before[i].wakeUps;
    if (i == 0) floor = cost;
    if (programs[i].name == budget.name) judged = cost;
    std::printf("%-12s %10.1f %8.2f %10.2f %8.2f %9.1f %8.2f\n", programs[i].name.c_str(), cost.cpuSeconds * 1000,
                cost.cpuSeconds / floor.cpuSeconds, cost.wakeUps / seconds, cost.wakeUps / floor.wakeUps,
                cost.proportionalKiB / 1024, cost.proportionalKiB / floor.proportionalKiB);
  }
  for (const Program& program : programs) kill(-program.pid, SIGTERM);
  std::this_thread::sleep_for(std::chrono::milliseconds(300));
  for (const Program& program : programs) kill(-program.pid, SIGKILL);
  return budget.name.empty() || (judged && budget.isKept(*judged, floor, seconds)) ? 0 : 1;
}
