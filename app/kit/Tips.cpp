#include "app/kit/Tips.h"

#include <QGuiApplication>

namespace ambrel {

Tips::Tips(QObject* parent) : QObject(parent) {
  timer_.setSingleShot(true);
  timer_.setInterval(600);
  connect(&timer_, &QTimer::timeout, this, &Tips::show);
  // What has come by a key is not to be covered by the tip of a pointer that rests elsewhere.
  connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](const QWindow* now) {
    if (now && now != window()) leaveShown();
  });
}

void Tips::setDelay(int milliseconds) {
  if (timer_.interval() == milliseconds) return;
  timer_.setInterval(milliseconds);
  Q_EMIT delayChanged();
}

void Tips::enter(QQuickItem* item, const QString& text, const QString& keys) {
  if (!item || text.isEmpty()) return;
  if (item_ != item) leaveShown();
  next_ = item;
  nextText_ = text;
  nextKeys_ = keys;
  timer_.start();
}

void Tips::leave(QQuickItem* item) {
  if (next_ == item) {
    next_ = nullptr;
    timer_.stop();
  }
  if (item_ == item) leaveShown();
}

void Tips::leaveShown() {
  if (text_.isEmpty()) return;
  if (item_) disconnect(item_, nullptr, this, nullptr);
  item_ = nullptr;
  text_.clear();
  keys_.clear();
  Q_EMIT changed();
}

void Tips::show() {
  if (!next_ || !next_->isVisible()) return;
  item_ = next_;
  text_ = nextText_;
  keys_ = nextKeys_;
  // The tip disappears with its item.
  connect(item_, &QQuickItem::visibleChanged, this, &Tips::leaveShown, Qt::UniqueConnection);
  connect(item_, &QObject::destroyed, this, &Tips::leaveShown, Qt::UniqueConnection);
  Q_EMIT changed();
}

}  // namespace ambrel
