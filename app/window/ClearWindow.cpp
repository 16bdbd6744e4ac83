#include "app/window/ClearWindow.h"

namespace ambrel {

ClearWindow::ClearWindow(QQmlEngine& engine, WindowStyle& style, WindowRole role)
    : QQuickView(&engine, nullptr), style_(style) {
  setColor(Qt::transparent);
  setResizeMode(QQuickView::SizeRootObjectToView);
  setPersistentGraphics(false);
  style_.prepare(*this, role);
}

void ClearWindow::setShape(const QRect& drawn, double corner, const QRect& clickable) {
  style_.setRoundedMask(*this, drawn.x(), drawn.y(), drawn.width(), drawn.height(),
                        style_.isCompositing() ? 0 : corner);
  if (!flags().testFlag(Qt::WindowTransparentForInput))
    style_.setInputRect(*this, clickable.x(), clickable.y(), clickable.width(), clickable.height());
}

}  // namespace ambrel
