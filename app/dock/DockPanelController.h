#pragma once
// The bar: its window, its place, and when it is shown.

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <QtQml/qqmlregistration.h>
#include <functional>
#include <memory>
#include <optional>

#include "app/base/GadgetListModel.h"
#include "app/base/Presentation.h"
#include "app/context/WidgetContext.h"
#include "app/dock/BarContent.h"
#include "app/dock/DockPopoverController.h"
#include "app/dock/SystemDockWatcher.h"
#include "core/dock.h"
#include "platform/Pointer.h"
#include "platform/Screens.h"
#include "platform/WindowStyle.h"

class QQmlEngine;

namespace ambrel {

class PanelWindow;

// Ticks 30 times a second while the pointer moves or something is due, and not at all while it rests.
class DockPanelController : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::RowList* tiles READ tiles CONSTANT)
  Q_PROPERTY(bool isContentShown READ isContentShown NOTIFY presentationChanged)
  Q_PROPERTY(bool isOnScreen READ isOnScreen NOTIFY presentationChanged)
  Q_PROPERTY(QString edge READ edgeName NOTIFY layoutChanged)
  // In the window.
  Q_PROPERTY(QRectF slab READ slab NOTIFY layoutChanged)
  // Of all tiles along the edge; longer than the slab when the bar scrolls.
  Q_PROPERTY(qreal contentLength READ contentLength NOTIFY layoutChanged)
  Q_PROPERTY(bool isScrolling READ isScrolling NOTIFY layoutChanged)
  Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY layoutChanged)
  // How far the view has scrolled; the view keeps it current.
  Q_PROPERTY(qreal scrollOffset MEMBER scrollOffset_)
  Q_PROPERTY(bool isCompositing READ isCompositing NOTIFY layoutChanged)

 public:
  struct Seams {
    PointerMonitor& pointer;
    Screens& screens;
    WindowStyle& windowStyle;
    std::function<Instant()> now;
    DelayedStep later;
  };
  // `scale` enlarges the tiles with the text of the theme.
  DockPanelController(QQmlEngine& engine, WidgetContext& context, Seams seams, QObject* parent = nullptr);
  ~DockPanelController() override;

  // True while a panel that is anchored to the bar is open.
  std::function<bool()> isHoldingOpen;
  // Called when the user is done with the keyboard here, and whoever had it before may have it back.
  std::function<void()> onKeyboardLeft;
  // Called with the greatest length that the bar may have, each time that it is placed.
  std::function<void(qreal)> onMaxLength;

  // Makes the window and begins to watch the pointer.
  void start();

  // Shows or hides by the present state.
  void apply();
  // The instant at which the peek ends.
  Instant peek(Seconds length);
  // Ends that peek, unless another one has taken its place. The bar hides as it does at the end of a peek.
  void endPeek(Instant until);
  // Comes out, and stays as a hovered bar does; a panel may open from it.
  void reveal();
  // As reveal, and takes the keyboard: arrows move between the tiles, Escape gives it back. Where the keyboard is
  // refused, the bar peeks.
  void revealForKeyboard();
  Q_INVOKABLE void leaveKeyboard();
  bool hasKeyboard() const { return hasKeyboard_; }
  void updatePosition();
  // Screens, what is reserved of them, or what fills them.
  void screensChanged();
  // A panel has opened or closed.
  void holdingChanged();
  void setScale(qreal scale);

  // For a panel that belongs to a slot; an empty id means the middle of the bar.
  PanelAnchor anchor(const QString& item) const;

  RowList* tiles() { return &tiles_; }
  const Presentation& presentation() const { return presentation_; }
  bool isContentShown() const { return presentation_.isContentShown(); }
  bool isOnScreen() const { return presentation_.isOnScreen(); }
  QString edgeName() const;
  QRectF slab() const;
  qreal contentLength() const { return content_.contentLength; }
  bool isScrolling() const { return content_.isScrolling; }
  bool isEmpty() const { return content_.tiles.empty(); }
  bool isCompositing() const { return seams_.windowStyle.isCompositing(); }
  const BarReveal& revealState() const { return reveal_; }
  // A window of another program in full screen is in front on the bar's screen.
  bool isScreenFilled() const;
  QWindow* window() const;
  // Whether a tick is due without the pointer moving.
  bool isTicking() const { return timer_.isActive(); }

  void tick(Instant now);

 Q_SIGNALS:
  void layoutChanged();
  void presentationChanged();
  // The user has brought the keyboard to the bar, or has asked for it again.
  void keyboardTaken();
  // A tile is held near an end of a bar that scrolls; below zero towards its beginning.
  void scrollAsked(qreal by);

 private:
  void makeWindow();
  void keyboardAnswered(bool isActive);
  // Something anchored to the bar is open, or a tile is dragged.
  bool isHeld() const;
  // Chosen, and no window fills the screen.
  bool isAlwaysVisible() const;
  void updateTiles();
  // Along the bar, from the beginning of what can be seen of it.
  double alongBar(const QPoint& at) const;
  std::optional<TileDrag::Spot> spotAt(const QPoint& at) const;
  void scrollForDrag();
  BarSurroundings surroundings(Point pointer) const;
  std::optional<ScreenInfo> mainScreen() const;
  QRect inWindowSystem(const Rect& rect) const;
  void schedule(Instant now);
  void watchPointer();
  void placeStrip();
  // A bar that is on the screen leaves the old edge before it comes in at the new one.
  void takeEdge();

  QQmlEngine& engine_;
  WidgetContext& context_;
  Seams seams_;
  AppSettings& settings_;
  GadgetListModel<TileRecord, &TileRecord::item> tiles_;
  Presentation presentation_;
  SystemDockWatcher systemDock_;
  BarReveal reveal_;
  DockEdge edge_;  // where it is; the settings may be ahead
  BarContent content_;
  BarPlacement placement_;
  std::unique_ptr<PanelWindow> window_;
  QTimer timer_;
  QTimer slowLook_;
  QTimer dragScroll_;
  std::optional<Point> lastPointer_;
  int restingTicks_ = 0;
  qreal scale_ = 1;
  qreal scrollOffset_ = 0;
  bool hasKeyboard_ = false;  // or has just asked for it
};

}  // namespace ambrel
