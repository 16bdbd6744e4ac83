#pragma once
// How much of the user's AI plans is spent, as three kinds of local files tell it: Claude Code's conversation logs (an
// estimate, summed here), Codex's rollout logs (percentages that its service reported) and claude-status.json
// (percentages that Claude Code reported, saved by the hook of core/usage/ClaudeStatusLine.h).
//
// Nothing here fails: a missing folder, an unreadable file and a malformed line give less. Counts are checked: an
// addition that does not fit ends the program. What a log says never comes that far: a line whose counters do not add
// up to a 64-bit number, or that would take everything held past one, is passed over like a malformed line.

#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

#include "core/agents.h"
#include "core/base/Calendar.h"
#include "core/base/Instant.h"
#include "core/base/LineJSON.h"

namespace ambrel {

// One reply of the assistant.
struct TokenUsage {
  Instant date;
  std::int64_t tokens = 0;  // input + output + written to the cache; what is read from the cache does not count

  friend bool operator==(const TokenUsage&, const TokenUsage&) = default;
};

struct UsageTotal {
  std::int64_t tokens = 0;
  std::int64_t replies = 0;

  friend bool operator==(const UsageTotal&, const UsageTotal&) = default;
};

// One usage window of Claude. It is derived from the replies alone: the first one opens it.
struct UsageBlock {
  Instant start;  // on the hour of the local calendar
  Instant end;    // five hours later
  std::int64_t tokens = 0;
  std::int64_t replies = 0;

  friend bool operator==(const UsageBlock&, const UsageBlock&) = default;
};

struct ClaudeUsageSnapshot {
  UsageTotal today;                 // since the local midnight
  std::optional<UsageBlock> block;  // absent when no block is open

  friend bool operator==(const ClaudeUsageSnapshot&, const ClaudeUsageSnapshot&) = default;
};

namespace ClaudeUsage {

inline constexpr Seconds blockLength{18000};

// One decoded line of a log; absent for every line but an assistant's reply with a usage object and a date.
// A reply that is on two lines counts twice.
std::optional<TokenUsage> parseLine(const LineObject& line);

// The block that is open at `now`; a reply dated later than `now` can open it, but is not counted.
std::optional<UsageBlock> activeBlock(std::vector<TokenUsage> uses, Instant now, const Calendar& calendar);

}  // namespace ClaudeUsage

// Reads what was appended to the logs below ~/.claude/projects since the last scan, and holds the replies of the last
// 24 hours. Overlapping scans wait for each other. A scan that finds nothing changed opens no file; one that does uses
// up to two threads, and memory that does not grow with the logs (replies: 16 bytes each).
class ClaudeUsageScanner {
 public:
  explicit ClaudeUsageScanner(AgentFolders folders = {});
  ~ClaudeUsageScanner();
  ClaudeUsageScanner(const ClaudeUsageScanner&) = delete;
  ClaudeUsageScanner& operator=(const ClaudeUsageScanner&) = delete;

  ClaudeUsageSnapshot scan(const std::filesystem::path& home, Instant now, const Calendar& calendar);

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

namespace CodexUsage {

struct Window {
  double usedPercent = 0;  // as reported, not clamped
  std::int64_t windowMinutes = 0;
  Instant resetsAt;

  friend bool operator==(const Window&, const Window&) = default;
};

struct Limits {
  Window session;  // what Codex calls primary; usually five hours, but some plans report only the week, and here
  std::optional<Window> week;
  Instant asOf;  // the date of the log entry

  friend bool operator==(const Limits&, const Limits&) = default;
};

std::optional<Limits> parseLine(const LineObject& line);

// The newest entry in the last 512 KiB of the newest log of the last 7 days that holds one there.
std::optional<Limits> latest(const std::filesystem::path& home, Instant now);

// The same, remembering what each log held as long as its size and date stay.
class Reader {
 public:
  explicit Reader(AgentFolders folders = {});
  ~Reader();
  Reader(const Reader&) = delete;
  Reader& operator=(const Reader&) = delete;

  std::optional<Limits> latest(const std::filesystem::path& home, Instant now);

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace CodexUsage

namespace ClaudeLimits {

// At least one of the two windows is there.
struct Limits {
  std::optional<CodexUsage::Window> session;  // five hours
  std::optional<CodexUsage::Window> week;
  Instant asOf;

  friend bool operator==(const Limits&, const Limits&) = default;
};

// The object that Claude Code hands to a status line.
std::optional<Limits> parse(const LineObject& object, Instant asOf);
// As of the file's modification date.
std::optional<Limits> read(const std::filesystem::path& file);

}  // namespace ClaudeLimits

struct AIUsage {
  ClaudeUsageSnapshot claude;
  std::optional<CodexUsage::Limits> codex;
  std::optional<ClaudeLimits::Limits> claudeLimits;  // absent too while the status-line hook is not connected

  friend bool operator==(const AIUsage&, const AIUsage&) = default;
};

// All three sources, one pass after another. Keep it between passes: one that finds nothing changed opens no file.
class AIUsageReader {
 public:
  // dataFolder: where the program keeps its own files.
  AIUsageReader(std::filesystem::path home, const std::filesystem::path& dataFolder, const AgentFolders& folders = {});
  ~AIUsageReader();
  AIUsageReader(const AIUsageReader&) = delete;
  AIUsageReader& operator=(const AIUsageReader&) = delete;

  // By one caller at a time, on any thread.
  AIUsage read(Instant now, const Calendar& calendar);

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace ambrel
