#include "core/telemetry/KernelTexts.h"
#include "core/telemetry/ThermalSensors.h"
#include "tests/Matchers.h"

namespace ambrel {
namespace {

TEST(Pressure, ComesFromStallsOrElseFromWhatIsLeft) {
  using enum MemoryPressure;
  using Stalls = std::optional<MemoryStalls>;
  const auto left = [](std::uint64_t percent) {
    return MemoryReading{.totalBytes = 1000, .availableBytes = percent * 10};
  };
  using Row = std::tuple<const char*, std::uint64_t, Stalls, MemoryPressure>;
  for (const auto& [what, percent, stalls, expected] :
       {Row{"calm", 50, MemoryStalls{0, 0}, normal}, Row{"some tasks waited", 50, MemoryStalls{10, 0}, warning},
        Row{"all tasks waited", 50, MemoryStalls{40, 10}, critical},
        Row{"a full cache is no pressure", 6, MemoryStalls{0, 0}, normal},
        Row{"next to nothing left", 4, MemoryStalls{0, 0}, warning}, Row{"without news of stalls", 10, {}, normal},
        Row{"without news of stalls, little left", 9, {}, warning},
        Row{"without news of stalls, next to nothing left", 3, {}, critical}})
    EXPECT_EQ(pressureReading(left(percent), stalls).level, expected) << what;
  EXPECT_EQ(pressureReading(left(25), {}).fraction, 0.25);
  EXPECT_EQ(pressureReading(left(120), {}).fraction, 1);
  EXPECT_EQ(pressureReading({.swapTotalBytes = 9, .swapFreeBytes = 10}, {}).swapUsedBytes, 0u);
}

TEST(Pressure, IsParsedOrAbsent) {
  EXPECT_EQ(parsePressure("some avg10=1.50 avg60=0.00 avg300=0.00 total=5\nfull avg10=0.25 avg60=0 avg300=0 total=1\n"),
            (MemoryStalls{1.5, 0.25}));
  EXPECT_EQ(parsePressure("some avg10=1.50\n"), (MemoryStalls{1.5, 0}));
  for (const char* bad : {"", "full avg10=1.0\n", "some avg10=\n", "some total=4\n", "some avg10=1.5x\n"})
    EXPECT_EQ(parsePressure(bad), std::nullopt) << bad;
}

TEST(ProcessStat, NamesMayHoldAnything) {
  const std::string rest = " S 1 2 3 0 -1 4194560 0 0 0 0 70 30 9 9 20 0 1 0 1234 0 0";
  const std::pair<const char*, const char*> cases[] = {
      {"(tmux: server)", "tmux: server"}, {"(a) R 9 9 (b)", "a) R 9 9 (b"}, {"()", ""}, {"())", ")"}, {"(\n)", "\n"}};
  for (const auto& [bracketed, name] : cases)
    EXPECT_EQ(parseProcessTimes(std::string("42 ") + bracketed + rest),
              (ProcessTimes{.pid = 42, .name = name, .isKernelThread = false, .cpuTicks = 100, .startTicks = 1234}));
  for (const std::string& bad : {std::string(), std::string("42 (a) S 1 2"), "x (a)" + rest, "42 )a(" + rest,
                                 std::string("42 (a) S 1 2 3 0 -1 f 0 0 0 0 x 30 9 9 20 0 1 0 1234 0 0")})
    EXPECT_EQ(parseProcessTimes(bad), std::nullopt) << bad;
  EXPECT_TRUE(parseProcessTimes("2 (kthreadd) S 0 0 0 0 -1 2129984 0 0 0 0 0 3 0 0 20 0 1 0 5 0 0")->isKernelThread);
}

TEST(ProcessNames, AreMadeWholeByTheProgramsPath) {
  using namespace std::string_literals;
  EXPECT_EQ(wholeName("gnome-system-mo", "/usr/bin/gnome-system-monitor\0-x\0"s), "gnome-system-monitor");
  EXPECT_EQ(wholeName("gnome-system-mo", "gnome-system-monitor"), "gnome-system-monitor");
  EXPECT_EQ(wholeName("Isolated Web Co", "/usr/lib/firefox\0"s), "Isolated Web Co");
  EXPECT_EQ(wholeName("short", "/bin/shortcut\0"s), "short");
  EXPECT_EQ(wholeName("fifteen letters", ""), "fifteen letters");
}

TEST(Diskstats, OldAndNewKernelsAlike) {
  EXPECT_THAT(parseDiskstats(
                  "   8  0 sda 1 2 300 4 5 6 700 8 0 9 10\n 8 16 cciss/c0d0 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17\n"
                  "bad line\n 8 1 sdb 1 2 x 4 5 6 7 8\n"),
              ElementsAre(BlockDevice{"sda", 300 * 512, 700 * 512}, BlockDevice{"cciss/c0d0", 3 * 512, 7 * 512}));
}

TEST(Mountinfo, KeepsWhatIsOnTopAndItsTrueName) {
  const auto mounts = parseMountinfo(
      "28 1 8:2 / / rw shared:1 - ext4 /dev/sda2 rw\n"
      "60 28 8:17 / /media/a/My\\040\\134Stick\\011 rw - vfat /dev/sdb1 rw\n"
      "61 28 8:33 / /mnt/x rw shared:3 master:1 - ext4 /dev/sdc1 rw\n"
      "62 28 8:49 /sub\\040folder /mnt/x rw - ext4 /dev/sdd1 rw\n"
      "63 28 0:50 / /mnt/odd\\9 rw - fuse.sshfs u@h:/ rw\n"
      "64 28 0:51 / /broken rw\n"
      "65 - ext4 x\n"
      "- - -\n");
  EXPECT_THAT(mounts, ElementsAre(Mount{"8:2", "/", "ext4", "/dev/sda2"},
                                  Mount{"8:17", "/media/a/My \\Stick\t", "vfat", "/dev/sdb1"},
                                  Mount{"8:49", "/mnt/x", "ext4", "/dev/sdd1", "/sub folder"},
                                  Mount{"0:50", "/mnt/odd\\9", "fuse.sshfs", "u@h:/"}));
  EXPECT_EQ(volumeName(mounts[1]), "My \\Stick\t");
  EXPECT_TRUE(isRemote(mounts[3]));
  EXPECT_FALSE(isRemote(mounts[2]));
}

TEST(Mounts, ExternalAreThoseOfUsersDrives) {
  const std::vector<Mount> mounts{{"8:2", "/", "ext4", "/dev/sda2"},
                                  {"8:1", "/boot/efi", "vfat", "/dev/sda1"},
                                  {"8:2", "/mnt/same", "ext4", "/dev/sda2"},
                                  {"8:1", "/mnt/efi", "vfat", "/dev/sda1"},
                                  {"8:17", "/media/a/STICK", "vfat", "/dev/sdb1"},
                                  {"8:17", "/mnt/again", "vfat", "/dev/sdb1"},
                                  {"8:33", "/run/media/a/DISK", "ext4", "/dev/sdc1"},
                                  {"7:1", "/media/iso", "iso9660", "/dev/loop1"},
                                  {"0:40", "/mnt/nas", "cifs", "//nas/films"},
                                  {"0:41", "/mnt/ram", "tmpfs", "tmpfs"},
                                  {"0:42", "/mnt", "ext4", "/dev/sdd1"},
                                  {"0:43", "/mediaserver/x", "ext4", "/dev/sde1"},
                                  {"0:44", "/mnt/auto", "autofs", "/etc/auto.nas"}};
  std::vector<std::string> paths;
  for (const Mount& mount : externalMounts(mounts)) paths.push_back(mount.path);
  EXPECT_THAT(paths, ElementsAre("/media/a/STICK", "/run/media/a/DISK", "/media/iso", "/mnt/nas"));
}

TEST(Routes, TheLowestMetricLeadsOut) {
  const std::string head = "Iface\tDestination\tGateway\tFlags\tRefCnt\tUse\tMetric\tMask\tMTU\tWindow\tIRTT\n";
  const std::string wifi = "wlan0\t00000000\t0101A8C0\t0003\t0\t0\t600\t00000000\t0\t0\t0\n",
                    cable = "eth0\t00000000\t0101A8C0\t0003\t0\t0\t100\t00000000\t0\t0\t0\n",
                    down = "ppp0\t00000000\t0101A8C0\t0002\t0\t0\t1\t00000000\t0\t0\t0\n",
                    half = "tun0\t00000000\t0101A8C0\t0003\t0\t0\t0\t00000080\t0\t0\t0\n";
  const std::string zero(32, '0');
  const std::string six = zero + " 00 " + zero +
                          " 00 fe800000000000000000000000000001 00000400 00000001 00000000 00000003 eth6\n",
                    none = zero + " 00 " + zero + " 00 " + zero + " ffffffff 00000001 00000000 00200200 lo\n";
  EXPECT_EQ(defaultInterface(head + wifi + cable + down + half, ""), "eth0");
  EXPECT_EQ(defaultInterface(head + wifi, six), "wlan0");
  EXPECT_EQ(defaultInterface(head, none + six), "eth6");
  EXPECT_EQ(defaultInterface(head, none), std::nullopt);
  EXPECT_EQ(defaultInterface("", "short line\n"), std::nullopt);
}

TEST(WirelessFile, TellsDecibelsOnly) {
  const char* text =
      "Inter-| sta-|   Quality        |   Discarded packets               | Missed | WE\n"
      " face | tus | link level noise |  nwid  crypt   frag  retry   misc | beacon | 22\n"
      "wlp4s0: 0000   54.  -56.  -256        0      0      0      0    123        0\n"
      " wlan1: 0000   70.  -40.  -91.        0      0      0      0      0        0\n"
      " wlan2: 0000    0     0     0         0      0      0      0      0        0\n"
      " wlan3: 0000   80.   75.    0         0      0      0      0      0        0\n"
      " wlan4: 0000\n";
  EXPECT_THAT(parseWireless(text), ElementsAre(WirelessLine{"wlp4s0", -56}, WirelessLine{"wlan1", -40, -91}));
}

TEST(Thermal, TripPointsMakeTheLevels) {
  ThermalSensor sensor;
  addTrip(sensor, "active", 50, false);
  addTrip(sensor, "active", 60, false);
  addTrip(sensor, "passive", 80, false);
  addTrip(sensor, "critical", 110, false);
  addTrip(sensor, "passive", -274, false);
  addTrip(sensor, "unknown", 10, false);
  const std::pair<double, ThermalLevel> cases[] = {{40, ThermalLevel::nominal},    {50, ThermalLevel::fair},
                                                   {79.9, ThermalLevel::fair},     {80, ThermalLevel::serious},
                                                   {106.9, ThermalLevel::serious}, {107, ThermalLevel::critical}};
  for (const auto& [celsius, level] : cases) {
    sensor.celsius = celsius;
    EXPECT_EQ(thermalReading({sensor}), (ThermalReading{level, celsius})) << celsius;
  }
  ThermalSensor left;
  addTrip(left, "passive", 70, true);
  left.celsius = 75;
  EXPECT_EQ(thermalReading({left})->level, ThermalLevel::fair) << "the kernel does not slow this one down";
  ThermalSensor near;
  addTrip(near, "passive", 80, false);
  near.celsius = 76;
  EXPECT_EQ(thermalReading({near})->level, ThermalLevel::fair) << "it is about to be slowed down";
  ThermalSensor hot;
  addTrip(hot, "hot", 95, false);
  hot.celsius = 95;
  EXPECT_EQ(thermalReading({hot})->level, ThermalLevel::critical);
}

TEST(Thermal, TheWorstLevelAndTheHottestCountAndProcessorsHaveALimit) {
  EXPECT_EQ(thermalReading({}), std::nullopt);
  EXPECT_EQ(thermalReading({{.celsius = 85}, {.celsius = 60, .slowing = 55}}),
            (ThermalReading{ThermalLevel::serious, 85}));
  using enum ThermalLevel;
  const std::tuple<double, std::optional<double>, ThermalLevel> rows[] = {
      {84, 100, nominal}, {85, 100, fair},   {95, 100, serious}, {100, 100, critical},
      {79, {}, nominal},  {90, {}, serious}, {80, -1, fair}};
  for (const auto& [celsius, limit, level] : rows)
    EXPECT_EQ(thermalReading({processorSensor(celsius, limit)})->level, level) << celsius;
  EXPECT_EQ(parseMillidegrees("45500\n"), 45.5);
  EXPECT_EQ(parseMillidegrees("-12000"), -12);
  for (const char* bad : {"", "-274000", "255000", "warm", "45.5"})
    EXPECT_EQ(parseMillidegrees(bad), std::nullopt) << bad;
}

}  // namespace
}  // namespace ambrel
