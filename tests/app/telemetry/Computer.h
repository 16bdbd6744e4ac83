#pragma once
// A computer that the test plays, and the models that read it.

#include <QQmlEngine>

#include "app/telemetry/TelemetryArea.h"
#include "core/widgets/DockWidget.h"
#include "tests/fakes/FakeReadings.h"
#include "tests/fakes/FakeShell.h"
#include "tests/fakes/FakeTelemetry.h"
#include "tests/fakes/HeldWork.h"

namespace ambrel {

struct Computer {
  explicit Computer(const std::string& locale = "en_US") : calendar("UTC", locale) {}

  static std::set<DockWidget> everything() {
    std::set<DockWidget> widgets;
    for (const DockWidget widget : allCases<DockWidget>()) widgets.insert(widget);
    return widgets;
  }
  void show(const std::set<DockWidget>& widgets = everything(), bool areActive = true) {
    area.widgetsChanged(widgets, areActive, now);
    held.letGo();
  }
  const TileReading& shown(DockWidget widget) { return face(widget).reading(); }
  LiveFace& face(DockWidget widget) { return *area.face(QString::fromStdString(std::string(nameOf(widget)))); }
  // Time passes in ticks of two seconds, in which the counters go on.
  void pass(int ticks) {
    for (int i = 0; i < ticks; ++i) {
      now += std::chrono::seconds(2);
      readings.pass(2, 46, 154);
      if (everyTick) everyTick();
      live.tick(now);
      held.letGo();
    }
  }
  // A laptop in use, with everything that can be read.
  void bePlentiful() {
    telemetry.gpuLoad = 0.34;
    telemetry.pressureReading = {.level = MemoryPressure::normal, .fraction = 0.42, .swapUsedBytes = 1'200'000'000};
    telemetry.disks = {.read = 1'000'000, .written = 2'000'000, .uptimeNanoseconds = 1'000'000'000'000};
    telemetry.snapshot = {.samples = {{100, "firefox", 1'000},
                                      {200, "Web Content", 1'000},
                                      {300, "cc1plus", 1'000},
                                      {400, "sshd", 1'000}},
                          .uptimeNanoseconds = 1'000'000'000'000};
    telemetry.health = {.health = BatteryHealth{.cycleCount = 312, .maximumCapacity = 91}};
    telemetry.powerReading = {
        .adapterWatts = 65, .isOnAdapter = true, .isCharging = true, .percent = 84, .minutesToFull = 42};
    telemetry.thermalReading = {.level = ThermalLevel::nominal, .celsius = 54.3};
    telemetry.wifiReading = {
        .isOn = true, .rssi = -58, .noise = -94, .networkName = "Lighthouse", .megabitsPerSecond = 866};
    telemetry.drives = {{.url = "file:///media/anna/STICK",
                         .name = "STICK",
                         .freeBytes = 12'000'000'000,
                         .totalBytes = 64'000'000'000,
                         .usedBytes = 52'000'000'000},
                        {.url = "file:///media/anna/Archive",
                         .name = "Archive",
                         .freeBytes = 900'000'000'000,
                         .totalBytes = 4'000'000'000'000,
                         .usedBytes = 3'100'000'000'000}};
    telemetry.networkAddresses = {
        {.interface = "wlp3s0", .text = "192.168.178.120", .isDefault = true},
        {.interface = "wlp3s0", .text = "2001:db8::17:4cff:fe08:1a2b", .isIPv6 = true, .isDefault = true}};
    probe.check = {.milliseconds = 23.4};
    bluetooth.present = BluetoothReading{
        .isOn = true,
        .devices = {{"1", "WH-1000XM4", "audio-headset", 67}, {"2", "MX Keys", "input-keyboard", std::nullopt}}};
    sound.speaker = SoundLevel{.volume = 0.64};
    sound.mic = SoundLevel{.volume = 1};
    live.setDisplay(DisplayReading{.name = "eDP-1", .width = 2880, .height = 1800, .refreshRate = 60, .scale = 2});
    everyTick = [this] {
      telemetry.disks->uptimeNanoseconds += 2'000'000'000;
      telemetry.disks->read += 16'800'000;
      telemetry.disks->written += 2'400'000;
      telemetry.snapshot->uptimeNanoseconds += 2'000'000'000;
      telemetry.snapshot->samples[0].cpuNanoseconds += 600'000'000;
      telemetry.snapshot->samples[1].cpuNanoseconds += 90'000'000;
      telemetry.snapshot->samples[2].cpuNanoseconds += 1'960'000'000;
      readings.counters["eth0"].received += 2'400'000;
      readings.counters["eth0"].sent += 180'000;
      // A ripple, so that charts have something to draw.
      const int beat = static_cast<int>(telemetry.disks->uptimeNanoseconds / 2'000'000'000 % 7);
      telemetry.gpuLoad = beat % 2 == 0 ? 0.34 : 0.47;
      readings.pass(0, static_cast<std::uint64_t>(beat * 9), static_cast<std::uint64_t>(60 - beat * 7));
      readings.counters["eth0"].received += 300'000u * static_cast<unsigned>(beat);
    };
  }

  Instant now = Instant(std::chrono::seconds(1'800'000'000));
  FakeTelemetry telemetry;
  FakeLatencyProbe probe;
  FakeSoundControl sound;
  FakeBluetooth bluetooth;
  FakeVolumes volumes;
  FakeKeepAwake keepAwake;
  FakeReadings readings;
  HeldWork held;
  std::function<void()> everyTick;
  Calendar calendar;
  FakeShell shell;
  TelemetryArea area{{.telemetry = telemetry,
                      .latency = probe,
                      .sound = sound,
                      .bluetooth = bluetooth,
                      .volumes = volumes,
                      .keepAwake = keepAwake,
                      .readings = readings,
                      .background = held.background(),
                      .calendar = calendar,
                      .now = [this] { return now; }},
                     shell};
  LiveModels& live = *area.live();
};

}  // namespace ambrel
