#pragma once
// A window of ours with a view of QML in it: made when it is opened, destroyed when it is closed.

#include <QObject>
#include <QUrl>
#include <QVariantMap>
#include <functional>
#include <memory>

#include "app/window/FramedWindow.h"

class QQmlEngine;

namespace ambrel {

class ViewWindow : public QObject {
  Q_OBJECT

 public:
  struct Look {
    QString title;
    QSize size, smallest;
    QUrl source;             // a WindowFrame
    QVariantMap properties;  // of the view, beside its window
  };
  // Engine and style outlive it.
  ViewWindow(QQmlEngine& engine, WindowStyle& style, Look look, QObject* parent = nullptr);
  ~ViewWindow() override;

  // Brings the window forward, also when it is open already.
  void open();
  void close();
  bool isShown() const { return window_ != nullptr; }
  FramedWindow* window() const { return window_.get(); }

  // A window that was opened from the bar by keyboard, and has kept it, gives it back when it closes. Assigned by the
  // program.
  std::function<bool()> hasBarKeyboard;
  std::function<void()> giveKeyboardBack;

 Q_SIGNALS:
  // The user wants it closed; nothing has happened yet.
  void closeAsked();

 private:
  QQmlEngine& engine_;
  WindowStyle& style_;
  Look look_;
  bool returnsKeyboard_ = false;
  std::unique_ptr<FramedWindow> window_;
  // Closed from within itself, it ends when the call has returned.
  std::unique_ptr<FramedWindow> closed_;
};

}  // namespace ambrel
