#pragma once
// The output's volume and the microphone's switch.

#include "app/telemetry/LiveFace.h"
#include "core/base/Calendar.h"
#include "platform/SoundControl.h"

namespace ambrel {

class SoundModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")

 public:
  // Shows what there is on the two faces, which outlive it.
  SoundModel(SoundControl& control, Calendar calendar, LiveFace& volume, LiveFace& microphone,
             QObject* parent = nullptr);
  ~SoundModel() override;

  // The sound server is listened to while this is wanted.
  void setListening(bool listens);

  // Of the output, 0 to 100.
  Q_INVOKABLE void setPercent(int percent);
  // A notch of the wheel, or more; louder than nothing is no longer muted.
  Q_INVOKABLE void step(qreal notches);
  Q_INVOKABLE void setMuted(bool isMuted);
  Q_INVOKABLE void toggleMuted();
  Q_INVOKABLE void toggleMicrophone();

 private:
  void update();

  SoundControl& control_;
  Calendar calendar_;
  LiveFace &volume_, &microphone_;
  std::optional<SoundLevel> output_, input_;
  bool isListening_ = false;
};

}  // namespace ambrel
