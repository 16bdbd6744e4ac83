// Four computers, read as a whole.
// What went wrong in other programs that measure: a row each.

#include <algorithm>
#include <functional>
#include <sys/resource.h>
#include <sys/wait.h>

#include "platform/linux/ProcReadings.h"
#include "tests/Matchers.h"
#include "tests/platform/linux/telemetry/TelemetryFixture.h"

namespace ambrel {
namespace {

using testing::Field;

std::vector<std::string> interfaces(const Machine& machine) {
  std::vector<std::string> names;
  for (const auto& [name, bytes] : ProcReadings(machine.tree.path()).network()) names.push_back(name);
  return names;
}

TEST(Machines, ALaptopOnItsTwoBatteries) {
  Machine laptop("laptop");
  LinuxTelemetry& telemetry = laptop.telemetry;
  EXPECT_EQ(telemetry.power(), (PowerReading{.isOnAdapter = false, .percent = 31, .minutesToEmpty = 150}));
  EXPECT_EQ(telemetry.batteryHealth(), (BatteryHealthReading{{{480, 83, BatteryCondition::normal}}}));
  EXPECT_EQ(laptop.supplyQuestions, 0);
  const auto pressure = telemetry.pressure().value();
  EXPECT_EQ(pressure.level, MemoryPressure::warning);
  EXPECT_NEAR(pressure.fraction, 0.6, 1e-6);
  EXPECT_EQ(pressure.swapUsedBytes, 256u << 20);
  EXPECT_EQ(telemetry.diskCounters(), (DiskCounters{5'122'048'000, 4'097'024'000, laptop.now}));
  EXPECT_EQ(telemetry.thermal(), (ThermalReading{ThermalLevel::fair, 88}));
  // Without the kernel's wireless interface the older file has to do.
  EXPECT_EQ(telemetry.wifi(), (WiFiReading{.isOn = true, .rssi = -56}));
  EXPECT_THAT(interfaces(laptop), ElementsAre("enp0s31f6", "wlp4s0"));

  const auto volumes = telemetry.volumes().value();
  ASSERT_EQ(volumes.size(), 2u);
  EXPECT_EQ(volumes[0].url, "file:///media/anna/HOLIDAY%202026");
  EXPECT_EQ(volumes[0].name, "HOLIDAY 2026");
  EXPECT_GT(volumes[0].totalBytes, 0);
  EXPECT_LE(volumes[0].usedBytes + volumes[0].freeBytes, volumes[0].totalBytes);
  EXPECT_EQ(volumes[1], (VolumeInfo{.url = "file:///mnt/nas", .name = "nas", .isRemote = true}));
}

TEST(Machines, ALaptopsProcesses) {
  Machine laptop("laptop");
  laptop.tree.write("proc/3301/cmdline", std::string_view("/usr/bin/gnome-system-monitor\0--new\0", 36));
  const auto processes = laptop.telemetry.processes().value();
  constexpr std::uint64_t tick = 10'000'000;
  EXPECT_THAT(processes.samples,
              UnorderedElementsAre(ProcessSample{1, "systemd", 200 * tick}, ProcessSample{2, "kthreadd", 3 * tick},
                                   ProcessSample{812, "kworker/u8:2-events_unbound", 77 * tick},
                                   ProcessSample{2210, "tmux: server", 1800 * tick},
                                   ProcessSample{3301, "gnome-system-monitor", 4800 * tick},
                                   ProcessSample{3400, "a) b (c) S 1", 30 * tick}));
  EXPECT_EQ(processes.uptimeNanoseconds, laptop.now);

  // The number of a process that has ended may go to another at once.
  laptop.tree.write("proc/3301/stat",
                    "3301 (Isolated Web Co) R 1 1 1 0 -1 4194304 0 0 0 0 1 1 0 0 20 0 5 0 999999 0 0 0 1 1\n");
  laptop.tree.write("proc/3301/cmdline", std::string_view("/usr/lib/firefox/firefox\0-contentproc\0", 38));
  EXPECT_THAT(laptop.telemetry.processes()->samples, Contains(ProcessSample{3301, "Isolated Web Co", 2 * tick}));
}

TEST(Machines, ADesktopComputer) {
  Machine desktop("desktop");
  LinuxTelemetry& telemetry = desktop.telemetry;
  EXPECT_EQ(telemetry.power(), (PowerReading{.isOnAdapter = true})) << "a keyboard's battery is not the computer's";
  EXPECT_EQ(telemetry.batteryHealth(), BatteryHealthReading{});
  const auto pressure = telemetry.pressure().value();
  EXPECT_EQ(pressure.level, MemoryPressure::warning) << "eight percent are left";
  EXPECT_EQ(pressure.swapUsedBytes, 0u);
  EXPECT_EQ(telemetry.diskCounters(), (DiskCounters{2'560'000'000, 2'048'000'000, desktop.now}));
  EXPECT_EQ(telemetry.thermal(), (ThermalReading{ThermalLevel::nominal, 70}));
  EXPECT_EQ(telemetry.wifi(), std::nullopt);
  EXPECT_EQ(telemetry.gpu(), 0.07);
  EXPECT_THAT(telemetry.volumes().value(), IsEmpty());
  EXPECT_THAT(interfaces(desktop), ElementsAre("enp5s0"));
}

TEST(Machines, AVirtualMachine) {
  Machine machine("virtual");
  LinuxTelemetry& telemetry = machine.telemetry;
  EXPECT_EQ(telemetry.power(), (PowerReading{.isOnAdapter = true}));
  EXPECT_EQ(telemetry.batteryHealth(), BatteryHealthReading{});
  const auto pressure = telemetry.pressure().value();
  EXPECT_EQ(pressure.level, MemoryPressure::critical);
  EXPECT_EQ(pressure.swapUsedBytes, 1'048'576u * 1024);
  EXPECT_EQ(telemetry.diskCounters(), (DiskCounters{2'799'786 * 512ull, 5'763'072 * 512ull, machine.now}));
  EXPECT_EQ(telemetry.thermal(), std::nullopt);
  EXPECT_EQ(telemetry.gpu(), std::nullopt);
  EXPECT_EQ(telemetry.wifi(), std::nullopt);
}

TEST(Machines, AHotBoardThatIsCharging) {
  Machine board("board");
  LinuxTelemetry& telemetry = board.telemetry;
  // 1.5 of 3 Ah at 4 V, charged with 1.5 A.
  EXPECT_EQ(
      telemetry.power(),
      (PowerReading{.adapterWatts = 15, .isOnAdapter = true, .isCharging = true, .percent = 50, .minutesToFull = 60}));
  EXPECT_EQ(telemetry.batteryHealth(), (BatteryHealthReading{{{0, 75, BatteryCondition::serviceRecommended}}}));
  EXPECT_EQ(telemetry.thermal(), (ThermalReading{ThermalLevel::serious, 81.2}));
  EXPECT_EQ(telemetry.gpu(), 0.12);
  EXPECT_EQ(telemetry.wifi(), WiFiReading{.isOn = false});
  EXPECT_EQ(telemetry.diskCounters(), (DiskCounters{204'800'000, 30'720'000, board.now}));
  EXPECT_EQ(telemetry.pressure()->level, MemoryPressure::normal);
}

TEST(Machines, AMachineWithNothingSaysNothing) {
  Machine nothing;
  LinuxTelemetry& telemetry = nothing.telemetry;
  EXPECT_FALSE(telemetry.gpu() || telemetry.pressure() || telemetry.diskCounters() || telemetry.processes() ||
               telemetry.batteryHealth() || telemetry.power() || telemetry.thermal() || telemetry.wifi() ||
               telemetry.volumes());
}

TEST(Machines, AServiceTellsOfTheBatteryThatTheKernelHides) {
  Machine machine("virtual");
  machine.otherSupplies = {{.kind = PowerSupply::Kind::battery,
                            .status = PowerSupply::Status::discharging,
                            .percent = 40,
                            .energy = 20,
                            .energyFull = 50,
                            .energyDesign = 50,
                            .rate = 10,
                            .cycles = 3}};
  EXPECT_EQ(machine.telemetry.power(), (PowerReading{.percent = 40, .minutesToEmpty = 120}));
  EXPECT_EQ(machine.telemetry.batteryHealth(), (BatteryHealthReading{{{3, 100, BatteryCondition::normal}}}));
}

TEST(Machines, AServiceTellsHowLongABatteryLastsThatGivesNoRate) {
  Machine laptop("laptop");
  laptop.tree.write("sys/class/power_supply/BAT1/uevent",
                    "POWER_SUPPLY_NAME=BAT1\nPOWER_SUPPLY_TYPE=Battery\nPOWER_SUPPLY_STATUS=Discharging\n"
                    "POWER_SUPPLY_ENERGY_FULL=60000000\nPOWER_SUPPLY_ENERGY_NOW=6000000\n");
  laptop.otherSupplies = {{.kind = PowerSupply::Kind::battery,
                           .status = PowerSupply::Status::discharging,
                           .percent = 99,
                           .secondsToEmpty = 5400}};
  EXPECT_EQ(laptop.telemetry.power(), (PowerReading{.percent = 31, .minutesToEmpty = 90}));
}

TEST(MachineHere, TheRunningSystemIsReadWithoutAHitch) {
  LinuxTelemetry telemetry(LinuxTelemetry::runningSystem());
  const auto processes = telemetry.processes();
  ASSERT_TRUE(processes);
  EXPECT_THAT(processes->samples, Contains(Field(&ProcessSample::pid, static_cast<std::int32_t>(getpid()))));
  EXPECT_TRUE(telemetry.pressure());
  EXPECT_TRUE(telemetry.volumes());
  telemetry.gpu();
  telemetry.power();
  telemetry.batteryHealth();
  telemetry.thermal();
  telemetry.wifi();
  telemetry.addresses();
  // Whatever is read, no program is started for it.
  rusage children{};
  getrusage(RUSAGE_CHILDREN, &children);
  EXPECT_EQ(children.ru_minflt, 0);
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "there is a child";
}

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

struct Trap {
  const char* name;
  std::function<void()> check;
};

const Trap traps[] = {
    {"a byte counter of 32 bits wraps at 4 GiB",
     [] {
       const Machine board("board");
       const ProcReadings readings(board.tree.path());
       const auto before = readings.network();
       ASSERT_EQ(before.at("end0").received, 4'294'960'000u);
       board.tree.write("proc/net/dev", "end0: 12704 0 0 0 0 0 0 0 700000 0 0 0 0 0 0 0\n");
       EXPECT_EQ(networkRates(before, readings.network(), Seconds(2))->receivedPerSecond, 10'000);
     }},
    {"what is plugged in begins with all that it ever carried",
     [] {
       Machine laptop("laptop");
       const auto before = laptop.telemetry.diskCounters();
       laptop.pass(2);
       std::string text = readFile(laptop.tree / "proc/diskstats").value();
       text += "   8      16 sdb 1 0 90000000 1 1 0 90000000 1 0 1 1\n";
       laptop.tree.write("proc/diskstats", text);
       laptop.tree.write("sys/block/sdb/device", "");
       EXPECT_EQ(diskRates(before, laptop.telemetry.diskCounters().value()), (DiskRates{0, 0}));
     }},
    {"what is pulled takes its counters along",
     [] {
       Machine laptop("laptop");
       const auto before = laptop.telemetry.diskCounters();
       laptop.pass(2);
       laptop.tree.write("proc/diskstats", " 259 0 nvme0n1 1 0 10000002 1 1 0 8000004 1 0 1 1\n");
       laptop.tree.remove("sys/block/sda");
       EXPECT_EQ(diskRates(before, laptop.telemetry.diskCounters().value()), (DiskRates{512, 1024}));
     }},
    {"the wall clock measures the span",
     [] {
       // Nothing here can see the wall clock: the readings carry the time since boot.
       Machine laptop("laptop");
       const auto first = laptop.telemetry.processes();
       laptop.pass(4);
       laptop.tree.write("proc/2210/stat",
                         "2210 (tmux: server) S 1 1 1 0 -1 0 0 0 0 0 1700 500 0 0 20 0 1 0 15000 0\n");
       const auto usage = ProcessRanking::usage(first, laptop.telemetry.processes().value());
       ASSERT_EQ(usage->size(), 1u);
       EXPECT_EQ(usage->front(), (ProcessUsage{2210, "tmux: server", 1.0}));
     }},
    {"a hundred ticks a second are taken for granted, and interrupts and stolen time for rest",
     [] {
       EXPECT_EQ(processorUsage(parseProcStat("cpu 0 0 0 0 0 0 0 0\n").value(),
                                parseProcStat("cpu 0 0 0 50 0 10 15 25\n").value()),
                 0.5);
       Machine laptop("laptop");
       LinuxTelemetry fine({.root = laptop.tree.path(),
                            .clock = [] { return std::uint64_t{1}; },
                            .pause = {},
                            .ticksPerSecond = 1000,
                            .wireless = {},
                            .otherSupplies = {}});
       const auto processes = fine.processes().value();
       EXPECT_NE(std::ranges::find(processes.samples, ProcessSample{1, "systemd", 200'000'000}),
                 processes.samples.end());
     }},
    {"the list of batteries is read but once",
     [] {
       Machine laptop("laptop");
       ASSERT_EQ(laptop.telemetry.power()->percent, 31);
       laptop.tree.remove("sys/class/power_supply/BAT1");
       EXPECT_EQ(laptop.telemetry.power()->percent, 95);
       laptop.tree.write("sys/class/power_supply/BAT1/uevent",
                         "POWER_SUPPLY_TYPE=Battery\nPOWER_SUPPLY_PRESENT=0\nPOWER_SUPPLY_CAPACITY=0\n");
       EXPECT_EQ(laptop.telemetry.power()->percent, 95) << "an empty bay";
     }},
    {"a graphics card is kept awake by being asked whether it is",
     [] {
       Machine desktop("desktop");
       desktop.tree.write("sys/class/drm/card1/device/power/runtime_status", "suspended\n");
       desktop.tree.write("sys/bus/pci/devices/0000:01:00.0/power/runtime_status", "suspended\n");
       // Reading this file would wake it, and show in the result.
       desktop.tree.write("sys/class/drm/card1/device/gpu_busy_percent", "100\n");
       EXPECT_EQ(desktop.telemetry.gpu(), 0);
     }},
};

TEST(SamplingTraps, AreAvoided) {
  for (const Trap& trap : traps) {
    SCOPED_TRACE(trap.name);
    trap.check();
  }
}

}  // namespace
}  // namespace ambrel
