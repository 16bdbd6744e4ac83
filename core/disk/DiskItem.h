#pragma once
// The size tree: what a scan returns, and what the rules, the words and the sunburst read.

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/base/EnumText.h"
#include "core/base/Instant.h"

namespace ambrel {

// 0001-01-01T00:00:00Z: a date that is not known.
inline constexpr Instant distantPast{std::chrono::sys_days(std::chrono::year(1) / 1 / 1)};

// One node. A tree is immutable once built and is shared whole: hold the pointer to the root, or one from `shared`,
// which keeps the root alive.
//
// A node stores its name and its parent, not its path: paths of a deep tree would take more than the rest of it.
class DiskItem {
 public:
  // `package`: a folder that the desktop shows as one file. `smallItems`: all children of a folder that are below
  // the scan's threshold, as one node without children.
  enum class Kind { file, folder, package, smallItems };

  DiskItem(DiskItem&&) noexcept = default;
  DiskItem& operator=(DiskItem&&) noexcept = default;
  // Not recursive, so that a tree of any depth can go.
  ~DiskItem();

  // The path; for `smallItems` the folder's path with "/\u{1}small" behind it.
  std::string id() const;
  // The path; for `smallItems` the folder's.
  std::string url() const;
  // The last path component ("/" for the root of the file system); "Smaller items" for `smallItems`.
  std::string_view name() const;
  Kind kind() const { return kind_; }
  // Bytes on disk; for a folder the sum over all its children, the folded ones too.
  std::int64_t size() const { return size_; }
  // Files below; 1 for a file.
  std::int64_t fileCount() const { return fileCount_; }
  // Last change of the content; for a folder the newest of its own and its children's. `distantPast` when unknown.
  Instant modified() const { return modified_; }
  // Last access to the content, of files alone; absent on a volume that does not note it.
  std::optional<Instant> accessed() const { return accessed_; }
  // Largest first.
  std::span<const DiskItem> children() const { return children_; }
  const DiskItem* parent() const { return parent_; }

  bool hasChildren() const { return kind_ == Kind::folder || kind_ == Kind::package; }

 private:
  friend class DiskFolderBuilder;
  friend std::shared_ptr<const DiskItem> makeTree(DiskItem root);
  friend DiskItem outline(const DiskItem& item, int levels, std::int64_t minItemSize);
  DiskItem(std::string name, Kind kind) : name_(std::move(name)), kind_(kind) {}

  std::string name_;  // of a root: its whole path
  const DiskItem* parent_ = nullptr;
  std::vector<DiskItem> children_;
  std::int64_t size_ = 0;
  std::int64_t fileCount_ = 0;
  Instant modified_ = distantPast;
  std::optional<Instant> accessed_;
  Kind kind_;
};

using DiskTree = std::shared_ptr<const DiskItem>;

// Gathers the children of one folder. Files below the threshold never become nodes; they survive in the sums.
class DiskFolderBuilder {
 public:
  // `name`: of the tree's root, its whole path. `modified`: the folder's own date.
  DiskFolderBuilder(std::string name, Instant modified, std::int64_t minItemSize);

  void addFile(std::string_view name, std::int64_t size, Instant modified, std::optional<Instant> accessed);
  void add(DiskItem item);
  // `kind` is folder or package.
  DiskItem build(DiskItem::Kind kind) &&;

 private:
  void addSmall(std::int64_t size, std::int64_t fileCount, Instant modified);

  DiskItem folder_;
  std::int64_t minItemSize_;
  bool hasSmall_ = false;
  DiskItem small_;
};

// Ties the nodes to their parents. `root` must not have been part of another tree.
DiskTree makeTree(DiskItem root);

// A copy that reaches `levels` below `item`, with children below `minItemSize` folded. It has no parent.
DiskItem outline(const DiskItem& item, int levels, std::int64_t minItemSize);

// A node of the tree, together with a share in the whole.
DiskTree shared(const DiskTree& tree, const DiskItem& node);

// The node at `path`, absent when it is outside the tree, was folded away or does not exist. "." and ".." and
// doubled slashes are resolved by their spelling; symbolic links are not looked at.
const DiskItem* find(const DiskItem& root, std::string_view path);

// `path` without ".", "..", doubled and trailing slashes, by spelling alone. "" stays "".
std::string standardizedPath(std::string_view path);
// True when `path` is `folder` or is under it. Both standardized.
bool isWithin(std::string_view path, std::string_view folder);
// `folder` and `name` with one slash between them.
std::string joinedPath(std::string_view folder, std::string_view name);

}  // namespace ambrel
