#pragma once
// A window without a frame of the window manager's, of which we draw a part. The rest is clear, where there is a
// compositor, and lets clicks through.

#include <QQuickView>
#include <QtQml/qqmlregistration.h>

#include "platform/WindowStyle.h"

namespace ambrel {

class ClearWindow : public QQuickView {
  Q_OBJECT
  QML_ANONYMOUS

 public:
  // Nobody is told any more: its controller may be ending, too.
  ~ClearWindow() override { blockSignals(true); }

 protected:
  ClearWindow(QQmlEngine& engine, WindowStyle& style, WindowRole role);

  // Without a compositor the window is cut to `drawn` and its corners. A corner of 0 cuts nothing.
  void setShape(const QRect& drawn, double corner, const QRect& clickable);

  WindowStyle& style_;
};

}  // namespace ambrel
