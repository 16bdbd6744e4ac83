#pragma once
// An ordinary window whose frame is drawn by us: round corners and a shadow around it where there is a compositor, a
// plain rectangle with cut corners where there is none.

#include <QTimer>
#include <QtQml/qqmlregistration.h>
#include <optional>

#include "app/window/ClearWindow.h"

namespace ambrel {

class FramedWindow : public ClearWindow {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by its controller")
  // What is left free around the frame; the shadow is drawn in it.
  Q_PROPERTY(int margin READ margin NOTIFY frameChanged)
  // Maximised or full screen: there is no room for a shadow or for round corners.
  Q_PROPERTY(bool isFilling READ isFilling NOTIFY frameChanged)
  // Filling, or in a frame of the window manager's.
  Q_PROPERTY(bool isSquare READ isSquare NOTIFY frameChanged)

 public:
  static constexpr int shadowMargin = 48;

  // Sizes are those of the frame.
  FramedWindow(QQmlEngine& engine, WindowStyle& style, const QString& title, QSize size, QSize smallest);

  int margin() const { return margin_; }
  bool isFilling() const { return isFilling_; }
  bool isSquare() const { return isFilling_ || isFramed_; }

  Q_INVOKABLE void minimize() { showMinimized(); }
  Q_INVOKABLE void toggleMaximized();
  // The pointer is pressed: the window, or these edges of it, move with it until it is released. We move them
  // ourselves: some window managers do not, and others miss the release of a quick drag and go on. They restore a
  // maximised window.
  Q_INVOKABLE void startMove();
  Q_INVOKABLE void startResize(int edges);

 Q_SIGNALS:
  void frameChanged();
  void closeAsked();

 protected:
  bool event(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void exposeEvent(QExposeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  bool castsShadow() const;
  void updateFrame();
  void updateShape();
  void follow(QPoint pointer);

  QSize smallest_;
  int margin_ = 0;
  bool isFilling_ = false;
  bool isFramed_ = false;
  QTimer release_, frameCheck_;
  QPoint pressed_;  // the pointer on the screen, when it was pressed last
  struct Drag {
    Qt::Edges edges;  // none: the whole window
    QRect start;
  };
  std::optional<Drag> drag_;
};

}  // namespace ambrel
