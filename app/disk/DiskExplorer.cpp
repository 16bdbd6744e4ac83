#include "app/disk/DiskExplorer.h"

#include <algorithm>

#include "app/base/QmlObjects.h"
#include "app/base/Replaced.h"
#include "app/disk/DiskTexts.h"

namespace ambrel {
namespace {

using Kind = DiskItem::Kind;

constexpr int otherColor = sunburstColorCount - 1;
// Longer paths show only their ends.
constexpr std::size_t longestPath = 4;

}  // namespace

std::vector<int> sunburstColors(const DiskItem& center) {
  std::vector<int> colors;
  int next = 0;
  for (const DiskItem& child : center.children())
    colors.push_back(child.kind() == Kind::smallItems ? otherColor : std::min(next++, otherColor));
  return colors;
}

DiskExplorer::DiskExplorer(Calendar calendar, QObject* parent) : QObject(parent), calendar_(std::move(calendar)) {
  keep({&path_, &legend_});
}

void DiskExplorer::show(DiskTree root, const QString& title) {
  root_ = std::move(root);
  title_ = title;
  missing_.clear();
  bytesSoFar_.reset();
  center_ = {.item = root_, .share = 1};
  update();
}

void DiskExplorer::showUnfinished(Unfinished state, const QString& title) {
  root_ = std::move(state.root);
  title_ = title;
  missing_ = std::move(state.missing);
  bytesSoFar_ = state.bytes;
  center_ = {.item = root_, .share = state.share};
  update();
}

void DiskExplorer::clear() {
  setHoveredID({});
  show({}, {});
}

void DiskExplorer::update() {
  path_.setRows(wayDown());
  legend_.setRows(parts());
  if (replaced(spot_, spotNow())) Q_EMIT spotChanged();
}

QString DiskExplorer::nameOf(const DiskItem& item) const {
  return &item == root_.get() ? title_ : shownName(item.name());
}

const DiskItem* DiskExplorer::node(const QString& id) const {
  if (!root_ || id.isEmpty()) return nullptr;
  const std::string path = pathOf(id);
  if (const DiskItem* found = find(*root_, path); found && found->id() == path) return found;
  const DiskItem* folder = find(*root_, path.substr(0, path.rfind('/')));
  if (!folder) return nullptr;
  const auto children = folder->children();
  const auto folded = std::find_if(children.begin(), children.end(),
                                   [&](const DiskItem& child) { return child.kind() == Kind::smallItems; });
  return folded != children.end() && folded->id() == path ? &*folded : nullptr;
}

DiskSpot DiskExplorer::spotNow() const {
  const DiskItem* hovered = node(hoveredID_);
  const DiskItem* item = hovered ? hovered : center_.item.get();
  DiskSpot spot{.center = center_, .canGoUp = canGoUp(), .size = {}, .name = {}, .description = {}};
  if (!item) return spot;
  const bool isSoFar = bytesSoFar_ && item == root_.get();
  spot.size = shownSize(calendar_, isSoFar ? *bytesSoFar_ : item->size());
  spot.name = isSoFar ? tr("so far") : nameOf(*item);
  const QString files =
      item->fileCount() == 1 ? tr("1 file") : tr("%1 files").arg(shownCount(calendar_, item->fileCount()));
  spot.description = item->kind() == Kind::file ? tr("%1, %2").arg(nameOf(*item), spot.size)
                                                : tr("%1, %2, %3").arg(nameOf(*item), spot.size, files);
  return spot;
}

void DiskExplorer::setHoveredID(const QString& id) {
  if (!replaced(hoveredID_, id)) return;
  update();
  Q_EMIT hoveredChanged();
}

bool DiskExplorer::enter(const QString& id) {
  const DiskItem* item = node(id);
  if (!item || bytesSoFar_ || item->children().empty() || item == center_.item.get()) return false;
  center_ = {.item = shared(root_, *item), .share = 1};
  update();
  setHoveredID({});
  return true;
}

void DiskExplorer::goUp() {
  if (!canGoUp()) return;
  const QString left = pathID(center_.item->id());
  enter(pathID(center_.item->parent()->id()));
  // Shows where the user came from; the keyboard continues there.
  setHoveredID(left);
}

std::vector<DiskPart> DiskExplorer::wayDown() const {
  std::vector<DiskPart> parts;
  for (const DiskItem* item = center_.item.get(); item; item = item->parent())
    parts.push_back({.id = pathID(item->id()), .name = nameOf(*item), .isFolder = true});
  std::reverse(parts.begin(), parts.end());
  if (parts.size() > longestPath) {
    // The step "…" leads to the deepest of the folders that are left out.
    parts.erase(parts.begin() + 1, parts.end() - 3);
    parts[1].name = QStringLiteral("…");
  }
  return parts;
}

std::vector<DiskPart> DiskExplorer::parts() const {
  std::vector<DiskPart> parts;
  std::vector<const DiskItem*> others;
  // Half of the entries are reserved for unfinished folders.
  const std::size_t known = sunburstColorCount - std::min<std::size_t>(missing_.size(), sunburstColorCount / 2);
  if (center_.item) {
    const auto colors = sunburstColors(*center_.item);
    std::size_t rank = 0;
    for (const DiskItem& child : center_.item->children()) {
      if (bytesSoFar_ && (parts.size() >= known || child.size() == 0)) break;
      if (const int color = colors[rank++]; color < otherColor)
        parts.push_back(part(child, color));
      else
        others.push_back(&child);
    }
  }
  if (others.size() == 1) {
    parts.push_back(part(*others.front(), otherColor));
  } else if (!others.empty()) {
    std::int64_t bytes = 0;
    for (const DiskItem* item : others) bytes += item->size();
    parts.push_back({.id = {}, .name = tr("Others"), .size = shownSize(calendar_, bytes), .color = otherColor});
  }
  for (const std::string& name : missing_) {
    if (parts.size() >= sunburstColorCount) break;
    parts.push_back({.id = pathID(name), .name = shownName(name), .size = tr("not yet"), .color = -1});
  }
  return parts;
}

DiskPart DiskExplorer::part(const DiskItem& item, int color) const {
  const QString id = pathID(item.id());
  return {.id = id,
          .name = nameOf(item),
          .size = shownSize(calendar_, item.size()),
          .color = color,
          .isFolder = !item.children().empty() && !bytesSoFar_,
          .isHighlighted = id == hoveredID_};
}

}  // namespace ambrel
