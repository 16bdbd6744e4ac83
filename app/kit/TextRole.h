#pragma once
// One role of the type scale as QML binds to it; it changes with the text scale.

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include "app/kit/TypeScale.h"

namespace ambrel {

class TextRole : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("Text roles belong to the theme")
  Q_PROPERTY(QFont font READ font NOTIFY changed FINAL)
  Q_PROPERTY(qreal line READ line NOTIFY changed FINAL)

 public:
  QFont font() const { return style_.font; }
  // The height of a line.
  qreal line() const { return style_.line; }
  void set(const TextStyle& style) {
    if (style_ == style) return;
    style_ = style;
    Q_EMIT changed();
  }

 Q_SIGNALS:
  void changed();

 private:
  TextStyle style_;
};

}  // namespace ambrel
