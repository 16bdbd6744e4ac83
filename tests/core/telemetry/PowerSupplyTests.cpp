#include <gtest/gtest.h>

#include "core/base/Text.h"
#include "core/telemetry/PowerSupplies.h"

namespace ambrel {
namespace {

using Kind = PowerSupply::Kind;
using Status = PowerSupply::Status;

// The lines without their prefix, separated by semicolons.
PowerSupply parsed(const std::string& lines) {
  std::string text;
  for (const std::string_view line : split(lines, ';')) text += "POWER_SUPPLY_" + std::string(line) + "\n";
  return parsePowerSupply(text).value();
}

TEST(PowerSupply, WithoutATypeIsNone) {
  EXPECT_EQ(parsePowerSupply(""), std::nullopt);
  EXPECT_EQ(parsePowerSupply("DRIVER=ac\nPOWER_SUPPLY_NAME=AC\nnonsense\n="), std::nullopt);
  EXPECT_EQ(parsePowerSupply("POWER_SUPPLY_NAME=BAT0\n", "Battery\n", "Device\n"),
            (PowerSupply{.name = "BAT0", .kind = Kind::battery, .isOfDevice = true}));
  for (const char* type : {"Mains", "USB", "USB_PD", "Wireless"})
    EXPECT_EQ(parsed(std::string("TYPE=") + type).kind, Kind::adapter) << type;
  EXPECT_EQ(parsed("TYPE=UPS").kind, Kind::other);
}

TEST(PowerSupply, EnergyComesFromWhateverIsCounted) {
  using Figure = std::optional<double>;
  const std::tuple<const char*, const char*, Figure, Figure> rows[] = {
      {"energy", "ENERGY_NOW=20000000;ENERGY_FULL=50000000;CHARGE_NOW=1;CHARGE_FULL=1;VOLTAGE_NOW=9", 20, 50},
      {"charge at the nominal voltage",
       "CHARGE_NOW=2000000;CHARGE_FULL=4000000;VOLTAGE_MIN_DESIGN=11000000;VOLTAGE_NOW=12500000", 22, 44},
      {"charge at the present voltage", "CHARGE_NOW=2000000;CHARGE_FULL=4000000;VOLTAGE_NOW=12000000", 24, 48},
      {"charge without a voltage", "CHARGE_NOW=2000000;CHARGE_FULL=4000000", {}, {}},
      {"percent of what it holds", "CAPACITY=25;ENERGY_FULL=40000000", 10, 40},
      {"empty", "ENERGY_NOW=0;ENERGY_FULL=40000000;CAPACITY=3", 0, 40},
      {"not a number", "ENERGY_NOW=many;ENERGY_FULL=-5", {}, {}},
  };
  for (const auto& [what, lines, energy, full] : rows) {
    const PowerSupply supply = parsed(std::string("TYPE=Battery;") + lines);
    EXPECT_EQ(std::pair(supply.energy, supply.energyFull), std::pair(energy, full)) << what;
  }
}

TEST(PowerSupply, RatesAreWhatFlowsEitherWay) {
  using Row = std::pair<const char*, std::optional<double>>;
  for (const auto& [lines, rate] :
       {Row{"POWER_NOW=12500000", 12.5}, Row{"POWER_NOW=-12500000", 12.5},
        Row{"CURRENT_NOW=-2000000;VOLTAGE_NOW=12000000;VOLTAGE_MIN_DESIGN=11000000", 24},
        Row{"CURRENT_NOW=2000000", {}}, Row{"POWER_NOW=0;CURRENT_NOW=0;VOLTAGE_NOW=12000000", {}}})
    EXPECT_EQ(parsed(std::string("TYPE=Battery;") + lines).rate, rate) << lines;
}

TEST(PowerSupply, AdaptersTellWhatTheyCanGive) {
  const std::pair<const char*, std::optional<double>> cases[] = {
      {"VOLTAGE_MAX=20000000;CURRENT_MAX=3250000", 65},
      {"INPUT_POWER_LIMIT=45000000;VOLTAGE_MAX=20000000;CURRENT_MAX=3250000", 45},
      {"VOLTAGE_MAX=5000000;CURRENT_MAX=0", {}},
      {"VOLTAGE_MAX=20000;CURRENT_MAX=3250", {}},  // in thousandths
      {"VOLTAGE_MAX=20000000000;CURRENT_MAX=3250000", {}},
      {"ONLINE=1", {}},
  };
  for (const auto& [lines, watts] : cases)
    EXPECT_EQ(parsed(std::string("TYPE=USB;") + lines).adapterWatts, watts) << lines;
}

PowerSupply battery(Status status, double energy, double full, double rate) {
  return {.kind = Kind::battery,
          .status = status,
          .percent = 100 * energy / full,
          .energy = energy,
          .energyFull = full,
          .energyDesign = full,
          .rate = rate > 0 ? std::optional(rate) : std::nullopt};
}
PowerSupply adapter(bool isOnline, std::optional<double> watts = {}) {
  return {.kind = Kind::adapter, .isOnline = isOnline, .adapterWatts = watts};
}

TEST(Power, OfAllSuppliesTogether) {
  PowerSupply mouse = battery(Status::discharging, 1, 2, 1), gone = battery(Status::discharging, 0, 50, 9);
  mouse.isOfDevice = true;
  gone.isPresent = false;
  PowerSupply estimating{.kind = Kind::battery, .status = Status::charging, .percent = 70, .secondsToFull = 3000};
  const std::tuple<const char*, std::vector<PowerSupply>, PowerReading> cases[] = {
      {"nothing", {}, {.isOnAdapter = true}},
      {"a mouse", {mouse}, {.isOnAdapter = true}},
      {"one that is empties",
       {adapter(false), battery(Status::discharging, 30, 60, 20)},
       {.percent = 50, .minutesToEmpty = 90}},
      {"one is used up, the other waits",
       {adapter(false), battery(Status::discharging, 10, 20, 10), battery(Status::unknown, 20, 20, 0), mouse, gone},
       {.percent = 75, .minutesToEmpty = 180}},
      {"one is filled, the other waits",
       {adapter(true, 65), adapter(true, 15), battery(Status::charging, 10, 20, 30),
        battery(Status::notCharging, 15, 20, 0)},
       {.adapterWatts = 65, .isOnAdapter = true, .isCharging = true, .percent = 63, .minutesToFull = 30}},
      {"held at a limit",
       {adapter(true), battery(Status::notCharging, 48, 60, 0)},
       {.isOnAdapter = true, .percent = 80}},
      {"both full",
       {adapter(true), battery(Status::full, 20, 20, 0), battery(Status::unknown, 60, 60, 0)},
       {.isOnAdapter = true, .isCharged = true, .percent = 100}},
      {"full on battery", {adapter(false), battery(Status::full, 20, 20, 0)}, {.percent = 100}},
      {"the adapter is too weak",
       {adapter(true), battery(Status::discharging, 30, 60, 5)},
       {.isOnAdapter = true, .percent = 50}},
      {"the adapter's driver says nothing",
       {battery(Status::charging, 30, 60, 30)},
       {.isOnAdapter = true, .isCharging = true, .percent = 50, .minutesToFull = 60}},
      {"no rate, and no estimate", {adapter(false), battery(Status::discharging, 30, 60, 0)}, {.percent = 50}},
      {"a rate of nearly nothing", {adapter(false), battery(Status::discharging, 30, 60, 0.01)}, {.percent = 50}},
      {"an estimate of its own",
       {adapter(true), estimating},
       {.isOnAdapter = true, .isCharging = true, .percent = 70, .minutesToFull = 50}},
      {"two that tell no energy",
       {adapter(false), {.kind = Kind::battery, .percent = 40}, {.kind = Kind::battery, .percent = 61}},
       {.percent = 51}},
      {"more than full",
       {adapter(true), battery(Status::full, 62, 60, 0)},
       {.isOnAdapter = true, .isCharged = true, .percent = 100}},
  };
  for (const auto& [what, supplies, expected] : cases) EXPECT_EQ(powerReading(supplies), expected) << what;
}

TEST(BatteryHealth, OfAllBatteriesTogether) {
  const auto aged = [](double full, double design, int cycles, bool hasFailed = false) {
    return PowerSupply{
        .kind = Kind::battery, .hasFailed = hasFailed, .energyFull = full, .energyDesign = design, .cycles = cycles};
  };
  const auto normal = BatteryCondition::normal, service = BatteryCondition::serviceRecommended;
  const std::tuple<const char*, std::vector<PowerSupply>, std::optional<BatteryHealth>> cases[] = {
      {"none", {adapter(true)}, {}},
      {"at the threshold", {aged(80, 100, 10)}, BatteryHealth{10, 80, normal}},
      {"below it", {aged(79.4, 100, 10)}, BatteryHealth{10, 79, service}},
      {"a little more than promised", {aged(51, 50, 2)}, BatteryHealth{2, 100, normal}},
      {"two", {aged(10, 20, 900), aged(60, 60, 5)}, BatteryHealth{900, 88, normal}},
      {"one that does not tell",
       {aged(10, 20, 900), {.kind = Kind::battery}},
       BatteryHealth{900, std::nullopt, normal}},
      {"one that has failed", {aged(50, 50, 1, true)}, BatteryHealth{1, 100, service}},
  };
  for (const auto& [what, supplies, expected] : cases) EXPECT_EQ(batteryHealth(supplies).health, expected) << what;
  EXPECT_TRUE(parsed("TYPE=Battery;HEALTH=Dead").hasFailed);
  EXPECT_FALSE(parsed("TYPE=Battery;HEALTH=Good").hasFailed);
  EXPECT_EQ(parsed("TYPE=Battery;CYCLE_COUNT=-1").cycles, 0);
}

}  // namespace
}  // namespace ambrel
