#pragma once
// What the models of tiles with a panel share: they work while the tile can be seen or the panel is open.

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include "app/base/Replaced.h"

namespace ambrel {

class SeenModel : public QObject {
  Q_OBJECT
  QML_ANONYMOUS
  Q_PROPERTY(bool isOpen READ isOpen NOTIFY isOpenChanged FINAL)  // its panel

 public:
  using QObject::QObject;

  bool isNeeded() const { return isSeen_ || isOpen_; }
  bool isOpen() const { return isOpen_; }
  void setIsSeen(bool isSeen) {
    isSeen_ = isSeen;
    neededChanged();
  }
  // Of the panel.
  Q_INVOKABLE void begin() {
    if (replaced(isOpen_, true)) Q_EMIT isOpenChanged();
    neededChanged();
  }
  Q_INVOKABLE void end() {
    if (!replaced(isOpen_, false)) return;
    Q_EMIT isOpenChanged();
    closed();
    neededChanged();
  }

 Q_SIGNALS:
  void isOpenChanged();

 protected:
  virtual void closed() {}
  virtual void neededChanged() {}

 private:
  bool isSeen_ = false, isOpen_ = false;
};

}  // namespace ambrel
