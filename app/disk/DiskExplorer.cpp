#include "app/disk/DiskExplorer.h"

#include <QQmlEngine>
#include <algorithm>

#include "app/disk/DiskTexts.h"

namespace ambrel {
namespace {

using Kind = DiskItem::Kind;

constexpr int otherColor = sunburstColorCount - 1;
// The way down shows its beginning and its end when it is longer.
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
  QQmlEngine::setObjectOwnership(&path_, QQmlEngine::CppOwnership);
  QQmlEngine::setObjectOwnership(&legend_, QQmlEngine::CppOwnership);
}

void DiskExplorer::show(DiskTree root, const QString& title) {
  root_ = std::move(root);
  title_ = title;
  missing_.clear();
  bytesSoFar_.reset();
  center_ = {.item = root_, .share = 1};
  updatePath();
  updateLegend();
  Q_EMIT centerChanged();
  Q_EMIT shownChanged();
}

void DiskExplorer::showUnfinished(Unfinished state, const QString& title) {
  root_ = std::move(state.root);
  title_ = title;
  missing_ = std::move(state.missing);
  bytesSoFar_ = state.bytes;
  center_ = {.item = root_, .share = state.share};
  updatePath();
  updateLegend();
  Q_EMIT centerChanged();
  Q_EMIT shownChanged();
}

void DiskExplorer::clear() {
  hoveredID_.clear();
  Q_EMIT hoveredChanged();
  show({}, {});
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

const DiskItem* DiskExplorer::shown() const {
  const DiskItem* hovered = node(hoveredID_);
  return hovered ? hovered : center_.item.get();
}

QString DiskExplorer::size() const {
  const DiskItem* item = shown();
  if (!item) return {};
  return shownSize(calendar_, bytesSoFar_ && item == root_.get() ? *bytesSoFar_ : item->size());
}

QString DiskExplorer::name() const {
  const DiskItem* item = shown();
  if (!item) return {};
  return bytesSoFar_ && item == root_.get() ? tr("so far") : nameOf(*item);
}

QString DiskExplorer::description() const {
  const DiskItem* item = shown();
  if (!item) return {};
  const QString files =
      item->fileCount() == 1 ? tr("1 file") : tr("%1 files").arg(shownCount(calendar_, item->fileCount()));
  return item->kind() == Kind::file ? tr("%1, %2").arg(nameOf(*item), size())
                                    : tr("%1, %2, %3").arg(nameOf(*item), size(), files);
}

void DiskExplorer::setHoveredID(const QString& id) {
  if (id == hoveredID_) return;
  hoveredID_ = id;
  updateLegend();
  Q_EMIT hoveredChanged();
  Q_EMIT shownChanged();
}

bool DiskExplorer::enter(const QString& id) {
  const DiskItem* item = node(id);
  if (!item || bytesSoFar_ || item->children().empty() || item == center_.item.get()) return false;
  stand(*item);
  return true;
}

void DiskExplorer::goUp() {
  if (!canGoUp()) return;
  const DiskItem& left = *center_.item;
  const QString id = pathID(left.id());
  stand(*left.parent());
  // So that one sees where one has been, and the keyboard goes on from there.
  setHoveredID(id);
}

void DiskExplorer::stand(const DiskItem& folder) {
  center_ = {.item = shared(root_, folder), .share = 1};
  hoveredID_.clear();
  updatePath();
  updateLegend();
  Q_EMIT centerChanged();
  Q_EMIT hoveredChanged();
  Q_EMIT shownChanged();
}

void DiskExplorer::updatePath() {
  std::vector<DiskPart> parts;
  for (const DiskItem* item = center_.item.get(); item; item = item->parent())
    parts.push_back({.id = item->id(), .name = nameOf(*item), .size = {}, .isFolder = true});
  std::reverse(parts.begin(), parts.end());
  if (parts.size() > longestPath) {
    // The one before the last three represents all that are left out, and leads to the nearest of them.
    parts.erase(parts.begin() + 1, parts.end() - 3);
    parts[1].name = QStringLiteral("…");
  }
  path_.setRows(parts);
}

void DiskExplorer::updateLegend() {
  std::vector<DiskPart> parts;
  std::vector<const DiskItem*> others;
  // Half of the places are kept for what is still to come.
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
    parts.push_back({.id = name, .name = shownName(name), .size = tr("not yet"), .color = -1});
  }
  legend_.setRows(parts);
}

DiskPart DiskExplorer::part(const DiskItem& item, int color) const {
  const std::string id = item.id();
  return {.id = id,
          .name = nameOf(item),
          .size = shownSize(calendar_, item.size()),
          .color = color,
          .isFolder = !item.children().empty() && !bytesSoFar_,
          .isHighlighted = pathID(id) == hoveredID_};
}

}  // namespace ambrel
