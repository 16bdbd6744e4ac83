#pragma once
// What the painted items of the kit share: one signal for all their properties, after which they are painted again.

#include <QQuickPaintedItem>

namespace ambrel {

// Name it `ambrel::StyledItem` as a base: the QML tools look names up from outside of the namespace.
class StyledItem : public QQuickPaintedItem {
  Q_OBJECT
  QML_ANONYMOUS

 public:
  explicit StyledItem(QQuickItem* parent = nullptr) : QQuickPaintedItem(parent) {
    connect(this, &StyledItem::styleChanged, this, &StyledItem::restyle);
  }

 Q_SIGNALS:
  void styleChanged();

 protected:
  // Brings up to date what follows from the properties.
  virtual void restyle() { update(); }
};

}  // namespace ambrel
