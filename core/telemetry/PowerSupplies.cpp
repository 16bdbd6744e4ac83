#include "core/telemetry/PowerSupplies.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <map>

#include "core/base/Text.h"
#include "core/telemetry/ProcText.h"

namespace ambrel {
namespace {

using Kind = PowerSupply::Kind;
using Status = PowerSupply::Status;

// Estimates beyond this are noise: a rate of nearly nothing.
constexpr double longestEstimate = 100 * 3600;
// Adapters above this do not exist; drivers that give other units do.
constexpr double mostWatts = 500;

class Uevent {
 public:
  explicit Uevent(std::string_view text) {
    constexpr std::string_view prefix = "POWER_SUPPLY_";
    eachLine(text, [&](std::string_view line) {
      const std::size_t equals = line.find('=');
      if (!line.starts_with(prefix) || equals == std::string_view::npos) return;
      values_[line.substr(prefix.size(), equals - prefix.size())] = trimmed(line.substr(equals + 1));
    });
  }

  std::string_view text(std::string_view key) const {
    const auto found = values_.find(key);
    return found == values_.end() ? std::string_view() : found->second;
  }
  std::optional<double> number(std::string_view key) const {
    const std::string_view digits = text(key);
    long long value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (digits.empty() || error != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
    return static_cast<double>(value);
  }
  // Given in millionths; only what is above 0 means anything.
  std::optional<double> units(std::string_view key) const {
    const auto value = number(key);
    return value && *value > 0 ? std::optional(*value / 1e6) : std::nullopt;
  }

 private:
  std::map<std::string_view, std::string_view> values_;
};

Kind kindOf(std::string_view type) {
  if (type == "Battery") return Kind::battery;
  if (type == "Mains" || type.starts_with("USB") || type == "Wireless" || type == "BrickID") return Kind::adapter;
  return Kind::other;
}

Status statusOf(std::string_view text) {
  if (text == "Charging") return Status::charging;
  if (text == "Discharging") return Status::discharging;
  if (text == "Not charging") return Status::notCharging;
  if (text == "Full") return Status::full;
  return Status::unknown;
}

void readBattery(const Uevent& uevent, PowerSupply& supply) {
  supply.status = statusOf(uevent.text("STATUS"));
  const std::string_view health = uevent.text("HEALTH");
  supply.hasFailed = health == "Dead" || health == "Unspecified failure" || health == "Over voltage";
  supply.percent = uevent.number("CAPACITY");
  if (supply.percent && (*supply.percent < 0 || *supply.percent > 100)) supply.percent.reset();

  auto volts = uevent.units("VOLTAGE_MIN_DESIGN");
  if (!volts) volts = uevent.units("VOLTAGE_NOW");
  const auto energy = [&](std::string_view energyKey, std::string_view chargeKey) {
    auto value = uevent.units(energyKey);
    if (value) return value;
    const auto charge = uevent.units(chargeKey);
    return charge && volts ? std::optional(*charge * *volts) : std::nullopt;
  };
  supply.energyFull = energy("ENERGY_FULL", "CHARGE_FULL");
  supply.energyDesign = energy("ENERGY_FULL_DESIGN", "CHARGE_FULL_DESIGN");
  supply.energy = energy("ENERGY_NOW", "CHARGE_NOW");
  // An empty battery holds 0; so does one that only tells how full it is, seen from the other side.
  if (!supply.energy && (uevent.number("ENERGY_NOW") == 0 || uevent.number("CHARGE_NOW") == 0)) supply.energy = 0;
  if (!supply.energy && supply.energyFull && supply.percent) supply.energy = *supply.energyFull * *supply.percent / 100;

  const auto power = uevent.number("POWER_NOW"), current = uevent.number("CURRENT_NOW");
  const auto voltage = uevent.units("VOLTAGE_NOW") ? uevent.units("VOLTAGE_NOW") : volts;
  if (power && *power != 0)
    supply.rate = std::abs(*power) / 1e6;  // some drivers count what flows out as negative
  else if (current && *current != 0 && voltage)
    supply.rate = std::abs(*current) / 1e6 * *voltage;
  const auto seconds = [&](std::string_view key, std::string_view averageKey) {
    const auto now = uevent.number(key);
    const auto value = now && *now > 0 ? now : uevent.number(averageKey);
    return value && *value > 0 ? value : std::nullopt;
  };
  supply.secondsToEmpty = seconds("TIME_TO_EMPTY_NOW", "TIME_TO_EMPTY_AVG");
  supply.secondsToFull = seconds("TIME_TO_FULL_NOW", "TIME_TO_FULL_AVG");
  supply.cycles = static_cast<int>(std::clamp(uevent.number("CYCLE_COUNT").value_or(0), 0.0, 100'000.0));
}

void readAdapter(const Uevent& uevent, PowerSupply& supply) {
  supply.isOnline = uevent.number("ONLINE").value_or(0) > 0;
  auto watts = uevent.units("INPUT_POWER_LIMIT");
  const auto volts = uevent.units("VOLTAGE_MAX"), amperes = uevent.units("CURRENT_MAX");
  if (!watts && volts && amperes) watts = *volts * *amperes;
  if (watts && *watts >= 1 && *watts <= mostWatts) supply.adapterWatts = watts;
}

std::vector<const PowerSupply*> batteriesOf(const std::vector<PowerSupply>& supplies) {
  std::vector<const PowerSupply*> batteries;
  for (const PowerSupply& supply : supplies)
    if (supply.kind == Kind::battery && supply.isPresent && !supply.isOfDevice) batteries.push_back(&supply);
  return batteries;
}

using Batteries = std::vector<const PowerSupply*>;
using Figure = std::optional<double> PowerSupply::*;

// Absent when one of them does not tell it.
std::optional<double> sum(const Batteries& batteries, Figure figure) {
  double total = 0;
  for (const PowerSupply* battery : batteries) {
    if (!(battery->*figure)) return std::nullopt;
    total += *(battery->*figure);
  }
  return total;
}

bool any(const Batteries& batteries, Status status) {
  return std::ranges::any_of(batteries, [&](const PowerSupply* battery) { return battery->status == status; });
}

// In or out of those that say so; one that rests next to them adds nothing.
double rateOf(const Batteries& batteries, Status status) {
  double total = 0;
  for (const PowerSupply* battery : batteries)
    if (battery->status == status) total += battery->rate.value_or(0);
  return total;
}

std::optional<int> percentOf(const Batteries& batteries) {
  if (batteries.empty()) return std::nullopt;
  const auto energy = sum(batteries, &PowerSupply::energy), full = sum(batteries, &PowerSupply::energyFull);
  std::optional<double> percent;
  if (energy && full && *full > 0) {
    percent = 100 * *energy / *full;
  } else if (const auto percents = sum(batteries, &PowerSupply::percent)) {
    percent = *percents / static_cast<double>(batteries.size());
  }
  if (!percent) return std::nullopt;
  return static_cast<int>(std::lround(std::clamp(*percent, 0.0, 100.0)));
}

std::optional<int> minutes(std::optional<double> seconds) {
  if (!seconds || !(*seconds > 0) || *seconds > longestEstimate) return std::nullopt;
  return static_cast<int>(std::lround(*seconds / 60));
}

// By energy and rate; a single battery's own estimate where it has none.
std::optional<int> minutesToGo(const Batteries& batteries, std::optional<double> energy, Status status, Figure own) {
  const double rate = rateOf(batteries, status);
  if (energy && rate > 0) return minutes(*energy / rate * 3600);
  return batteries.size() == 1 ? minutes(batteries.front()->*own) : std::nullopt;
}

bool isOnAdapter(const std::vector<PowerSupply>& supplies, const Batteries& batteries) {
  bool hasAdapter = false;
  for (const PowerSupply& supply : supplies) {
    if (supply.kind != Kind::adapter || supply.isOfDevice) continue;
    if (supply.isOnline) return true;
    hasAdapter = true;
  }
  // What charges is fed, whatever its adapter's driver says.
  if (batteries.empty() || any(batteries, Status::charging)) return true;
  return !hasAdapter && !any(batteries, Status::discharging);
}

}  // namespace

std::optional<PowerSupply> parsePowerSupply(std::string_view text, std::string_view typeFile,
                                            std::string_view scopeFile) {
  const Uevent uevent(text);
  const std::string_view type = uevent.text("TYPE").empty() ? trimmed(typeFile) : uevent.text("TYPE");
  const std::string_view scope = uevent.text("SCOPE").empty() ? trimmed(scopeFile) : uevent.text("SCOPE");
  if (type.empty()) return std::nullopt;
  PowerSupply supply;
  supply.name = uevent.text("NAME");
  supply.kind = kindOf(type);
  supply.isOfDevice = scope == "Device";
  supply.isPresent = uevent.number("PRESENT").value_or(1) != 0;
  if (supply.kind == Kind::battery) readBattery(uevent, supply);
  if (supply.kind == Kind::adapter) readAdapter(uevent, supply);
  return supply;
}

bool hasBattery(const std::vector<PowerSupply>& supplies) { return !batteriesOf(supplies).empty(); }

PowerReading powerReading(const std::vector<PowerSupply>& supplies) {
  const Batteries batteries = batteriesOf(supplies);
  PowerReading reading;
  reading.isOnAdapter = isOnAdapter(supplies, batteries);
  for (const PowerSupply& supply : supplies) {
    if (supply.kind != Kind::adapter || supply.isOfDevice || !supply.isOnline || !supply.adapterWatts) continue;
    reading.adapterWatts =
        std::max(reading.adapterWatts.value_or(0), static_cast<int>(std::lround(*supply.adapterWatts)));
  }
  reading.percent = percentOf(batteries);
  reading.isCharging = any(batteries, Status::charging);
  const auto isFull = [](const PowerSupply* battery) {
    return battery->status == Status::full || (battery->status != Status::discharging && battery->percent >= 99.5);
  };
  reading.isCharged =
      reading.isOnAdapter && !batteries.empty() && !reading.isCharging && std::ranges::all_of(batteries, isFull);

  const auto energy = sum(batteries, &PowerSupply::energy), full = sum(batteries, &PowerSupply::energyFull);
  if (!reading.isOnAdapter)
    reading.minutesToEmpty = minutesToGo(batteries, energy, Status::discharging, &PowerSupply::secondsToEmpty);
  if (reading.isCharging) {
    std::optional<double> missing;
    if (energy && full) missing.emplace(*full - *energy);
    reading.minutesToFull = minutesToGo(batteries, missing, Status::charging, &PowerSupply::secondsToFull);
  }
  return reading;
}

BatteryHealthReading batteryHealth(const std::vector<PowerSupply>& supplies) {
  const Batteries batteries = batteriesOf(supplies);
  if (batteries.empty()) return {};
  BatteryHealth health;
  const auto full = sum(batteries, &PowerSupply::energyFull), design = sum(batteries, &PowerSupply::energyDesign);
  // A new battery often holds a little more than was promised.
  if (full && design && *design > 0)
    health.maximumCapacity = static_cast<int>(std::lround(std::min(100.0, 100 * *full / *design)));
  for (const PowerSupply* battery : batteries) {
    health.cycleCount = std::max(health.cycleCount, battery->cycles);
    if (battery->hasFailed) health.condition = BatteryCondition::serviceRecommended;
  }
  if (health.maximumCapacity && *health.maximumCapacity < serviceCapacity)
    health.condition = BatteryCondition::serviceRecommended;
  return {health};
}

}  // namespace ambrel
