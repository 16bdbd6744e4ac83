#pragma once
// Real folders for the disk tests: made in a temporary place, removed with the test.

#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "core/disk.h"
#include "core/disk/Handles.h"

namespace ambrel::test {

// In memory where that can be, since blocks are only counted for sure once a file is flushed. The path is resolved:
// nothing here follows links on the way to a file.
inline std::string makeTemporaryFolder() {
  const bool hasMemory = !std::getenv("TMPDIR") && access("/dev/shm", W_OK | X_OK) == 0;
  const std::filesystem::path base = hasMemory ? "/dev/shm" : std::filesystem::temp_directory_path();
  std::string pattern = (std::filesystem::canonical(base) / "ambrel-XXXXXX").string();
  if (!mkdtemp(pattern.data())) throw std::runtime_error("no temporary folder");
  chmod(pattern.c_str(), 0755);
  return pattern;
}

class Tree {
 public:
  Tree() : path_(makeTemporaryFolder()) {}
  Tree(const Tree&) = delete;
  ~Tree() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  const std::string& path() const { return path_; }
  std::string operator/(std::string_view relative) const { return path_ + "/" + std::string(relative); }

  std::string folder(std::string_view relative) const {
    std::filesystem::create_directories(*this / relative);
    return *this / relative;
  }
  std::string write(std::string_view relative, std::string_view bytes) const {
    const std::string path = *this / relative;
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    const FileDescriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644));
    EXPECT_EQ(::write(file.get(), bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size())) << path;
    fsync(file.get());
    return path;
  }
  // Content that differs for each seed and compresses badly.
  std::string fill(std::string_view relative, std::size_t bytes, unsigned seed = 1) const {
    return write(relative, noise(bytes, seed));
  }
  void link(std::string_view relative, const std::string& target) const {
    std::filesystem::create_symlink(target, *this / relative);
  }
  // Both dates of one entry; links themselves, not their targets.
  void date(std::string_view relative, Instant modified, std::optional<Instant> accessed = {}) const {
    const timespec times[] = {spec(accessed.value_or(modified)), spec(modified)};
    EXPECT_EQ(utimensat(AT_FDCWD, (*this / relative).c_str(), times, AT_SYMLINK_NOFOLLOW), 0) << relative;
  }
  // The dates of an entry and all that is in it.
  void dateAll(std::string_view relative, Instant modified) const {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(*this / relative))
      date(entry.path().lexically_relative(path_).string(), modified);
    date(relative, modified);
  }

  static std::string noise(std::size_t bytes, unsigned seed) {
    std::string out(bytes, '\0');
    std::uint64_t state = 0x9e3779b97f4a7c15ull * (seed + 1);
    for (char& c : out) {
      state = state * 6364136223846793005ull + 1442695040888963407ull;
      c = static_cast<char>(state >> 56 | 1);
    }
    return out;
  }
  // Of a file or of all that is in a folder; negative when there is no such thing.
  static std::int64_t space(const std::string& path) {
    const Place place = placeOf(path);
    const auto space = place ? allocatedSpace(place.folder, place.name) : std::nullopt;
    return space ? space->bytes : -1;
  }
  static std::int64_t allocated(const std::string& path) {
    struct stat info;
    return lstat(path.c_str(), &info) == 0 ? static_cast<std::int64_t>(info.st_blocks) * 512 : -1;
  }

 private:
  static timespec spec(Instant instant) {
    const auto count = instant.time_since_epoch().count();
    return {.tv_sec = count / 1'000'000, .tv_nsec = count % 1'000'000 * 1000};
  }

  std::string path_;
};

// Gives up root's privileges for a while, so that permissions mean something.
class Unprivileged {
 public:
  Unprivileged() : isRoot_(geteuid() == 0) {
    if (isRoot_ && (setegid(65534) != 0 || seteuid(65534) != 0)) throw std::runtime_error("cannot drop privileges");
  }
  ~Unprivileged() {
    if (isRoot_ && (seteuid(0) != 0 || setegid(0) != 0)) std::abort();
  }

 private:
  bool isRoot_;
};

inline std::vector<std::string> namesOf(const DiskItem& item) {
  std::vector<std::string> names;
  for (const DiskItem& child : item.children()) names.emplace_back(child.name());
  return names;
}

inline const Instant someDay{std::chrono::sys_days(std::chrono::year(2026) / 6 / 1)};
inline Instant daysBefore(Instant instant, double days) { return advanced(instant, Seconds(-days * 86400)); }

}  // namespace ambrel::test
