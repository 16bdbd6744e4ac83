// What an evaluation of the notices costs with a thousand sessions and a hundred meetings.
//
//   Notices [--sessions 1000] [--meetings 100] [--rounds 500]
//
// Sessions wait, work for long, have finished and are idle, a quarter each, and all meetings are near, so that every
// evaluation builds hundreds of notices; most of them have been said before. Processor times; ends with 1 when the
// budget is missed.

#include <algorithm>
#include <cstdlib>
#include <fmt/format.h>
#include <string>
#include <string_view>
#include <time.h>
#include <vector>

#include "core/buddy/BuddyNoticeEngine.h"

namespace ambrel {
namespace {

constexpr double budget = 1e-3;  // seconds
const Instant start = instantFromUnixSeconds(1'795'262'400);

double processorSeconds() {
  timespec time = {};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

BuddySignals signalsAt(Instant now, int sessions, int meetings) {
  BuddySignals signals;
  for (int i = 0; i < sessions; ++i)
    signals.agents.push_back({.id = fmt::format("claude:0b54c9de-6f0a-4f6e-9f2f-{:012}", i),
                              .kind = allCases<AgentKind>()[static_cast<std::size_t>(i) % 4],
                              .title = "Fix the login of the web shop",
                              .project = "web-shop",
                              .detail = "Bash",
                              .status = allCases<AgentStatus>()[static_cast<std::size_t>(i / 4) % 4],
                              .updatedAt = advanced(now, Seconds(-5))});
  for (int i = 0; i < meetings; ++i)
    signals.meetings.push_back({.id = fmt::format("meeting-{}", i),
                                .title = "Weekly planning",
                                .start = advanced(now, Seconds(i % 2 == 0 ? 200 : -100)),
                                .url = "https://meet.example/abc-defg-hij"});
  signals.battery = BuddySignals::Battery{15, false};
  signals.diskFreeBytes = 5'000'000'000;
  signals.cpuUsage = 0.95;
  signals.waterDueAt = advanced(now, Seconds(-60));
  return signals;
}

struct Figures {
  double median = 0, worst = 0;
  std::size_t said = 0;
};

int run(int sessions, int meetings, int rounds) {
  const Calendar calendar("Europe/Berlin", "en_US");
  const BuddyPolicy policy{.level = BuddyLevel::all,
                           .categories = BuddyPolicy{}.categories,
                           .quietHours = QuietHours{22, 8},
                           .onlyUnfocusedAgents = true};
  BuddyNoticeEngine engine;
  engine.evaluate(signalsAt(start, sessions, meetings), policy, start, calendar);
  std::vector<double> times;
  Figures figures;
  Instant now = advanced(start, Seconds(1200));
  for (int round = 0; round < rounds; ++round, now = advanced(now, Seconds(10))) {
    const BuddySignals signals = signalsAt(now, sessions, meetings);
    const double before = processorSeconds();
    figures.said += engine.evaluate(signals, policy, now, calendar).size();
    times.push_back(processorSeconds() - before);
  }
  std::sort(times.begin(), times.end());
  figures.median = times[times.size() / 2];
  figures.worst = times.back();
  fmt::print("{} sessions, {} meetings, {} evaluations: median {:.0f} us, longest {:.0f} us, {} notices said\n",
             sessions, meetings, rounds, figures.median * 1e6, figures.worst * 1e6, figures.said);
  fmt::print("notice evaluation: {:.2f} ms, budget {:.0f} ms: {}\n", figures.median * 1e3, budget * 1e3,
             figures.median < budget ? "kept" : "MISSED");
  return figures.median < budget ? 0 : 1;
}

}  // namespace
}  // namespace ambrel

int main(int count, char** words) {
  int sessions = 1000, meetings = 100, rounds = 500;
  for (int i = 1; i + 1 < count; i += 2) {
    const std::string_view option = words[i];
    if (option == "--sessions") sessions = std::max(0, std::atoi(words[i + 1]));
    if (option == "--meetings") meetings = std::max(0, std::atoi(words[i + 1]));
    if (option == "--rounds") rounds = std::max(1, std::atoi(words[i + 1]));
  }
  return ambrel::run(sessions, meetings, rounds);
}
