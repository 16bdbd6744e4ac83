#pragma once
// One hue of the theme as QML binds to it; it changes with the scheme.

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include "app/kit/Palette.h"

namespace ambrel {

class Tone : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("Tones belong to the theme")
  Q_PROPERTY(QColor text READ text NOTIFY changed FINAL)
  Q_PROPERTY(QColor soft READ soft NOTIFY changed FINAL)
  Q_PROPERTY(QColor mark READ mark NOTIFY changed FINAL)

 public:
  QColor text() const { return colors_.text; }
  QColor soft() const { return colors_.soft; }
  QColor mark() const { return colors_.mark; }
  void set(const ToneColors& colors) {
    if (colors_ == colors) return;
    colors_ = colors;
    Q_EMIT changed();
  }

 Q_SIGNALS:
  void changed();

 private:
  ToneColors colors_;
};

}  // namespace ambrel
