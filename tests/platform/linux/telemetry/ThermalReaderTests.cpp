#include "tests/platform/linux/telemetry/TelemetryFixture.h"

namespace ambrel {
namespace {

TEST(ThermalReader, FollowsTheTemperatureAndNewSensors) {
  Machine laptop("laptop");
  ASSERT_EQ(laptop.telemetry.thermal()->level, ThermalLevel::fair);
  const std::pair<const char*, ThermalLevel> cases[] = {{"60000\n", ThermalLevel::nominal},
                                                        {"85000\n", ThermalLevel::fair},
                                                        {"95000\n", ThermalLevel::serious},
                                                        {"100000\n", ThermalLevel::critical}};
  for (const auto& [temperature, level] : cases) {
    laptop.tree.write("sys/class/hwmon/hwmon3/temp1_input", temperature);
    EXPECT_EQ(laptop.telemetry.thermal()->level, level) << temperature;
  }
  // What cannot be read at present does not count, and neither does what cannot be true.
  laptop.tree.remove("sys/class/hwmon/hwmon3/temp1_input");
  EXPECT_EQ(laptop.telemetry.thermal(), (ThermalReading{ThermalLevel::nominal, 61}));
  laptop.tree.write("sys/class/thermal/thermal_zone0/temp", "-274000\n");
  EXPECT_EQ(laptop.telemetry.thermal(), std::nullopt);
  // A docking station comes with a zone of its own.
  laptop.tree.write("sys/class/thermal/thermal_zone9/type", "dock\n");
  laptop.tree.write("sys/class/thermal/thermal_zone9/temp", "51000\n");
  laptop.tree.write("sys/class/thermal/thermal_zone9/trip_point_0_type", "active\n");
  laptop.tree.write("sys/class/thermal/thermal_zone9/trip_point_0_temp", "50000\n");
  EXPECT_EQ(laptop.telemetry.thermal(), (ThermalReading{ThermalLevel::fair, 51}));
}

}  // namespace
}  // namespace ambrel
