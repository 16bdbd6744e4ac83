#pragma once
// The switch that keeps the computer awake.

#include <QObject>
#include <QPointer>
#include <QtQml/qqmlregistration.h>

#include "app/telemetry/LiveText.h"
#include "platform/KeepAwake.h"

namespace ambrel {

// Off at every start, and off again when its tile leaves the bar: nothing is held that nobody can see.
class KeepAwakeModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::LiveText* text READ text CONSTANT FINAL)

 public:
  explicit KeepAwakeModel(KeepAwake& keepAwake, QObject* parent = nullptr);

  LiveText* text() { return &text_; }
  bool isOn() const { return text_.isOn(); }
  Q_INVOKABLE void toggle();
  void release();

 private:
  void update(bool hasFailed);

  KeepAwake& keepAwake_;
  LiveText text_;
  // An answer to an older click than the last is not looked at.
  int generation_ = 0;
};

}  // namespace ambrel
