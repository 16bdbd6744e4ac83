#include "platform/linux/services/PulseSoundControl.h"

#include <QMetaObject>

#include "platform/linux/services/PulseConnection.h"

namespace ambrel {

PulseSoundControl::PulseSoundControl(std::string server, std::chrono::milliseconds retry)
    : server_(std::move(server)), retry_(retry) {}

PulseSoundControl::~PulseSoundControl() = default;

void PulseSoundControl::setChangeHandler(std::function<void()> handler) {
  handler_ = std::move(handler);
  if (handler_ && !connection_) {
    connection_ = std::make_unique<PulseConnection>(
        server_, retry_, [this] { QMetaObject::invokeMethod(this, &PulseSoundControl::take, Qt::QueuedConnection); });
  } else if (!handler_) {
    connection_.reset();
    output_.reset();
    microphone_.reset();
  }
}

void PulseSoundControl::take() {
  if (!connection_) return;
  const auto state = connection_->state();
  if (state.output == output_ && state.microphone == microphone_) return;
  output_ = state.output;
  microphone_ = state.microphone;
  if (handler_) handler_();
}

void PulseSoundControl::setOutputVolume(double volume) {
  if (connection_) connection_->setOutputVolume(volume);
}

void PulseSoundControl::setOutputMuted(bool isMuted) {
  if (connection_) connection_->setOutputMuted(isMuted);
}

void PulseSoundControl::setMicrophoneMuted(bool isMuted) {
  if (connection_) connection_->setMicrophoneMuted(isMuted);
}

}  // namespace ambrel
