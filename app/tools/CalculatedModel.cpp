#include "app/tools/CalculatedModel.h"

#include <QPointer>

#include "app/base/Replaced.h"
#include "app/base/StoredValue.h"
#include "core/base/Whitespace.h"

namespace ambrel {

void CalculatedModel::reload() {
  // What is being typed is stored when the panel closes.
  if (!isOpen()) input_ = seams_.defaults.string(key_).value_or(standard_);
  renew();
}

void CalculatedModel::setInput(const QString& input) {
  if (replaced(input_, input.toStdString())) renew();
}

void CalculatedModel::renew() {
  isAccepted_ = false;
  const auto input = trimmedOfWhitespace(input_);
  if (replaced(expression_, input.empty() ? std::string() : expression(input))) {
    run_.request_stop();
    isRunning_ = false;
    isStale_ = !expression_.empty();
    if (!isStale_) outcome_ = {};
    neededChanged();
  }
  publish();
}

void CalculatedModel::neededChanged() {
  if (!isStale_ || !isNeeded()) return;
  // A calculation for each key would be wasted.
  constexpr Seconds moment{0.15};
  seams_.later(moment, [self = QPointer(this), generation = ++generation_] {
    if (self && generation == self->generation_ && self->isStale_ && self->isNeeded()) self->workOut();
  });
}

void CalculatedModel::workOut() {
  isStale_ = false;
  isRunning_ = true;
  run_ = {};
  seams_.calculate(expression_, run_.get_token(), [self = QPointer(this)](ToolOutcome outcome) {
    if (!self) return;
    self->isRunning_ = false;
    self->outcome_ = std::move(outcome);
    self->publish();
  });
  publish();
}

void CalculatedModel::accept() {
  isAccepted_ = true;
  publish();
}

void CalculatedModel::closed() { store(seams_.defaults, key_, DefaultsValue{input_}); }

void CalculatedModel::publish() {
  CalculatedFace face{.input = toQString(input_),
                      .result = toQString(outcome_.output),
                      .fault = toQString(outcome_.fault),
                      .isWorking = isStale_ || isRunning_};
  face.value = face.result.isEmpty() ? QStringLiteral("–") : face.result;
  face.detail = face.fault.isEmpty() ? detail(face.input.trimmed()) : face.fault;
  if (replaced(face_, face)) Q_EMIT faceChanged();
  if (face_.isWorking || !std::exchange(isAccepted_, false) || face_.result.isEmpty()) return;
  seams_.shell.copyText(face_.result);
  accepted();
}

}  // namespace ambrel
