#pragma once
// The output's volume and the microphone's switch.

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include "app/telemetry/LiveText.h"
#include "core/base/Calendar.h"
#include "platform/SoundControl.h"

namespace ambrel {

class SoundModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::LiveText* volume READ volume CONSTANT FINAL)
  Q_PROPERTY(ambrel::LiveText* microphone READ microphone CONSTANT FINAL)
  // Of the output, 0 to 100; 0 without one.
  Q_PROPERTY(int percent READ percent WRITE setPercent NOTIFY changed FINAL)
  Q_PROPERTY(bool hasOutput READ hasOutput NOTIFY changed FINAL)
  Q_PROPERTY(bool isMuted READ isMuted WRITE setMuted NOTIFY changed FINAL)
  Q_PROPERTY(bool hasMicrophone READ hasMicrophone NOTIFY changed FINAL)
  Q_PROPERTY(bool isMicrophoneMuted READ isMicrophoneMuted WRITE setMicrophoneMuted NOTIFY changed FINAL)

 public:
  SoundModel(SoundControl& control, Calendar calendar, QObject* parent = nullptr);
  ~SoundModel() override;

  // The sound server is listened to while this is wanted.
  void setListening(bool listens);

  LiveText* volume() { return &volume_; }
  LiveText* microphone() { return &microphone_; }
  int percent() const;
  void setPercent(int percent);
  bool hasOutput() const { return output_.has_value(); }
  bool isMuted() const { return output_ && output_->isMuted; }
  void setMuted(bool isMuted);
  bool hasMicrophone() const { return input_.has_value(); }
  bool isMicrophoneMuted() const { return input_ && input_->isMuted; }
  void setMicrophoneMuted(bool isMuted);

  // A notch of the wheel, or more; louder than nothing is no longer muted.
  Q_INVOKABLE void step(qreal notches);
  Q_INVOKABLE void toggleMuted() { setMuted(!isMuted()); }
  Q_INVOKABLE void toggleMicrophone() { setMicrophoneMuted(!isMicrophoneMuted()); }

 Q_SIGNALS:
  void changed();

 private:
  void update();

  SoundControl& control_;
  Calendar calendar_;
  LiveText volume_, microphone_;
  std::optional<SoundLevel> output_, input_;
  bool isListening_ = false;
};

}  // namespace ambrel
