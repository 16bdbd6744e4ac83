#pragma once
// An ordinary window whose frame is drawn by us: round corners and a shadow around it where there is a compositor, a
// plain rectangle with cut corners where there is none.

#include <QQuickView>
#include <QtQml/qqmlregistration.h>

#include "platform/WindowStyle.h"

namespace ambrel {

class FramedWindow : public QQuickView {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by its controller")
  // What is left free around the frame; the shadow lies in it.
  Q_PROPERTY(int margin READ margin NOTIFY frameChanged)
  // Maximised or full screen: there is no room for a shadow or for round corners.
  Q_PROPERTY(bool isFilling READ isFilling NOTIFY frameChanged)

 public:
  static constexpr int shadowMargin = 48;

  // Sizes are those of the frame.
  FramedWindow(QQmlEngine& engine, WindowStyle& style, const QString& title, QSize size, QSize smallest);

  int margin() const { return margin_; }
  bool isFilling() const { return isFilling_; }

  Q_INVOKABLE void minimize() { showMinimized(); }
  Q_INVOKABLE void toggleMaximized();
  // The pointer is pressed: the window manager moves the window, or the edges, with it.
  Q_INVOKABLE void startMove() { startSystemMove(); }
  Q_INVOKABLE void startResize(int edges) { startSystemResize(Qt::Edges(edges)); }

 Q_SIGNALS:
  void frameChanged();
  void closeAsked();

 protected:
  bool event(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void updateFrame();
  void updateShape();

  WindowStyle& style_;
  QSize smallest_;
  int margin_ = 0;
  bool isFilling_ = false;
};

}  // namespace ambrel
