#include "core/agents/attention/LiveRegistry.h"

#include <algorithm>

#include "core/agents/attention/AskedText.h"
#include "core/agents/attention/Processes.h"

namespace ambrel {
namespace {

constexpr std::uint64_t largestRecord = 64 << 10;
constexpr std::size_t mostRecords = 1000;

LiveRecord::Status statusNamed(std::string_view name) {
  using enum LiveRecord::Status;
  if (name == "idle") return idle;
  if (name == "busy") return busy;
  if (name == "waiting") return waiting;
  if (name == "shell") return shell;
  return unknown;
}

std::optional<Instant> milliseconds(const LineObject& record, std::string_view key) {
  const auto value = record.integer(key);
  return value ? std::optional(instantFromUnixMilliseconds(*value)) : std::nullopt;
}

// "4711.json"; files with other names are of earlier versions.
bool isRecordName(std::string_view name) {
  constexpr std::string_view suffix = ".json";
  if (name.size() <= suffix.size() || !name.ends_with(suffix)) return false;
  name.remove_suffix(suffix.size());
  return name.find_first_not_of("0123456789") == name.npos;
}

}  // namespace

std::optional<LiveRecord> liveRecord(std::string_view text, LineParser& parser) {
  const auto json = parser.parse(text);
  if (!json) return std::nullopt;
  const auto session = json->text("sessionId");
  const auto pid = json->integer("pid");
  if (!session || session->empty() || !pid || *pid <= 0 || *pid > 1 << 30) return std::nullopt;
  LiveRecord record;
  record.sessionId = *session;
  record.pid = static_cast<int>(*pid);
  if (const auto start = json->text("procStart"))
    record.processStart = *start;
  else if (const auto number = json->integer("procStart"))
    record.processStart = std::to_string(*number);
  if (record.processStart.empty()) return std::nullopt;
  record.status = statusNamed(json->text("status").value_or(""));
  record.statusAt = milliseconds(*json, "statusUpdatedAt");
  record.updatedAt = milliseconds(*json, "updatedAt");
  record.startedAt = milliseconds(*json, "startedAt");
  record.waitingFor = askedLine(json->text("waitingFor").value_or(""));
  return record;
}

std::vector<LiveRecord> LiveRegistry::records(const std::filesystem::path& home,
                                              const std::filesystem::path& processes) {
  std::vector<LiveRecord> records;
  std::map<std::string, LiveRecord> seen;
  LineParser parser;
  std::error_code error;
  std::filesystem::directory_iterator entry(home / ".claude/sessions", error), end;
  for (; !error && entry != end && records.size() < mostRecords; entry.increment(error)) {
    const std::filesystem::path path = entry->path();
    if (!isRecordName(path.filename().native())) continue;
    const auto status = fileStatus(path);
    if (!status || !status->isRegular) continue;
    auto record = files_.get(path.native(), *status, [&]() -> std::optional<LiveRecord> {
      const auto text = readFile(path, largestRecord);
      return text ? liveRecord(*text, parser) : std::nullopt;
    });
    if (!record)
      if (const auto known = last_.find(path.native()); known != last_.end()) record = known->second;
    if (!record) continue;
    seen.emplace(path.native(), *record);
    record->isAlive = isSameProcess(processes, record->pid, record->processStart);
    records.push_back(std::move(*record));
  }
  last_ = std::move(seen);
  return records;
}

}  // namespace ambrel
