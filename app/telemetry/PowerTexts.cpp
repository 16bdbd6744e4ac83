// Batteries and the adapter, sound, Bluetooth and the inhibitor.

#include <algorithm>

#include "app/telemetry/TelemetryTexts.h"
#include "app/telemetry/TelemetryWords.h"
#include "core/base/PlatformWords.h"

namespace ambrel {

using namespace words;

namespace {

constexpr int lowPercent = 20, emptyPercent = 10;

TileReading noBattery() { return missing(toQString("This {machine} runs on power"_local), "bolt"); }

QString batterySymbol(const PowerReading& power) {
  if (power.isCharging) return QStringLiteral("battery.100percent.bolt");
  const int percent = power.percent.value_or(0);
  return percent > 87   ? QStringLiteral("battery.100percent")
         : percent > 62 ? QStringLiteral("battery.75percent")
         : percent > 37 ? QStringLiteral("battery.50percent")
         : percent > 12 ? QStringLiteral("battery.25percent")
                        : QStringLiteral("battery.0percent");
}

QString adapterText(const PowerReading& power) {
  return power.adapterWatts ? tr("%1 W adapter").arg(*power.adapterWatts) : tr("Power adapter");
}

// By the freedesktop name of its icon.
QString deviceSymbol(const std::string& icon) {
  const QString name = toQString(icon);
  if (name.contains(QLatin1String("head")) || name.startsWith(QLatin1String("audio")))
    return QStringLiteral("speaker.wave.2");
  if (name.contains(QLatin1String("keyboard"))) return QStringLiteral("keyboard");
  if (name.contains(QLatin1String("mouse")) || name.contains(QLatin1String("tablet")))
    return QStringLiteral("cursorarrow");
  if (name.contains(QLatin1String("phone"))) return QStringLiteral("iphone");
  if (name.contains(QLatin1String("computer"))) return QStringLiteral("laptopcomputer");
  return QStringLiteral("dot.radiowaves.right");
}

QString batteryText(const Calendar& calendar, const BluetoothDevice& device) {
  return device.batteryPercent ? percent(calendar, *device.batteryPercent / 100.0) : QString();
}

}  // namespace

TileReading batteryTile(const Calendar& calendar, const Sampled<PowerReading>& power) {
  if (!power.value) return power.isUnavailable ? noBattery() : measuring("battery.75percent");
  const PowerReading& reading = *power.value;
  if (!reading.percent) return noBattery();
  const QString state = toQString(PowerText::stateLine(reading));
  const bool isDraining = !reading.isOnAdapter;
  return {.value = number(calendar, *reading.percent),
          .unit = QStringLiteral("%"),
          .subLine = state,
          .fact = reading.isCharging ? tr("Charging") : QString(),
          .symbol = batterySymbol(reading),
          .tip = joined({percent(calendar, *reading.percent / 100.0), state}),
          .percent = *reading.percent,
          .level = !isDraining                       ? 0
                   : *reading.percent < emptyPercent ? 2
                   : *reading.percent < lowPercent   ? 1
                                                     : 0,
          .isOn = reading.isCharging || reading.isOnAdapter};
}

TileReading powerTile(const Calendar& calendar, const Sampled<PowerReading>& power) {
  if (!power.value) return power.isUnavailable ? noBattery() : measuring("bolt");
  const PowerReading& reading = *power.value;
  if (!reading.percent) return noBattery();
  TileReading tile = batteryTile(calendar, power);
  tile.symbol = reading.isOnAdapter ? QStringLiteral("bolt.fill") : QStringLiteral("bolt.slash");
  tile.fact = percent(calendar, *reading.percent / 100.0);
  tile.tip = joined({reading.isOnAdapter ? adapterText(reading) : tr("On battery"), tile.tip});
  if (!reading.isOnAdapter) {
    tile.value = tr("Battery");
    tile.unit.clear();
  } else if (reading.adapterWatts) {
    tile.value = number(calendar, *reading.adapterWatts);
    tile.unit = tr("W");
  } else {
    tile.value = tr("Adapter");
    tile.unit.clear();
  }
  return tile;
}

TileReading batteryHealthTile(const Calendar& calendar, const Sampled<BatteryHealthReading>& health) {
  if (!health.value) return health.isUnavailable ? noBattery() : measuring("heart");
  if (!health.value->health) return noBattery();
  const BatteryHealth& battery = *health.value->health;
  const QString capacity = battery.maximumCapacity ? percent(calendar, *battery.maximumCapacity / 100.0) : QString();
  const QString cycles = battery.cycleCount > 0 ? tr("%1 cycles").arg(battery.cycleCount) : QString();
  const QString help =
      tr("Maximum capacity is the charge the battery holds now, compared with when it was new. Service is recommended "
         "below 80%.");
  const bool needsService = battery.condition == BatteryCondition::serviceRecommended;
  const QString state = needsService ? tr("Service recommended") : tr("Battery · Normal");
  TileReading tile{.symbol = QStringLiteral("heart"),
                   .tip = joined({state, capacity, cycles}),
                   .help = help,
                   .level = needsService ? 1 : 0};
  if (battery.maximumCapacity) tile.percent = *battery.maximumCapacity;
  if (needsService) {
    tile.message = state;
    tile.shortMessage = capacity.isEmpty() ? tr("Service") : capacity;
    tile.fact = capacity;
  } else if (capacity.isEmpty()) {
    tile.value = tr("Normal");
    tile.subLine = cycles;
  } else {
    tile.value = number(calendar, *battery.maximumCapacity);
    tile.unit = QStringLiteral("%");
    tile.subLine = state;
  }
  return tile;
}

TileReading volumeTile(const Calendar& calendar, const std::optional<SoundLevel>& output) {
  if (!output) return missing(tr("No sound output"), "speaker.slash");
  const QString level = percent(calendar, output->volume);
  const bool isSilent = output->isMuted || std::lround(output->volume * 100) == 0;
  return {.value = output->isMuted ? tr("Muted") : number(calendar, output->volume * 100),
          .unit = output->isMuted ? QString() : QStringLiteral("%"),
          .symbol = isSilent                ? QStringLiteral("speaker.slash")
                    : output->volume < 0.34 ? QStringLiteral("speaker.wave.1")
                                            : QStringLiteral("speaker.wave.2"),
          .tip = output->isMuted ? tr("Muted, %1").arg(level) : level,
          .percent = std::clamp(output->volume * 100, 0.0, 100.0),
          .isOn = !output->isMuted};
}

TileReading microphoneTile(const std::optional<SoundLevel>& microphone) {
  if (!microphone) return missing(tr("No microphone"), "mic.slash");
  return {.value = microphone->isMuted ? tr("Muted") : tr("On"),
          .symbol = microphone->isMuted ? QStringLiteral("mic.slash") : QStringLiteral("mic"),
          .tip = microphone->isMuted ? tr("The microphone is muted. Click to switch")
                                     : tr("The microphone is on. Click to switch"),
          .isOn = !microphone->isMuted};
}

TileReading keepAwakeTile(bool isHeld, bool hasFailed) {
  if (hasFailed)
    return {.value = tr("Failed"), .tip = tr("The session does not let programs keep it awake"), .level = 1};
  return {.value = isHeld ? tr("Awake") : tr("Off"),
          .tip = isHeld ? toQString("The {machine} stays awake. Click to switch"_local)
                        : toQString("Keeps the {machine} awake. Click to switch"_local),
          .isOn = isHeld};
}

TileReading bluetoothTile(const Calendar& calendar, const std::optional<BluetoothReading>& bluetooth) {
  if (!bluetooth) return missing(tr("No Bluetooth adapter"));
  if (!bluetooth->isOn) return saying(tr("Bluetooth is turned off"), tr("Off"));
  if (bluetooth->devices.empty()) {
    TileReading tile = saying(tr("No devices connected"), tr("None"));
    tile.isOn = true;
    return tile;
  }
  const BluetoothDevice& first = bluetooth->devices.front();
  const auto more = static_cast<int>(bluetooth->devices.size()) - 1;
  const QString charge = batteryText(calendar, first);
  const QString state = charge.isEmpty() ? tr("Connected") : charge;
  TileReading tile{.value = oneLine(first.name),
                   .subLine = more > 0 ? tr("%1, %2 more").arg(state).arg(more) : state,
                   .shortMessage = state,
                   .symbol = deviceSymbol(first.icon),
                   .isOn = true};
  if (first.batteryPercent) {
    tile.percent = *first.batteryPercent;
    tile.level = *first.batteryPercent < emptyPercent ? 2 : *first.batteryPercent < lowPercent ? 1 : 0;
  }
  QStringList lines;
  for (const BluetoothDevice& device : bluetooth->devices)
    lines.append(joined({oneLine(device.name), batteryText(calendar, device)}));
  tile.tip = lines.join(u'\n');
  return tile;
}

std::vector<LiveRow> bluetoothRows(const Calendar& calendar, const std::vector<BluetoothDevice>& devices) {
  std::vector<LiveRow> rows;
  for (const BluetoothDevice& device : devices) {
    LiveRow row{.id = toQString(device.id),
                .title = oneLine(device.name),
                .detail = tr("Connected"),
                .figure = batteryText(calendar, device),
                .symbol = deviceSymbol(device.icon)};
    if (device.batteryPercent) row.percent = *device.batteryPercent;
    rows.push_back(std::move(row));
  }
  return rows;
}

std::vector<LiveRow> powerRows(const Calendar& calendar, const std::optional<PowerReading>& power,
                               const std::optional<BatteryHealthReading>& health) {
  std::vector<LiveRow> rows;
  const auto add = [&](const char* id, const QString& title, const QString& figure) {
    if (!figure.isEmpty()) rows.push_back({.id = QLatin1String(id), .title = title, .figure = figure});
  };
  if (power) {
    if (power->percent) {
      add("charge", tr("Charge"), percent(calendar, *power->percent / 100.0));
      add("state", tr("State"), toQString(PowerText::stateLine(*power)));
    }
    add("source", tr("Source"), power->isOnAdapter ? adapterText(*power) : tr("Battery"));
  }
  if (health && health->health) {
    const BatteryHealth& battery = *health->health;
    if (battery.maximumCapacity)
      add("capacity", tr("Maximum capacity"), percent(calendar, *battery.maximumCapacity / 100.0));
    if (battery.cycleCount > 0) add("cycles", tr("Cycles"), number(calendar, battery.cycleCount));
    add("condition", tr("Condition"),
        battery.condition == BatteryCondition::normal ? tr("Normal") : tr("Service recommended"));
  }
  return rows;
}

}  // namespace ambrel
