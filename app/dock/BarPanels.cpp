#include "app/dock/BarPanels.h"

#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "app/base/TileSources.h"

namespace ambrel {

BarPanels::BarPanels(QQmlEngine& engine, WidgetContext& context, WindowStyle& style, DelayedStep later,
                     std::function<PanelAnchor(const QString& item)> anchor, QObject* parent)
    : QObject(parent),
      engine_(engine),
      context_(context),
      style_(style),
      later_(std::move(later)),
      anchor_(std::move(anchor)) {
  connect(&context_, &WidgetContext::openPanel, this, &BarPanels::openPanel);
  connect(&context_, &WidgetContext::openTileMenu, this, &BarPanels::openTileMenu);
  // What was typed for a tile is stored when its panel closes, and belongs to this profile.
  connect(context_.model(), &AppModel::activeProfileAboutToChange, this, [this] {
    if (ofTile_) ofTile_->close();
  });
}

DockPopoverController& BarPanels::panel(const QString& module, const QString& file, const QVariantMap& properties) {
  const QUrl source(QStringLiteral("qrc:/qt/qml/Ambrel/%1/%2.qml").arg(module, file));
  return named(source.toString(), module, source, properties);
}

DockPopoverController& BarPanels::named(const QString& name, const QString& module, const QUrl& source,
                                        const QVariantMap& properties) {
  auto& panel = panels_[name];
  if (!panel) {
    panel = std::make_unique<DockPopoverController>(
        engine_, context_, style_, later_,
        PanelContent{.source = source, .models = context_.modelsFor(context_.area(module)), .properties = properties});
    connect(panel.get(), &DockPopoverController::shownChanged, this, &BarPanels::changed);
    connect(panel.get(), &DockPopoverController::closed, this, [this, closed = panel.get()] { keep(*closed); });
    connect(panel.get(), &DockPopoverController::shownChanged, this, &BarPanels::placed);
    connect(panel.get(), &DockPopoverController::placed, this, &BarPanels::placed);
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

// A walk along the bar would have a dozen of them in memory before the first one's time is over.
void BarPanels::keep(DockPopoverController& closed) {
  constexpr std::size_t mostKept = 2;
  std::erase(kept_, &closed);
  kept_.insert(kept_.begin(), &closed);
  for (; kept_.size() > mostKept; kept_.pop_back()) kept_.back()->discard();
}

void BarPanels::openPanel(const QString& widget, const QString& item, const QUrl& source,
                          const QVariantMap& properties) {
  // Panels with properties of their own are not shared by the tiles that open them.
  const QString name = source.toString() + (properties.isEmpty() ? QString() : u'#' + widget);
  DockPopoverController& panel = named(name, tileSources().at(widget).area, source, properties);
  for (auto it = properties.begin(); it != properties.end(); ++it) panel.setProperty(it.key(), it.value());
  ofTile_ = &panel;
  toggle(panel, item);
}

void BarPanels::openTileMenu(const QString& item, const QString& ownText, const QString& ownSymbol) {
  const Profile* profile = context_.model()->activeProfile();
  if (!profile) return;
  const auto& items = profile->items;
  const auto at = std::ranges::find(items, UUID::parse(item.toStdString()), &DockItem::id);
  const auto idOf = [](const DockItem& neighbour) { return QString::fromStdString(neighbour.id.text()); };
  DockPopoverController& menu = panel(QStringLiteral("Dock"), QStringLiteral("TileMenuView"));
  menu.close();
  menu.setProperty(QStringLiteral("item"), item);
  menu.setProperty(QStringLiteral("previousItem"),
                   at == items.begin() || at == items.end() ? QString() : idOf(*std::prev(at)));
  menu.setProperty(QStringLiteral("nextItem"),
                   at == items.end() || std::next(at) == items.end() ? QString() : idOf(*std::next(at)));
  menu.setProperty(QStringLiteral("ownText"), ownText);
  menu.setProperty(QStringLiteral("ownSymbol"), ownSymbol);
  ofTile_ = &menu;
  open(menu, item);
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
  returnsKeyboard_ = false;
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

std::vector<QRect> BarPanels::frames() const {
  std::vector<QRect> frames;
  for (const auto& [name, panel] : panels_)
    if (panel->isShown()) frames.push_back(panel->frame());
  return frames;
}

bool BarPanels::isAnyShown() const {
  return std::any_of(panels_.begin(), panels_.end(), [](const auto& entry) { return entry.second->isShown(); });
}

}  // namespace ambrel
