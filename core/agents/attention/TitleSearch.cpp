#include "core/agents/attention/TitleSearch.h"

#include <algorithm>

namespace ambrel {
namespace {

constexpr std::uint64_t step = 1 << 20;
constexpr std::uint64_t longestRecord = 4096;  // of a title
constexpr std::string_view mark = "\"custom-title\"";

// The newest title among the lines that begin before `limit`.
std::optional<std::string> newestIn(std::string_view bytes, std::size_t limit, bool isCut, LineParser& parser) {
  for (std::size_t at = bytes.rfind(mark); at != bytes.npos; at = at == 0 ? bytes.npos : bytes.rfind(mark, at - 1)) {
    const std::size_t newline = bytes.rfind('\n', at);
    if (newline == bytes.npos && isCut) continue;
    const std::size_t begin = newline == bytes.npos ? 0 : newline + 1;
    if (begin >= limit) continue;
    const auto record = parser.parse(bytes.substr(begin, bytes.find('\n', at) - begin));
    if (!record || record->text("type") != "custom-title") continue;
    if (const auto title = record->text("customTitle")) return std::string(*title);
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
    if (auto title = newestIn(*bytes, static_cast<std::size_t>(known.end - begin), begin > 0, parser)) {
      known.title = std::move(title);
      known.end = known.begin;
    } else {
      known.end = begin;
    }
  }
}

std::optional<std::string> TitleSearch::title(const SessionFile& file, std::size_t tailBytes,
                                              const std::optional<std::string>& inTail, LineParser& parser) {
  Known& known = logs_[file.path];
  const std::uint64_t tail = file.size - std::min<std::uint64_t>(file.size, tailBytes);
  if (file.size < known.covered) known = {};
  if (inTail) {
    known.title = inTail;
    known.end = known.begin;
  } else if (tail > known.covered) {
    // More was appended than the tail holds.
    known.begin = known.covered - std::min(known.covered, longestRecord);
    known.end = tail;
  }
  known.covered = file.size;
  search(known, file.path, parser);
  return known.title;
}

}  // namespace ambrel
