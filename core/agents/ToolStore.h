#pragma once
// A query of a database that belongs to another program, which may be running and must not be disturbed.
//
// Nothing is created, written or deleted beside the store, and no lock is held beyond the query:
// - The store is opened by the URI "file:<percent-encoded path>?mode=ro", with a busy timeout of 200 ms.
// - In write-ahead mode SQLite would make the files "-wal" and "-shm" where they are missing. Without a "-wal" the
//   store is closed and whole, and is read with "immutable=1". With one, "readonly_shm=1" keeps SQLite from making
//   the "-shm"; if that file is missing or cannot be read, the index is rebuilt from the "-wal" in our own memory.
// - In rollback mode the ordinary locks decide.

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/base/Files.h"
#include "core/base/StampedCache.h"

namespace ambrel {

// One row of a result. Columns count from 0.
class StoreRow {
 public:
  struct Value {
    std::optional<std::string> text;  // absent for NULL
    std::int64_t integer = 0;         // 0 for NULL and for what is no number
  };
  explicit StoreRow(std::vector<Value> values) : values_(std::move(values)) {}

  std::optional<std::string_view> text(std::size_t column) const {
    const auto& text = values_[column].text;
    return text ? std::optional<std::string_view>(*text) : std::nullopt;
  }
  std::int64_t integer(std::size_t column) const { return values_[column].integer; }

 private:
  std::vector<Value> values_;
};

// The rows of stores as they were last read. A store whose files have the sizes and dates that they had at the two
// reads before is not opened: a change within the grain of a file's date shows by the second read at the latest.
class StoreCache {
 public:
  using Rows = std::shared_ptr<const std::vector<StoreRow>>;  // never null

  // `bindings` are the parameters 1, 2, ...; rows that were kept are those of earlier bindings. Every failure gives
  // fewer rows, and those are not kept: no such file, another schema, a store that stays locked, a query without an
  // end.
  Rows rows(const std::filesystem::path& path, const char* sql, std::span<const std::int64_t> bindings);

 private:
  // Of the store and of its write-ahead log.
  struct Stamp {
    std::optional<FileStatus> store, log;
    bool operator==(const Stamp&) const = default;
  };
  static Stamp stampOf(const std::filesystem::path& path);

  StampedCache<Stamp, Rows> entries_;
};

}  // namespace ambrel
