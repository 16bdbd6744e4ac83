#pragma once
// Databases as the agent tools would leave them, written in this process or held open by another one.

#include <filesystem>
#include <functional>
#include <sqlite3.h>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace ambrel {

class WritableStore {
 public:
  explicit WritableStore(const std::filesystem::path& path) {
    std::filesystem::create_directories(path.parent_path());
    if (sqlite3_open(path.c_str(), &database_) != SQLITE_OK) throw std::runtime_error("cannot open " + path.string());
    run("PRAGMA synchronous = OFF");
  }
  WritableStore(const WritableStore&) = delete;
  WritableStore& operator=(const WritableStore&) = delete;
  ~WritableStore() { sqlite3_close(database_); }

  void run(const std::string& sql) {
    if (sqlite3_exec(database_, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
      throw std::runtime_error(sqlite3_errmsg(database_));
  }

 private:
  sqlite3* database_ = nullptr;
};

inline void writeStore(const std::filesystem::path& path, const std::string& sql) { WritableStore(path).run(sql); }

// A child process that has done `work` on the store and keeps it open until this object goes.
class OtherProcess {
 public:
  OtherProcess(const std::filesystem::path& path, const std::function<void(WritableStore&)>& work) {
    int ready[2], end[2];
    if (pipe(ready) != 0 || pipe(end) != 0) throw std::runtime_error("no pipe");
    child_ = fork();
    if (child_ == 0) {
      close(ready[0]);
      close(end[1]);
      try {
        WritableStore store(path);
        work(store);
        char byte = '+';
        if (write(ready[1], &byte, 1) != 1 || read(end[0], &byte, 1) != 0) _exit(1);
      } catch (const std::exception&) {
        _exit(1);
      }
      _exit(0);
    }
    close(ready[1]);
    close(end[0]);
    end_ = end[1];
    char byte = '-';
    const bool isReady = read(ready[0], &byte, 1) == 1 && byte == '+';
    close(ready[0]);
    if (!isReady) throw std::runtime_error("the other process failed");
  }
  OtherProcess(const OtherProcess&) = delete;
  OtherProcess& operator=(const OtherProcess&) = delete;
  ~OtherProcess() {
    close(end_);
    waitpid(child_, nullptr, 0);
  }

 private:
  pid_t child_ = -1;
  int end_ = -1;
};

}  // namespace ambrel
