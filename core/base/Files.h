#pragma once
// Files: bounded reads that never throw, and writes that replace a file whole or not at all.

#include <cstdint>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <sys/types.h>

#include "core/base/Instant.h"

namespace ambrel {

// Says what was attempted, on which path, and the system's reason:
// "cannot write /home/u/x.json: Permission denied".
class FileError : public std::runtime_error {
 public:
  FileError(const std::string& attempted, const std::filesystem::path& path, int error);
  int code() const { return code_; }

 private:
  int code_;
};

// An open file descriptor, closed with its owner. Opened with O_CLOEXEC.
class FileDescriptor {
 public:
  FileDescriptor() = default;
  explicit FileDescriptor(int fd) : fd_(fd) {}
  FileDescriptor(FileDescriptor&& other) noexcept;
  FileDescriptor& operator=(FileDescriptor&& other) noexcept;
  ~FileDescriptor();

  int get() const { return fd_; }
  explicit operator bool() const { return fd_ >= 0; }
  void reset();
  // Gives the descriptor away.
  int release();

 private:
  int fd_ = -1;
};

// For reading, without waiting on a fifo. Empty on failure; errno says why.
FileDescriptor openForReading(const std::filesystem::path& path);
// Reads at most `count` bytes from `offset`; fewer at the end of the file. Absent on an error.
std::optional<std::string> readAt(const FileDescriptor& file, std::uint64_t offset, std::size_t count);

struct FileStatus {
  bool isRegular = false;
  bool isFolder = false;
  std::uint64_t size = 0;
  Instant modified;
  friend bool operator==(const FileStatus&, const FileStatus&) = default;
};
// Follows symbolic links. Absent when there is nothing or it cannot be asked.
std::optional<FileStatus> fileStatus(const std::filesystem::path& path);
std::optional<FileStatus> fileStatus(const FileDescriptor& file);

// The whole of a regular file; absent when it cannot be read or is larger than `limit`.
std::optional<std::string> readFile(const std::filesystem::path& path, std::uint64_t limit = 1ull << 30);

// The folder with all its parents; those that are made get `mode`. Throws FileError.
void makeFolders(const std::filesystem::path& folder, mode_t mode = 0700);

// Writes beside the target, flushes to the disk and renames over it: a crash at any instant leaves the old file or the
// new one, and a symbolic link stays one. The parent folder must exist. `mode` is exact. Throws FileError.
void writeAtomically(const std::filesystem::path& path, std::string_view bytes, mode_t mode = 0600);

// The same for a file that belongs to someone else: it keeps its permissions and, where the system allows it, its
// owner. `mode` is for a file that does not exist yet.
void rewriteAtomically(const std::filesystem::path& path, std::string_view bytes, mode_t mode = 0600);

}  // namespace ambrel
