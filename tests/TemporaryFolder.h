#pragma once
// A folder of a test's own, removed with everything in it.

#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <sys/stat.h>

#include "core/base/Instant.h"

namespace ambrel {

class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "ambrel-test-XXXXXX").string();
    if (!mkdtemp(name.data())) throw std::runtime_error("cannot make a folder for a test");
    path_ = name;
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code ignored;
    // Tests take permissions away from folders.
    for (auto it = std::filesystem::recursive_directory_iterator(
             path_, std::filesystem::directory_options::skip_permission_denied, ignored);
         it != std::filesystem::recursive_directory_iterator(); it.increment(ignored))
      if (it->is_directory(ignored) && !it->is_symlink(ignored))
        std::filesystem::permissions(it->path(), std::filesystem::perms::owner_all, ignored);
    std::filesystem::remove_all(path_, ignored);
  }

  const std::filesystem::path& path() const { return path_; }
  std::filesystem::path operator/(std::string_view relative) const { return path_ / relative; }

  // Makes the folders above it too.
  std::filesystem::path write(std::string_view relative, std::string_view bytes) const {
    const auto file = path_ / relative;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out << bytes;
    if (!out.flush()) throw std::runtime_error("cannot write " + file.string());
    return file;
  }
  std::filesystem::path write(std::string_view relative, std::string_view bytes, Instant modified) const {
    auto file = write(relative, bytes);
    setModified(file, modified);
    return file;
  }

  // nanoseconds: added to `modified`, 0 to 999.
  static void setModified(const std::filesystem::path& path, Instant modified, long nanoseconds = 0) {
    using namespace std::chrono;
    const auto whole = floor<seconds>(modified);
    timespec times[2] = {};
    times[0].tv_nsec = UTIME_OMIT;
    times[1].tv_sec = whole.time_since_epoch().count();
    times[1].tv_nsec = duration_cast<std::chrono::nanoseconds>(modified - whole).count() + nanoseconds;
    if (utimensat(AT_FDCWD, path.c_str(), times, 0) != 0) throw std::runtime_error("cannot date " + path.string());
  }

 private:
  std::filesystem::path path_;
};

}  // namespace ambrel
