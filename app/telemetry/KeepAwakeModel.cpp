#include "app/telemetry/KeepAwakeModel.h"

#include "app/telemetry/TelemetryTexts.h"

namespace ambrel {

KeepAwakeModel::KeepAwakeModel(KeepAwake& keepAwake, LiveFace& face, QObject* parent)
    : QObject(parent), keepAwake_(keepAwake), face_(face) {
  update(false);
}

void KeepAwakeModel::toggle() {
  if (keepAwake_.isHeld()) return release();
  keepAwake_.take([self = QPointer(this), asked = ++generation_](bool isHeld) {
    if (self && asked == self->generation_) self->update(!isHeld);
  });
}

void KeepAwakeModel::release() {
  ++generation_;
  keepAwake_.release();
  update(false);
}

void KeepAwakeModel::update(bool hasFailed) { face_.set(keepAwakeTile(keepAwake_.isHeld(), hasFailed)); }

}  // namespace ambrel
