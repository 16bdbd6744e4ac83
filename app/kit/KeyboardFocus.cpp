#include "app/kit/KeyboardFocus.h"

#include <QCoreApplication>
#include <QEvent>
#include <QQmlEngine>

#include "app/kit/Theme.h"

namespace ambrel {

KeyboardFocus::KeyboardFocus(QObject* parent) : QObject(parent) {
  QCoreApplication::instance()->installEventFilter(this);
}

void KeyboardFocus::setIsShown(bool shown) {
  if (shown == isShown_) return;
  isShown_ = shown;
  Q_EMIT changed();
}

bool KeyboardFocus::eventFilter(QObject* watched, QEvent* event) {
  // Each comes to a window first and then to the item in it.
  if (!watched->isWindowType()) return false;
  if (event->type() == QEvent::KeyPress)
    setIsShown(true);
  else if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::TouchBegin)
    setIsShown(false);
  return false;
}

KeyboardFocus& keyboardFocusOf(QQmlEngine& engine) {
  themeOf(engine);  // loads the module
  auto* focus = engine.singletonInstance<KeyboardFocus*>(qmlTypeId("Ambrel.Kit", 1, 0, "KeyboardFocus"));
  if (!focus) qFatal("the module Ambrel.Kit cannot be imported");
  return *focus;
}

}  // namespace ambrel
