#pragma once
// The computer's parts, played by the test.

#include <string>
#include <utility>
#include <vector>

#include "platform/Bluetooth.h"
#include "platform/KeepAwake.h"
#include "platform/LatencyProbe.h"
#include "platform/SoundControl.h"
#include "platform/Telemetry.h"
#include "platform/Volumes.h"
#include "tests/fakes/Told.h"

namespace ambrel {

class FakeTelemetry : public Telemetry {
 public:
  std::optional<double> gpu() override { return read(gpuLoad); }
  std::optional<PressureReading> pressure() override { return read(pressureReading); }
  std::optional<DiskCounters> diskCounters() override { return read(disks); }
  std::optional<ProcessSnapshot> processes() override { return read(snapshot); }
  std::optional<BatteryHealthReading> batteryHealth() override { return read(health); }
  std::optional<PowerReading> power() override { return read(powerReading); }
  std::optional<ThermalReading> thermal() override { return read(thermalReading); }
  std::optional<WiFiReading> wifi() override { return read(wifiReading); }
  std::optional<std::vector<VolumeInfo>> volumes() override { return read(drives); }
  std::vector<NetworkAddress> addresses() override { return read(networkAddresses); }

  std::optional<double> gpuLoad;
  std::optional<PressureReading> pressureReading;
  std::optional<DiskCounters> disks;
  std::optional<ProcessSnapshot> snapshot;
  std::optional<BatteryHealthReading> health;
  std::optional<PowerReading> powerReading;
  std::optional<ThermalReading> thermalReading;
  std::optional<WiFiReading> wifiReading;
  std::optional<std::vector<VolumeInfo>> drives;
  std::vector<NetworkAddress> networkAddresses;
  int reads = 0;

 private:
  template <typename Value>
  Value read(const Value& value) {
    ++reads;
    return value;
  }
};

class FakeLatencyProbe : public LatencyProbe {
 public:
  LatencyCheck probe() override {
    ++probes;
    return check;
  }

  LatencyCheck check;
  int probes = 0;
};

class FakeSoundControl : public Told<SoundControl> {
 public:
  std::optional<SoundLevel> output() const override { return isListenedTo() ? speaker : std::nullopt; }
  std::optional<SoundLevel> microphone() const override { return isListenedTo() ? mic : std::nullopt; }
  void setOutputVolume(double volume) override {
    if (speaker) change([&] { speaker->volume = volume; });
  }
  void setOutputMuted(bool isMuted) override {
    if (speaker) change([&] { speaker->isMuted = isMuted; });
  }
  void setMicrophoneMuted(bool isMuted) override {
    if (mic) change([&] { mic->isMuted = isMuted; });
  }

  std::optional<SoundLevel> speaker = SoundLevel{.volume = 0.5};
  std::optional<SoundLevel> mic = SoundLevel{.volume = 1};
};

class FakeBluetooth : public Told<Bluetooth> {
 public:
  std::optional<BluetoothReading> reading() const override { return isListenedTo() ? present : std::nullopt; }
  void setOn(bool isOn) override {
    if (present) change([&] { present->isOn = isOn; });
  }

  std::optional<BluetoothReading> present = BluetoothReading{.isOn = true};
};

class FakeVolumes : public Volumes {
 public:
  void eject(std::string_view url, std::function<void(const EjectResult&)> done) override {
    asked.emplace_back(url);
    waiting_.push_back(std::move(done));
  }
  // The drive is done with what it was asked first.
  void answer(const EjectResult& result) {
    if (waiting_.empty()) return;
    auto done = std::move(waiting_.front());
    waiting_.erase(waiting_.begin());
    done(result);
  }

  std::vector<std::string> asked;

 private:
  std::vector<std::function<void(const EjectResult&)>> waiting_;
};

class FakeKeepAwake : public KeepAwake {
 public:
  void take(std::function<void(bool)> done) override {
    held_ = canHold;
    if (done) done(held_);
  }
  void release() override { held_ = false; }
  bool isHeld() const override { return held_; }

  bool canHold = true;

 private:
  bool held_ = false;
};

}  // namespace ambrel
