#pragma once
// The window of one panel: clear, frameless, and a margin wider than the panel for its shadow.

#include <QVariantAnimation>
#include <QtQml/qqmlregistration.h>

#include "app/window/ClearWindow.h"

namespace ambrel {

class Presentation;

class PanelWindow : public ClearWindow {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by its controller")
  Q_PROPERTY(QRect panelRect READ panelRect NOTIFY panelRectChanged)
  // Whether what is clear is clear. Without a compositor it is black, and nothing in the window may fade or move.
  Q_PROPERTY(bool fades READ fades NOTIFY panelRectChanged)

 public:
  // Around the panel; the shadow is in it and clicks go through.
  static constexpr int shadowMargin = 48;

  PanelWindow(QQmlEngine& engine, WindowStyle& style, WindowRole role);

  // Where the panel itself is, in the window system's coordinates. The window does not leave `room`, so near an
  // edge its margin is narrower.
  void setPanelFrame(const QRect& frame, const QRect& room);
  // As setPanelFrame; a window that can be seen goes there instead of jumping, unless its size changes or it was
  // outside the room.
  void movePanelFrame(const QRect& frame, const QRect& room);
  // That of what is drawn, in pixels of the toolkit; a panel's at first. Where nothing may be clear, because there is
  // no compositor, the window is cut to it.
  void setCornerRadius(int radius);
  // What the content has as a property of that name; null without.
  QQuickItem* part(const char* name) const;
  bool fades() const { return style_.isCompositing(); }
  QRect panelFrame() const { return panelFrame_; }
  // The panel within the window.
  QRect panelRect() const { return panelFrame_.translated(-windowFrame_.topLeft()); }

 Q_SIGNALS:
  // Escape, a click beside the panel, or another window has taken the keys.
  void leaveAsked();
  void pressed();
  void panelRectChanged();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  QRect panelFrame_, windowFrame_, room_;
  QVariantAnimation move_;
  int cornerRadius_;
  bool wasActive_ = false;
};

}  // namespace ambrel
