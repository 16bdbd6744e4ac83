#include "core/disk/Duplicates.h"

#include <algorithm>
#include <atomic>
#include <fcntl.h>
#include <iterator>
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
// How many bytes of files are kept in memory to be compared with each other; two groups at a time.
constexpr std::uint64_t keptBytes = 1 << 22;
// Of each file, when a few large ones are read side by side.
constexpr std::uint64_t chunkBytes = 1 << 18;

struct ComparedFile {
  const DuplicateCandidate* candidate = nullptr;
  std::int64_t space = 0;
  FileIdentity identity;
  bool isUsable = false;
  bool hasOtherNames = false;
  bool mayHaveHoles = false;
  std::string_view content = {};  // what was read last, while its group is compared by bytes
  FileDescriptor handle = {};     // while its group is read side by side
  Digest head{}, tail{}, middle{};
};

using Group = std::vector<ComparedFile*>;

auto lengthOf(const ComparedFile& file) { return std::pair(file.space, file.identity.size); }

// Splits by `key`, larger files first; keeps groups of two or more.
template <typename Key>
std::vector<Group> grouped(Group files, const Key& key) {
  std::erase_if(files, [](const ComparedFile* file) { return !file->isUsable; });
  std::stable_sort(files.begin(), files.end(),
                   [&](const ComparedFile* a, const ComparedFile* b) { return key(*b) < key(*a); });
  std::vector<Group> groups;
  for (auto first = files.begin(); first != files.end();) {
    const auto last =
        std::find_if(first, files.end(), [&](const ComparedFile* file) { return key(*file) != key(**first); });
    if (last - first > 1) groups.emplace_back(first, last);
    first = last;
  }
  return groups;
}

std::vector<Group> groupedByContent(Group files) {
  return grouped(std::move(files), [](const ComparedFile& file) { return file.content; });
}

bool mayHaveHoles(const Group& group) {
  return std::any_of(group.begin(), group.end(), [](const ComparedFile* file) { return file->mayHaveHoles; });
}

void append(std::vector<Group>& groups, std::vector<Group> more) {
  std::move(more.begin(), more.end(), std::back_inserter(groups));
}

Group joined(const std::vector<Group>& groups) {
  Group files;
  for (const Group& group : groups) files.insert(files.end(), group.begin(), group.end());
  return files;
}

class Comparison {
 public:
  Comparison(std::int64_t window, const AnalysisControl& control)
      : window_(static_cast<std::uint64_t>(std::max<std::int64_t>(window, 0))), control_(control) {}

  // Groups of equal files, larger ones first.
  std::vector<Group> run(std::vector<ComparedFile>& files) {
    Group all;
    all.reserve(files.size());
    for (ComparedFile& file : files) all.push_back(&file);
    each(all.size(), [&](std::size_t i, Worker&) { ask(*all[i]); });
    keepOneNameOfEach(all);

    std::vector<Group> small, large;
    for (Group& group : grouped(std::move(all), lengthOf)) {
      expected_ += group.front()->space * static_cast<std::int64_t>(group.size());
      (isKeptInMemory(group) ? small : large).push_back(std::move(group));
    }
    std::vector<Group> equal =
        splitEach(std::move(small), [this](const Group& group, Worker& worker) { return compareWhole(group, worker); });
    append(equal, compareLarge(joined(large)));
    std::stable_sort(equal.begin(), equal.end(),
                     [](const Group& a, const Group& b) { return lengthOf(*b.front()) < lengthOf(*a.front()); });
    return equal;
  }

 private:
  struct Worker {
    ContentHasher hasher;
    std::vector<char> contents;

    char* room(std::size_t count) {
      if (contents.size() < count) contents.resize(count);
      return contents.data();
    }
  };

