#include "core/disk/DiskScanner.h"

#include <atomic>
#include <limits>
#include <mutex>
#include <sys/statvfs.h>
#include <tbb/task_group.h>

#include "core/base/Text.h"
#include "core/disk/FolderReader.h"

namespace ambrel {
namespace {

using disk::FolderReader;
using disk::Volume;

// How many folders one walk keeps open; deeper ones are reached again through "..".
constexpr std::size_t openFolders = 16;
constexpr unsigned wantedFields = STATX_TYPE | STATX_BLOCKS | STATX_MTIME | STATX_ATIME | STATX_INO | disk::mountField;

// What all tasks of one scan share.
struct ScanState {
  ScanState(const DiskScanner& scanner, const DiskScanWatch& watcher, bool hasAccessTimes, std::stop_token token)
      : settings(scanner), watch(watcher), knowsAccess(hasAccessTimes), stop(std::move(token)) {}

  const DiskScanner& settings;
  const DiskScanWatch& watch;
  const bool knowsAccess;
  const std::stop_token stop;
  std::atomic<std::int64_t> files = 0;
  std::atomic<std::int64_t> bytes = 0;
  std::atomic<double> share = 0;
  std::atomic<bool> passedVolume = false;
  std::mutex lock;
  std::vector<std::string> skipped;

  void count(std::int64_t size) {
    const std::int64_t total = bytes.fetch_add(size, std::memory_order_relaxed) + size;
    const std::int64_t seen = files.fetch_add(1, std::memory_order_relaxed) + 1;
    if (seen % 500 == 0 && watch.progress) watch.progress({.files = seen, .bytes = total}, share);
  }
  void see(double part) { share.fetch_add(part, std::memory_order_relaxed); }
  void skip(std::string path) {
    const std::scoped_lock hold(lock);
    skipped.push_back(std::move(path));
  }
  bool excludes(const std::string& path) const {
    return fixedExclusions().contains(path) || settings.excluded.contains(path);
  }
};

// A subfolder that has been seen and not entered yet.
struct PendingFolder {
  std::string name;
  std::uint64_t inode = 0;
  Instant modified = distantPast;
  bool isPackage = false;
};

// A folder whose children are being gathered.
struct OpenFolder {
  OpenFolder(FileDescriptor handle, const PendingFolder& folder, std::string name, std::int64_t minItemSize)
      : fd(std::move(handle)),
        inode(folder.inode),
        isPackage(folder.isPackage),
        builder(std::move(name), folder.modified, minItemSize) {}

  FileDescriptor fd;
  std::uint64_t inode;
  bool isPackage;
  DiskFolderBuilder builder;
  std::vector<PendingFolder> pending;
  std::size_t next = 0;
  double childShare = 0;

  DiskItem build() && { return std::move(builder).build(isPackage ? DiskItem::Kind::package : DiskItem::Kind::folder); }
};

// Application folders of the AppDir kind have no extension of their own; these entries give them away.
class AppFolderSigns {
 public:
  void see(std::string_view name) {
    if (name == "AppRun") hasStarter_ = true;
    if (name == ".DirIcon" || name == "AppInfo.xml" || name.ends_with(".desktop")) hasDescription_ = true;
  }
  bool isApp() const { return hasStarter_ && hasDescription_; }

