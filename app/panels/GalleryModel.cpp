#include "app/panels/GalleryModel.h"

#include <QQmlEngine>
#include <algorithm>
#include <map>

namespace ambrel {

GalleryModel::GalleryModel(AppModel& model, QObject* parent) : QObject(parent), model_(model) {
  for (const WidgetGroup group : allCases<WidgetGroup>()) {
    auto* rows = new GalleryGroupModel(group, this);
    QQmlEngine::setObjectOwnership(rows, QQmlEngine::CppOwnership);
    groups_ << rows;
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
  return std::ranges::all_of(groups_, [](const GalleryGroupModel* group) { return group->count() == 0; });
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
  if (feature && !model_.license().allows(*feature)) {
    if (model_.license().showUpsell) model_.license().showUpsell();
    return;
  }
  model_.addWidget(name.toStdString(), id, std::nullopt);
}

void GalleryModel::update() {
  const Profile* profile = model_.activeProfile();
  std::map<WidgetGroup, std::vector<GalleryRow>> rows;
  for (const DockWidget widget : widgetsMatching(query_.toStdString())) {
    const auto feature = requiredFeature(widget);
    rows[group(widget)].push_back({.widget = widget,
                                   .isOnBar = profile && profile->contains(nameOf(widget)),
                                   .isAllowed = !feature || model_.license().allows(*feature)});
  }
  for (GalleryGroupModel* shown : groups_) shown->show(rows[shown->group()]);
  Q_EMIT changed();
}

}  // namespace ambrel