  // Calls work(index, worker) for each index below `count`, two at a time.
  template <typename Work>
  void each(std::size_t count, const Work& work) {
    arena_.execute([&] {
      tbb::parallel_for(
          std::size_t{0}, count,
          [&](std::size_t i) {
            if (control_.stop.stop_requested()) throw Cancelled();
            work(i, workers_.local());
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

  static void keepOneNameOfEach(const Group& files) {
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

  // The groups that split(group, worker) makes of each.
  template <typename Split>
  std::vector<Group> splitEach(std::vector<Group> groups, const Split& split) {
    std::vector<std::vector<Group>> parts(groups.size());
    each(groups.size(), [&](std::size_t i, Worker& worker) { parts[i] = split(groups[i], worker); });
    std::vector<Group> all;
    for (std::vector<Group>& part : parts) append(all, std::move(part));
    return all;
  }

  // Files that would be read whole in any case, few enough to be held side by side. Holes are left to the digests.
  bool isKeptInMemory(const Group& group) const {
    const auto [from, to] = middleOf(*group.front());
    return from >= to && group.front()->identity.size <= keptBytes / group.size() && !mayHaveHoles(group);
  }

  // By the bytes themselves, since a small file's digest costs more than all else that is done with it.
  std::vector<Group> compareWhole(const Group& group, Worker& worker) {
    const std::size_t length = group.front()->identity.size;
    char* place = worker.room(length * group.size());
    for (ComparedFile* file : group) {
      readWhole(*file, place);
      place += length;
    }
    return groupedByContent(group);
  }

  // The ends by digests, as many files may share a length and most differ there; then what is between.
  std::vector<Group> compareLarge(Group files) {
    each(files.size(), [&](std::size_t i, Worker& worker) { readEnds(*files[i], worker.hasher); });
    const auto ends = [](const ComparedFile& f) { return std::tuple(lengthOf(f), f.head, f.tail); };
    expected_ = bytes_.load();
    std::vector<Group> few, many;
    for (Group& group : grouped(std::move(files), ends)) {
      const auto [from, to] = middleOf(*group.front());
      expected_ += static_cast<std::int64_t>((to - from) * group.size());
      const bool isFew = group.size() <= keptBytes / chunkBytes && !mayHaveHoles(group);
      (isFew ? few : many).push_back(std::move(group));
    }
    std::vector<Group> equal =
        splitEach(std::move(few), [this](const Group& group, Worker& worker) { return compareMiddles(group, worker); });
    Group rest = joined(many);
    each(rest.size(), [&](std::size_t i, Worker& worker) { readMiddle(*rest[i], worker.hasher); });
    append(equal, grouped(std::move(rest), [&](const ComparedFile& f) { return std::tuple(ends(f), f.middle); }));
    return equal;
  }

  // Chunk by chunk and side by side, each file only as far as another one is like it.
  std::vector<Group> compareMiddles(const Group& group, Worker& worker) {
    const auto [from, to] = middleOf(*group.front());
    if (from >= to) return {group};
    for (ComparedFile* file : group) {
      file->handle = openQuietly(file->candidate->path);
      file->isUsable = file->handle && isUnchanged(*file, file->handle);
    }
    std::vector<Group> alike = grouped(group, lengthOf);
    for (std::uint64_t at = from; at < to && !alike.empty(); at += chunkBytes) {
      const std::uint64_t count = std::min(chunkBytes, to - at);
      std::vector<Group> next;
      for (const Group& files : alike) {
        readChunks(files, at, count, worker);
        std::vector<Group> parts = groupedByContent(files);
        const std::size_t dropped = files.size() - joined(parts).size();
        expected_ -= static_cast<std::int64_t>(dropped * (to - at - count));
        append(next, std::move(parts));
      }
      alike = std::move(next);
    }
    for (ComparedFile* file : group) {
      file->isUsable = file->isUsable && isUnchanged(*file, file->handle);
      file->handle.reset();
    }
    std::vector<Group> equal;
    for (Group& files : alike) append(equal, grouped(std::move(files), lengthOf));
    return equal;
  }

  void readChunks(const Group& files, std::uint64_t from, std::uint64_t count, Worker& worker) {
    char* place = worker.room(count * files.size());
    for (ComparedFile* file : files) {
      file->isUsable = readFully(file->handle, place, count, from);
      file->content = {place, count};
      if (file->isUsable) report(static_cast<std::int64_t>(count));
      place += count;
    }
  }

  // Empty when it is not the file any more that was asked about, or shares its blocks.
  static FileDescriptor openAsAsked(ComparedFile& file) {
    FileDescriptor handle = openQuietly(file.candidate->path);
    const auto identity = handle ? identityOf(handle) : std::nullopt;
    if (!identity || !identity->isSameFile(file.identity) || identity->size != file.identity.size ||
        sharesBlocks(handle))
      return {};
    file.identity = *identity;
    return handle;
  }

  void readWhole(ComparedFile& file, char* place) {
    const FileDescriptor handle = openAsAsked(file);
    file.isUsable = handle && readFully(handle, place, file.identity.size, 0) && isUnchanged(file, handle);
    file.content = {place, file.identity.size};
    if (file.isUsable) report(static_cast<std::int64_t>(file.identity.size));
  }

  void readEnds(ComparedFile& file, ContentHasher& hasher) {
    const FileDescriptor handle = openAsAsked(file);
    file.isUsable = handle && read(file, handle, hasher, 0, std::min(window_, file.identity.size), file.head) &&
                    read(file, handle, hasher, tailStart(file), file.identity.size, file.tail) &&
                    isUnchanged(file, handle);
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
  std::atomic<std::int64_t> expected_ = 0;
  tbb::task_arena arena_{2};
  tbb::enumerable_thread_specific<Worker> workers_;
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
      files.back().space = size;
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
