#pragma once
// The maximum size of the bar.

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace ambrel {

class BarLimits : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  // Logical pixels.
  Q_PROPERTY(qreal maxLength READ maxLength NOTIFY maxLengthChanged)

 public:
  using QObject::QObject;

  qreal maxLength() const { return maxLength_; }
  void setMaxLength(qreal length) {
    if (length == maxLength_) return;
    maxLength_ = length;
    Q_EMIT maxLengthChanged();
  }

 Q_SIGNALS:
  void maxLengthChanged();

 private:
  qreal maxLength_ = 0;
};

}  // namespace ambrel
