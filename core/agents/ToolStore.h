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
#include <functional>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "core/agents.h"

struct sqlite3_stmt;

namespace ambrel {

// One row of a result; its texts live until the next row.
class StoreRow {
 public:
  explicit StoreRow(sqlite3_stmt* statement) : statement_(statement) {}
  // Columns count from 0. Absent for NULL.
  std::optional<std::string_view> text(int column) const;
  // 0 for NULL and for what is no number.
  std::int64_t integer(int column) const;

 private:
  sqlite3_stmt* statement_;
};

// The sessions that `row` makes of the result; rows without one are dropped. `bindings` are the parameters 1, 2, ...
// Every failure gives fewer rows: no such file, another schema, a store that stays locked, a query without an end.
std::vector<AgentSession> queryRows(const std::filesystem::path& path, const char* sql,
                                    std::span<const std::int64_t> bindings,
                                    const std::function<std::optional<AgentSession>(const StoreRow&)>& row);

}  // namespace ambrel
