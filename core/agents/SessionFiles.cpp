#include "core/agents/SessionFiles.h"

#include <algorithm>
#include <array>
#include <dirent.h>
#include <sys/stat.h>

#include "core/agents/FolderListings.h"
#include "core/base/Text.h"

namespace ambrel {
namespace {

constexpr std::string_view logSuffix = ".jsonl";
constexpr int deepest = 64;

bool isPackage(std::string_view name) {
  static constexpr std::array<std::string_view, 8> extensions{".app",  ".appex",  ".bundle", ".framework",
                                                              ".kext", ".plugin", ".pkg",    ".xpc"};
  const auto dot = name.rfind('.');
  if (dot == std::string_view::npos || dot == 0) return false;
  const std::string extension = asciiLower(name.substr(dot));
  return std::find(extensions.begin(), extensions.end(), extension) != extensions.end();
}

class Walk {
 public:
  Walk(FolderListings& listings, Instant since, bool recursive)
      : listings_(listings), since_(since), recursive_(recursive) {}

  void list(std::string& path, bool followsLink, int depth) {
    const FolderListings::Entries entries = listings_.entries(path, followsLink);
    if (!entries) return;
    const std::size_t length = path.size();
    for (const auto& [name, type] : *entries) {
      if (type == DT_LNK || (type == DT_DIR && !recursive_)) continue;
      if (type == DT_UNKNOWN && !recursive_ && !isLogName(name)) continue;
      path.append(1, '/').append(name);
      if (type == DT_DIR)
        enter(name, path, depth);
      else
        look(name, path, depth);
      path.resize(length);
    }
  }

  std::vector<SessionFile> found;

 private:
  void enter(std::string_view name, std::string& path, int depth) {
    if (depth < deepest && !isPackage(name)) list(path, false, depth + 1);
  }

  // Some file systems do not say what an entry is before it is asked for.
  void look(std::string_view name, std::string& path, int depth) {
    struct stat info;
    if (lstat(path.c_str(), &info) != 0) return;
    if (S_ISDIR(info.st_mode) && recursive_) return enter(name, path, depth);
    if (!S_ISREG(info.st_mode) || !isLogName(name)) return;

    using namespace std::chrono;
    // File systems store years that an Instant cannot hold.
    constexpr std::int64_t limit = 9'000'000'000'000;
    const seconds whole(std::clamp<std::int64_t>(info.st_mtim.tv_sec, -limit, limit));
    SessionFile file;
    file.modified = Instant(whole + microseconds(info.st_mtim.tv_nsec / 1000));
    file.modifiedRest = static_cast<std::uint16_t>(info.st_mtim.tv_nsec % 1000);
    if (file.modified < since_ || (file.modified == since_ && file.modifiedRest == 0)) return;
    file.size = static_cast<std::uint64_t>(info.st_size);
    file.path = path;
    found.push_back(std::move(file));
  }

  FolderListings& listings_;
  Instant since_;
  bool recursive_;
};

}  // namespace

bool isLogName(std::string_view name) { return name.size() > logSuffix.size() && name.ends_with(logSuffix); }

std::vector<SessionFile> recentSessionFiles(const std::filesystem::path& folder, Instant since, bool recursive,
                                            FolderListings* listings) {
  FolderListings none;
  Walk walk(listings ? *listings : none, since, recursive);
  std::string path = folder.string();
  walk.list(path, true, 0);
  return std::move(walk.found);
}

std::vector<std::string> possibleFolders(const std::filesystem::path& folder, FolderListings& listings) {
  std::vector<std::string> paths;
  const FolderListings::Entries entries = listings.entries(folder.string(), true);
  if (!entries) return paths;
  for (const auto& [name, type] : *entries)
    if (type != DT_REG) paths.push_back(folder.string().append(1, '/').append(name));
  return paths;
}

std::string sessionIdentifier(std::string_view path) {
  path = path.substr(path.find_last_of('/') + 1);
  if (const auto dot = path.rfind('.'); dot != std::string_view::npos && dot > 0) path = path.substr(0, dot);
  return repairedUTF8(path);
}

RecordTail::RecordTail(std::string bytes, bool isCut) : bytes_(std::move(bytes)) {
  if (!isCut) return;
  const auto first = std::min(bytes_.find_first_not_of('\n'), bytes_.size());
  const auto newline = bytes_.find('\n', first);
  begin_ = newline == std::string::npos ? bytes_.size() : newline + 1;
}

void RecordTail::eachNewestFirst(LineParser& parser, const std::function<bool(const LineObject&)>& visit) const {
  std::string_view rest = std::string_view(bytes_).substr(begin_);
  while (!rest.empty()) {
    const auto newline = rest.rfind('\n');
    const std::string_view line = rest.substr(newline + 1);
    rest = rest.substr(0, newline == std::string_view::npos ? 0 : newline);
    if (line.empty()) continue;
    if (const auto record = parser.parse(line); record && !visit(*record)) return;
  }
}

void RecordTail::eachOldestFirst(LineParser& parser, const std::function<bool(const LineObject&)>& visit) const {
  std::string_view rest = std::string_view(bytes_).substr(begin_);
  while (!rest.empty()) {
    const auto newline = rest.find('\n');
    const std::string_view line = rest.substr(0, newline);
    rest = newline == std::string_view::npos ? std::string_view() : rest.substr(newline + 1);
    if (line.empty()) continue;
    if (const auto record = parser.parse(line); record && !visit(*record)) return;
  }
}

RecordTail tailRecords(const FileDescriptor& file, std::size_t maxBytes) {
  const auto status = file ? fileStatus(file) : std::nullopt;
  if (!status || !status->isRegular) return {};
  const bool isCut = status->size > maxBytes;
  const std::uint64_t start = isCut ? status->size - maxBytes : 0;
  auto bytes = readAt(file, start, static_cast<std::size_t>(status->size - start));
  return bytes ? RecordTail(std::move(*bytes), isCut) : RecordTail();
}

RecordTail tailRecords(const std::filesystem::path& path, std::size_t maxBytes) {
  return tailRecords(openForReading(path), maxBytes);
}

std::optional<LineObject> firstRecord(const FileDescriptor& file, std::size_t maxBytes, LineParser& parser) {
  const auto head = file ? readAt(file, 0, maxBytes) : std::nullopt;
  if (!head) return std::nullopt;
  return parser.parse(std::string_view(*head).substr(0, head->find('\n')));
}

}  // namespace ambrel
