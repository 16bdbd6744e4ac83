#include "app/context/WidgetContext.h"

namespace ambrel {

WidgetContext::WidgetContext(const Models& models, QObject* parent) : QObject(parent), models_(models) {}

void WidgetContext::setWidgetsActive(bool active) {
  if (active == widgetsActive_) return;
  widgetsActive_ = active;
  Q_EMIT widgetsActiveChanged();
}

Area* WidgetContext::area(const QString& name) const {
  const auto found = areas_.find(name);
  return found == areas_.end() ? nullptr : found->second;
}

void WidgetContext::setLockedWidgets(const QStringList& widgets) {
  if (widgets == lockedWidgets_) return;
  lockedWidgets_ = widgets;
  Q_EMIT lockedWidgetsChanged();
}

void WidgetContext::showToast(const QString& title, const QString& detail, const QString& symbol) const {
  if (actions.showToast) actions.showToast(title, detail, symbol);
}

void WidgetContext::copyText(const QString& text) const {
  if (actions.copyText) actions.copyText(text);
}

void WidgetContext::openCustomize() const {
  if (actions.openCustomize) actions.openCustomize();
}

void WidgetContext::openSettings(const QString& tab) const {
  if (actions.openSettings) actions.openSettings(tab);
}

void WidgetContext::chooseSettingsTab(const QString& tab) const {
  if (actions.chooseSettingsTab) actions.chooseSettingsTab(tab);
}

void WidgetContext::openPurchasePage() const {
  if (actions.openPurchasePage) actions.openPurchasePage();
}

void WidgetContext::openPanel(const QString& widget, const QString& item, const QUrl& source,
                              const QVariantMap& properties) const {
  if (actions.openPanel) actions.openPanel(widget, item, source, properties);
}

void WidgetContext::openTileMenu(const QString& item, const QString& ownText, const QString& ownSymbol) const {
  if (actions.openTileMenu) actions.openTileMenu(item, ownText, ownSymbol);
}

void WidgetContext::unlock(const QString& widget) const {
  if (actions.unlock) actions.unlock(widget);
}

void WidgetContext::finishWelcome() const {
  if (actions.finishWelcome) actions.finishWelcome();
}

QString WidgetContext::itemOf(const QString& widget) const {
  const auto profile = models_.model.activeProfile();
  if (!profile) return {};
  for (const DockItem& item : profile->items)
    if (item.widget && QString::fromStdString(*item.widget) == widget) return QString::fromStdString(item.id.text());
  return {};
}

}  // namespace ambrel
