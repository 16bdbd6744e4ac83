#include "app/context/WidgetContext.h"

#include <algorithm>

namespace ambrel {

WidgetContext::WidgetContext(AppModel& model, AppSettings& settings, QObject* parent)
    : QObject(parent), model_(model), settings_(settings) {}

void WidgetContext::setWidgetsActive(bool active) {
  if (active == widgetsActive_) return;
  widgetsActive_ = active;
  Q_EMIT widgetsActiveChanged();
}

void WidgetContext::setLockedWidgets(const QStringList& widgets) {
  if (widgets == lockedWidgets_) return;
  lockedWidgets_ = widgets;
  Q_EMIT lockedWidgetsChanged();
}

Area* WidgetContext::area(const QString& name) const {
  const auto found = std::ranges::find(areas_, name, &Area::name);
  return found == areas_.end() ? nullptr : *found;
}

std::vector<const QObject*> WidgetContext::modelsFor(const Area* area) const {
  std::vector<const QObject*> models{area, this};
  models.insert(models.end(), areas_.begin(), areas_.end());
  return models;
}

QString WidgetContext::itemOf(const QString& widget) const {
  const Profile* profile = model_.activeProfile();
  if (!profile) return {};
  for (const DockItem& item : profile->items)
    if (item.widget && QString::fromStdString(*item.widget) == widget) return QString::fromStdString(item.id.text());
  return {};
}

}  // namespace ambrel
