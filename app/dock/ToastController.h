#pragma once
// One short message above the bar. A new one takes the place of the old.

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>
#include <functional>
#include <memory>

#include "app/base/Presentation.h"
#include "platform/WindowStyle.h"

class QQmlEngine;

namespace ambrel {

class PanelWindow;
struct PanelAnchor;

class ToastController : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")

 public:
  explicit ToastController(DelayedStep later, QObject* parent = nullptr);
  ~ToastController() override;

  // What it is shown with, once there is a bar to show it above. Before that a message is lost.
  void attach(QQmlEngine& engine, WindowStyle& style, std::function<PanelAnchor()> anchor);
  void show(const QString& title, const QString& detail, const QString& symbol);

  // The message has had its time and fades.
  Q_INVOKABLE void close();

  QWindow* window() const;

 private:
  DelayedStep later_;
  QQmlEngine* engine_ = nullptr;
  WindowStyle* style_ = nullptr;
  std::function<PanelAnchor()> anchor_;
  std::unique_ptr<PanelWindow> window_;
  // A late step acts only if no newer message has come.
  int generation_ = 0;
};

}  // namespace ambrel
