#pragma once
// What Buddy says, in a window beside his tile. It never takes the keyboard.

#include <QObject>
#include <QtQml/qqmlregistration.h>
#include <functional>
#include <memory>

#include "app/base/Presentation.h"
#include "app/dock/BubblePlacement.h"
#include "platform/WindowStyle.h"

class QQmlEngine;
class QWindow;

namespace ambrel {

class BuddyNoticeCenter;
class PanelWindow;
struct PanelAnchor;

class BubbleController : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  // "bottom", "left" or "right"; "" without a tail.
  Q_PROPERTY(QString tailSide READ tailSide NOTIFY placed FINAL)
  Q_PROPERTY(int tailAt READ tailAt NOTIFY placed FINAL)

 public:
  // `anchor` gives Buddy's tile and the bar.
  BubbleController(QQmlEngine& engine, WindowStyle& style, DelayedStep later, BuddyNoticeCenter& center,
                   std::function<PanelAnchor()> anchor, QObject* parent = nullptr);
  ~BubbleController() override;

  // The bar or a tile has moved, or the texts have another size.
  Q_INVOKABLE void place();

  QString tailSide() const { return tailSide_; }
  int tailAt() const { return placement_.tailAt; }
  const BubblePlacement& placement() const { return placement_; }
  Presentation& presentation() { return presentation_; }
  QWindow* window() const;

 Q_SIGNALS:
  void placed();

 private:
  void update();
  void makeWindow();

  QQmlEngine& engine_;
  WindowStyle& style_;
  BuddyNoticeCenter& center_;
  std::function<PanelAnchor()> anchor_;
  Presentation presentation_;
  std::unique_ptr<PanelWindow> window_;
  BubblePlacement placement_;
  QString tailSide_;
  QString spoken_;  // what it said last
};

}  // namespace ambrel
