#include "app/panels/GalleryModel.h"

#include <algorithm>

#include "app/base/QmlObjects.h"
#include "app/base/StoredValue.h"

namespace ambrel {
namespace {

// Beyond the edges of the view, so that the next line is there when it is scrolled to, or reached by Tab.
constexpr qreal margin = 80;

}  // namespace

GalleryModel::GalleryModel(AppModel& model, QObject* parent) : QObject(parent), model_(model) {
  keep({&rows_, &headings_});
  connect(&model_, &AppModel::activeProfileChanged, this, &GalleryModel::update);
  connect(&model_.license(), &LicenseManager::changed, this, &GalleryModel::update);
}

void GalleryModel::setQuery(const QString& query) {
  if (query_ == query) return;
  query_ = query;
  Q_EMIT queryChanged();
  layOut();
}

void GalleryModel::look(const QRectF& view, qreal scale) {
  const bool isOther = view.width() != view_.width() || scale != scale_;
  view_ = view;
  scale_ = scale;
  if (isOther)
    layOut();
  else
    update();
}

void GalleryModel::layOut() {
  layout_ = galleryLayout(widgetsMatching(query_.toStdString()), view_.width() / scale_);
  update();
  Q_EMIT changed();
}

QRectF GalleryModel::scaled(const Rect& frame) const {
  return {frame.x * scale_, frame.y * scale_, frame.width * scale_, frame.height * scale_};
}

void GalleryModel::update() {
  const Profile* profile = model_.activeProfile();
  const QRectF shown = view_.isEmpty() ? QRectF() : view_.adjusted(0, -margin, 0, margin);
  std::vector<GalleryRow> rows;
  std::vector<GalleryHeading> headings;
  for (const auto& [widget, place, line] : layout_.tiles) {
    const QRectF frame = scaled(place);
    if (!shown.intersects(frame)) continue;
    const auto feature = requiredFeature(widget);
    const QString needed = toQString(need(widget));
    rows.push_back({.widget = toQString(nameOf(widget)),
                    .title = toQString(title(widget)),
                    .description = toQString(description(widget)),
                    .symbol = toQString(symbol(widget)),
                    .need = needed.isEmpty() ? QString() : tr("Needs %1.").arg(needed),
                    .frame = frame,
                    .span = static_cast<int>(defaultSize(widget)),
                    .isOnBar = profile && profile->contains(nameOf(widget)),
                    .isAllowed = !feature || model_.license().allows(*feature)});
  }
  for (const auto& [group, y] : layout_.headings)
    if (const qreal top = y * scale_; top + GalleryLayout::headingHeight * scale_ > shown.top() && top < shown.bottom())
      headings.push_back({.title = toQString(title(group)), .headingY = top});
  rows_.setRows(rows);
  headings_.setRows(headings);
}

std::optional<std::size_t> GalleryModel::indexOf(const QString& widget) const {
  const auto found = std::ranges::find(layout_.tiles, fromName<DockWidget>(widget.toStdString()),
                                       [](const GalleryLayout::Tile& tile) { return std::optional(tile.widget); });
  return found == layout_.tiles.end() ? std::nullopt : std::optional<std::size_t>(found - layout_.tiles.begin());
}

QString GalleryModel::stepped(const QString& widget, int key) const {
  if (layout_.tiles.empty()) return {};
  const auto from = indexOf(widget);
  using Step = GalleryLayout::Step;
  const Step step = key == Qt::Key_Left    ? Step::left
                    : key == Qt::Key_Right ? Step::right
                    : key == Qt::Key_Up    ? Step::up
                                           : Step::down;
  return toQString(nameOf(layout_.tiles[from ? layout_.stepped(*from, step) : 0].widget));
}

QRectF GalleryModel::frameOf(const QString& widget) const {
  const auto at = indexOf(widget);
  return at ? scaled(layout_.tiles[*at].frame) : QRectF();
}

void GalleryModel::toggle(const QString& name) {
  const auto widget = fromName<DockWidget>(name.toStdString());
  const Profile* profile = model_.activeProfile();
  if (!widget || !profile) return;
  const UUID id = profile->id;
  if (profile->contains(nameOf(*widget))) {
    model_.removeWidget(name.toStdString(), id);
    return;
  }
  const auto feature = requiredFeature(*widget);
  if (!feature || model_.license().permits(*feature)) model_.addWidget(name.toStdString(), id, std::nullopt);
}

}  // namespace ambrel
