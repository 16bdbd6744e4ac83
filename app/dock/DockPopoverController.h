#pragma once
// One panel that opens beside the bar.

#include <QObject>
#include <QUrl>
#include <QVariantMap>
#include <functional>
#include <memory>
#include <vector>

#include "app/base/Presentation.h"
#include "app/context/WidgetContext.h"
#include "app/window/PanelGeometry.h"
#include "platform/WindowStyle.h"

class QQmlEngine;
class QQuickItem;

namespace ambrel {

class PanelWindow;

// What a panel shows. The component gets its models from the first of `models` that has a property of the wanted name,
// then `properties`, and `presentation` if it asks for it. Its implicit size is that of the panel.
struct PanelContent {
  QUrl source;
  std::vector<const QObject*> models{};
  QVariantMap properties{};
};

// The window and what is in it are made when it opens, and freed when it has been closed for a while.
class DockPopoverController : public QObject {
  Q_OBJECT

 public:
  static constexpr Seconds keptFor{60};

  DockPopoverController(QQmlEngine& engine, WidgetContext& context, WindowStyle& style, DelayedStep later,
                        PanelContent content, QObject* parent = nullptr);
  ~DockPopoverController() override;

  // Shown, or about to be.
  bool isShown() const { return presentation_.isShown(); }
  void open(const PanelAnchor& anchor);
  // The bar, its tile or the screen has moved.
  void place(const PanelAnchor& anchor);
  void close();
  void toggle(const PanelAnchor& anchor);
  // Frees what a closed one is kept for.
  void discard();

  // Whether it stays when another window takes the keyboard, until its content asks to be closed. Before the first
  // opening.
  void setStays(bool stays) { stays_ = stays; }
  bool stays() const { return stays_; }
  // Changes a property of what is shown, now or at the first opening.
  void setProperty(const QString& name, const QVariant& value);

  Presentation& presentation() { return presentation_; }
  QWindow* window() const;
  // What it shows; null while there is no window.
  QQuickItem* content() const { return item_.get(); }

  // Where the panel is; empty while there is no window.
  QRect frame() const;

 Q_SIGNALS:
  void shownChanged();
  // It is off the screen.
  void closed();
  void placed();

 private:
  void makeWindow();
  QSize size() const;

  QQmlEngine& engine_;
  WidgetContext& context_;
  WindowStyle& style_;
  PanelContent content_;
  PanelAnchor anchor_;
  DelayedStep later_;
  Presentation presentation_;
  std::unique_ptr<PanelWindow> window_;
  // In the window, and to go before it.
  std::unique_ptr<QQuickItem> item_;
  bool wasShown_ = false, stays_ = false;
};

}  // namespace ambrel
