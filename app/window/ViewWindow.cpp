#include "app/window/ViewWindow.h"

#include <QQmlEngine>

#include "app/base/ItemMaker.h"

namespace ambrel {

ViewWindow::ViewWindow(QQmlEngine& engine, WindowStyle& style, Look look, QObject* parent)
    : QObject(parent), engine_(engine), style_(style), look_(std::move(look)) {}

ViewWindow::~ViewWindow() = default;

void ViewWindow::open() {
  if (!window_) {
    returnsKeyboard_ = hasBarKeyboard && hasBarKeyboard();
    window_ = std::make_unique<FramedWindow>(engine_, style_, look_.title, look_.size, look_.smallest);
    connect(window_.get(), &FramedWindow::closeAsked, this, &ViewWindow::closeAsked);
    connect(window_.get(), &QWindow::activeChanged, this, [this] {
      if (window_ && !window_->isActive()) returnsKeyboard_ = false;
    });
    QVariantMap properties = look_.properties;
    properties.insert(QStringLiteral("window"), QVariant::fromValue(window_.get()));
    window_->setInitialProperties(properties);
    window_->setSource(look_.source);
  }
  if (window_->windowStates() & Qt::WindowMinimized)
    window_->showNormal();
  else
    window_->show();
  window_->raise();
  style_.activate(*window_);
}

void ViewWindow::close() {
  if (!window_) return;
  const bool returnsKeyboard = returnsKeyboard_;
  window_->hide();
  closed_ = std::move(window_);
  if (returnsKeyboard && giveKeyboardBack) giveKeyboardBack();
  QMetaObject::invokeMethod(
      this,
      [this] {
        closed_.reset();
        forgetUnused(engine_);
      },
      Qt::QueuedConnection);
}

}  // namespace ambrel
