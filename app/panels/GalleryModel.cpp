#include "app/panels/GalleryModel.h"

#include <algorithm>
#include <map>

#include "app/base/QmlObjects.h"
#include "app/base/StoredValue.h"
#include "core/widgets.h"

namespace ambrel {

GalleryGroup::GalleryGroup(WidgetGroup group, QObject* parent) : QObject(parent), group_(group) {}

QString GalleryGroup::title() const { return toQString(ambrel::title(group_)); }

GalleryModel::GalleryModel(AppModel& model, QObject* parent) : QObject(parent), model_(model) {
  for (const WidgetGroup group : allCases<WidgetGroup>()) {
    groups_ << new GalleryGroup(group, this);
    keep({groups_.back(), groups_.back()->rows()});
  }
  connect(&model_, &AppModel::activeProfileChanged, this, &GalleryModel::update);
  connect(&model_.license(), &LicenseManager::changed, this, &GalleryModel::update);
  update();
}

void GalleryModel::setQuery(const QString& query) {
  if (query_ == query) return;
  query_ = query;
  Q_EMIT queryChanged();
  update();
}

bool GalleryModel::isEmpty() const {
  return std::ranges::all_of(groups_, [](GalleryGroup* group) { return group->rows()->count() == 0; });
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

void GalleryModel::update() {
  const Profile* profile = model_.activeProfile();
  std::map<WidgetGroup, std::vector<GalleryRow>> rows;
  for (const DockWidget widget : widgetsMatching(query_.toStdString())) {
    const auto feature = requiredFeature(widget);
    rows[group(widget)].push_back({.widget = toQString(nameOf(widget)),
                                   .title = toQString(title(widget)),
                                   .description = toQString(description(widget)),
                                   .symbol = toQString(symbol(widget)),
                                   .span = static_cast<int>(defaultSize(widget)),
                                   .isOnBar = profile && profile->contains(nameOf(widget)),
                                   .isAllowed = !feature || model_.license().allows(*feature)});
  }
  for (GalleryGroup* shown : groups_) shown->rows()->setRows(rows[shown->group()]);
  Q_EMIT changed();
}

}  // namespace ambrel
