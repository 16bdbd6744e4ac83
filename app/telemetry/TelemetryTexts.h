#pragma once
// What the tiles and panels of the computer's parts say, from the records alone.

#include <deque>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "app/telemetry/LiveFace.h"
#include "core/base/Calendar.h"
#include "core/telemetry.h"
#include "platform/Bluetooth.h"
#include "platform/SoundControl.h"
#include "platform/Volumes.h"

namespace ambrel {

// What a sampler has: nothing yet, a value, or no such part.
template <typename Value>
struct Sampled {
  std::optional<Value> value;
  bool isUnavailable = false;
};

// Histories are oldest first; those of the processors in shares of one.
TileReading processorTile(const Calendar& calendar, std::optional<double> usage, const std::deque<double>& history,
                          int cores);
TileReading memoryTile(const Calendar& calendar, const std::optional<MemoryReading>& memory);
TileReading diskTile(const Calendar& calendar, const std::optional<VolumeSizes>& disk);
TileReading networkTile(const Calendar& calendar, const std::optional<NetworkRates>& rates,
                        const std::deque<NetworkRates>& history);

TileReading gpuTile(const Calendar& calendar, const Sampled<double>& gpu, const std::deque<double>& history);
TileReading pressureTile(const Calendar& calendar, const Sampled<PressureReading>& pressure);
TileReading diskActivityTile(const Calendar& calendar, const Sampled<DiskRates>& rates);
TileReading topAppsTile(const Calendar& calendar, const Sampled<std::vector<ProcessUsage>>& usage);
TileReading thermalTile(const Calendar& calendar, const Sampled<ThermalReading>& thermal);
TileReading latencyTile(const Calendar& calendar, const Sampled<LatencyCheck>& check,
                        const std::deque<LatencyCheck>& history);
TileReading wifiTile(const Calendar& calendar, const Sampled<WiFiReading>& wifi);
TileReading addressTile(const Sampled<std::vector<NetworkAddress>>& addresses);

TileReading batteryTile(const Calendar& calendar, const Sampled<PowerReading>& power);
TileReading powerTile(const Calendar& calendar, const Sampled<PowerReading>& power);
TileReading batteryHealthTile(const Calendar& calendar, const Sampled<BatteryHealthReading>& health);

TileReading volumeTile(const Calendar& calendar, const std::optional<SoundLevel>& output);
TileReading microphoneTile(const std::optional<SoundLevel>& microphone);
TileReading bluetoothTile(const Calendar& calendar, const std::optional<BluetoothReading>& bluetooth);
TileReading keepAwakeTile(bool isHeld, bool hasFailed);
TileReading uptimeTile(const Calendar& calendar, Seconds sinceBoot, Instant now);

struct DisplayReading {
  std::string name;
  int width = 0, height = 0;  // device pixels
  double refreshRate = 0;     // hertz; 0 while unknown
  double scale = 1;
  friend bool operator==(const DisplayReading&, const DisplayReading&) = default;
};
TileReading displayTile(const std::optional<DisplayReading>& display);

struct Eject {
  bool isUnderWay = false;
  std::optional<EjectResult> result{};  // what came of the last try
  Seconds endedAt{0};                   // since boot
};
using Ejects = std::map<std::string, Eject>;  // by url
// Why the drive is still there, in words.
QString refusal(const EjectResult& result);
TileReading volumesTile(const Calendar& calendar, const Sampled<std::vector<VolumeInfo>>& volumes,
                        const Ejects& ejects);

// The lists behind the tiles.
std::vector<LiveRow> processRows(const Calendar& calendar, const std::vector<ProcessUsage>& usage, std::size_t most);
std::vector<LiveRow> volumeRows(const Calendar& calendar, const std::vector<VolumeInfo>& volumes, const Ejects& ejects);
std::vector<LiveRow> bluetoothRows(const Calendar& calendar, const std::vector<BluetoothDevice>& devices);
std::vector<LiveRow> addressRows(const std::vector<NetworkAddress>& addresses);
std::vector<LiveRow> latencyRows(const Calendar& calendar, const std::deque<LatencyCheck>& history);
std::vector<LiveRow> wifiRows(const Calendar& calendar, const WiFiReading& wifi);
std::vector<LiveRow> powerRows(const Calendar& calendar, const std::optional<PowerReading>& power,
                               const std::optional<BatteryHealthReading>& health);

}  // namespace ambrel
