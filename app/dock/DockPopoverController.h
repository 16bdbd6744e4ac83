#pragma once
// One panel that opens beside the bar.

#include <QObject>
#include <QUrl>
#include <QVariantMap>
#include <functional>
#include <memory>

#include "app/base/Presentation.h"
#include "app/dock/PanelGeometry.h"
#include "platform/WindowStyle.h"

class QQmlEngine;

namespace ambrel {

class PanelWindow;

// What a panel shows. The properties are handed to the component, besides `presentation`.
struct PanelContent {
  QUrl source;
  QVariantMap properties;
  QSize size;
};

// Where it opens, in the window system's coordinates.
struct PanelAnchor {
  QRect tile;  // empty: the middle of the bar
  QRect bar;
  QRect screen;
  DockEdge edge = DockEdge::bottom;
};

// The window and what is in it are made at the first opening.
class DockPopoverController : public QObject {
  Q_OBJECT

 public:
  DockPopoverController(QQmlEngine& engine, WindowStyle& style, DelayedStep later, PanelContent content,
                        QObject* parent = nullptr);
  ~DockPopoverController() override;

  // Shown, or about to be.
  bool isShown() const { return presentation_.isShown(); }
  void open(const PanelAnchor& anchor);
  // The bar, its tile or the screen has moved.
  void place(const PanelAnchor& anchor);
  void close();
  void toggle(const PanelAnchor& anchor);

  // Whether it stays when another window takes the keyboard, until its content asks to be closed. Before the first
  // opening.
  void setStays(bool stays) { stays_ = stays; }
  bool stays() const { return stays_; }
  // From the next opening on.
  void setSize(QSize size) { content_.size = size; }
  // Changes a property of what is shown, now or at the first opening.
  void setProperty(const QString& name, const QVariant& value);

  // Called once with what the panel shows, when it has been made: the place to connect its signals.
  std::function<void(QObject& content)> onContentMade;

  Presentation& presentation() { return presentation_; }
  QWindow* window() const;

 Q_SIGNALS:
  void shownChanged();

 private:
  void makeWindow();

  QQmlEngine& engine_;
  WindowStyle& style_;
  PanelContent content_;
  Presentation presentation_;
  std::unique_ptr<PanelWindow> window_;
  bool wasShown_ = false, stays_ = false;
};

}  // namespace ambrel
