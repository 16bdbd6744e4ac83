#include "core/disk/Duplicates.h"

#include <algorithm>
#include <atomic>
#include <fcntl.h>
#include <map>
#include <sys/stat.h>
#include <tbb/enumerable_thread_specific.h>
#include <tbb/parallel_for.h>
#include <tbb/task_arena.h>

#include "core/disk/FileContent.h"
#include "core/disk/Handles.h"

namespace ambrel {
namespace {

constexpr std::int64_t reportEvery = 1 << 22;

struct ComparedFile {
  const DuplicateCandidate* candidate = nullptr;
  FileIdentity identity;
  bool isUsable = false;
  bool hasOtherNames = false;
  bool mayHaveHoles = false;
  Digest head{}, tail{}, middle{};

  std::int64_t space() const { return candidate->node->size(); }
};

using Group = std::vector<ComparedFile*>;

// Splits by `key`, larger files first; keeps groups of two or more.
template <typename Key>
std::vector<Group> grouped(const std::vector<ComparedFile*>& files, const Key& key) {
  std::map<decltype(key(*files.front())), Group> byKey;
  for (ComparedFile* file : files)
    if (file->isUsable) byKey[key(*file)].push_back(file);
  std::vector<Group> groups;
  for (auto it = byKey.rbegin(); it != byKey.rend(); ++it)
    if (it->second.size() > 1) groups.push_back(std::move(it->second));
  return groups;
}

std::vector<ComparedFile*> joined(const std::vector<Group>& groups) {
  std::vector<ComparedFile*> files;
  for (const Group& group : groups) files.insert(files.end(), group.begin(), group.end());
  return files;
}

class Comparison {
 public:
  Comparison(std::int64_t window, const AnalysisControl& control)
      : window_(static_cast<std::uint64_t>(std::max<std::int64_t>(window, 0))), control_(control) {}

  // Groups of equal files.
  std::vector<Group> run(std::vector<ComparedFile>& files) {
    std::vector<ComparedFile*> all;
    all.reserve(files.size());
    for (ComparedFile& file : files) all.push_back(&file);
    each(all, [](ComparedFile& file, ContentHasher&) { ask(file); });
    keepOneNameOfEach(all);
    auto rest = joined(grouped(all, [](const ComparedFile& f) { return std::pair(f.space(), f.identity.size); }));

    for (const ComparedFile* file : rest) expected_ += file->space();
    each(rest, [this](ComparedFile& file, ContentHasher& hasher) { readEnds(file, hasher); });
    const auto ends = [](const ComparedFile& f) { return std::tuple(f.space(), f.identity.size, f.head, f.tail); };
    std::vector<ComparedFile*> alike = joined(grouped(rest, ends));
    expected_ = bytes_.load();
    for (const ComparedFile* file : alike) expected_ += middleOf(*file).second - middleOf(*file).first;

    each(alike, [this](ComparedFile& file, ContentHasher& hasher) { readMiddle(file, hasher); });
    return grouped(alike, [&](const ComparedFile& f) { return std::tuple_cat(ends(f), std::tuple(f.middle)); });
  }

 private:
  template <typename Work>
  void each(const std::vector<ComparedFile*>& files, const Work& work) {
    arena_.execute([&] {
      tbb::parallel_for(
          std::size_t{0}, files.size(),
          [&](std::size_t i) {
            if (control_.stop.stop_requested()) throw Cancelled();
            work(*files[i], hashers_.local());
          },
          tbb::simple_partitioner());
    });
  }

  static void ask(ComparedFile& file) {
    struct stat info;
    if (fstatat(AT_FDCWD, file.candidate->path.c_str(), &info, AT_SYMLINK_NOFOLLOW) != 0 || !S_ISREG(info.st_mode))
      return;
    file.isUsable = true;
    file.identity.device = info.st_dev;
    file.identity.inode = info.st_ino;
    file.identity.size = static_cast<std::uint64_t>(info.st_size);
    file.hasOtherNames = info.st_nlink > 1;
    file.mayHaveHoles = info.st_blocks * 512 < info.st_size;
  }

  static void keepOneNameOfEach(const std::vector<ComparedFile*>& files) {
    std::set<std::pair<std::uint64_t, std::uint64_t>> seen;
    for (ComparedFile* file : files)
      if (file->isUsable && file->hasOtherNames)
        file->isUsable = seen.insert({file->identity.device, file->identity.inode}).second;
  }

