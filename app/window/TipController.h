#pragma once
// Shows the tip that is wanted, in a window of its own, since a tip may be larger than the room beside its item.

#include <QObject>
#include <memory>

#include "platform/Screens.h"
#include "platform/WindowStyle.h"

class QQmlEngine;

namespace ambrel {

class PanelWindow;
class Tips;

class TipController : public QObject {
  Q_OBJECT

 public:
  TipController(QQmlEngine& engine, WindowStyle& style, QObject* parent = nullptr);
  ~TipController() override;

 private:
  void update();

  QQmlEngine& engine_;
  WindowStyle& style_;
  Tips& tips_;
  std::unique_ptr<PanelWindow> window_;
};

}  // namespace ambrel
