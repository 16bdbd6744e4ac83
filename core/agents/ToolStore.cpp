#include "core/agents/ToolStore.h"

#include <memory>
#include <sqlite3.h>
#include <string>
#include <system_error>

#include "core/base/Files.h"
#include "core/base/Text.h"

namespace ambrel {
namespace {

constexpr int busyMilliseconds = 200;
// Far above what a scan of a real store takes (some 20 steps a row), and less than a second.
constexpr int stepsBetweenChecks = 1'000'000;
constexpr int checksBeforeGivingUp = 20;

// SQLite's layer for files, with the means to change anything taken away.
namespace readOnlyLayer {

constexpr const char* name = "ambrel-read-only";

struct SharedMemory {
  const sqlite3_io_methods* system;
  sqlite3_io_methods ours;
};

int mapSharedMemory(sqlite3_file* file, int page, int pageSize, int extend, void volatile** memory);
int lockSharedMemory(sqlite3_file* file, int offset, int count, int flags);

// Taken from the first store that is opened; the system has one table for all of them.
const SharedMemory& sharedMemory(const sqlite3_io_methods* system) {
  static const SharedMemory methods = [&] {
    SharedMemory made{system, *system};
    made.ours.xShmMap = mapSharedMemory;
    made.ours.xShmLock = lockSharedMemory;
    return made;
  }();
  return methods;
}

// "Cannot be opened" becomes "open, but nobody vouches for it": SQLite then builds the index in its own memory.
int mapSharedMemory(sqlite3_file* file, int page, int pageSize, int extend, void volatile** memory) {
  const int result = sharedMemory(nullptr).system->xShmMap(file, page, pageSize, extend, memory);
  return (result & 0xff) == SQLITE_CANTOPEN ? SQLITE_READONLY_CANTINIT : result;
}

// That is the answer where there is no such file, and so nobody to lock out. (A lock that is taken answers "busy".)
int lockSharedMemory(sqlite3_file* file, int offset, int count, int flags) {
  const int result = sharedMemory(nullptr).system->xShmLock(file, offset, count, flags);
  return result == SQLITE_IOERR_SHMLOCK ? SQLITE_OK : result;
}

int openFile(sqlite3_vfs*, const char* path, sqlite3_file* file, int flags, int* outFlags) {
  sqlite3_vfs* system = sqlite3_vfs_find(nullptr);
  constexpr int changing = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_EXCLUSIVE;
  // A file without a path is a temporary one of SQLite's own.
  if (path) flags = (flags & ~(changing | SQLITE_OPEN_DELETEONCLOSE)) | SQLITE_OPEN_READONLY;
  const int result = system->xOpen(system, path, file, flags, outFlags);
  if (result == SQLITE_OK && (flags & SQLITE_OPEN_MAIN_DB) && file->pMethods->iVersion >= 2) {
    const SharedMemory& methods = sharedMemory(file->pMethods);
    if (file->pMethods == methods.system) file->pMethods = &methods.ours;
  }
  return result;
}

int deleteFile(sqlite3_vfs*, const char*, int) { return SQLITE_READONLY; }

bool isRegistered() {
  static const bool done = [] {
    static sqlite3_vfs layer = *sqlite3_vfs_find(nullptr);
    layer.zName = name;
    layer.xOpen = openFile;
    layer.xDelete = deleteFile;
    return sqlite3_vfs_register(&layer, 0) == SQLITE_OK;
  }();
  return done;
}

}  // namespace readOnlyLayer

struct Close {
  void operator()(sqlite3* database) const { sqlite3_close(database); }
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Database = std::unique_ptr<sqlite3, Close>;
using Statement = std::unique_ptr<sqlite3_stmt, Close>;

// Byte 18 of the header is the version that a writer needs: 2 means write-ahead mode.
bool isInWriteAheadMode(const std::filesystem::path& path) {
  const FileDescriptor file = openForReading(path);
  const auto version = file ? readAt(file, 18, 1) : std::nullopt;
  return version == std::string(1, '\2');
}

Database openStore(const std::filesystem::path& given) {
  // SQLite looks for the companions beside the file that a link leads to.
  std::error_code error;
  const std::filesystem::path path = std::filesystem::canonical(given, error);
  const auto status = error ? std::nullopt : fileStatus(path);
  if (!status || !status->isRegular || !readOnlyLayer::isRegistered()) return nullptr;

  std::string uri = "file:" + percentEncodedPath(path.native()) + "?mode=ro";
  if (isInWriteAheadMode(path))
    uri += std::filesystem::exists(path.native() + "-wal", error) ? "&readonly_shm=1" : "&immutable=1";

  sqlite3* handle = nullptr;
  const int result = sqlite3_open_v2(uri.c_str(), &handle, SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, readOnlyLayer::name);
  Database database(handle);
  if (result != SQLITE_OK) return nullptr;
  sqlite3_busy_timeout(handle, busyMilliseconds);
  sqlite3_db_config(handle, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
  // The schema is somebody else's text: functions that reach out are not for it.
  sqlite3_db_config(handle, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  return database;
}

struct StoreResult {
  std::vector<StoreRow> rows;
  bool isWhole = false;
};

StoreResult queryStore(const std::filesystem::path& path, const char* sql, std::span<const std::int64_t> bindings) {
  StoreResult result;
  const Database database = openStore(path);
  if (!database) return result;

  int checksLeft = checksBeforeGivingUp;
  const auto isTooMuch = [](void* left) { return --*static_cast<int*>(left) < 0 ? 1 : 0; };
  sqlite3_progress_handler(database.get(), stepsBetweenChecks, isTooMuch, &checksLeft);

  sqlite3_stmt* prepared = nullptr;
  const int status = sqlite3_prepare_v2(database.get(), sql, -1, &prepared, nullptr);
  const Statement statement(prepared);
  if (status != SQLITE_OK || !prepared) return result;
  for (std::size_t i = 0; i < bindings.size(); ++i) sqlite3_bind_int64(prepared, static_cast<int>(i) + 1, bindings[i]);

  int step = SQLITE_ROW;
  while ((step = sqlite3_step(prepared)) == SQLITE_ROW) {
    std::vector<StoreRow::Value> values(static_cast<std::size_t>(sqlite3_column_count(prepared)));
    for (std::size_t i = 0; i < values.size(); ++i) {
      const int column = static_cast<int>(i);
      values[i].integer = sqlite3_column_int64(prepared, column);
      if (const unsigned char* text = sqlite3_column_text(prepared, column))
        values[i].text.emplace(reinterpret_cast<const char*>(text),
                               static_cast<std::size_t>(sqlite3_column_bytes(prepared, column)));
    }
    result.rows.emplace_back(std::move(values));
  }
  result.isWhole = step == SQLITE_DONE;
  return result;
}

}  // namespace

StoreCache::Stamp StoreCache::stampOf(const std::filesystem::path& path) {
  // A link is followed to its end, as it is when the store is opened.
  std::error_code error;
  const bool isLink = std::filesystem::is_symlink(path, error);
  const auto target = isLink ? std::filesystem::canonical(path, error) : path;
  if (error) return {};
  return {fileStatus(target), fileStatus(target.native() + "-wal")};
}

StoreCache::Rows StoreCache::rows(const std::filesystem::path& path, const char* sql,
                                  std::span<const std::int64_t> bindings) {
  const Stamp stamp = stampOf(path);
  Rows rows;
  const auto kept = entries_.get(path.native(), stamp, [&] {
    auto result = stamp.store ? queryStore(path, sql, bindings) : StoreResult{};
    rows = std::make_shared<const std::vector<StoreRow>>(std::move(result.rows));
    return result.isWhole ? std::optional(rows) : std::nullopt;
  });
  return kept.value_or(rows);
}

}  // namespace ambrel
