#include <gtest/gtest.h>

#include "core/telemetry.h"

namespace ambrel {
namespace {

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
  const struct {
    const char* what;
    NetworkCounters now;
    double elapsed;
    std::optional<NetworkRates> expected;
  } cases[] = {
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
  for (const auto& c : cases) EXPECT_EQ(networkRates(before, c.now, Seconds(c.elapsed)), c.expected) << c.what;
}

TEST(Network, RatesStandInThreeFigures) {
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
