#pragma once
// The tile under the pointer while it is dragged, in a window of its own, since it may be taken anywhere.

#include <QObject>
#include <memory>

#include "app/context/WidgetContext.h"
#include "platform/WindowStyle.h"

class QQmlEngine;

namespace ambrel {

class PanelWindow;

// There is a window only as long as a tile is dragged.
class DragPicture : public QObject {
  Q_OBJECT

 public:
  // All outlive it.
  DragPicture(QQmlEngine& engine, WidgetContext& context, WindowStyle& style, QObject* parent = nullptr);
  ~DragPicture() override;

 private:
  void update();
  void place();

  QQmlEngine& engine_;
  WidgetContext& context_;
  WindowStyle& style_;
  std::unique_ptr<PanelWindow> window_;
};

}  // namespace ambrel
