#pragma once
// The clipboard's folder: the library, and the pictures below "Images". The folder is 0700, its files 0600.

#include <filesystem>
#include <set>
#include <span>
#include <string>
#include <string_view>

#include "core/base/JSONFileStore.h"
#include "core/clipboard.h"

namespace ambrel {

class ClipboardFolder {
 public:
  explicit ClipboardFolder(std::filesystem::path folder);

  // An absent library is empty. Throws FileError or DecodingError when it cannot be read; the file stays, and the
  // next save sets it aside as "library.json.unreadable" (numbered, if there is one) before it writes.
  ClipboardLibrary load();
  // Throws FileError; the old library stays.
  void save(const ClipboardLibrary& library);

  // Named by the SHA-256 of the bytes, so that the same picture is kept once. It is on the disk when this returns.
  // Throws FileError.
  std::string saveImage(std::string_view png);
  std::filesystem::path imagePath(std::string_view name) const;
  // Names that saveImage cannot have given are passed over; failures are ignored.
  void removeImages(std::span<const std::string> names);
  // Removes the pictures that a crash left behind: those that `used` does not name. Does nothing as long as an
  // unreadable library lies here, since that one may name them. The number of files removed.
  int sweepOrphans(const std::set<std::string>& used);

  const std::filesystem::path& path() const { return folder_; }

 private:
  void makePrivate() const;
  void setAside() const;

  std::filesystem::path folder_;
  JSONFileStore<ClipboardLibrary> store_;
  bool isUnreadable_ = false;
};

// "<64 hexadecimal digits>.png"
std::string imageName(std::string_view png);
bool isImageName(std::string_view name);

}  // namespace ambrel
