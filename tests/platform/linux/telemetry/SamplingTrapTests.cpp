// What went wrong in other programs that measure: a row each.

#include <algorithm>
#include <functional>

#include "platform/linux/ProcReadings.h"
#include "tests/platform/linux/telemetry/TelemetryFixture.h"

namespace ambrel {
namespace {

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
