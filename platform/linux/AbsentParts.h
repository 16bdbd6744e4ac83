#pragma once
// Parts of a computer that has none of them.

#include "platform/Bluetooth.h"
#include "platform/KeepAwake.h"
#include "platform/LatencyProbe.h"
#include "platform/SoundControl.h"
#include "platform/Telemetry.h"
#include "platform/Volumes.h"

namespace ambrel {

class AbsentTelemetry : public Telemetry {
 public:
  std::optional<double> gpu() override { return std::nullopt; }
  std::optional<PressureReading> pressure() override { return std::nullopt; }
  std::optional<DiskCounters> diskCounters() override { return std::nullopt; }
  std::optional<ProcessSnapshot> processes() override { return std::nullopt; }
  std::optional<BatteryHealthReading> batteryHealth() override { return std::nullopt; }
  std::optional<PowerReading> power() override { return std::nullopt; }
  std::optional<ThermalReading> thermal() override { return std::nullopt; }
  std::optional<WiFiReading> wifi() override { return std::nullopt; }
  std::optional<std::vector<VolumeInfo>> volumes() override { return std::nullopt; }
  std::vector<NetworkAddress> addresses() override { return {}; }
};

class AbsentLatencyProbe : public LatencyProbe {
 public:
  LatencyCheck probe() override { return {}; }
};

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
