#include "core/telemetry.h"
#include "tests/Matchers.h"

namespace ambrel {
namespace {

constexpr std::uint64_t second = 1'000'000'000;
constexpr std::uint64_t MiB = 1 << 20;

TEST(CounterRate, ACounterThatStepsBackIsUnknownUnlessItCertainlyWrapped) {
  const std::uint64_t top = 1ull << 32;
  const std::tuple<const char*, std::uint64_t, std::uint64_t, std::optional<std::uint64_t>,
                   std::optional<std::uint64_t>>
      cases[] = {
          {"forwards", 100, 350, {}, 250},
          {"stood still", 100, 100, {}, 0},
          {"began again", 5'000'000, 10, {}, {}},
          {"over the end of 32 bits", top - 4000, 1000, {}, 5000},
          {"the last value of 32 bits", top - 1, 0, {}, 1},
          {"over the edge by more than a reset may look like", top - 100 * MiB, 1000, {}, {}},
          {"near the end of 32 bits, but far from their beginning", top - 4000, 65 * MiB, {}, {}},
          {"a 64-bit counter that began again", top + 4000, 1000, {}, {}},
          {"an energy counter over the end of its range", 262'143'000'000, 1'000'000, 262'143'328'850, 1'328'850},
          {"beyond its own range", 300, 10, 200, {}},
      };
  for (const auto& [what, before, now, range, expected] : cases)
    EXPECT_EQ(CounterRate::difference(before, now, range), expected) << what;
}

TEST(CounterRate, NeedsTimeBetweenTheReadings) {
  EXPECT_EQ(CounterRate::perSecond(100, 600, Seconds(2)), 250);
  EXPECT_EQ(CounterRate::perSecond(100, 100, Seconds(2)), 0);
  for (const double elapsed : {0.0, -1.0, 20.5, std::nan("")})
    EXPECT_EQ(CounterRate::perSecond(100, 600, Seconds(elapsed)), std::nullopt) << elapsed;
  EXPECT_EQ(CounterRate::perSecond(600, 100, Seconds(2)), std::nullopt);
}

TEST(Ticks, BecomeNanoseconds) {
  // Without a denominator as they are; halves away from zero.
  const std::tuple<std::uint64_t, std::uint32_t, std::uint32_t, std::uint64_t> rows[] = {
      {7, 0, 0, 7}, {24, 125, 3, 1000}, {1, 1, 2, 1},
      {5, 1, 2, 3}, {1, 1, 3, 0},       {UINT64_MAX, 1'000'000'000, 1, UINT64_MAX}};
  for (const auto& [ticks, numerator, denominator, expected] : rows)
    EXPECT_EQ(nanosecondsFromTicks(ticks, numerator, denominator), expected) << ticks;
}

TEST(DiskRates, ComeFromTwoReadings) {
  const DiskCounters before{.read = 1000, .written = 500, .uptimeNanoseconds = 10 * second};
  EXPECT_EQ(diskRates(std::nullopt, before), std::nullopt);
  EXPECT_EQ(diskRates(before, {5000, 1500, 14 * second}), (DiskRates{1000, 250}));
  EXPECT_EQ(diskRates(before, {5000, 1500, 10 * second}), std::nullopt);
  EXPECT_EQ(diskRates(before, {5000, 1500, 9 * second}), std::nullopt);
  EXPECT_EQ(diskRates(before, {5000, 1500, 3600 * second}), std::nullopt) << "the computer slept";
  EXPECT_EQ(diskRates(before, {900, 1500, 14 * second}), std::nullopt) << "a disk was pulled";
}

TEST(ProcessRanking, RanksByTheTimeUsedSince) {
  const std::unordered_map<std::int32_t, ProcessSample> before{{1, {1, "init", 100}},
                                                               {20, {20, "equal", 0}},
                                                               {3, {3, "equal too", 1000}},
                                                               {4, {4, "busy", 500}},
                                                               {5, {5, "its number went to another", 900}},
                                                               {6, {6, "idle", 70}},
                                                               {7, {7, "ended", 10}}};
  const std::vector<ProcessSample> now{{20, "equal", 500}, {1, "init", 101},     {3, "equal too", 1500},
                                       {4, "busy", 2500},  {5, "newcomer", 899}, {6, "idle", 70},
                                       {8, "new", 100000}};
  EXPECT_THAT(ProcessRanking::usage(before, now, 1000),
              ElementsAre(ProcessUsage{4, "busy", 2.0}, ProcessUsage{3, "equal too", 0.5},
                          ProcessUsage{20, "equal", 0.5}, ProcessUsage{1, "init", 0.001}));
  EXPECT_THAT(ProcessRanking::usage(before, now, 0), IsEmpty());
}

TEST(ProcessRanking, OfSnapshotsNeedsTwoThatAreNotFarApart) {
  const ProcessSnapshot first{{{1, "a", 0}}, 5 * second}, next{{{1, "a", second}}, 7 * second};
  EXPECT_EQ(ProcessRanking::usage(std::nullopt, first), std::nullopt);
  EXPECT_THAT(ProcessRanking::usage(first, next).value(), ElementsAre(ProcessUsage{1, "a", 0.5}));
  EXPECT_EQ(ProcessRanking::usage(next, first), std::nullopt);
  EXPECT_EQ(ProcessRanking::usage(first, ProcessSnapshot{next.samples, 900 * second}), std::nullopt);
}

TEST(PowerText, SaysHowThePowerIs) {
  using Minutes = std::optional<int>;
  const auto line = [](bool isCharging, bool isCharged, Minutes toEmpty, Minutes toFull, bool isOnAdapter = true) {
    return PowerText::stateLine({.isOnAdapter = isOnAdapter,
                                 .isCharging = isCharging,
                                 .isCharged = isCharged,
                                 .minutesToEmpty = toEmpty,
                                 .minutesToFull = toFull});
  };
  EXPECT_EQ(line(false, false, {}, {}), "Not charging");
  EXPECT_EQ(line(true, true, {}, 5), "Fully charged");
  for (const Minutes none : {Minutes(), Minutes(0)}) EXPECT_EQ(line(true, false, {}, none), "Calculating…");
  EXPECT_EQ(line(true, false, 90, 1), "Full in 0:01");
  EXPECT_EQ(line(true, false, {}, 65), "Full in 1:05");
  for (const Minutes none : {Minutes(), Minutes(0), Minutes(-1)})
    EXPECT_EQ(line(false, false, none, 65, false), "Calculating…");
  EXPECT_EQ(line(false, false, 600, {}, false), "10:00 left");
  EXPECT_EQ(line(true, true, 59, 1, false), "0:59 left") << "on battery nothing else counts";
}

TEST(LatencyStats, CountsWhatWasAnsweredAndWhatWasNot) {
  EXPECT_EQ(LatencyStats::of({}), LatencyStats{});
  EXPECT_EQ(LatencyStats::of({std::nullopt, std::nullopt}), LatencyStats{.failures = 2});
  EXPECT_EQ(LatencyStats::of({30}), (LatencyStats{.last = 30, .minimum = 30, .average = 30, .maximum = 30}));
  EXPECT_EQ(LatencyStats::of({30, std::nullopt, 50, 10, std::nullopt}),
            (LatencyStats{.last = 10, .minimum = 10, .average = 30, .maximum = 50, .jitter = 30, .failures = 2}));
  for (const auto& [milliseconds, level] : {std::pair{39.999, 0}, {40, 1}, {99.9, 1}, {100, 2}, {249.9, 2}, {250, 3}})
    EXPECT_EQ(LatencyStats::level(milliseconds), level) << milliseconds;
}

TEST(DisplayText, ShowsRateAndScale) {
  const std::pair<double, const char*> rates[] = {
      {0, "—"}, {-1, "—"}, {std::nan(""), "—"}, {59.94, "60 Hz"}, {143.856, "144 Hz"}, {0.2, "0 Hz"}, {60.5, "61 Hz"}};
  for (const auto& [hertz, text] : rates) EXPECT_EQ(DisplayText::refreshRate(hertz), text) << hertz;
  const std::pair<double, const char*> scales[] = {
      {1, "@1x"}, {2, "@2x"}, {1.5, "@1.5x"}, {1.25, "@1.3x"}, {1.333, "@1.3x"}};
  for (const auto& [scale, text] : scales) EXPECT_EQ(DisplayText::scale(scale), text) << scale;
}

TEST(WiFi, BarsFollowTheSignal) {
  const std::pair<int, int> cases[] = {{-30, 4}, {-55, 4}, {-56, 3}, {-67, 3}, {-68, 2},
                                       {-75, 2}, {-76, 1}, {-95, 1}, {0, 0}};
  for (const auto& [rssi, bars] : cases) EXPECT_EQ((WiFiReading{.isOn = true, .rssi = rssi}.bars()), bars) << rssi;
  EXPECT_EQ((WiFiReading{.isOn = false, .rssi = -40}.bars()), 0);
  EXPECT_EQ((WiFiReading{.isOn = true, .rssi = -60, .noise = -90}.signalToNoise()), 30);
  EXPECT_EQ((WiFiReading{.isOn = true, .rssi = -60}.signalToNoise()), std::nullopt);
  EXPECT_EQ((WiFiReading{.isOn = true, .noise = -90}.signalToNoise()), std::nullopt);
}

TEST(Addresses, TheOneThatLeadsOutComesFirst) {
  const NetworkAddress wifi{"wlan0", "192.168.1.20", false, true}, wifi6{"wlan0", "2001:db8::7", true, true},
      cable{"eth0", "10.0.0.4", false, false}, bridge{"docker0", "172.17.0.1", false, false};
  EXPECT_THAT(rankedAddresses({{"lo", "127.0.0.1"},
                               {"lo", "::1", true},
                               bridge,
                               cable,
                               wifi6,
                               {"wlan0", "fe80::1", true, true},
                               {"eth1", "169.254.7.7"},
                               wifi}),
              ElementsAre(wifi, wifi6, cable));
  EXPECT_THAT(rankedAddresses({bridge}), ElementsAre(bridge));
  EXPECT_THAT(rankedAddresses({{"lo", "127.0.0.1"}}), IsEmpty());
}

constexpr const char* stat =
    "cpu  100 5 50 800 40 3 2 1 70 9\ncpu0 50 2 25 400 20 1 1 0 35 4\nintr 1234\nctxt 99\nbtime 1700000000\n";

TEST(Processor, ReadsTheSumOfAllCoresWithoutTheGuestColumns) {
  EXPECT_EQ(parseProcStat(stat)->columns, (std::array<std::uint64_t, 8>{100, 5, 50, 800, 40, 3, 2, 1}));
  EXPECT_EQ(parseProcStat("cpu  10 0 5 80\n")->columns[3], 80u);  // a kernel with four columns
  for (const char* bad : {"", "cpu0 1 2 3 4\n", "cpu  1 2 3\n", "cpu  a b c d\n", "cpuidle 1 2 3 4"})
    EXPECT_FALSE(parseProcStat(bad)) << bad;
}

TEST(Processor, UsageIsTheBusyShareOfTheDifference) {
  const auto ticks = [](std::uint64_t user, std::uint64_t idle, std::uint64_t iowait, std::uint64_t steal) {
    return ProcessorTicks{{user, 0, 0, idle, iowait, 0, 0, steal}};
  };
  EXPECT_DOUBLE_EQ(*processorUsage(ticks(100, 100, 0, 0), ticks(125, 175, 0, 0)), 0.25);
  // A disk that is waited for is no work; time stolen by the host is.
  EXPECT_DOUBLE_EQ(*processorUsage(ticks(0, 0, 0, 0), ticks(10, 50, 30, 10)), 0.2);
  // After a sleep idle and iowait may step back: neither a negative share nor one above 1.
  EXPECT_DOUBLE_EQ(*processorUsage(ticks(100, 5000, 900, 0), ticks(110, 4000, 910, 0)), 0.5);
  EXPECT_FALSE(processorUsage(ticks(1, 1, 1, 1), ticks(1, 1, 1, 1)));
}

TEST(Memory, UsedIsWhatIsNotAvailable) {
  const auto reading = parseMeminfo(
      "MemTotal:       16000 kB\nMemFree:         1000 kB\nMemAvailable:    9000 kB\nBuffers: 10 kB\nCached: 20 kB\n"
      "SwapTotal: 500 kB\nSwapFree: 400 kB\nHugePages_Total: 0\n");
  ASSERT_TRUE(reading);
  EXPECT_EQ(reading->usedBytes(), 7000u * 1024);
  EXPECT_EQ(reading->swapTotalBytes - reading->swapFreeBytes, 100u * 1024);
  EXPECT_EQ(parseMeminfo("MemTotal: 100 kB\nMemFree: 10 kB\nBuffers: 5 kB\nCached: 15 kB\n")->usedBytes(), 70u * 1024);
  EXPECT_FALSE(parseMeminfo("MemFree: 10 kB\n"));
  EXPECT_FALSE(parseMeminfo("MemTotal: 0 kB\n"));
  EXPECT_EQ(parseMeminfo("MemTotal: 10 kB\nMemAvailable: 20 kB\n")->usedBytes(), 0u);  // never below 0
}

TEST(Network, ReadsBytesBehindTheLastColonOfAName) {
  const auto counters = parseNetDev(
      "Inter-|   Receive                                                |  Transmit\n"
      " face |bytes    packets errs drop fifo frame compressed multicast|bytes    packets errs drop fifo colls carrier "
      "compressed\n"
      "    lo: 500 5 0 0 0 0 0 0 500 5 0 0 0 0 0 0\n"
      "enp3s0:123456 7 0 0 0 0 0 0 6543 8 0 0 0 0 0 0\n"
      "eth0:1: 9 1 0 0 0 0 0 0 8 1 0 0 0 0 0 0\n"
      "broken: 1 2\n");
  EXPECT_EQ(counters, (NetworkCounters{{"lo", {500, 500}}, {"enp3s0", {123456, 6543}}, {"eth0:1", {9, 8}}}));
}

TEST(Network, NoSpikeFromHotPlugResetWrapOrSleep) {
  const NetworkCounters before{{"a", {1000, 100}}, {"gone", {9000, 9000}}};
  const std::tuple<const char*, NetworkCounters, double, std::optional<NetworkRates>> cases[] = {
      {"plain", {{"a", {3000, 500}}}, 2, NetworkRates{1000, 200}},
      {"an interface that was plugged in only primes",
       {{"a", {1000, 100}}, {"b", {5000000, 1}}},
       2,
       NetworkRates{0, 0}},
      {"a reset counter counts as nothing", {{"a", {10, 300}}}, 2, NetworkRates{0, 100}},
      {"no time has passed", {{"a", {3000, 500}}}, 0, std::nullopt},
      {"time went backwards", {{"a", {3000, 500}}}, -1, std::nullopt},
      {"the computer slept", {{"a", {3000, 500}}}, 3600, std::nullopt},
  };
  for (const auto& [what, now, elapsed, expected] : cases)
    EXPECT_EQ(networkRates(before, now, Seconds(elapsed)), expected) << what;
}

TEST(Network, RatesHaveThreeFigures) {
  const Calendar english("UTC", "en_US"), german("UTC", "de_DE");
  EXPECT_EQ(rateText(english, 0), (RateText{"0", "B/s"}));
  EXPECT_EQ(rateText(english, 999.4), (RateText{"999", "B/s"}));
  EXPECT_EQ(rateText(english, 999.6), (RateText{"1", "KB/s"}));
  EXPECT_EQ(rateText(english, 8'440'000), (RateText{"8.4", "MB/s"}));
  EXPECT_EQ(rateText(german, 8'440'000), (RateText{"8,4", "MB/s"}));
  EXPECT_EQ(rateText(english, 99'960'000), (RateText{"100", "MB/s"}));
  EXPECT_EQ(rateText(english, 5e12), (RateText{"5,000", "GB/s"}));
}

}  // namespace
}  // namespace ambrel
