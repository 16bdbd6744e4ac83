#include "core/base/Files.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "core/base/StoredFile.h"

namespace ambrel {
namespace {

FileStatus statusFrom(const struct stat& info) {
  using namespace std::chrono;
  return {.isRegular = S_ISREG(info.st_mode),
          .isFolder = S_ISDIR(info.st_mode),
          .size = static_cast<std::uint64_t>(info.st_size),
          .modified = Instant(seconds(info.st_mtim.tv_sec) + microseconds(info.st_mtim.tv_nsec / 1000))};
}

// A new file beside the target, removed again unless it has been renamed.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::filesystem::path& target) {
    constexpr int mostTries = 100;
    for (int tries = 0; tries < mostTries; ++tries) {
      name_ = target.parent_path() / ("." + target.filename().string() + ".XXXXXX");
      fd_ = FileDescriptor(mkostemp(name_.data(), O_CLOEXEC));
      if (!fd_) throw FileError("cannot write", target, errno);
      // Locked, so that removeLeftovers can tell that it is in use. Another program may have removed it before that.
      flock(fd_.get(), LOCK_EX);
      struct stat info;
      if (fstat(fd_.get(), &info) != 0 || info.st_nlink > 0) return;
    }
    throw FileError("cannot write", target, ENOENT);
  }
  TemporaryFile(const TemporaryFile&) = delete;
  ~TemporaryFile() {
    if (!isRenamed_ && fd_) unlink(name_.c_str());
  }

  int fd() const { return fd_.get(); }
  const FileDescriptor& descriptor() const { return fd_; }
  void renameTo(const std::filesystem::path& target) {
    if (rename(name_.c_str(), target.c_str()) != 0) throw FileError("cannot replace", target, errno);
    isRenamed_ = true;
  }

 private:
  std::string name_;
  FileDescriptor fd_;
  bool isRenamed_ = false;
};

void replaceFile(const std::filesystem::path& path, std::string_view bytes, mode_t mode, const struct stat* owner) {
  TemporaryFile file(path);
  writeAll(file.descriptor(), bytes, path);
  // Someone who may not give a file away keeps it.
  if (owner && fchown(file.fd(), owner->st_uid, owner->st_gid) != 0) errno = 0;
  if (fchmod(file.fd(), mode) != 0) throw FileError("cannot set the permissions of", path, errno);
  if (fsync(file.fd()) != 0) throw FileError("cannot write", path, errno);
  file.renameTo(path);
  // The rename itself must reach the disk too; a file system that cannot do that is no error.
  const FileDescriptor folder(open(path.has_parent_path() ? path.parent_path().c_str() : ".", O_RDONLY | O_CLOEXEC));
  if (folder) fsync(folder.get());
}

}  // namespace

FileError::FileError(const std::string& attempted, const std::filesystem::path& path, int error)
    : std::runtime_error(attempted + " " + path.string() + ": " + std::strerror(error)), code_(error) {}

FileDescriptor::FileDescriptor(FileDescriptor&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}

FileDescriptor& FileDescriptor::operator=(FileDescriptor&& other) noexcept {
  if (this != &other) {
    reset();
    fd_ = std::exchange(other.fd_, -1);
  }
  return *this;
}

FileDescriptor::~FileDescriptor() { reset(); }

void FileDescriptor::reset() {
  if (fd_ >= 0) close(std::exchange(fd_, -1));
}

int FileDescriptor::release() { return std::exchange(fd_, -1); }

FileDescriptor openForReading(const std::filesystem::path& path) {
  return FileDescriptor(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
}

std::optional<std::string> readAt(const FileDescriptor& file, std::uint64_t offset, std::size_t count) {
  std::string bytes(count, '\0');
  std::size_t filled = 0;
  while (filled < count) {
    const ssize_t got = pread(file.get(), bytes.data() + filled, count - filled, static_cast<off_t>(offset + filled));
    if (got < 0) {
      if (errno == EINTR) continue;
      return std::nullopt;
    }
    if (got == 0) break;
    filled += static_cast<std::size_t>(got);
  }
  bytes.resize(filled);
  return bytes;
}

std::optional<FileStatus> fileStatus(const std::filesystem::path& path) {
  struct stat info;
  if (stat(path.c_str(), &info) != 0) return std::nullopt;
  return statusFrom(info);
}

std::optional<FileStatus> fileStatus(const FileDescriptor& file) {
  struct stat info;
  if (fstat(file.get(), &info) != 0) return std::nullopt;
  return statusFrom(info);
}

std::optional<std::string> readFile(const std::filesystem::path& path, std::uint64_t limit) {
  const FileDescriptor file = openForReading(path);
  if (!file) return std::nullopt;
  const auto status = fileStatus(file);
  if (!status || !status->isRegular || status->size > limit) return std::nullopt;
  // Files below /proc and /sys say that they are empty; read until the end in any case.
  std::string bytes;
  constexpr std::size_t step = 1 << 16;
  std::size_t want = std::max<std::size_t>(step, status->size + 1);
  for (;;) {
    const auto piece = readAt(file, bytes.size(), want);
    if (!piece) return std::nullopt;
    bytes += *piece;
    if (piece->size() < want) return bytes;
    if (bytes.size() > limit) return std::nullopt;
    want = step;
  }
}

void makeFolders(const std::filesystem::path& folder, mode_t mode) {
  if (folder.empty()) return;
  if (mkdir(folder.c_str(), mode) == 0) return;
  if (errno == EEXIST) {
    const auto status = fileStatus(folder);
    if (status && status->isFolder) return;
    throw FileError("cannot create the folder", folder, ENOTDIR);
  }
  if (errno != ENOENT || !folder.has_parent_path() || folder.parent_path() == folder)
    throw FileError("cannot create the folder", folder, errno);
  makeFolders(folder.parent_path(), mode);
  if (mkdir(folder.c_str(), mode) != 0 && errno != EEXIST) throw FileError("cannot create the folder", folder, errno);
}

void writeAtomically(const std::filesystem::path& path, std::string_view bytes, mode_t mode) {
  replaceFile(linkTarget(path), bytes, mode, nullptr);
}

void rewriteAtomically(const std::filesystem::path& path, std::string_view bytes, mode_t mode) {
  const std::filesystem::path target = linkTarget(path);
  struct stat old;
  if (stat(target.c_str(), &old) == 0) {
    replaceFile(target, bytes, old.st_mode & 07777, &old);
  } else if (errno == ENOENT) {
    replaceFile(target, bytes, mode, nullptr);
  } else {
    throw FileError("cannot write", path, errno);
  }
}

}  // namespace ambrel
