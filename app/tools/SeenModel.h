#pragma once
// What the models of tiles with a panel share: they work while the tile can be seen or the panel is open.

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace ambrel {

class SeenModel : public QObject {
  Q_OBJECT
  QML_ANONYMOUS

 public:
  using QObject::QObject;

  bool isNeeded() const { return isSeen_ || isOpen_; }
  void setIsSeen(bool isSeen) {
    isSeen_ = isSeen;
    neededChanged();
  }
  // Of the panel.
  Q_INVOKABLE void begin() {
    isOpen_ = true;
    opened();
    neededChanged();
  }
  Q_INVOKABLE void end() {
    if (!isOpen_) return;
    isOpen_ = false;
    closed();
    neededChanged();
  }

 protected:
  bool isOpen() const { return isOpen_; }
  virtual void opened() {}
  virtual void closed() {}
  virtual void neededChanged() {}

 private:
  bool isSeen_ = false, isOpen_ = false;
};

}  // namespace ambrel
