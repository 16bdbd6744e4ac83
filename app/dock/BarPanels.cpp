#include "app/dock/BarPanels.h"

#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <utility>

namespace ambrel {

BarPanels::BarPanels(QQmlEngine& engine, WidgetContext& context, WindowStyle& style, DelayedStep later,
                     std::function<PanelAnchor(const QString& item)> anchor, QObject* parent)
    : QObject(parent),
      engine_(engine),
      context_(context),
      style_(style),
      later_(std::move(later)),
      anchor_(std::move(anchor)) {}

DockPopoverController& BarPanels::panel(const QString& name, const PanelContent& content) {
  auto& panel = panels_[name];
  if (!panel) {
    panel = std::make_unique<DockPopoverController>(engine_, context_, style_, later_, content);
    connect(panel.get(), &DockPopoverController::shownChanged, this, &BarPanels::changed);
    connect(panel.get(), &DockPopoverController::shownChanged, this, [this, shown = panel.get()] {
      if (shown->isShown() || !returnsKeyboard_) return;
      // A panel that was left for another window has lost the keyboard already.
      returnsKeyboard_ = shown->window()->isActive();
      // A menu's row may open another panel right after this.
      QTimer::singleShot(0, this, [this] {
        if (!isAnyShown() && std::exchange(returnsKeyboard_, false) && giveKeyboardBack) giveKeyboardBack();
      });
    });
  }
  return *panel;
}

DockPopoverController* BarPanels::find(const QString& name) const {
  const auto found = panels_.find(name);
  return found == panels_.end() ? nullptr : found->second.get();
}

void BarPanels::toggle(DockPopoverController& panel, const QString& item) {
  if (panel.isShown())
    panel.close();
  else
    open(panel, item);
}

void BarPanels::open(DockPopoverController& panel, const QString& item) {
  if (panel.isShown()) {
    style_.activate(*panel.window());
    return;
  }
  const bool comesFromBar = returnsKeyboard_ || (hasBarKeyboard && hasBarKeyboard());
  returnsKeyboard_ = false;
  for (const auto& [name, other] : panels_)
    if (other.get() != &panel) other->close();
  Q_EMIT opening();
  item_ = item;
  panel.open(anchor_(item));
  returnsKeyboard_ = comesFromBar;
}

void BarPanels::leave() {
  for (const auto& [name, panel] : panels_)
    if (!panel->stays()) panel->close();
}

void BarPanels::place() {
  for (const auto& [name, panel] : panels_)
    if (panel->isShown()) panel->place(anchor_(item_));
}

void BarPanels::closeAll() {
  for (const auto& [name, panel] : panels_) panel->close();
}

bool BarPanels::isAnyShown() const {
  return std::any_of(panels_.begin(), panels_.end(), [](const auto& entry) { return entry.second->isShown(); });
}

}  // namespace ambrel
