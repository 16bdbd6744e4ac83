#include <sys/stat.h>
#include <utility>

#include "core/usage.h"
#include "core/usage/ClaudeStatusLine.h"

namespace ambrel {
namespace {

// Tells whether a file is still the one that was read.
struct FileStamp {
  dev_t device = 0;
  ino_t inode = 0;
  off_t size = 0;
  time_t seconds = 0;
  long nanoseconds = 0;

  friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

std::optional<FileStamp> stampOf(const std::filesystem::path& path) {
  struct stat info;
  if (stat(path.c_str(), &info) != 0) return std::nullopt;
  return FileStamp{info.st_dev, info.st_ino, info.st_size, info.st_mtim.tv_sec, info.st_mtim.tv_nsec};
}

// What a small file held when it was last read.
template <typename Value>
class Remembered {
 public:
  // `absent` means a file that is not there.
  template <typename Read>
  const Value& value(const std::filesystem::path& path, const Value& absent, Read read) {
    const auto stamp = stampOf(path);
    if (!stamp) {
      value_ = absent;
    } else if (stamp != stamp_) {
      value_ = read(path);
    }
    stamp_ = stamp;
    return value_;
  }

 private:
  std::optional<FileStamp> stamp_;
  Value value_{};
};

}  // namespace

struct AIUsageReader::Impl {
  Impl(std::filesystem::path homeFolder, const std::filesystem::path& dataFolder, const AgentFolders& folders)
      : home(std::move(homeFolder)), files(home, dataFolder, folders), scanner(folders), codex(folders) {}

  std::filesystem::path home;
  ClaudeStatusLine::Files files;
  ClaudeUsageScanner scanner;
  CodexUsage::Reader codex;
  Remembered<bool> isConnected;
  Remembered<std::optional<ClaudeLimits::Limits>> limits;
};

AIUsageReader::AIUsageReader(std::filesystem::path home, const std::filesystem::path& dataFolder,
                             const AgentFolders& folders)
    : impl_(std::make_unique<Impl>(std::move(home), dataFolder, folders)) {}
AIUsageReader::~AIUsageReader() = default;

AIUsage AIUsageReader::read(Instant now, const Calendar& calendar) {
  AIUsage usage;
  usage.claude = impl_->scanner.scan(impl_->home, now, calendar);
  usage.codex = impl_->codex.latest(impl_->home, now);
  const bool isConnected = impl_->isConnected.value(
      impl_->files.settings, false, [&](const auto&) { return ClaudeStatusLine::isConnected(impl_->files); });
  if (isConnected) usage.claudeLimits = impl_->limits.value(impl_->files.snapshot, std::nullopt, ClaudeLimits::read);
  return usage;
}

}  // namespace ambrel
