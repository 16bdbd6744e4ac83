#include "app/context/WidgetContext.h"

namespace ambrel {
namespace {

void carryOut(const std::map<QString, WidgetContext::TileAction>& actions, const QString& widget, const QString& item) {
  if (const auto found = actions.find(widget); found != actions.end()) found->second(item);
}

}  // namespace

WidgetContext::WidgetContext(const Models& models, QObject* parent) : QObject(parent), models_(models) {}

void WidgetContext::setWidgetsActive(bool active) {
  if (active == widgetsActive_) return;
  widgetsActive_ = active;
  Q_EMIT widgetsActiveChanged();
}

void WidgetContext::showToast(const QString& title, const QString& detail, const QString& symbol) const {
  if (onShowToast) onShowToast(title, detail, symbol);
}

void WidgetContext::toggleCustomize() const {
  if (onToggleCustomize) onToggleCustomize();
}

void WidgetContext::setClickAction(const QString& widget, TileAction action) {
  clickActions_[widget] = std::move(action);
}

void WidgetContext::setSettingsAction(const QString& widget, TileAction action) {
  settingsActions_[widget] = std::move(action);
}

void WidgetContext::setMenuCommand(const QString& widget, MenuCommand command) {
  menuCommands_[widget] = std::move(command);
}

const WidgetContext::MenuCommand* WidgetContext::menuCommand(const QString& widget) const {
  const auto found = menuCommands_.find(widget);
  return found == menuCommands_.end() ? nullptr : &found->second;
}

void WidgetContext::activate(const QString& widget, const QString& item) const {
  carryOut(clickActions_, widget, item);
}

void WidgetContext::openSettings(const QString& widget, const QString& item) const {
  carryOut(settingsActions_, widget, item);
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
