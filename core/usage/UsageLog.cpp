#include "core/usage/UsageLog.h"

#include <cerrno>
#include <cstring>
#include <string_view>
#include <unistd.h>

#include "core/base/Files.h"
#include "core/usage/KeySearch.h"

namespace ambrel {
namespace {

// Small enough to stay in a core's own cache between being read and being searched.
constexpr std::size_t bufferSize = 256 << 10;

std::optional<std::size_t> readInto(int fd, char* bytes, std::size_t count, std::uint64_t offset) {
  for (;;) {
    const ssize_t got = pread(fd, bytes, count, static_cast<off_t>(offset));
    if (got >= 0) return static_cast<std::size_t>(got);
    if (errno != EINTR) return std::nullopt;
  }
}

}  // namespace

// What is known while one file goes through the buffer. The buffer holds the file's bytes from `begin`, which is the
// start of a line.
struct UsageLogReader::Pass {
  UsageLogReader& owner;
  FileDescriptor file;
  std::uint64_t begin;
  std::size_t filled = 0;
  Reading reading{};

  // The line at `begin`, when it does not fit into the buffer: how far it has been searched, and with what result.
  // Only its last few bytes are kept: the key may be split between two reads.
  bool isLong = false;
  bool hasKey = false;
  std::uint64_t searched = 0;

  char* buffer() const { return owner.buffer_.get(); }
  std::uint64_t nextByte() const { return isLong ? searched : begin + filled; }

  void take(LineParser& parser, std::string_view paddedLine) {
    const auto line = parser.parsePadded(paddedLine);
    const auto use = line ? ClaudeUsage::parseLine(*line) : std::nullopt;
    if (use) reading.uses.push_back(*use);
  }

  void takeLines(const char* at, const char* end) {
    for (;;) {
      const char* hit = findUsageKey(at, end);
      if (hit == end) return;
      const auto* before = static_cast<const char*>(memrchr(at, '\n', static_cast<std::size_t>(hit - at)));
      const char* line = before ? before + 1 : at;
      const auto* lineEnd = static_cast<const char*>(memchr(hit, '\n', static_cast<std::size_t>(end - hit)));
      take(owner.parser_, std::string_view(line, static_cast<std::size_t>(lineEnd - line)));
      at = lineEnd + 1;
    }
  }

  bool takeLongLine(std::uint64_t end) {
    const std::uint64_t length = end - begin;
    if (length > longestLine) return true;
    const std::scoped_lock turn(owner.longLineTurn_);
    const std::unique_ptr<char[]> line(new char[length + LineParser::padding]);
    for (std::uint64_t have = 0; have < length;) {
      const auto count = readInto(file.get(), line.get() + have, length - have, begin + have);
      if (!count || *count == 0) return false;
      have += *count;
    }
    LineParser parser;
    take(parser, std::string_view(line.get(), length));
    return true;
  }

  void startLineAt(const char* next) {
    const std::size_t rest = filled - static_cast<std::size_t>(next - buffer());
    begin += filled - rest;
    std::memmove(buffer(), next, rest);
    filled = rest;
    reading.offset = begin;
  }

  // With the buffer full and no newline in it.
  void becomeLong() {
    isLong = true;
    hasKey = findUsageKey(buffer(), buffer() + filled) != buffer() + filled;
    searched = begin + filled;
    keepEnd();
  }

  void keepEnd() {
    const std::size_t kept = std::min(filled, usageKey.size() - 1);
    std::memmove(buffer(), buffer() + filled - kept, kept);
    filled = kept;
  }

  // `count` bytes of a long line have been added to the buffer. False when reading failed.
  bool goOnInLongLine(std::size_t count) {
    char* added = buffer() + filled;
    auto* newline = static_cast<char*>(memchr(added, '\n', count));
    const char* lineEnd = newline ? newline : added + count;
    hasKey = hasKey || findUsageKey(buffer(), lineEnd) != lineEnd;
    filled += count;
    if (!newline) {
      searched += count;
      keepEnd();
      return true;
    }
    const std::uint64_t end = searched + static_cast<std::uint64_t>(newline - added);
    if (hasKey && !takeLongLine(end)) return false;
    const char* next = newline + 1;
    filled -= static_cast<std::size_t>(next - buffer());
    std::memmove(buffer(), next, filled);
    begin = end + 1;
    reading.offset = begin;
    isLong = false;
    takeWholeLines(0);
    return true;
  }

  // Bytes before `known` hold no newline.
  void takeWholeLines(std::size_t known) {
    const auto* newline = static_cast<const char*>(memrchr(buffer() + known, '\n', filled - known));
    if (newline) {
      takeLines(buffer(), newline + 1);
      startLineAt(newline + 1);
    } else if (filled == bufferSize) {
      becomeLong();
    }
  }

  bool readToEnd() {
    for (;;) {
      const auto count = readInto(file.get(), buffer() + filled, bufferSize - filled, nextByte());
      if (!count) return false;
      if (*count == 0) return true;
      if (isLong) {
        if (!goOnInLongLine(*count)) return false;
      } else {
        const std::size_t known = filled;
        filled += *count;
        takeWholeLines(known);
      }
    }
  }
};

UsageLogReader::UsageLogReader(std::mutex& longLineTurn)
    : longLineTurn_(longLineTurn), buffer_(std::make_unique<char[]>(bufferSize + LineParser::padding)) {}
UsageLogReader::~UsageLogReader() = default;

std::optional<UsageLogReader::Reading> UsageLogReader::read(const std::string& path, std::uint64_t offset) {
  FileDescriptor file = openForReading(path);
  const auto status = file ? fileStatus(file) : std::nullopt;
  if (!status || !status->isRegular) return std::nullopt;
  const std::uint64_t start = status->size < offset ? 0 : offset;
  Pass pass{*this, std::move(file), start};
  pass.reading.offset = offset;
  if (start < status->size && !pass.readToEnd()) return std::nullopt;
  return std::move(pass.reading);
}

}  // namespace ambrel
