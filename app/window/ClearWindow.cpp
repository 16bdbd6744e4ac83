#include "app/window/ClearWindow.h"

#include "app/kit/Theme.h"

namespace ambrel {
namespace {

// Round corners are smoothed into what is behind them, and without a compositor that would be black. Not quite opaque:
// the toolkit would leave the alpha channel out of the next window that it makes.
QColor groundOf(const Theme& theme, bool isCompositing) {
  QColor ground = isCompositing ? QColor(Qt::transparent) : theme.panel();
  if (!isCompositing) ground.setAlpha(254);
  return ground;
}

}  // namespace

ClearWindow::ClearWindow(QQmlEngine& engine, WindowStyle& style, WindowRole role)
    : QQuickView(&engine, nullptr), style_(style) {
  const Theme& theme = themeOf(engine);
  const auto layGround = [this, &theme] { setColor(groundOf(theme, style_.isCompositing())); };
  layGround();
  connect(&theme, &Theme::schemeChanged, this, layGround);
  setResizeMode(QQuickView::SizeRootObjectToView);
  setPersistentGraphics(false);
  style_.prepare(*this, role);
}

void ClearWindow::setShape(const QRect& drawn, double corner, const QRect& clickable) {
  setColor(groundOf(themeOf(*engine()), style_.isCompositing()));
  style_.setRoundedMask(*this, drawn.x(), drawn.y(), drawn.width(), drawn.height(),
                        style_.isCompositing() ? 0 : corner);
  if (!flags().testFlag(Qt::WindowTransparentForInput))
    style_.setInputRect(*this, clickable.x(), clickable.y(), clickable.width(), clickable.height());
}

}  // namespace ambrel
