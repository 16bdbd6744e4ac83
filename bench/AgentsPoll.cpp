// What a poll of the agents costs when nothing has changed, beside listing and stating the same files: with the
// readers alone, and with everything that tells whether an agent waits.
//
//   AgentsPoll [--files 500] [--rounds 300]
//
// Floor and poll take turns; the medians of their processor times are compared, which a busy machine disturbs least.
// Ends with 1 when the budget is missed.

#include <algorithm>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <fmt/format.h>
#include <functional>
#include <string>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>
#include <vector>

#include "core/agents.h"
#include "core/agents/attention/AgentPoll.h"
#include "core/agents/attention/Processes.h"
#include "core/base/Files.h"

namespace ambrel {
namespace {

constexpr double budget = 1.5, attentiveBudget = 2.0;
const Instant now = instantFromUnixSeconds(1'795'262'400);

double processorSeconds() {
  timespec time = {};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

double secondsFor(const std::function<void()>& work) {
  const double before = processorSeconds();
  work();
  return processorSeconds() - before;
}

double median(std::vector<double> times) {
  std::sort(times.begin(), times.end());
  return times[times.size() / 2];
}

class TemporaryHome {
 public:
  TemporaryHome() {
    std::string name = (std::filesystem::temp_directory_path() / "agents-poll-XXXXXX").string();
    if (!mkdtemp(name.data())) throw std::runtime_error("cannot make a folder");
    path = name;
  }
  TemporaryHome(const TemporaryHome&) = delete;
  TemporaryHome& operator=(const TemporaryHome&) = delete;
  ~TemporaryHome() {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
  }
  std::filesystem::path path;
};

void writeLog(const std::filesystem::path& path, const std::string& bytes, int index) {
  makeFolders(path.parent_path());
  writeAtomically(path, bytes);
  // One every 40 seconds, back from now.
  const timespec modified{.tv_sec = static_cast<time_t>(unixSeconds(now)) - 40 * index, .tv_nsec = 412'000'118};
  const timespec times[2] = {modified, modified};
  if (utimensat(AT_FDCWD, path.c_str(), times, 0) != 0) throw FileError("cannot date", path, errno);
}

// Four of five logs are Claude's, twenty a project; the others are Codex's of two days.
void writeHome(const std::filesystem::path& home, int files) {
  for (int i = 0; i < files; ++i) {
    const std::string name = fmt::format("0b54c9de-6f0a-4f6e-9f2f-{:012}", i);
    if (i % 5 != 0)
      writeLog(home / fmt::format(".claude/projects/-home-mira-code-project-{}/{}.jsonl", i / 25, name),
               fmt::format("{{\"type\":\"user\",\"cwd\":\"/home/mira/code/project-{}\"}}\n", i / 25), i % 500);
    else
      writeLog(home / fmt::format(".codex/sessions/2026/11/{}/rollout-2026-11-21T11-00-00-{}.jsonl", 20 + i % 2, name),
               "{\"type\":\"session_meta\",\"payload\":{\"cwd\":\"/home/mira/code/weather\"}}\n", i % 500);
  }
}

// A dozen processes of the tool, each with its conversation.
void writeRegistry(const std::filesystem::path& home) {
  makeFolders(home / ".claude/sessions");
  const std::string start(processStart(readFile("/proc/self/stat").value_or("")).value_or("0"));
  for (int i = 1; i <= 12; ++i)
    writeAtomically(home / fmt::format(".claude/sessions/{}.json", i),
                    fmt::format("{{\"pid\":{},\"sessionId\":\"0b54c9de-6f0a-4f6e-9f2f-{:012}\",\"procStart\":\"{}\","
                                "\"status\":\"busy\",\"statusUpdatedAt\":1795262000000}}",
                                getpid(), i, start));
}

// The bare work: every folder listed, every log asked for its date.
std::int64_t listAndStat(int parent, const char* name, int& count) {
  const int folder = openat(parent, name, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (folder < 0) return 0;
  DIR* listing = fdopendir(folder);
  std::int64_t newest = 0;
  while (const dirent* entry = readdir(listing)) {
    if (entry->d_name[0] == '.') continue;
    if (entry->d_type == DT_DIR) {
      newest = std::max(newest, listAndStat(folder, entry->d_name, count));
      continue;
    }
    struct stat info;
    if (fstatat(folder, entry->d_name, &info, AT_SYMLINK_NOFOLLOW) != 0) continue;
    newest = std::max<std::int64_t>(newest, info.st_mtim.tv_sec);
    ++count;
  }
  closedir(listing);
  return newest;
}

int floorPass(const std::filesystem::path& home) {
  int count = 0;
  listAndStat(AT_FDCWD, (home / ".claude/projects").c_str(), count);
  listAndStat(AT_FDCWD, (home / ".codex/sessions").c_str(), count);
  return count;
}

int run(int files, int rounds) {
  const TemporaryHome home;
  writeHome(home.path, files);
  const AgentReaders readers = makeAgentReaders(), all = makeAttentiveReaders(home.path / "data", {});
  writeRegistry(home.path);
  const auto attentivePoll = [&] { return static_cast<int>(mergedSessions(all, home.path, now).size()); };
  const auto poll = [&] { return static_cast<int>(mergedSessions(readers, home.path, now).size()); };
  const double first = secondsFor([&] { poll(); });
  if (floorPass(home.path) != files || poll() != files) throw std::runtime_error("the tree is not seen whole");

  if (attentivePoll() != files) throw std::runtime_error("the tree is not seen whole");
  std::vector<double> floors, polls, attentive;
  for (int round = 0; round < rounds; ++round) {
    floors.push_back(secondsFor([&] { floorPass(home.path); }));
    polls.push_back(secondsFor([&] { poll(); }));
    attentive.push_back(secondsFor([&] { attentivePoll(); }));
  }
  const double floor = median(floors), unchanged = median(polls);
  const double ratio = unchanged / floor;
  fmt::print("{} files: list and stat {:.0f} us, poll {:.0f} us (the first one, which parses: {:.0f} us)\n", files,
             floor * 1e6, unchanged * 1e6, first * 1e6);
  fmt::print("agents poll, nothing changed: ratio {:.2f}, budget {:.1f}: {}\n", ratio, budget,
             ratio <= budget ? "kept" : "MISSED");
  const double attentiveRatio = median(attentive) / floor;
  fmt::print("with registry and hooks: ratio {:.2f}, budget {:.1f}: {}\n", attentiveRatio, attentiveBudget,
             attentiveRatio <= attentiveBudget ? "kept" : "MISSED");
  return ratio <= budget && attentiveRatio <= attentiveBudget ? 0 : 1;
}

}  // namespace
}  // namespace ambrel

int main(int count, char** words) {
  int files = 500, rounds = 300;
  for (int i = 1; i + 1 < count; i += 2) {
    const std::string_view option = words[i];
    if (option == "--files") files = std::max(1, std::atoi(words[i + 1]));
    if (option == "--rounds") rounds = std::max(1, std::atoi(words[i + 1]));
  }
  try {
    return ambrel::run(files, rounds);
  } catch (const std::exception& error) {
    fmt::print(stderr, "AgentsPoll: {}\n", error.what());
    return 2;
  }
}
