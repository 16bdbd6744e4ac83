#pragma once
// The clipboard's folder: the library, the journal of its latest changes, and the pictures below "Images". The folder
// is 0700, its files 0600.
//
// "library.json" has all clips whenever the journal is not there. A copy costs a line of "library.journal", however
// large the library is; when the journal has grown as long as the library, and at the end of the program, the library
// is written as a whole and the journal goes.

#include <cstdint>
#include <filesystem>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>

#include "core/base/JSONFileStore.h"
#include "core/clipboard.h"
#include "core/clipboard/LibraryChange.h"

namespace ambrel {

class ClipboardFolder {
 public:
  explicit ClipboardFolder(std::filesystem::path folder);

  // Makes this the one that may write here, until it ends; another process, or another object, may only read
  // meanwhile. False while there is such a one. Throws FileError.
  bool lock();

  // The library with what its journal says; an absent one is empty. Throws FileError or DecodingError when it cannot
  // be read; the files stay, and the next save sets them aside as "library.json.unreadable" and
  // "library.journal.unreadable" (numbered, if there are such) before it writes.
  ClipboardLibrary load();
  // The library as a whole. Throws FileError; what was there stays.
  void save(const ClipboardLibrary& library);
  // Adds to the journal. Throws FileError; then, and whenever `wantsWhole`, the library is to be saved as a whole.
  void append(std::span<const LibraryChange> changes);
  bool wantsWhole() const { return wantsWhole_; }
  // Whether the library is in its file alone.
  bool isAtRest() const { return journalSize_ == 0; }

  // Named by the SHA-256 of the bytes, so that the same picture is kept once. It is on the disk when this returns.
  // Throws FileError.
  std::string saveImage(std::string_view png);
  std::filesystem::path imagePath(std::string_view name) const;
  // Names that saveImage cannot have given are passed over; failures are ignored.
  void removeImages(std::span<const std::string> names);
  // Removes the pictures that a crash left behind: those that `used` does not name. Does nothing as long as an
  // unreadable library is here, since that one may name them. The number of files removed.
  int sweepOrphans(const std::set<std::string>& used);

  const std::filesystem::path& path() const { return folder_; }

 private:
  void makePrivate() const;
  void setAside() const;
  std::vector<LibraryChange> readJournal();

  std::filesystem::path folder_;
  JSONFileStore<ClipboardLibrary> store_;
  std::filesystem::path journal_;
  std::optional<FileLock> lock_;
  bool isUnreadable_ = false;
  bool wantsWhole_ = true;  // until it is known that there is a library which a journal may go with
  std::uint64_t librarySize_ = 0, journalSize_ = 0;
};

// For those who only look: the library with its journal. Throws as ClipboardFolder::load.
ClipboardLibrary readLibrary(const std::filesystem::path& folder);

// "<64 hexadecimal digits>.png"
std::string imageName(std::string_view png);
bool isImageName(std::string_view name);

}  // namespace ambrel
