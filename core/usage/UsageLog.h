#pragma once
// One Claude log, read from where the last reading stopped.

#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "core/usage.h"

namespace ambrel {

// Holds the buffers that files are read through, one after another: a few megabytes at most. One for each thread.
class UsageLogReader {
 public:
  // A line that holds the key and is longer is passed over. Lines without the key may have any length.
  static constexpr std::uint64_t longestLine = 16 << 20;

  struct Reading {
    std::vector<TokenUsage> uses;
    std::uint64_t offset = 0;  // just behind the last newline: where the next reading begins
  };

  // A line that does not fit into the buffer takes a few times its length while it is decoded; the readers that
  // share `longLineTurn` do so one at a time.
  explicit UsageLogReader(std::mutex& longLineTurn);
  ~UsageLogReader();
  UsageLogReader(const UsageLogReader&) = delete;
  UsageLogReader& operator=(const UsageLogReader&) = delete;

  // Absent when the file cannot be read to its end. Without a whole line behind `offset`, nothing is read and the
  // offset stays. A file that is shorter than `offset` is read from its start.
  std::optional<Reading> read(const std::string& path, std::uint64_t offset);

 private:
  struct Pass;
  std::mutex& longLineTurn_;
  std::unique_ptr<char[]> buffer_;
  LineParser parser_;
};

}  // namespace ambrel
