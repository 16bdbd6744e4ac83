#pragma once
// One short message above the bar. A new one takes the place of the old.

#include <QObject>
#include <QRect>
#include <QString>
#include <QtQml/qqmlregistration.h>
#include <functional>
#include <memory>
#include <vector>

#include "app/base/Presentation.h"
#include "platform/WindowStyle.h"

class QQmlEngine;

namespace ambrel {

class PanelWindow;
struct PanelAnchor;

struct ToastMessage {
  QString title;
  QString detail;
  QString symbol;
  QString action;  // the word on its button; empty without one
  std::function<void()> onAction;
  // What it is placed below, on this screen; empty: above the bar.
  QRect above;
  QRect screen;
};

class ToastController : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")

 public:
  explicit ToastController(DelayedStep later, QObject* parent = nullptr);
  ~ToastController() override;

  // What it is shown with, once there is a bar to show it above. Before that a message is lost.
  void attach(QQmlEngine& engine, WindowStyle& style, std::function<PanelAnchor()> anchor);
  // Takes the window away for good; what comes after that is lost. Before the engine ends.
  void end();
  // What it must not cover: another message, an open panel.
  std::function<std::vector<QRect>()> occupied;

  void show(const QString& title, const QString& detail, const QString& symbol);
  // The message's number, by which it can be withdrawn; 0 when it is lost.
  int show(ToastMessage message);
  // Takes the message away if no newer one has come.
  void withdraw(int number);

  // For the view: the message has had its time and fades; its button was pressed.
  Q_INVOKABLE void close();
  Q_INVOKABLE void act();
  // Its text was laid out again.
  Q_INVOKABLE void place();

  QWindow* window() const;

 private:
  DelayedStep later_;
  QQmlEngine* engine_ = nullptr;
  WindowStyle* style_ = nullptr;
  std::function<PanelAnchor()> anchor_;
  std::unique_ptr<PanelWindow> window_;
  std::function<void()> onAction_;
  QRect above_, screen_;  // as in the message
  int number_ = 0;
  // A late step acts only if no newer message has come.
  int generation_ = 0;
};

}  // namespace ambrel
