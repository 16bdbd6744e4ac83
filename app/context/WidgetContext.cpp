#include "app/context/WidgetContext.h"

namespace ambrel {

WidgetContext::WidgetContext(const Models& models, QObject* parent) : QObject(parent), models_(models) {}

void WidgetContext::setWidgetsActive(bool active) {
  if (active == widgetsActive_) return;
  widgetsActive_ = active;
  Q_EMIT widgetsActiveChanged();
}

void WidgetContext::showToast(const QString& title, const QString& detail, const QString& symbol) const {
  if (onShowToast) onShowToast(title, detail, symbol);
}

void WidgetContext::toggleAgents() const {
  if (onToggleAgents) onToggleAgents();
}

void WidgetContext::toggleCustomize() const {
  if (onToggleCustomize) onToggleCustomize();
}

void WidgetContext::openSettings(const QString& widget, const QString& item) const {
  if (onOpenSettings) onOpenSettings(widget, item);
}

void WidgetContext::openTileMenu(const QString& item) const {
  if (onOpenTileMenu) onOpenTileMenu(item);
}

QString WidgetContext::itemOf(const QString& widget) const {
  const auto profile = models_.model.activeProfile();
  if (!profile) return {};
  for (const DockItem& item : profile->items)
    if (item.widget && QString::fromStdString(*item.widget) == widget) return QString::fromStdString(item.id.text());
  return {};
}

}  // namespace ambrel
