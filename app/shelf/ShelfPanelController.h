#pragma once
// The shelf of the clipboard: a panel that drops from the top centre of the screen where the pointer is.

#include <QImage>
#include <QObject>
#include <QPointer>
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
  // Whether the screen shows through where nothing is drawn; elsewhere that is black.
  Q_PROPERTY(bool isCompositing READ isCompositing NOTIFY opened)

 public:
  struct Seams {
    PointerMonitor& pointer;
    Screens& screens;
    WindowStyle& windowStyle;
    DelayedStep later;
    std::function<Instant()> now;
  };
  // What it shows at its usual scale, in points.
  static constexpr int width = 980, height = 300;
  // How far its ground reaches beyond the screen's edge, so that only the lower corners are round.
  static constexpr int overhang = 20;
  // How long the pointer may be away from a shelf that it has opened.
  static constexpr Seconds leaveDelay{0.5};
  // Longer than a panel: it is opened more often, and its pictures take the longest.
  static constexpr Seconds keptFor{600};

  ShelfPanelController(QQmlEngine& engine, ClipboardModel& clipboard, AppSettings& settings, ToastController& toast,
                       Seams seams, QObject* parent = nullptr);
  ~ShelfPanelController() override;

  bool isCompositing() const { return seams_.windowStyle.isCompositing(); }
  // Shown, or about to be.
  bool isShown() const { return presentation_.isShown(); }
  // With the keyboard.
  void open();
  void close();
  void toggle();
  // The pointer has opened it: it takes no keys until it is clicked, and goes when the pointer does.
  void openByPointer();
  // The screens have changed.
  void place();
  void setScale(qreal scale) { scale_ = scale; }

  // For the view.
  Q_INVOKABLE void dismiss() { close(); }
  // Puts a clip on the pasteboard and leaves.
  Q_INVOKABLE void pick(const QString& id);
  Q_INVOKABLE void pickPinned(int number);
  // The pointer has come onto the panel or has left it.
  Q_INVOKABLE void setPointerInside(bool isInside);
  // Begins to drag a clip out of the shelf; `card` is what is seen under the pointer.
  Q_INVOKABLE void dragOut(const QString& id, QQuickItem* card);
  Q_INVOKABLE void askForSettings() { Q_EMIT settingsAsked(); }

  // A pinned clip was copied by its number, by key or from outside: says so. False when there is no such clip.
  bool copyPinned(int number);

  QWindow* window() const;
  EdgeSensor& sensor() { return *sensor_; }

 Q_SIGNALS:
  void shownChanged();
  void settingsAsked();
  // It has just been opened: the view starts over.
  void opened();

 private:
  void show(bool takesKeys);
  void makeWindow();
  QRect screenFrame() const;
  QRect panelFrame(const QRect& screen) const;
  void showUndo(const QString& what);
  void updateSensor();
  void runDrag(const ClipItem& item, const std::optional<std::string>& picture, const QImage& image, QQuickItem* card);

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
