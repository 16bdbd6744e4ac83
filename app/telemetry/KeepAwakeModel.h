#pragma once
// The switch that keeps the computer awake.

#include <QPointer>

#include "app/telemetry/LiveFace.h"
#include "platform/KeepAwake.h"

namespace ambrel {

// Off at every start, and off again when its tile leaves the bar: the user must be able to see what is held.
class KeepAwakeModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")

 public:
  // Shows its state on the face, which outlives it.
  KeepAwakeModel(KeepAwake& keepAwake, LiveFace& face, QObject* parent = nullptr);

  Q_INVOKABLE void toggle();
  // Nothing where it is off.
  void release();

 private:
  void update(bool hasFailed);

  KeepAwake& keepAwake_;
  LiveFace& face_;
  // An answer to an older click than the last is not looked at.
  int generation_ = 0;
};

}  // namespace ambrel
