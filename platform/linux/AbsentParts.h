#pragma once
// Parts of a computer that has none of them.

#include "platform/Bluetooth.h"
#include "platform/KeepAwake.h"
#include "platform/SoundControl.h"
#include "platform/Volumes.h"

namespace ambrel {

class AbsentSoundControl : public SoundControl {
 public:
  void setChangeHandler(std::function<void()>) override {}
  std::optional<SoundLevel> output() const override { return std::nullopt; }
  std::optional<SoundLevel> microphone() const override { return std::nullopt; }
  void setOutputVolume(double) override {}
  void setOutputMuted(bool) override {}
  void setMicrophoneMuted(bool) override {}
};

class AbsentBluetooth : public Bluetooth {
 public:
  void setChangeHandler(std::function<void()>) override {}
  std::optional<BluetoothReading> reading() const override { return std::nullopt; }
  void setOn(bool) override {}
};

class AbsentVolumes : public Volumes {
 public:
  void eject(std::string_view, std::function<void(const EjectResult&)> done) override { done({}); }
};

class AbsentKeepAwake : public KeepAwake {
 public:
  void take(std::function<void(bool isHeld)> done) override { done(false); }
  void release() override {}
  bool isHeld() const override { return false; }
};

}  // namespace ambrel