 private:
  bool hasStarter_ = false, hasDescription_ = false;
};

// Lists one open folder: files go into its builder, subfolders become pending. The folder itself and each subfolder
// take an equal part of its share.
void list(ScanState& state, FolderReader& reader, const Volume& volume, const std::string& path, double share,
          OpenFolder& folder) {
  AppFolderSigns signs;
  const bool isWhole = reader.read(folder.fd, [&](const char* name, unsigned char type) {
    if (type != DT_REG && type != DT_DIR && type != DT_UNKNOWN) {
      if (type == DT_LNK) signs.see(name);
      return;
    }
    struct statx info;
    if (!disk::entryStatus(folder.fd.get(), name, wantedFields, info)) return;
    if (S_ISREG(info.stx_mode)) {
      // One that is mounted here belongs to another place.
      if (volume.mount && disk::volumeOf(info).mount != volume.mount) {
        state.passedVolume = true;
        return;
      }
      const auto size = static_cast<std::int64_t>(info.stx_blocks) * 512;
      const auto accessed = state.knowsAccess ? std::optional(disk::instantOf(info.stx_atime)) : std::nullopt;
      folder.builder.addFile(name, size, disk::instantOf(info.stx_mtime), accessed);
      state.count(size);
      signs.see(name);
    } else if (S_ISDIR(info.stx_mode)) {
      if (disk::volumeOf(info) != volume) {
        state.passedVolume = true;
        return;
      }
      folder.pending.push_back({.name = name,
                                .inode = info.stx_ino,
                                .modified = disk::instantOf(info.stx_mtime),
                                .isPackage = hasPackageExtension(name)});
    }
  });
  folder.isPackage = folder.isPackage || signs.isApp();
  std::erase_if(folder.pending,
                [&](const PendingFolder& child) { return state.excludes(joinedPath(path, child.name)); });
  if (!isWhole) state.skip(path);
  folder.childShare = share / static_cast<double>(folder.pending.size() + 1);
  state.see(folder.childShare);
}

// Opens and lists a subfolder. A folder that may not be read is recorded and gives an empty node; one that is gone,
// or is not a folder any more, gives nothing.
std::optional<OpenFolder> enter(ScanState& state, FolderReader& reader, const Volume& volume, int parent,
                                const std::string& path, double share, const PendingFolder& pending) {
  if (state.stop.stop_requested()) throw Cancelled();
  FileDescriptor fd = disk::openFolderAt(parent, pending.name.c_str());
  if (!fd) {
    state.see(share);
    if (errno == ENOENT || errno == ENOTDIR || errno == ELOOP) return std::nullopt;
  }
  OpenFolder folder(std::move(fd), pending, pending.name, state.settings.minItemSize);
  if (folder.fd) {
    list(state, reader, volume, path, share, folder);
  } else {
    state.skip(path);
  }
  return folder;
}

// One folder and all below it, in this thread and without recursion: a tree may be deeper than the stack.
class SequentialWalk {
 public:
  SequentialWalk(ScanState& state, const Volume& volume, std::string path)
      : state_(state), volume_(volume), path_(std::move(path)) {}

  std::optional<DiskItem> walk(int parent, double share, const PendingFolder& first) {
    auto folder = enter(state_, reader_, volume_, parent, path_, share, first);
    if (!folder) return std::nullopt;
    stack_.push_back(std::move(*folder));
    for (;;) {
      OpenFolder& top = stack_.back();
      if (top.next < top.pending.size()) {
        descend(top);
      } else if (auto done = ascend()) {
        return done;
      }
    }
  }

 private:
  void descend(OpenFolder& top) {
    const PendingFolder child = std::move(top.pending[top.next++]);
    const std::size_t length = path_.size();
    path_ += '/';
    path_ += child.name;
    if (!top.fd) {
      state_.skip(path_);
      state_.see(top.childShare);
      path_.resize(length);
      return;
    }
    auto folder = enter(state_, reader_, volume_, top.fd.get(), path_, top.childShare, child);
    if (!folder) {
      path_.resize(length);
      return;
    }
    lengths_.push_back(length);
    stack_.push_back(std::move(*folder));
    if (stack_.size() > openFolders) stack_[stack_.size() - 1 - openFolders].fd.reset();
  }

  // Finishes the innermost folder; the outermost is handed back.
  std::optional<DiskItem> ascend() {
    OpenFolder done = std::move(stack_.back());
    stack_.pop_back();
    if (stack_.empty()) return std::move(done).build();
    path_.resize(lengths_.back());
    lengths_.pop_back();
    OpenFolder& parent = stack_.back();
    if (!parent.fd && done.fd) reopen(parent, done.fd.get());
    parent.builder.add(std::move(done).build());
    return std::nullopt;
  }

