#include "core/base/StoredFile.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <unistd.h>

namespace ambrel {
namespace {

constexpr std::size_t randomLength = 6;

bool isLeftover(std::string_view name) {
  constexpr auto isRandom = [](char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
  };
  return name.size() > randomLength + 2 && name.front() == '.' && name[name.size() - randomLength - 1] == '.' &&
         std::ranges::all_of(name.substr(name.size() - randomLength), isRandom);
}

// A write that is under way has its file locked.
void removeUnlocked(const std::filesystem::path& path) {
  const FileDescriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW));
  const auto status = file ? fileStatus(file) : std::nullopt;
  if (status && status->isRegular && flock(file.get(), LOCK_EX | LOCK_NB) == 0) unlink(path.c_str());
}

void removeLeftoversBeside(const std::filesystem::path& path) {
  const std::string prefix = "." + path.filename().string() + ".";
  const auto folder = path.has_parent_path() ? path.parent_path() : std::filesystem::path(".");
  std::error_code error;
  for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    if (name.size() == prefix.size() + randomLength && name.starts_with(prefix)) removeUnlocked(entry->path());
  }
}

}  // namespace

std::filesystem::path linkTarget(std::filesystem::path path) {
  constexpr int longestChain = 40;  // as the kernel has it
  for (int i = 0; i < longestChain; ++i) {
    std::error_code error;
    if (!std::filesystem::is_symlink(std::filesystem::symlink_status(path, error))) return path;
    const auto target = std::filesystem::read_symlink(path, error);
    if (error) throw FileError("cannot follow the link", path, error.value());
    path = path.parent_path() / target;
  }
  throw FileError("cannot follow the link", path, ELOOP);
}

void writeAll(const FileDescriptor& file, std::string_view bytes, const std::filesystem::path& target) {
  while (!bytes.empty()) {
    const ssize_t count = write(file.get(), bytes.data(), bytes.size());
    if (count < 0) {
      if (errno == EINTR) continue;
      throw FileError("cannot write", target, errno);
    }
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
}

void appendToFile(const std::filesystem::path& path, std::string_view bytes) {
  const FileDescriptor file(open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600));
  if (!file) throw FileError("cannot write", path, errno);
  const auto before = fileStatus(file);
  try {
    writeAll(file, bytes, path);
    if (fdatasync(file.get()) != 0) throw FileError("cannot write", path, errno);
  } catch (const FileError&) {
    if (before && ftruncate(file.get(), static_cast<off_t>(before->size)) != 0) errno = 0;
    throw;
  }
}

void removeLeftovers(const std::filesystem::path& path) {
  removeLeftoversBeside(path);
  // A link may have been made after a write was killed, and writes go to where it leads.
  try {
    if (const std::filesystem::path target = linkTarget(path); target != path) removeLeftoversBeside(target);
  } catch (const FileError&) {
  }
}

void sweepLeftovers(const std::filesystem::path& folder) {
  std::error_code error;
  for (std::filesystem::recursive_directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error))
    if (isLeftover(entry->path().filename().string())) removeUnlocked(entry->path());
}

std::optional<FileLock> FileLock::tryAcquire(const std::filesystem::path& path) {
  FileDescriptor file(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600));
  if (!file) throw FileError("cannot lock", path, errno);
  if (flock(file.get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) return std::nullopt;
  return FileLock(std::move(file));
}

FolderTurn::FolderTurn(const std::filesystem::path& folder)
    : folder_(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
  constexpr int mostTries = 100;
  constexpr useconds_t pause = 2000;
  for (int tries = 0; folder_ && flock(folder_.get(), LOCK_EX | LOCK_NB) != 0 && tries < mostTries; ++tries) {
    if (errno != EWOULDBLOCK) return;
    usleep(pause);
  }
}

bool renameToFreeName(int fromFolder, const std::filesystem::path& from, int toFolder,
                      const std::filesystem::path& to) {
  if (renameat2(fromFolder, from.c_str(), toFolder, to.c_str(), RENAME_NOREPLACE) == 0) return true;
  if (errno != EINVAL && errno != ENOSYS) return false;
  if (faccessat(toFolder, to.c_str(), F_OK, AT_SYMLINK_NOFOLLOW) == 0) {
    errno = EEXIST;
    return false;
  }
  return renameat(fromFolder, from.c_str(), toFolder, to.c_str()) == 0;
}

std::optional<std::filesystem::path> setAside(const std::filesystem::path& file, std::string_view suffix) {
  const std::filesystem::path path = fileStatus(file) ? linkTarget(file) : file;
  for (int number = 1;; ++number) {
    auto kept = path;
    kept += suffix;
    if (number > 1) kept += "-" + std::to_string(number);
    // A copy that is kept already stays.
    if (renameToFreeName(AT_FDCWD, path, AT_FDCWD, kept)) return kept;
    if (errno == ENOENT) return std::nullopt;
    if (errno != EEXIST) throw FileError("cannot set aside", path, errno);
  }
}

}  // namespace ambrel
