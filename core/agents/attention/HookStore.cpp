#include "core/agents/attention/HookStore.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "core/base/Files.h"
#include "core/base/StoredFile.h"

namespace ambrel {
namespace {

constexpr std::size_t mostAtOnce = 256 << 10;

void rotate(const HookStoreFiles& files, const struct stat& seen) {
  const auto lock = FileLock::tryAcquire(files.lock);
  struct stat now;
  // Another process has done it meanwhile.
  if (!lock || stat(files.current.c_str(), &now) != 0 || now.st_ino != seen.st_ino) return;
  (void)rename(files.current.c_str(), files.earlier.c_str());
}

// Calls `take` for each whole line behind the offset, and moves it behind the last of them.
void readLines(const FileDescriptor& file, std::uint64_t& offset, const std::function<void(HookEvent)>& take) {
  LineParser parser;
  for (;;) {
    const auto bytes = readAt(file, offset, mostAtOnce);
    if (!bytes) return;
    const auto end = bytes->rfind('\n');
    if (end == std::string::npos) {
      // None of our lines is that long.
      if (bytes->size() < mostAtOnce) return;
      offset += bytes->size();
      continue;
    }
    std::string_view rest = std::string_view(*bytes).substr(0, end + 1);
    while (!rest.empty()) {
      const auto newline = rest.find('\n');
      if (auto event = storedEvent(rest.substr(0, newline), parser)) take(std::move(*event));
      rest.remove_prefix(newline + 1);
    }
    offset += end + 1;
    if (bytes->size() < mostAtOnce) return;
  }
}

std::uint64_t nodeOf(const FileDescriptor& file) {
  struct stat info;
  return file && fstat(file.get(), &info) == 0 ? info.st_ino : 0;
}

}  // namespace

HookStoreFiles::HookStoreFiles(const std::filesystem::path& dataFolder)
    : current(dataFolder / "agent-hooks.jsonl"),
      earlier(dataFolder / "agent-hooks-earlier.jsonl"),
      lock(dataFolder / "agent-hooks.lock") {}

void appendHookEvent(const HookStoreFiles& files, const HookEvent& event, std::uint64_t largest) noexcept {
  try {
    constexpr int flags = O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
    FileDescriptor file(open(files.current.c_str(), flags, 0600));
    if (!file && errno == ENOENT) {
      makeFolders(files.current.parent_path());
      file = FileDescriptor(open(files.current.c_str(), flags, 0600));
    }
    struct stat info;
    if (!file || fstat(file.get(), &info) != 0 || !S_ISREG(info.st_mode)) return;
    // The newline in front sets it apart from a line that a full disk has cut.
    const std::string line = "\n" + storedLine(event) + "\n";
    (void)!write(file.get(), line.data(), line.size());
    if (static_cast<std::uint64_t>(info.st_size) >= largest) rotate(files, info);
  } catch (...) {  // NOLINT(bugprone-empty-catch): whoever runs the hook is not to be disturbed
  }
}

void HookStoreReader::readNew(const HookStoreFiles& files, const std::function<void(HookEvent)>& take) {
  struct stat info;
  exists_ = stat(files.current.c_str(), &info) == 0 && S_ISREG(info.st_mode);
  const bool isSame = exists_ && info.st_ino == position_.node;
  if (isSame && static_cast<std::uint64_t>(info.st_size) == position_.offset) return;
  if (!isSame || static_cast<std::uint64_t>(info.st_size) < position_.offset) {
    // What was appended to the former file before it was moved away; at the first look, the whole of it.
    const FileDescriptor earlier = openForReading(files.earlier);
    const std::uint64_t node = nodeOf(earlier);
    std::uint64_t offset = node != 0 && node == position_.node && !isSame ? position_.offset : 0;
    const bool isKnown = position_.node != 0 && node != position_.node;
    if (earlier && !isKnown && !isSame) readLines(earlier, offset, take);
    if (earlier) exists_ = true;
    position_ = {};
  }
  const FileDescriptor current = openForReading(files.current);
  if (!current) return;
  position_.node = nodeOf(current);
  readLines(current, position_.offset, take);
}

}  // namespace ambrel
