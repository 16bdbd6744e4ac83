#pragma once
// Whether a panel is on screen, and how far it is opened or closed. Views bind to it and do the drawing.

#include <QObject>
#include <QtQml/qqmlregistration.h>
#include <chrono>
#include <functional>

#include "core/dock.h"

namespace ambrel {

// Runs a step later on the main thread. The program passes a single-shot timer, tests a queue of their own.
using DelayedStep = std::function<void(Seconds, std::function<void()>)>;

class Presentation : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built with its panel")
  Q_PROPERTY(bool isShown READ isShown NOTIFY changed)
  Q_PROPERTY(bool isContentShown READ isContentShown NOTIFY changed)
  Q_PROPERTY(bool isPeeking READ isPeeking NOTIFY changed)
  Q_PROPERTY(bool isOnScreen READ isOnScreen NOTIFY changed)

 public:
  explicit Presentation(DelayedStep later, QObject* parent = nullptr);

  bool isShown() const { return state_.isShown; }
  bool isContentShown() const { return state_.isContentShown; }
  bool isPeeking() const { return isPeeking_; }
  bool isOnScreen() const { return state_.isOnScreen; }
  int generation() const { return state_.generation; }

  // Showing what is shown and hiding what is hidden do nothing.
  void show();
  void hide();
  void setPeeking(bool isPeeking);

  // For the view: closes its own panel.
  Q_INVOKABLE void dismiss();
  std::function<void()> onDismiss;

 Q_SIGNALS:
  void changed();
  // The window must be shown, or hidden.
  void orderFront();
  void orderOut();

 private:
  void schedule(const PresentationStep& step);

  DelayedStep later_;
  PresentationState state_;
  bool isPeeking_ = false;
};

}  // namespace ambrel