  // The folder may have been moved since; then its parent is another one, and what was pending counts as unread.
  static void reopen(OpenFolder& folder, int child) {
    FileDescriptor fd = disk::openFolderAt(child, "..");
    struct statx info;
    if (fd && disk::entryStatus(fd.get(), "", STATX_INO, info) && info.stx_ino == folder.inode)
      folder.fd = std::move(fd);
  }

  ScanState& state_;
  const Volume volume_;
  FolderReader reader_;
  std::string path_;
  std::vector<std::size_t> lengths_;
  std::vector<OpenFolder> stack_;
};

// The two upper levels, whose subfolders are walked by tasks of their own. No task waits for another one: the last
// child that is finished finishes its folder.
class ParallelWalk {
 public:
  ParallelWalk(ScanState& state, const Volume& volume) : state_(state), volume_(volume) {}

  DiskItem walk(OpenFolder root, const std::string& path) {
    FolderReader reader;
    list(state_, reader, volume_, path, 1, root);
    announce(root);
    for (const PendingFolder& child : root.pending)
      group_.run([this, &root, &child, childPath = joinedPath(path, child.name)] {
        finishing([&] { walkUpper(root, child, childPath); });
      });
    group_.wait();
    if (state_.stop.stop_requested()) throw Cancelled();
    return std::move(root).build();
  }

 private:
  struct Branch {
    Branch(OpenFolder opened, OpenFolder& above) : folder(std::move(opened)), parent(above) {}
    OpenFolder folder;
    OpenFolder& parent;
    std::mutex lock;
    std::size_t remaining = 0;
  };

  // A cancelled task ends; `walk` throws once all have ended.
  template <typename Work>
  static void finishing(const Work& work) {
    try {
      work();
    } catch (const Cancelled&) {
    }
  }

  void announce(const OpenFolder& root) const {
    if (!state_.watch.listed) return;
    std::vector<std::string> names;
    for (const PendingFolder& child : root.pending) names.push_back(child.name);
    state_.watch.listed(names);
  }

  void walkUpper(OpenFolder& root, const PendingFolder& pending, const std::string& path) {
    FolderReader reader;
    auto opened = enter(state_, reader, volume_, root.fd.get(), path, root.childShare, pending);
    if (!opened) return;
    const auto branch = std::make_shared<Branch>(std::move(*opened), root);
    branch->remaining = branch->folder.pending.size();
    if (branch->remaining == 0) {
      finish(*branch);
      return;
    }
    for (const PendingFolder& child : branch->folder.pending)
      group_.run([this, branch, &child, childPath = joinedPath(path, child.name)] {
        finishing([&] {
          SequentialWalk walk(state_, volume_, childPath);
          auto item = walk.walk(branch->folder.fd.get(), branch->folder.childShare, child);
          const std::scoped_lock hold(branch->lock);
          if (item) branch->folder.builder.add(std::move(*item));
          if (--branch->remaining == 0) finish(*branch);
        });
      });
  }

  void finish(Branch& branch) {
    branch.folder.fd.reset();
    DiskItem item = std::move(branch.folder).build();
    if (state_.watch.finished) state_.watch.finished(item);
    const std::scoped_lock hold(rootLock_);
    branch.parent.builder.add(std::move(item));
  }