  std::uint64_t tailStart(const ComparedFile& file) const {
    const std::uint64_t length = file.identity.size;
    return length <= window_ ? length : std::max(window_, length - window_);
  }
  std::pair<std::uint64_t, std::uint64_t> middleOf(const ComparedFile& file) const {
    return {std::min(window_, file.identity.size), tailStart(file)};
  }

  void readEnds(ComparedFile& file, ContentHasher& hasher) {
    file.isUsable = false;
    const FileDescriptor handle = openQuietly(file.candidate->path);
    const auto identity = handle ? identityOf(handle) : std::nullopt;
    if (!identity || !identity->isSameFile(file.identity) || identity->size != file.identity.size) return;
    if (sharesBlocks(handle)) return;
    file.identity = *identity;
    file.isUsable = read(file, handle, hasher, 0, std::min(window_, identity->size), file.head) &&
                    read(file, handle, hasher, tailStart(file), identity->size, file.tail) && isUnchanged(file, handle);
  }

  void readMiddle(ComparedFile& file, ContentHasher& hasher) {
    const auto [from, to] = middleOf(file);
    if (from >= to) return;
    const FileDescriptor handle = openQuietly(file.candidate->path);
    file.isUsable = handle && isUnchanged(file, handle) && read(file, handle, hasher, from, to, file.middle) &&
                    isUnchanged(file, handle);
  }

  bool read(const ComparedFile& file, const FileDescriptor& handle, ContentHasher& hasher, std::uint64_t from,
            std::uint64_t to, Digest& out) {
    if (from >= to) return true;
    const auto digest =
        hasher.digest(handle, from, to, file.mayHaveHoles, [this](std::int64_t count) { report(count); });
    if (digest) out = *digest;
    return digest.has_value();
  }

  // A digest is worth nothing when the file was written to meanwhile.
  static bool isUnchanged(const ComparedFile& file, const FileDescriptor& handle) {
    return identityOf(handle) == file.identity;
  }

  void report(std::int64_t count) {
    if (control_.stop.stop_requested()) throw Cancelled();
    const std::int64_t before = bytes_.fetch_add(count);
    if (control_.progress && before / reportEvery != (before + count) / reportEvery)
      control_.progress({.bytes = before + count, .expected = expected_});
  }

  const std::uint64_t window_;
  const AnalysisControl& control_;
  std::atomic<std::int64_t> bytes_ = 0;
  std::int64_t expected_ = 0;
  tbb::task_arena arena_{2};
  tbb::enumerable_thread_specific<ContentHasher> hashers_;
};

bool isOlder(const ComparedFile* a, const ComparedFile* b) {
  const DuplicateCandidate &x = *a->candidate, &y = *b->candidate;
  if (x.node->modified() != y.node->modified()) return x.node->modified() < y.node->modified();
  // A copy's name is mostly the longer one.
  if (x.path.size() != y.path.size()) return x.path.size() < y.path.size();
  return x.path < y.path;
}

CleanupItem itemFor(const ComparedFile& copy, const ComparedFile& keeper) {
  const DiskItem& node = *copy.candidate->node;
  const DiskItem& kept = *keeper.candidate->node;
  std::string title = std::string(node.name()) + ", a copy of ";
  if (kept.parent()) title += std::string(kept.parent()->name()) + "/";
  title += kept.name();
  return {.url = copy.candidate->path,
          .title = std::move(title),
          .bytes = node.size(),
          .modified = node.modified() == distantPast ? std::nullopt : std::optional(node.modified()),
          .identity = copy.identity,
          .kept = KeptCopy{.url = keeper.candidate->path, .identity = keeper.identity}};
}

}  // namespace

std::vector<CleanupItem> findDuplicates(const std::vector<DuplicateCandidate>& candidates, std::int64_t window,
                                        const AnalysisControl& control) {
  std::map<std::int64_t, std::vector<const DuplicateCandidate*>> bySize;
  for (const DuplicateCandidate& candidate : candidates) bySize[candidate.node->size()].push_back(&candidate);
  std::vector<ComparedFile> files;
  for (const auto& [size, same] : bySize) {
    if (same.size() < 2) continue;
    for (const DuplicateCandidate* candidate : same) {
      files.emplace_back();
      files.back().candidate = candidate;
    }
  }
  std::vector<CleanupItem> items;
  Comparison comparison(window, control);
  for (Group& group : comparison.run(files)) {
    std::sort(group.begin(), group.end(), isOlder);
    for (std::size_t i = 1; i < group.size(); ++i)
      if (!group[i]->hasOtherNames) items.push_back(itemFor(*group[i], *group.front()));
  }
  return items;
}

}  // namespace ambrel
