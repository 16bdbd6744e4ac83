#include "core/disk/DiskItem.h"

#include <algorithm>
#include <utility>

#include "core/base/Text.h"

namespace ambrel {
namespace {

constexpr std::string_view smallItemsName = "Smaller items";
constexpr std::string_view smallItemsSuffix = "/\x01small";

std::string_view lastComponent(std::string_view path) {
  while (path.size() > 1 && path.back() == '/') path.remove_suffix(1);
  const auto slash = path.rfind('/');
  return slash == path.npos || path.size() == 1 ? path : path.substr(slash + 1);
}

}  // namespace

DiskItem::~DiskItem() {
  if (children_.empty()) return;
  std::vector<std::vector<DiskItem>> pending;
  pending.push_back(std::move(children_));
  while (!pending.empty()) {
    auto items = std::move(pending.back());
    pending.pop_back();
    for (DiskItem& item : items)
      if (!item.children_.empty()) pending.push_back(std::move(item.children_));
  }
}

std::string DiskItem::url() const {
  const DiskItem* node = kind_ == Kind::smallItems && parent_ ? parent_ : this;
  std::vector<const DiskItem*> chain;
  std::size_t length = 0;
  for (; node; node = node->parent_) {
    chain.push_back(node);
    length += node->name_.size() + 1;
  }
  std::string path;
  path.reserve(length);
  for (auto it = chain.rbegin(); it != chain.rend(); ++it) {
    if (!path.empty() && path.back() != '/') path += '/';
    path += (*it)->name_;
  }
  return path;
}

std::string DiskItem::id() const { return kind_ == Kind::smallItems ? url().append(smallItemsSuffix) : url(); }

std::string_view DiskItem::name() const {
  if (kind_ == Kind::smallItems) return smallItemsName;
  return parent_ ? std::string_view(name_) : lastComponent(name_);
}

DiskFolderBuilder::DiskFolderBuilder(std::string name, Instant modified, std::int64_t minItemSize)
    : folder_(std::move(name), DiskItem::Kind::folder),
      minItemSize_(minItemSize),
      small_({}, DiskItem::Kind::smallItems) {
  folder_.modified_ = modified;
}

void DiskFolderBuilder::addSmall(std::int64_t size, std::int64_t fileCount, Instant modified) {
  hasSmall_ = true;
  small_.size_ += size;
  small_.fileCount_ += fileCount;
  small_.modified_ = std::max(small_.modified_, modified);
}

void DiskFolderBuilder::addFile(std::string_view name, std::int64_t size, Instant modified,
                                std::optional<Instant> accessed) {
  if (size < minItemSize_) {
    addSmall(size, 1, modified);
    return;
  }
  DiskItem file(std::string(name), DiskItem::Kind::file);
  file.size_ = size;
  file.fileCount_ = 1;
  file.modified_ = modified;
  file.accessed_ = accessed;
  add(std::move(file));
}

void DiskFolderBuilder::add(DiskItem item) {
  if (item.size_ < minItemSize_) {
    addSmall(item.size_, item.fileCount_, item.modified_);
    return;
  }
  folder_.size_ += item.size_;
  folder_.fileCount_ += item.fileCount_;
  folder_.modified_ = std::max(folder_.modified_, item.modified_);
  folder_.children_.push_back(std::move(item));
}

DiskItem DiskFolderBuilder::build(DiskItem::Kind kind) && {
  folder_.kind_ = kind;
  if (hasSmall_) {
    folder_.size_ += small_.size_;
    folder_.fileCount_ += small_.fileCount_;
    folder_.modified_ = std::max(folder_.modified_, small_.modified_);
    folder_.children_.push_back(std::move(small_));
  }
  std::stable_sort(folder_.children_.begin(), folder_.children_.end(),
                   [](const DiskItem& a, const DiskItem& b) { return a.size() > b.size(); });
  folder_.children_.shrink_to_fit();
  return std::move(folder_);
}

DiskTree makeTree(DiskItem root) {
  auto tree = std::make_shared<DiskItem>(std::move(root));
  std::vector<DiskItem*> pending{tree.get()};
  while (!pending.empty()) {
    DiskItem* item = pending.back();
    pending.pop_back();
    for (DiskItem& child : item->children_) {
      child.parent_ = item;
      if (!child.children_.empty()) pending.push_back(&child);
    }
  }
  return tree;
}

DiskItem outline(const DiskItem& item, int levels, std::int64_t minItemSize) {
  DiskItem copy(std::string(item.kind_ == DiskItem::Kind::smallItems ? std::string_view() : item.name()), item.kind_);
  copy.size_ = item.size_;
  copy.fileCount_ = item.fileCount_;
  copy.modified_ = item.modified_;
  copy.accessed_ = item.accessed_;
  if (levels <= 0) return copy;
  DiskItem small({}, DiskItem::Kind::smallItems);
  for (const DiskItem& child : item.children_) {
    if (child.size_ >= minItemSize && child.kind_ != DiskItem::Kind::smallItems) {
      copy.children_.push_back(outline(child, levels - 1, minItemSize));
      continue;
    }
    small.size_ += child.size_;
    small.fileCount_ += child.fileCount_;
    small.modified_ = std::max(small.modified_, child.modified_);
  }
  if (small.fileCount_ > 0) copy.children_.push_back(std::move(small));
  std::stable_sort(copy.children_.begin(), copy.children_.end(),
                   [](const DiskItem& a, const DiskItem& b) { return a.size() > b.size(); });
  return copy;
}

DiskTree shared(const DiskTree& tree, const DiskItem& node) { return DiskTree(tree, &node); }

const DiskItem* find(const DiskItem& root, std::string_view path) {
  const std::string base = standardizedPath(root.url());
  const std::string wanted = standardizedPath(path);
  if (!isWithin(wanted, base)) return nullptr;
  std::string_view rest(wanted);
  rest.remove_prefix(std::min(rest.size(), base == "/" ? 1 : base.size() + 1));
  const DiskItem* node = &root;
  if (rest.empty()) return node;
  for (const std::string_view component : split(rest, '/')) {
    const auto children = node->children();
    const auto next = std::find_if(children.begin(), children.end(), [&](const DiskItem& child) {
      return child.kind() != DiskItem::Kind::smallItems && child.name() == component;
    });
    if (next == children.end()) return nullptr;
    node = &*next;
  }
  return node;
}

std::string standardizedPath(std::string_view path) {
  if (path.empty()) return {};
  const bool isAbsolute = path.front() == '/';
  std::vector<std::string_view> kept;
  for (const std::string_view piece : split(path, '/')) {
    if (piece.empty() || piece == ".") continue;
    if (piece != "..") {
      kept.push_back(piece);
    } else if (!kept.empty() && kept.back() != "..") {
      kept.pop_back();
    } else if (!isAbsolute) {
      kept.push_back(piece);
    }
  }
  std::string out;
  for (const std::string_view piece : kept) {
    if (isAbsolute || !out.empty()) out += '/';
    out += piece;
  }
  if (out.empty()) out = isAbsolute ? "/" : ".";
  return out;
}

bool isWithin(std::string_view path, std::string_view folder) {
  if (folder == "/") return path.starts_with('/');
  return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

std::string joinedPath(std::string_view folder, std::string_view name) {
  std::string path(folder);
  if (!path.ends_with('/')) path += '/';
  return path.append(name);
}

}  // namespace ambrel
