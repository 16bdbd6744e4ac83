#pragma once
// The windows: the bar, its panels, Buddy's bubble, the shelf, tips and messages; and how each makes room for the
// others.

#include <QObject>
#include <memory>

#include "app/Areas.h"
#include "app/base/PointerRelay.h"
#include "app/context/WidgetContext.h"
#include "app/dock/BarPanels.h"
#include "app/dock/BubbleController.h"
#include "app/dock/ContextPeeker.h"
#include "app/dock/DockPanelController.h"
#include "app/dock/DragPicture.h"
#include "app/panels/GalleryModel.h"
#include "app/shelf/ShelfPanelController.h"
#include "app/window/TipController.h"

namespace ambrel {

class BarWindows : public QObject {
  Q_OBJECT

 public:
  // All outlive it.
  BarWindows(const Services& services, Areas& areas, WidgetContext& context);
  ~BarWindows() override;

  DockPanelController& dock() { return dock_; }
  BarPanels& panels() { return panels_; }
  ShelfPanelController& shelf() { return shelf_; }
  ContextPeeker& peeker() { return peeker_; }
  // The shelf counts as one.
  bool isAnyPanelOpen() const { return shelf_.isShown() || panels_.isAnyShown(); }

  DockPopoverController& agentsPanel() { return panel("Agents", "AgentsPanelView"); }
  DockPopoverController& assistantPanel() { return panel("Assistant", "AssistantPanel"); }
  DockPopoverController& welcomePanel();
  DockPopoverController& inboxPanel();
  DockPopoverController& customizePanel();
  DockPopoverController& settingsPanel();

  // Without a tab the one that was open last.
  void openSettings(const QString& tab = {});
  void toggleAgents();
  // An empty question is for the user to type.
  void askBuddy(const QString& question);

 private:
  DockPopoverController& panel(const char* module, const char* file, const QVariantMap& properties = {});
  PanelAnchor anchorOf(DockWidget widget) const { return dock_.anchor(itemOf(widget)); }
  QString itemOf(DockWidget widget) const;
  void followContext();
  void followShelf();
  void followDock();
  void followPanels();
  void followBubble();
  void followEdits();
  void followAgents();
  void panelsChanged();
  // Buddy says nothing while something is in the way.
  void clearTheWay();
  void followPresses();
  void pressedSomewhere();
  void chooseSettingsTab(const QString& tab);

  Services with_;
  Areas& areas_;
  WidgetContext& context_;
  GalleryModel gallery_;
  PointerRelay pointers_;
  std::unique_ptr<PointerMonitor> dockPointer_, shelfPointer_;
  ShelfPanelController shelf_;
  DockPanelController dock_;
  DragPicture dragPicture_;
  BarPanels panels_;
  BubbleController bubble_;
  TipController tips_;
  ContextPeeker peeker_;
  int removalMessage_ = 0;  // that a tile is off the bar
  Instant bubblePeek_{};    // until when the bubble's peek lasts
  bool followsPresses_ = false;
  bool shelfReturnsKeyboard_ = false;  // it was opened from the bar by keyboard
  // What the connections between the areas and the bar belong to. It ends first: a tile that has the keyboard loses it
  // when the bar's window ends, and that is of no interest any more.
  std::unique_ptr<QObject> wiring_ = std::make_unique<QObject>();
};

}  // namespace ambrel