  ScanState& state_;
  const Volume volume_;
  std::mutex rootLock_;
  tbb::task_group group_;
};

}  // namespace

const std::set<std::string, std::less<>>& fixedExclusions() {
  static const std::set<std::string, std::less<>> paths{
      "/System", "/dev", "/cores", "/private/var/vm", "/private/var/db", "/.Spotlight-V100", "/.fseventsd",
      "/.DocumentRevisions-V100", "/.MobileBackups",
      // The kernel's own trees and what lives only until the next start.
      "/proc", "/sys", "/run"};
  return paths;
}

bool recordsAccess(const FileDescriptor& folder) {
  struct statvfs volume;
  return fstatvfs(folder.get(), &volume) != 0 || !(volume.f_flag & ST_NOATIME);
}

bool hasPackageExtension(std::string_view name) {
  static const std::set<std::string, std::less<>> extensions{
      "app",           "bundle",     "kext",          "plugin",       "xcodeproj",    "xcworkspace",
      "xcarchive",     "playground", "pkg",           "mpkg",         "rtfd",         "pages",
      "numbers",       "key",        "photoslibrary", "photolibrary", "musiclibrary", "tvlibrary",
      "imovielibrary", "fcpbundle",  "logicx",        "band",         "sparsebundle", "download",
      "prefpane",      "saver",      "qlgenerator",   "mdimporter",   "component",    "vst",
      "vst3",          "workflow",   "action",        "wdgt",         "scptd",        "appdir"};
  const auto dot = name.rfind('.');
  if (dot == name.npos || dot == 0) return false;
  return extensions.contains(asciiLower(name.substr(dot + 1)));
}

DiskScanResult DiskScanner::scan(const std::string& root, const std::function<void(const DiskScanProgress&)>& progress,
                                 std::stop_token stop) const {
  DiskScanWatch watch;
  if (progress) watch.progress = [&](const DiskScanProgress& seen, double) { progress(seen); };
  return scan(root, watch, std::move(stop));
}

DiskScanResult DiskScanner::scan(const std::string& root, const DiskScanWatch& watch, std::stop_token stop) const {
  const std::string path = standardizedPath(root);
  FileDescriptor fd(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  struct statx info;
  if (!fd || !disk::entryStatus(fd.get(), "", wantedFields, info)) throw FileError("cannot read", path, errno);

  if (stop.stop_requested()) throw Cancelled();
  ScanState state(*this, watch, recordsAccess(fd), std::move(stop));
  const PendingFolder top{.name = path,
                          .inode = info.stx_ino,
                          .modified = disk::instantOf(info.stx_mtime),
                          .isPackage = hasPackageExtension(path)};
  ParallelWalk walk(state, disk::volumeOf(info));
  DiskTree tree = makeTree(walk.walk(OpenFolder(std::move(fd), top, path, minItemSize), path));
  if (watch.progress) watch.progress({.files = state.files, .bytes = state.bytes}, 1);
  return {.root = std::move(tree), .skipped = std::move(state.skipped)};
}

std::optional<AllocatedSpace> allocatedSpace(const FileDescriptor& folder, const std::string& name) {
  struct statx info;
  struct statx holder;
  if (!disk::entryStatus(folder.get(), name.c_str(), wantedFields, info) ||
      !disk::entryStatus(folder.get(), "", wantedFields, holder))
    return std::nullopt;
  const auto place = disk::volumeOf(holder);
  const bool isMounted = place.mount && disk::volumeOf(info).mount != place.mount;
  if (S_ISREG(info.stx_mode))
    return AllocatedSpace{.bytes = static_cast<std::int64_t>(info.stx_blocks) * 512, .holdsVolume = isMounted};
  if (!S_ISDIR(info.stx_mode)) return AllocatedSpace{.holdsVolume = isMounted};
  const DiskScanner scanner{.minItemSize = std::numeric_limits<std::int64_t>::max()};
  const DiskScanWatch nobody;
  ScanState state(scanner, nobody, false, {});
  SequentialWalk walk(state, disk::volumeOf(info), name);
  const auto item = walk.walk(folder.get(), 1, {.name = name, .inode = info.stx_ino});
  if (!item) return std::nullopt;
  return AllocatedSpace{.bytes = item->size(),
                        .isWhole = state.skipped.empty(),
                        .holdsVolume = isMounted || state.passedVolume,
                        .isFolder = true};
}

}  // namespace ambrel
