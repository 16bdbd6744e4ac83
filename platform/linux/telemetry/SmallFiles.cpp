#include "platform/linux/telemetry/SmallFiles.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <time.h>
#include <unistd.h>

#include "core/base/Files.h"
#include "core/base/Text.h"

namespace ambrel {

namespace {

// Without waiting, should it be a fifo.
FileDescriptor openText(const std::filesystem::path& path) {
  return FileDescriptor(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
}

}  // namespace

std::optional<std::string> readText(const std::filesystem::path& path) {
  constexpr std::size_t limit = 1 << 20;
  const FileDescriptor file = openText(path);
  if (!file) return std::nullopt;
  std::string text;
  std::array<char, 8192> piece;
  while (text.size() < limit) {
    const ssize_t count = read(file.get(), piece.data(), piece.size());
    if (count < 0) return std::nullopt;
    if (count == 0) break;
    text.append(piece.data(), static_cast<std::size_t>(count));
  }
  return text;
}

std::optional<std::string> readAttribute(const std::filesystem::path& path) {
  const FileDescriptor file = openText(path);
  if (!file) return std::nullopt;
  std::array<char, 4096> page;
  const ssize_t count = read(file.get(), page.data(), page.size());
  return count < 0 ? std::nullopt : std::optional(std::string(page.data(), static_cast<std::size_t>(count)));
}

std::string readWord(const std::filesystem::path& path) {
  return std::string(trimmed(readAttribute(path).value_or("")));
}

std::optional<long long> readNumber(const std::filesystem::path& path) {
  const std::string word = readWord(path);
  long long number = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
  if (word.empty() || error != std::errc() || end != word.data() + word.size()) return std::nullopt;
  return number;
}

bool isThere(const std::filesystem::path& path) { return access(path.c_str(), F_OK) == 0; }

std::vector<std::string> namesIn(const std::filesystem::path& folder, std::string_view prefix) {
  std::vector<std::string> names;
  const std::unique_ptr<DIR, int (*)(DIR*)> stream(opendir(folder.c_str()), closedir);
  if (!stream) return names;
  while (const dirent* entry = readdir(stream.get())) {
    const std::string_view name = entry->d_name;
    if (name.starts_with(prefix) && name != "." && name != "..") names.emplace_back(name);
  }
  std::ranges::sort(names);
  return names;
}

std::uint64_t bootNanoseconds() {
  timespec time{};
  if (clock_gettime(CLOCK_BOOTTIME, &time) != 0) return 0;
  return static_cast<std::uint64_t>(time.tv_sec) * 1'000'000'000 + static_cast<std::uint64_t>(time.tv_nsec);
}

}  // namespace ambrel
