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

// Its start does not fit our clock, and it was written while we ran already.
bool isOfAnotherComputer(const LiveRecord& record, const std::filesystem::path& processes) {
  constexpr Seconds usualDelay{120};
  const auto boot = bootTime(processes);
  const auto start = startAfterBoot(record.processStart);
  if (!boot || !start || !record.startedAt) return false;
  const Seconds delay = secondsBetween(advanced(*boot, *start), *record.startedAt);
  const Instant written =
      std::max({*record.startedAt, record.statusAt.value_or(Instant{}), record.updatedAt.value_or(Instant{})});
  return std::chrono::abs(delay) > usualDelay && written > *boot;
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

// A container that shares the folder has processes of its own, but the kernel and its clock are ours.
void LiveRegistry::find(LiveRecord& record, const std::filesystem::path& processes) {
  record.isAlive = isSameProcess(processes, record.pid, record.processStart);
  record.process = record.pid;
  if (record.isAlive) return;
  const std::string key = std::to_string(record.pid) + " " + record.processStart;
  const auto former = formerElsewhere_.find(key);
  const auto runs = [&](const Elsewhere& each) {
    return each.contained && isSameProcess(processes, *each.contained, record.processStart);
  };
  const bool isKnown = former != formerElsewhere_.end() && (former->second.record == record || runs(former->second));
  Elsewhere& found = elsewhere_[key];
  found = isKnown ? former->second
                  : Elsewhere{record, containedProcess(processes, record.pid, record.processStart),
                              isOfAnotherComputer(record, processes)};
  if (runs(found)) {
    record.place = AgentPlace::container;
    record.process = *found.contained;
  } else {
    if (found.isOfAnotherComputer) record.place = AgentPlace::otherComputer;
    record.process = 0;
  }
  record.isAlive = record.place != AgentPlace::here;
}

std::vector<LiveRecord> LiveRegistry::records(const std::filesystem::path& home,
                                              const std::filesystem::path& processes) {
  std::vector<LiveRecord> records;
  std::map<std::string, LiveRecord> seen;
  formerElsewhere_ = std::move(elsewhere_);
  elsewhere_.clear();
  LineParser parser;
  std::error_code error;
  std::filesystem::directory_iterator entry(folders_.claudeIn(home) / "sessions", error), end;
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
    find(*record, processes);
    records.push_back(std::move(*record));
  }
  last_ = std::move(seen);
  return records;
}

}  // namespace ambrel
