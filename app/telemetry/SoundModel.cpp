#include "app/telemetry/SoundModel.h"

#include <algorithm>
#include <cmath>

#include "app/telemetry/TelemetryTexts.h"

namespace ambrel {
namespace {

constexpr int stepPercent = 5;

int percentOf(const SoundLevel& level) {
  return static_cast<int>(std::lround(std::clamp(level.volume, 0.0, 1.0) * 100));
}

}  // namespace

SoundModel::SoundModel(SoundControl& control, Calendar calendar, LiveFace& volume, LiveFace& microphone,
                       QObject* parent)
    : QObject(parent), control_(control), calendar_(std::move(calendar)), volume_(volume), microphone_(microphone) {
  update();
}

SoundModel::~SoundModel() { setListening(false); }

void SoundModel::setListening(bool listens) {
  if (listens == isListening_) return;
  isListening_ = listens;
  control_.setChangeHandler(listens ? [this] { update(); } : std::function<void()>());
  if (listens) update();
}

void SoundModel::setPercent(int percent) {
  percent = std::clamp(percent, 0, 100);
  if (output_ && percent != percentOf(*output_)) control_.setOutputVolume(percent / 100.0);
}

void SoundModel::step(qreal notches) {
  if (!output_) return;
  if (notches > 0) setMuted(false);
  setPercent(percentOf(*output_) + static_cast<int>(std::lround(notches * stepPercent)));
}

void SoundModel::setMuted(bool isMuted) {
  if (output_ && isMuted != output_->isMuted) control_.setOutputMuted(isMuted);
}

void SoundModel::toggleMuted() {
  if (output_) control_.setOutputMuted(!output_->isMuted);
}

void SoundModel::toggleMicrophone() {
  if (input_) control_.setMicrophoneMuted(!input_->isMuted);
}

void SoundModel::update() {
  output_ = control_.output();
  input_ = control_.microphone();
  volume_.set(volumeTile(calendar_, output_));
  microphone_.set(microphoneTile(input_));
}

}  // namespace ambrel
