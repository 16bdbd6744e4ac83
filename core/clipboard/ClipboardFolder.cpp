#include "core/clipboard/ClipboardFolder.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <openssl/evp.h>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

#include "core/base/Text.h"
#include "core/clipboard/ClipboardJSON.h"

namespace ambrel {
namespace {

constexpr std::string_view imageSuffix = ".png";
constexpr std::size_t digestDigits = 64;

bool isHexadecimal(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f'); });
}

std::filesystem::path asideName(const std::filesystem::path& library, int number) {
  std::filesystem::path name = library;
  name += ".unreadable";
  if (number > 1) name += "." + std::to_string(number);
  return name;
}

}  // namespace

std::string imageName(std::string_view png) {
  std::array<unsigned char, 32> digest{};
  unsigned int length = 0;
  if (EVP_Digest(png.data(), png.size(), digest.data(), &length, EVP_sha256(), nullptr) != 1)
    throw std::runtime_error("cannot compute a SHA-256 digest");
  constexpr std::string_view hex = "0123456789abcdef";
  std::string name;
  for (const unsigned char byte : digest) name += {hex[byte >> 4], hex[byte & 15]};
  return name.append(imageSuffix);
}

bool isImageName(std::string_view name) {
  return name.size() == digestDigits + imageSuffix.size() && name.ends_with(imageSuffix) &&
         isHexadecimal(name.substr(0, digestDigits));
}

ClipboardFolder::ClipboardFolder(std::filesystem::path folder)
    : folder_(std::move(folder)), store_{folder_ / "library.json"}, journal_(folder_ / "library.journal") {}

bool ClipboardFolder::lock() {
  if (lock_) return true;
  makePrivate();
  lock_ = FileLock::tryAcquire(folder_ / "library.lock");
  return lock_.has_value();
}

ClipboardLibrary ClipboardFolder::load() {
  // Until it has been read, the file counts as one that must not be lost.
  isUnreadable_ = true;
  wantsWhole_ = true;
  // First the journal: when its owner writes the library in between, changes that are in both do no harm.
  const std::vector<LibraryChange> changes = readJournal();
  auto library = store_.load();
  isUnreadable_ = false;
  // A journal without its library is what is left when the user has deleted the history.
  if (!library) return {};
  librarySize_ = fileStatus(store_.url).value_or(FileStatus{}).size;
  wantsWhole_ = !isAtRest();
  carryOut(changes, *library);
  return std::move(*library);
}

std::vector<LibraryChange> ClipboardFolder::readJournal() {
  journalSize_ = 0;
  errno = 0;
  const auto journal = readFile(journal_);
  if (!journal && errno == ENOENT) return {};
  if (!journal) throw FileError("cannot read", journal_, errno == 0 ? EINVAL : errno);
  journalSize_ = journal->size();
  std::vector<LibraryChange> changes;
  for (const std::string_view line : split(*journal, '\n'))
    // The last line may have been cut by a crash.
    if (auto change = parseJournalLine(line)) changes.push_back(std::move(*change));
  return changes;
}

void ClipboardFolder::save(const ClipboardLibrary& library) {
  makePrivate();
  if (isUnreadable_) setAside();
  wantsWhole_ = true;
  const std::string bytes = fileText(library);
  writeAtomically(store_.url, bytes);
  isUnreadable_ = false;
  if (unlink(journal_.c_str()) != 0 && errno != ENOENT) throw FileError("cannot remove", journal_, errno);
  librarySize_ = bytes.size();
  journalSize_ = 0;
  wantsWhole_ = false;
}

void ClipboardFolder::append(std::span<const LibraryChange> changes) {
  constexpr std::uint64_t shortJournal = 1 << 20;
  // Without its library the journal would be taken for that of a history that was deleted.
  const auto library = fileStatus(store_.url);
  if (!library || !library->isRegular) wantsWhole_ = true;
  if (wantsWhole_) throw FileError("cannot add to", journal_, ENOENT);
  std::string lines;
  for (const LibraryChange& change : changes) lines += journalLine(change);
  wantsWhole_ = true;
  appendToFile(journal_, lines);
  journalSize_ += lines.size();
  wantsWhole_ = journalSize_ > std::max(librarySize_, shortJournal);
}

std::string ClipboardFolder::saveImage(std::string_view png) {
  const std::string name = imageName(png);
  const std::filesystem::path path = imagePath(name);
  const auto status = fileStatus(path);
  if (status && status->isRegular && status->size == png.size()) return name;
  makePrivate();
  makeFolders(path.parent_path());
  writeAtomically(path, png);
  return name;
}

std::filesystem::path ClipboardFolder::imagePath(std::string_view name) const { return folder_ / "Images" / name; }

void ClipboardFolder::removeImages(std::span<const std::string> names) {
  for (const std::string& name : names)
    if (isImageName(name)) unlink(imagePath(name).c_str());
}

int ClipboardFolder::sweepOrphans(const std::set<std::string>& used) {
  std::error_code ignored;
  if (isUnreadable_ || std::filesystem::exists(asideName(store_.url, 1), ignored)) return 0;
  int removed = 0;
  std::filesystem::directory_iterator entries(folder_ / "Images", ignored);
  if (ignored) return 0;
  for (const auto& entry : entries) {
    const std::string name = entry.path().filename().string();
    if (isImageName(name) && !used.contains(name) && unlink(entry.path().c_str()) == 0) ++removed;
  }
  return removed;
}

void ClipboardFolder::makePrivate() const {
  makeFolders(folder_);
  if (chmod(folder_.c_str(), 0700) != 0) throw FileError("cannot set the permissions of", folder_, errno);
}

void ClipboardFolder::setAside() const {
  constexpr int most = 99;
  for (int number = 1; number <= most; ++number) {
    const std::filesystem::path aside = asideName(store_.url, number);
    if (link(store_.url.c_str(), aside.c_str()) != 0 && errno != ENOENT) {
      if (errno == EEXIST) continue;
      // A file system without hard links.
      if (rename(store_.url.c_str(), aside.c_str()) != 0) throw FileError("cannot set aside", store_.url, errno);
    }
    const std::filesystem::path journal = asideName(journal_, number);
    if (rename(journal_.c_str(), journal.c_str()) != 0 && errno != ENOENT)
      throw FileError("cannot set aside", journal_, errno);
    return;
  }
  throw FileError("cannot set aside", store_.url, EEXIST);
}

ClipboardLibrary readLibrary(const std::filesystem::path& folder) { return ClipboardFolder(folder).load(); }

}  // namespace ambrel
