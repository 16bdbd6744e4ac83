// What has gone wrong in other programs that measure: a row each.

#include <algorithm>
#include <functional>
#include <sys/resource.h>
#include <sys/wait.h>

#include "platform/linux/ProcReadings.h"
#include "tests/platform/linux/telemetry/TelemetryFixture.h"

namespace ambrel {
namespace {

struct Trap {
  const char* name;
  std::function<void()> check;
};

ProcessorTicks ticksOf(const std::string& line) { return parseProcStat(line).value(); }

const Trap traps[] = {
    {"idle and iowait step back after a sleep",
     [] {
       const auto before = ticksOf("cpu 1000 0 500 90000 800 0 0 0\n"),
                  after = ticksOf("cpu 1030 0 500 80170 790 0 0 0\n");
       EXPECT_EQ(processorUsage(before, after), 1.0) << "what idle time there was is not known";
       EXPECT_EQ(processorUsage(after, ticksOf("cpu 1060 0 500 80340 790 0 0 0\n")), 0.15);
       const auto waiting = ticksOf("cpu 1000 0 500 90000 100 0 0 0\n");
       EXPECT_EQ(processorUsage(before, waiting), std::nullopt) << "nothing went forwards";
     }},
    {"a byte counter of 32 bits wraps at 4 GiB",
     [] {
       const Machine board("board");
       const ProcReadings readings(board.tree.path());
       const auto before = readings.network();
       ASSERT_EQ(before.at("end0").received, 4'294'960'000u);
       board.tree.write("proc/net/dev", "end0: 12704 0 0 0 0 0 0 0 700000 0 0 0 0 0 0 0\n");
       EXPECT_EQ(networkRates(before, readings.network(), Seconds(2))->receivedPerSecond, 10'000);
     }},
    {"a counter that began anew looks like a wrap",
     [] {
       const NetworkCounters before{{"eth0", {3'000'000'000, 5'000'000'000}}}, reset{{"eth0", {100, 100}}},
           zero{{"eth0", {}}};
       EXPECT_EQ(networkRates(before, reset, Seconds(2)), NetworkRates{});
       EXPECT_EQ(networkRates(before, zero, Seconds(2)), NetworkRates{});
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
    {"the computer slept between two readings",
     [] {
       Machine laptop("laptop");
       const auto processes = laptop.telemetry.processes();
       const auto disks = laptop.telemetry.diskCounters();
       laptop.pass(8 * 3600);
       EXPECT_EQ(ProcessRanking::usage(processes, laptop.telemetry.processes().value()), std::nullopt);
       EXPECT_EQ(diskRates(disks, laptop.telemetry.diskCounters().value()), std::nullopt);
     }},
    {"a hundred ticks a second are taken for granted, and interrupts and stolen time for rest",
     [] {
       EXPECT_EQ(processorUsage(ticksOf("cpu 0 0 0 0 0 0 0 0\n"), ticksOf("cpu 0 0 0 50 0 10 15 25\n")), 0.5);
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
    {"an energy counter wraps at the end of its own range",
     [] { EXPECT_EQ(CounterRate::perSecond(262'143'328'000, 1'149, Seconds(2), 262'143'328'850), 999.5); }},
    {"a processor core goes away",
     [] {
       const auto before = ticksOf("cpu 200 0 0 800 0 0 0 0\ncpu0 100 0 0 400 0 0 0 0\ncpu1 100 0 0 400 0 0 0 0\n");
       const auto after = ticksOf("cpu 250 0 0 950 0 0 0 0\ncpu0 150 0 0 550 0 0 0 0\n");
       EXPECT_EQ(processorUsage(before, after), 0.25) << "the kernel's own sum goes on";
     }},
    {"a mouse's battery is taken for the computer's",
     [] {
       Machine desktop("desktop");
       EXPECT_EQ(desktop.telemetry.power()->percent, std::nullopt);
       EXPECT_EQ(desktop.telemetry.batteryHealth()->health, std::nullopt);
     }},
    {"the mean of two batteries' percents",
     [] {
       Machine laptop("laptop");
       EXPECT_EQ(laptop.telemetry.power()->percent, 31) << "95 % of 20 Wh and 10 % of 60 Wh";
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
    {"the monitor is at the top of its own list",
     [] {
       // Whatever is read, no program is started for it.
       LinuxTelemetry telemetry(LinuxTelemetry::runningSystem());
       telemetry.gpu(), telemetry.pressure(), telemetry.diskCounters(), telemetry.processes(),
           telemetry.batteryHealth();
       telemetry.power(), telemetry.thermal(), telemetry.wifi(), telemetry.volumes(), telemetry.addresses();
       rusage children{};
       getrusage(RUSAGE_CHILDREN, &children);
       EXPECT_EQ(children.ru_minflt, 0);
       EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "there is a child";
     }},
};

class SamplingTraps : public testing::TestWithParam<Trap> {};

TEST_P(SamplingTraps, IsAvoided) {
  SCOPED_TRACE(GetParam().name);
  GetParam().check();
}

INSTANTIATE_TEST_SUITE_P(Each, SamplingTraps, testing::ValuesIn(traps), [](const auto& row) {
  std::string name(row.param.name);
  for (char& c : name)
    if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
  return name;
});

}  // namespace
}  // namespace ambrel
