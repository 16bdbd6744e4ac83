#pragma once
// The shelf of the clipboard: a panel that drops from the top centre of the screen where the pointer is.

#include <QObject>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>
#include <functional>
#include <memory>

#include "app/base/Presentation.h"
#include "app/clipboard/ClipboardModel.h"
#include "platform/Pointer.h"
#include "platform/Screens.h"
#include "platform/WindowStyle.h"

class QQmlEngine;

namespace ambrel {

class AppSettings;
class EdgeSensor;
class PanelWindow;
class ToastController;

// The window and what is in it are made when it opens, and freed when it has been closed for a while.
class ShelfPanelController : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  // Whether transparency works; without it, transparent pixels are black.
  Q_PROPERTY(bool isCompositing READ isCompositing NOTIFY opened)

 public:
  struct Seams {
    PointerMonitor& pointer;
    Screens& screens;
    WindowStyle& windowStyle;
    DelayedStep later;
    std::function<Instant()> now;
  };
  // The size at the usual scale, in logical pixels.
  static constexpr int width = 980, height = 300;
  // The part of the panel above the screen's edge, which hides the upper round corners.
  static constexpr int overhang = 20;
  // A shelf opened by the pointer closes after the pointer has been outside for so long.
  static constexpr Seconds leaveDelay{0.5};
  // Longer than a panel: it is opened more often, and its pictures take the longest.
  static constexpr Seconds keptFor{600};

  ShelfPanelController(QQmlEngine& engine, ClipboardModel& clipboard, AppSettings& settings, ToastController& toast,
                       Seams seams, QObject* parent = nullptr);
  ~ShelfPanelController() override;

  bool isCompositing() const { return seams_.windowStyle.isCompositing(); }
  // Shown, or being shown.
  bool isShown() const { return presentation_.isShown(); }
  // Opens it with the keyboard focus.
  void open();
  Q_INVOKABLE void close();
  void toggle();
  // Opens it without the keyboard focus, which a click gives it; it closes when the pointer leaves.
  void openByPointer();
  // To be called when the screens have changed.
  void place();
  void setScale(qreal scale) { scale_ = scale; }

  // For the view.
  Q_INVOKABLE void dismiss();
  // Copies a clip and closes the shelf.
  Q_INVOKABLE void pick(const QString& id);
  Q_INVOKABLE void pickPinned(int number);
  // The pointer has entered or left the panel.
  Q_INVOKABLE void setPointerInside(bool isInside);
  // Starts to drag a clip out of the shelf; `card` is the drag's picture.
  Q_INVOKABLE void dragOut(const QString& id, QQuickItem* card);
  Q_INVOKABLE void askForSettings() { Q_EMIT settingsAsked(); }

  // Copies a pinned clip by its number and shows a message. False if there is no such clip.
  bool copyPinned(int number);

  QWindow* window() const;
  EdgeSensor& sensor() { return *sensor_; }

 Q_SIGNALS:
  void shownChanged();
  // The user has closed it by its own keys, without a clip.
  void dismissed();
  void settingsAsked();
  // It was opened: the view resets.
  void opened();

 private:
  void show(bool takesKeys);
  void makeWindow();
  QRect screenFrame() const;
  QRect panelFrame(const QRect& screen) const;
  void showUndo(const QString& what);
  void updateSensor();

  QQmlEngine& engine_;
  ClipboardModel& clipboard_;
  AppSettings& settings_;
  ToastController& toast_;
  Seams seams_;
  Presentation presentation_;
  std::unique_ptr<PanelWindow> window_;
  std::unique_ptr<EdgeSensor> sensor_;
  qreal scale_ = 1;
  bool wasShown_ = false;
  bool isPointers_ = false;  // opened by the pointer and not yet clicked
  int leaveGeneration_ = 0;
  int undoToast_ = 0;  // of the toast controller; 0 without one
};

}  // namespace ambrel
