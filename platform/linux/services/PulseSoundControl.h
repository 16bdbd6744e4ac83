#pragma once
// Volume and microphone by PulseAudio's interface, which PipeWire speaks too. Its connection has a thread of its own
// and lives as long as somebody listens.

#include <QObject>
#include <chrono>
#include <memory>
#include <string>

#include "platform/SoundControl.h"

namespace ambrel {

class PulseConnection;

class PulseSoundControl : public QObject, public SoundControl {
  Q_OBJECT

 public:
  // server: as in PULSE_SERVER; empty for the session's own. retry: how soon one that is not there is looked for again.
  explicit PulseSoundControl(std::string server = {}, std::chrono::milliseconds retry = std::chrono::seconds(2));
  ~PulseSoundControl() override;

  void setChangeHandler(std::function<void()> handler) override;
  std::optional<SoundLevel> output() const override { return output_; }
  std::optional<SoundLevel> microphone() const override { return microphone_; }
  void setOutputVolume(double volume) override;
  void setOutputMuted(bool isMuted) override;
  void setMicrophoneMuted(bool isMuted) override;

 private:
  void take();  // what the connection has heard

  std::string server_;
  std::chrono::milliseconds retry_;
  std::function<void()> handler_;
  std::unique_ptr<PulseConnection> connection_;
  std::optional<SoundLevel> output_, microphone_;
};

}  // namespace ambrel
