#include "core/agents/attention/TitleSearch.h"

#include <algorithm>

namespace ambrel {
namespace {

constexpr std::uint64_t step = 1 << 20;
constexpr std::uint64_t longestRecord = 4096;  // of a title
struct Kind {
  std::string_view type, key;
};
constexpr Kind custom{"custom-title", "customTitle"}, ai{"ai-title", "aiTitle"};

// The newest title among the lines that begin before `limit`.
std::optional<std::string> newestIn(std::string_view bytes, const Kind& kind, std::size_t limit, bool isCut,
                                    LineParser& parser) {
  const std::string mark = "\"" + std::string(kind.type) + "\"";
  for (std::size_t at = bytes.rfind(mark); at != bytes.npos; at = at == 0 ? bytes.npos : bytes.rfind(mark, at - 1)) {
    const std::size_t newline = bytes.rfind('\n', at);
    if (newline == bytes.npos && isCut) continue;
    const std::size_t begin = newline == bytes.npos ? 0 : newline + 1;
    if (begin >= limit) continue;
    const auto record = parser.parse(bytes.substr(begin, bytes.find('\n', at) - begin));
    if (!record || record->text("type") != kind.type) continue;
    if (const auto title = record->text(kind.key)) return std::string(*title);
  }
  return std::nullopt;
}

}  // namespace

void TitleSearch::search(Known& known, const std::string& path, LineParser& parser) {
  if (known.begin >= known.end || left_ == 0) return;
  const FileDescriptor file = openForReading(path);
  while (file && known.begin < known.end && left_ > 0) {
    const std::uint64_t begin = known.end - std::min({step, left_, known.end - known.begin});
    const auto bytes = readAt(file, begin, static_cast<std::size_t>(known.end - begin + longestRecord));
    if (!bytes) break;
    left_ -= std::min(left_, known.end - begin);
    const auto newest = [&](const Kind& kind) {
      return newestIn(*bytes, kind, static_cast<std::size_t>(known.end - begin), begin > 0, parser);
    };
    if (!known.hasNewestAI)
      if (auto title = newest(ai)) {
        known.titles.ai = std::move(title);
        known.hasNewestAI = true;
      }
    if (auto title = newest(custom)) {
      known.titles.custom = std::move(title);
      known.end = known.begin;
    } else {
      known.end = begin;
    }
  }
}

LogTitles TitleSearch::titles(const SessionFile& file, std::size_t tailBytes, const LogTitles& inTail,
                              LineParser& parser) {
  Known& known = logs_[file.path];
  const std::uint64_t tail = file.size - std::min<std::uint64_t>(file.size, tailBytes);
  if (file.size < known.covered) known = {};
  if (inTail.custom) {
    known.titles.custom = inTail.custom;
    known.end = known.begin;
  } else if (tail > known.covered) {
    // More was appended than the tail holds.
    known.begin = known.covered - std::min(known.covered, longestRecord);
    known.end = tail;
    known.hasNewestAI = false;
  }
  if (inTail.ai) {
    known.titles.ai = inTail.ai;
    known.hasNewestAI = true;
  }
  known.covered = file.size;
  search(known, file.path, parser);
  return known.titles;
}

}  // namespace ambrel
