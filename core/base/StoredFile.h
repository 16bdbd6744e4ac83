#pragma once
// What a store needs of its file besides reading and replacing it.

#include <filesystem>
#include <optional>
#include <string_view>
#include <utility>

#include "core/base/Files.h"

namespace ambrel {

// Adds the bytes to the end of the file and flushes them to the disk; makes it (0600) when there is none. Throws
// FileError; then none of them are in the file, as far as that could be undone.
void appendToFile(const std::filesystem::path& path, std::string_view bytes);

// Removes what writes of this file left beside it when they were killed. A write that is under way in any process
// keeps its own. Failures are ignored.
void removeLeftovers(const std::filesystem::path& path);

// The same for every file in a folder and below it, for folders in which nobody else keeps anything.
void sweepLeftovers(const std::filesystem::path& folder);

// A file that one holder at a time may have, in this process or another. Given back at the end of either.
class FileLock {
 public:
  // Makes the file (0600) when there is none; the parent folder must exist. Absent while another holder has it. A
  // file system without locks gives everybody one. Throws FileError.
  static std::optional<FileLock> tryAcquire(const std::filesystem::path& path);

 private:
  explicit FileLock(FileDescriptor file) : file_(std::move(file)) {}
  FileDescriptor file_;
};

// Two programs that change a file of this folder at the same time take turns, as long as this lives. One that holds it
// for more than a moment keeps nobody waiting, nor does a file system without locks.
class FolderTurn {
 public:
  explicit FolderTurn(const std::filesystem::path& folder);

 private:
  FileDescriptor folder_;
};

// Moves a file out of the way: "<name><suffix>", or "<name><suffix>-2" and so on where that is kept already. Returns
// where it is now; absent when there was no file. A link to a file stays, and the file goes. Throws FileError.
std::optional<std::filesystem::path> setAside(const std::filesystem::path& file, std::string_view suffix);

// As renameat, but never over what is there: false with EEXIST then. Some file systems, such as NFS, cannot promise
// that in one step.
bool renameToFreeName(int fromFolder, const std::filesystem::path& from, int toFolder, const std::filesystem::path& to);

// Where a chain of symbolic links ends; what is there need not exist. Throws FileError.
std::filesystem::path linkTarget(std::filesystem::path path);

// Throws FileError, which names `target`.
void writeAll(const FileDescriptor& file, std::string_view bytes, const std::filesystem::path& target);

}  // namespace ambrel
