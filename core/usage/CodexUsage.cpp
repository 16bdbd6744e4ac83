#include <algorithm>
#include <map>
#include <string>

#include "core/agents/SessionFiles.h"
#include "core/usage.h"

namespace ambrel::CodexUsage {
namespace {

constexpr Seconds recentLogs{604800};
constexpr std::size_t tailBytes = 512 << 10;

std::optional<Window> window(const LineObject& limits, std::string_view key) {
  const auto object = limits.object(key);
  if (!object) return std::nullopt;
  const auto percent = object->number("used_percent");
  const auto minutes = object->integer("window_minutes");
  const auto reset = object->number("resets_at");
  if (!percent || !minutes || !reset) return std::nullopt;
  return Window{*percent, *minutes, instantFromUnixSeconds(*reset)};
}

std::optional<Limits> newestEntry(const std::string& path, LineParser& parser) {
  std::optional<Limits> found;
  tailRecords(path, tailBytes).eachNewestFirst(parser, [&](const LineObject& record) {
    found = parseLine(record);
    return !found;
  });
  return found;
}

}  // namespace

std::optional<Limits> parseLine(const LineObject& line) {
  if (line.text("type") != "event_msg") return std::nullopt;
  const auto payload = line.object("payload");
  if (!payload || payload->text("type") != "token_count") return std::nullopt;
  const auto limits = payload->object("rate_limits");
  const auto session = limits ? window(*limits, "primary") : std::nullopt;
  const auto timestamp = session ? line.text("timestamp") : std::nullopt;
  const auto date = timestamp ? parseISO8601(*timestamp) : std::nullopt;
  if (!date) return std::nullopt;
  return Limits{*session, window(*limits, "secondary"), *date};
}

struct Reader::Impl {
  struct Seen {
    SessionFile file;
    std::optional<Limits> limits;
  };
  AgentFolders folders;
  std::map<std::string, Seen> seen;
  LineParser parser;

  std::optional<Limits> limitsIn(const SessionFile& file) {
    const auto known = seen.find(file.path);
    if (known != seen.end() && known->second.file.size == file.size && known->second.file.hasSameDate(file))
      return known->second.limits;
    auto limits = newestEntry(file.path, parser);
    seen.insert_or_assign(file.path, Seen{file, limits});
    return limits;
  }

  void forgetAllBut(const std::vector<SessionFile>& files) {
    std::map<std::string, Seen> kept;
    for (const SessionFile& file : files)
      if (auto node = seen.extract(file.path)) kept.insert(std::move(node));
    seen = std::move(kept);
  }
};

Reader::Reader(AgentFolders folders) : impl_(std::make_unique<Impl>()) { impl_->folders = std::move(folders); }
Reader::~Reader() = default;

std::optional<Limits> Reader::latest(const std::filesystem::path& home, Instant now) {
  auto files = recentSessionFiles(impl_->folders.codexIn(home) / "sessions", advanced(now, -recentLogs), true);
  std::stable_sort(files.begin(), files.end(), [](const SessionFile& a, const SessionFile& b) {
    return a.modified != b.modified ? a.modified > b.modified : a.modifiedRest > b.modifiedRest;
  });
  impl_->forgetAllBut(files);
  for (const SessionFile& file : files)
    if (auto limits = impl_->limitsIn(file)) return limits;
  return std::nullopt;
}

std::optional<Limits> latest(const std::filesystem::path& home, Instant now) { return Reader().latest(home, now); }

}  // namespace ambrel::CodexUsage
