#pragma once
// What the models of focus and wellbeing share: each shows a face, which is made again after every change.

#include <QtQml/qqmlregistration.h>

#include "app/base/TimedModel.h"
#include "app/focus/FocusFaces.h"
#include "app/focus/FocusSeams.h"

namespace ambrel {

// Counts begin again at the end of the day, so a model waits for that too.
class FocusModel : public TimedModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")

 public:
  // Brings what is shown up to date, while somebody looks.
  Q_INVOKABLE void update() { publish(seams_.now()); }
  // The stored values were changed, by the user or by others.
  virtual void reload() {}

  std::optional<Instant> due() const override {
    const auto change = nextChange();
    return change ? std::min(*change, dayEnds_) : dayEnds_;
  }
  void tick(Instant now) override { publish(now); }
  void clockMoved(Seconds /*by*/, Instant now) override { publish(now); }

 Q_SIGNALS:
  void changed();

 protected:
  FocusModel(FocusSeams seams, QObject* parent) : TimedModel(parent), seams_(std::move(seams)) {}

  // What the model waits for besides the end of the day.
  virtual std::optional<Instant> nextChange() const { return std::nullopt; }
  // Makes the face, and says whether it differs.
  virtual bool renewFace(Instant now) = 0;
  void publish(Instant now) {
    if (renewFace(now)) Q_EMIT changed();
    dayEnds_ = seams_.calendar().startOfDay(now, 1);
    announceDue();
  }

  FocusSeams seams_;
  Instant dayEnds_{};
};

}  // namespace ambrel
