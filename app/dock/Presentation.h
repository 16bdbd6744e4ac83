#pragma once
// Whether a panel is on screen, and how far it has come in or gone out. Views bind to it and do the drawing.

#include <QObject>
#include <QtQml/qqmlregistration.h>
#include <chrono>
#include <functional>

namespace ambrel {

// Runs a step later on the main thread. The program passes a single-shot timer, tests a queue of their own.
using DelayedStep = std::function<void(std::chrono::milliseconds, std::function<void()>)>;

class Presentation : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built with its panel")
  Q_PROPERTY(bool isShown READ isShown NOTIFY changed)
  Q_PROPERTY(bool isContentShown READ isContentShown NOTIFY changed)
  Q_PROPERTY(bool isPeeking READ isPeeking NOTIFY changed)
  Q_PROPERTY(bool isOnScreen READ isOnScreen NOTIFY changed)

 public:
  // The content comes in this long after its window, and the window leaves this long after the content began to.
  static constexpr std::chrono::milliseconds contentDelay{70};
  static constexpr std::chrono::milliseconds orderOutDelay{360};

  explicit Presentation(DelayedStep later, QObject* parent = nullptr);

  bool isShown() const { return isShown_; }
  bool isContentShown() const { return isContentShown_; }
  bool isPeeking() const { return isPeeking_; }
  bool isOnScreen() const { return isOnScreen_; }
  int generation() const { return generation_; }

  // Showing what is shown and hiding what is hidden do nothing.
  void show();
  void hide();
  void setPeeking(bool isPeeking);

  // For the view: closes the panel it stands in.
  Q_INVOKABLE void dismiss();
  std::function<void()> onDismiss;

 signals:
  void changed();
  // The window is to come on screen, or to leave it.
  void orderFront();
  void orderOut();

 private:
  DelayedStep later_;
  bool isShown_ = false;
  bool isContentShown_ = false;
  bool isPeeking_ = false;
  bool isOnScreen_ = false;
  // A late step acts only if no newer show or hide has come in between.
  int generation_ = 0;
};

}  // namespace ambrel
