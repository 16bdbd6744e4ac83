#pragma once
// The panels that open beside the bar, those that tiles ask for among them. At most one of them is open.

#include <QObject>
#include <QUrl>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "app/dock/DockPopoverController.h"

namespace ambrel {

class BarPanels : public QObject {
  Q_OBJECT

 public:
  // All outlive the panels. `anchor` gives the place of a slot's tile; for an empty id, the middle of the bar.
  BarPanels(QQmlEngine& engine, WidgetContext& context, WindowStyle& style, DelayedStep later,
            std::function<PanelAnchor(const QString& item)> anchor, QObject* parent = nullptr);

  // The one panel that shows this file of a module: ("Agents", "AgentsPanelView"). `properties` count when it is first
  // asked for.
  DockPopoverController& panel(const QString& module, const QString& file, const QVariantMap& properties = {});

  // Opens it beside the tile of a slot, or closes it. The others close.
  void toggle(DockPopoverController& panel, const QString& item = {});
  void open(DockPopoverController& panel, const QString& item = {});
  void closeAll();
  // The user is at something else: those that stay remain open.
  void leave();
  // The bar, a tile or the screen has moved.
  void place();
  bool isAnyShown() const;
  // Where the open ones are.
  std::vector<QRect> frames() const;
  // Whether the one that is open was opened from the bar by keyboard.
  bool returnsKeyboard() const { return returnsKeyboard_; }

  // A panel that was opened from the bar by keyboard gives the keyboard back when it closes. Assigned by the program.
  std::function<bool()> hasBarKeyboard;
  std::function<void()> giveKeyboardBack;

 Q_SIGNALS:
  void changed();
  // One has another place or size, or has gone.
  void placed();
  // One is about to open.
  void opening();

 private:
  DockPopoverController& named(const QString& name, const QString& module, const QUrl& source,
                               const QVariantMap& properties);
  void keep(DockPopoverController& closed);
  void openPanel(const QString& widget, const QString& item, const QUrl& source, const QVariantMap& properties);
  void openTileMenu(const QString& item, const QString& ownText, const QString& ownSymbol);

  QQmlEngine& engine_;
  WidgetContext& context_;
  WindowStyle& style_;
  DelayedStep later_;
  std::function<PanelAnchor(const QString& item)> anchor_;
  bool returnsKeyboard_ = false;
  QString item_;                             // the slot of the panel that was opened last
  DockPopoverController* ofTile_ = nullptr;  // the one that a tile asked for last
  std::map<QString, std::unique_ptr<DockPopoverController>> panels_;
  std::vector<DockPopoverController*> kept_;  // of those that closed, the newest first
};

}  // namespace ambrel
