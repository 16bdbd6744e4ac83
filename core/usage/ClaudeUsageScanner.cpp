#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <mutex>
#include <new>
#include <string>
#include <system_error>
#include <thread>
#include <unordered_map>

#include "core/agents/FolderListings.h"
#include "core/agents/SessionFiles.h"
#include "core/usage.h"
#include "core/usage/TokenSum.h"
#include "core/usage/UsageLog.h"

namespace ambrel {
namespace {

constexpr Seconds kept{86400};
// A second thread is started when there is at least this much to read.
constexpr std::uint64_t worthAThread = 4 << 20;

bool isEarlier(const TokenUsage& a, const TokenUsage& b) { return a.date < b.date; }

// Absent when the number has no positive counterpart.
std::optional<std::int64_t> magnitude(std::int64_t value) { return value >= 0 ? value : sumIfItFits(~value, 1); }

}  // namespace

struct ClaudeUsageScanner::Impl {
  // How a file was when it was last read. While size and date stay, there is no reason to open it again: what is
  // behind the offset is one unfinished line.
  struct Log {
    SessionFile file;
    std::uint64_t offset = 0;
  };
  struct Task {
    SessionFile file;
    std::uint64_t offset = 0;
    std::optional<UsageLogReader::Reading> reading{};

    std::uint64_t bytes() const { return file.size < offset ? file.size : file.size - offset; }
  };

  AgentFolders folders;
  std::mutex mutex;
  std::unordered_map<std::string, Log> logs;
  std::vector<TokenUsage> uses;  // in order of their dates
  FolderListings listings;

  std::vector<Task> changedLogs(const std::filesystem::path& root, Instant cutOff) {
    std::vector<Task> tasks;
    for (SessionFile& file : recentSessionFiles(root, cutOff, true, &listings)) {
      const auto known = logs.find(file.path);
      if (known == logs.end()) {
        tasks.push_back({std::move(file)});
      } else if (known->second.file.size != file.size || !known->second.file.hasSameDate(file)) {
        tasks.push_back({std::move(file), known->second.offset});
      }
    }
    return tasks;
  }

  static std::optional<UsageLogReader::Reading> readLog(UsageLogReader& reader, const Task& task) {
    try {
      return reader.read(task.file.path, task.offset);
    } catch (const std::bad_alloc&) {
      return std::nullopt;
    }
  }

  static void read(std::vector<Task>& tasks) {
    // The longest first, so that the threads end together.
    std::sort(tasks.begin(), tasks.end(), [](const Task& a, const Task& b) { return a.bytes() > b.bytes(); });
    std::uint64_t bytes = 0;
    for (const Task& task : tasks) bytes += task.bytes();

    std::mutex longLineTurn;
    std::atomic<std::size_t> next = 0;
    const auto work = [&] {
      UsageLogReader reader(longLineTurn);
      for (std::size_t i = next++; i < tasks.size(); i = next++) tasks[i].reading = readLog(reader, tasks[i]);
    };
    std::jthread helper;
    try {
      if (tasks.size() > 1 && bytes >= worthAThread) helper = std::jthread(work);
    } catch (const std::system_error&) {
      // No second thread could be started: one does all the work.
    }
    work();
  }

  void add(std::vector<Task>& tasks) {
    std::int64_t held = 0;
    for (const TokenUsage& use : uses) held = checkedSum(held, std::abs(use.tokens));
    const auto sorted = static_cast<std::ptrdiff_t>(uses.size());
    for (Task& task : tasks) {
      // A file that could not be read is tried again on the next pass.
      if (!task.reading) continue;
      for (const TokenUsage& use : task.reading->uses) addWithin(held, use);
      const std::string path = task.file.path;
      logs.insert_or_assign(path, Log{std::move(task.file), task.reading->offset});
      task.reading.reset();
    }
    std::sort(uses.begin() + sorted, uses.end(), isEarlier);
    std::inplace_merge(uses.begin(), uses.begin() + sorted, uses.end(), isEarlier);
  }

  // Passes over what would bring the sum of all that is held past a 64-bit number, so that no later sum can be.
  void addWithin(std::int64_t& held, const TokenUsage& use) {
    const auto size = magnitude(use.tokens);
    const auto sum = size ? sumIfItFits(held, *size) : std::nullopt;
    if (!sum) return;
    held = *sum;
    uses.push_back(use);
  }
};

ClaudeUsageScanner::ClaudeUsageScanner(AgentFolders folders) : impl_(std::make_unique<Impl>()) {
  impl_->folders = std::move(folders);
}
ClaudeUsageScanner::~ClaudeUsageScanner() = default;

ClaudeUsageSnapshot ClaudeUsageScanner::scan(const std::filesystem::path& home, Instant now, const Calendar& calendar) {
  const std::scoped_lock lock(impl_->mutex);
  const Instant cutOff = advanced(now, -kept);
  auto tasks = impl_->changedLogs(impl_->folders.claudeIn(home) / "projects", cutOff);
  if (!tasks.empty()) {
    Impl::read(tasks);
    impl_->add(tasks);
  }
  std::erase_if(impl_->uses, [&](const TokenUsage& use) { return use.date < cutOff; });

  ClaudeUsageSnapshot snapshot;
  const Instant today = calendar.startOfDay(now);
  for (const TokenUsage& use : impl_->uses) {
    if (use.date < today) continue;
    snapshot.today.tokens = checkedSum(snapshot.today.tokens, use.tokens);
    ++snapshot.today.replies;
  }
  snapshot.block = ClaudeUsage::activeBlock(impl_->uses, now, calendar);
  return snapshot;
}

}  // namespace ambrel
