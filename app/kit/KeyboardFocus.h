#pragma once
// Whether to show the keyboard focus: while the keyboard is used, not while a pointer is.

#include <QObject>
#include <QtQml/qqmlregistration.h>

class QQmlEngine;

namespace ambrel {

// One for each engine; watches the keys and presses of the whole program.
class KeyboardFocus : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON
  Q_PROPERTY(bool isShown READ isShown NOTIFY changed FINAL)

 public:
  explicit KeyboardFocus(QObject* parent = nullptr);

  bool isShown() const { return isShown_; }
  // For keys that come from elsewhere, as the desktop's own.
  void setIsShown(bool shown);

  bool eventFilter(QObject* watched, QEvent* event) override;

 Q_SIGNALS:
  void changed();

 private:
  bool isShown_ = false;
};

// The one of this engine; the module Ambrel.Kit must be linked in.
KeyboardFocus& keyboardFocusOf(QQmlEngine& engine);

}  // namespace ambrel
