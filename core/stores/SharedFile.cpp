#include "core/stores/SharedFile.h"

#include "core/base/StoredFile.h"
#include "core/base/Text.h"

namespace ambrel {

bool SharedFile::refresh() {
  const auto present = fileStatus(path_);
  if (!present || present == seen_) return false;
  seen_ = present;
  auto read = readFile(path_, mostBytes);
  // Somebody has touched it.
  if (read && read == bytes_) return false;
  const std::string before = bytes();
  loss_ = read ? take(*read) : Loss::unreadable;
  bytes_ = std::move(read);
  return bytes() != before;
}

bool SharedFile::save() {
  makeFolders(path_.parent_path());
  const FolderTurn turn(path_.parent_path());
  const bool isAnother = refresh();
  if (!isChanged()) return isAnother;
  kept_.reset();
  if (loss_ != Loss::none) kept_ = setAside(path_, loss_ == Loss::rival ? ".other" : ".unreadable");
  loss_ = Loss::none;
  std::string now = bytes();
  writeAtomically(path_, now);
  written();
  seen_ = fileStatus(path_);
  bytes_ = std::move(now);
  return isAnother;
}

SharedFile::Loss SharedText::take(std::string_view bytes) {
  if (!isValidUTF8(bytes)) return Loss::unreadable;
  const bool isOurs = isChanged() && bytes != text_;
  const bool isTheirs = bytes != stored_;
  stored_ = bytes;
  if (!isOurs) text_ = bytes;
  return isOurs && isTheirs && !bytes.empty() ? Loss::rival : Loss::none;
}

}  // namespace ambrel
