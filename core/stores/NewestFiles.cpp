#include "core/stores/NewestFiles.h"

#include <algorithm>
#include <array>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>

#include "core/base/Text.h"

namespace ambrel {
namespace {

struct Kind {
  std::string_view symbol;
  std::array<std::string_view, 10> suffixes;
};
constexpr std::array kinds{
    Kind{"photo", {"png", "jpg", "jpeg", "gif", "webp", "svg", "heic", "bmp", "tiff", "avif"}},
    Kind{"play.rectangle", {"mp4", "mkv", "webm", "mov", "avi", "m4v"}},
    Kind{"music.note", {"mp3", "flac", "ogg", "opus", "wav", "m4a"}},
    Kind{"doc.zipper", {"zip", "gz", "xz", "zst", "bz2", "tar", "7z", "rar", "tgz", "jar"}},
    Kind{"shippingbox", {"deb", "rpm", "appimage", "flatpak", "iso", "img"}},
    Kind{"doc.text", {"txt", "md", "pdf", "odt", "doc", "docx", "rtf", "tex", "epub", "html"}},
};

std::string_view suffixOf(std::string_view name) {
  const auto dot = name.rfind('.');
  return dot == name.npos ? std::string_view() : name.substr(dot + 1);
}

// What browsers and download programs add to a name until the file is whole.
bool isUnfinished(std::string_view name) {
  constexpr std::array<std::string_view, 6> suffixes{"part",       "crdownload", "download",
                                                     "wkdownload", "opdownload", "partial"};
  return std::ranges::find(suffixes, suffixOf(name)) != suffixes.end();
}

// Some browsers keep the name with an empty file beside the one that they write.
void removePlaceholders(FolderListing& listing) {
  const auto isPlaceholder = [&](const FolderItem& item) {
    return item.bytes == 0 && !item.isFolder && !item.isLoading &&
           std::ranges::any_of(listing.newest, [&](const FolderItem& other) {
             return other.isLoading && other.name.starts_with(item.name) &&
                    suffixOf(other.name).size() + 1 == other.name.size() - item.name.size();
           });
  };
  listing.count -= std::erase_if(listing.newest, isPlaceholder);
}

bool isNewer(const FolderItem& some, const FolderItem& other) {
  return some.modified != other.modified ? some.modified > other.modified : some.name < other.name;
}

}  // namespace

std::optional<FolderListing> newestItems(const std::filesystem::path& folder, std::size_t most, Unfinished unfinished) {
  const std::unique_ptr<DIR, int (*)(DIR*)> open(opendir(folder.c_str()), closedir);
  if (!open) return std::nullopt;
  FolderListing listing;
  auto& newest = listing.newest;
  while (const dirent* entry = readdir(open.get())) {
    const bool isLoading = isUnfinished(entry->d_name);
    if (entry->d_name[0] == '.' || (isLoading && unfinished == Unfinished::passedOver)) continue;
    struct stat info;
    // What a link leads to counts, unless that is gone.
    if (fstatat(dirfd(open.get()), entry->d_name, &info, 0) != 0 &&
        fstatat(dirfd(open.get()), entry->d_name, &info, AT_SYMLINK_NOFOLLOW) != 0)
      continue;
    ++(isLoading ? listing.loading : listing.count);
    const bool isFolder = S_ISDIR(info.st_mode);
    const auto modified = std::chrono::seconds(info.st_mtim.tv_sec) + std::chrono::nanoseconds(info.st_mtim.tv_nsec);
    FolderItem item{.name = entry->d_name,
                    .isFolder = isFolder,
                    .bytes = isFolder ? 0 : info.st_size,
                    .modified = Instant(std::chrono::duration_cast<Instant::duration>(modified)),
                    .isLoading = isLoading};
    // A folder may hold a hundred thousand files, of which a few are shown.
    if (newest.size() == most && !isNewer(item, newest.back())) continue;
    newest.insert(std::ranges::upper_bound(newest, item, isNewer), std::move(item));
    if (newest.size() > most) newest.pop_back();
  }
  removePlaceholders(listing);
  return listing;
}

std::string_view symbolOf(const FolderItem& item) {
  if (item.isLoading) return "arrow.down.circle";
  if (item.isFolder) return "folder.fill";
  const std::string suffix = asciiLower(suffixOf(item.name));
  for (const Kind& kind : kinds)
    if (!suffix.empty() && std::ranges::find(kind.suffixes, suffix) != kind.suffixes.end()) return kind.symbol;
  return "doc";
}

}  // namespace ambrel
