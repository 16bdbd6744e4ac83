#include "app/telemetry/SoundModel.h"

#include <algorithm>
#include <cmath>

#include "app/telemetry/TelemetryTexts.h"

namespace ambrel {
namespace {

constexpr int stepPercent = 5;

}  // namespace

SoundModel::SoundModel(SoundControl& control, Calendar calendar, QObject* parent)
    : QObject(parent), control_(control), calendar_(std::move(calendar)) {
  update();
}

SoundModel::~SoundModel() { setListening(false); }

void SoundModel::setListening(bool listens) {
  if (listens == isListening_) return;
  isListening_ = listens;
  control_.setChangeHandler(listens ? [this] { update(); } : std::function<void()>());
  if (listens) update();
}

int SoundModel::percent() const {
  return output_ ? static_cast<int>(std::lround(std::clamp(output_->volume, 0.0, 1.0) * 100)) : 0;
}

void SoundModel::setPercent(int percent) {
  percent = std::clamp(percent, 0, 100);
  if (!output_ || percent == this->percent()) return;
  control_.setOutputVolume(percent / 100.0);
}

void SoundModel::setMuted(bool isMuted) {
  if (output_ && isMuted != output_->isMuted) control_.setOutputMuted(isMuted);
}

void SoundModel::setMicrophoneMuted(bool isMuted) {
  if (input_ && isMuted != input_->isMuted) control_.setMicrophoneMuted(isMuted);
}

void SoundModel::step(qreal notches) {
  if (notches > 0) setMuted(false);
  setPercent(percent() + static_cast<int>(std::lround(notches * stepPercent)));
}

void SoundModel::update() {
  output_ = control_.output();
  input_ = control_.microphone();
  volume_.set(volumeTile(calendar_, output_));
  microphone_.set(microphoneTile(input_));
  Q_EMIT changed();
}

}  // namespace ambrel
