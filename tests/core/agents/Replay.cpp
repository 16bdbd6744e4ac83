#include "tests/core/agents/Replay.h"

#include <cmath>
#include <fmt/format.h>
#include <fstream>
#include <map>
#include <set>

#include "core/agents/attention/AgentPoll.h"
#include "core/agents/attention/HookStore.h"
#include "core/base/JSON.h"
#include "tests/TemporaryFolder.h"

namespace ambrel {
namespace {

const Instant beginning = *parseISO8601("2026-11-21T12:00:00Z");
constexpr double pollInterval = 3;
// What a tool tells takes a moment on its way: until then, what was true before is not wrong.
constexpr double settling = 0.5;
constexpr std::int64_t ticksAtBeginning = 1'000'000, ticksPerSecond = 100;

Instant at(double seconds) { return advanced(beginning, Seconds(seconds)); }

// The document with its instants filled in.
JSON filled(const JSON& json) {
  if (json.is_object() && json.contains("$iso")) return iso8601(at(json.at("$iso")));
  if (json.is_object() && json.contains("$ms"))
    return std::llround(unixSeconds(at(json.at("$ms").get<double>())) * 1000);
  JSON out = json;
  if (json.is_structured())
    for (auto each = out.begin(); each != out.end(); ++each) *each = filled(*each);
  return out;
}

struct Truth {
  std::string status, reason;
  std::optional<std::string> asks = {};  // absent: anything
  bool isInterrupted = false;
  double since = 0;
  bool isWait() const { return status == "needsInput"; }
  bool isTold(const AgentSession& session) const {
    return nameOf(session.status) == status && session.isInterrupted == isInterrupted &&
           (session.wait ? nameOf(session.wait->reason) : "") == reason &&
           (!isWait() || !asks || session.wait->detail.value_or("") == *asks);
  }
};

class Player {
 public:
  Player(std::string name, const ReplayOptions& options)
      : options_(options), name_(std::move(name)), hooks_(home_ / "data"), poll_(home_ / "data", {}, home_ / "proc") {}

  void play(const JSON& step) {
    const double now = step.at("at");
    if (step.contains("line")) {
      const auto file = home_ / step.at("file").get<std::string>();
      std::filesystem::create_directories(file.parent_path());
      std::ofstream(file, std::ios::app) << compactJSON(filled(step.at("line"))) << "\n";
      TemporaryFolder::setModified(file, at(now));
    } else if (step.contains("registry") && options_.hasRegistry) {
      const auto& record = step.at("registry");
      home_.write(registryFile(record.at("pid")), compactJSON(filled(record)));
    } else if (step.contains("registryGone")) {
      std::filesystem::remove(home_ / registryFile(step.at("registryGone")));
    } else if (step.contains("process")) {
      writeProcess(step.at("process"), 1, step.at("start"));
    } else if (step.contains("processGone")) {
      std::filesystem::remove_all(home_ / fmt::format("proc/{}", step.at("processGone").get<int>()));
    } else if (step.contains("child")) {
      writeProcess(step.at("child"), step.at("of"), step.at("start"));
      home_.write(fmt::format("proc/{0}/task/{0}/children", step.at("of").get<int>()),
                  fmt::format("{} ", step.at("child").get<int>()));
    } else if (step.contains("childGone")) {
      home_.write(fmt::format("proc/{0}/task/{0}/children", step.at("of").get<int>()), "");
    } else if (step.contains("hook") && options_.hasHooks) {
      callHook(step);
    } else if (step.contains("truth")) {
      Truth& truth = truths_[step.at("truth")];
      formerTruths_[step.at("truth")] = truth;
      truth = {.status = step.at("status"),
               .reason = step.value("reason", ""),
               .isInterrupted = step.value("isInterrupted", false),
               .since = now};
      const bool isTold = options_.hasHooks || !step.value("onlyHooksTell", false);
      if (step.contains("asks")) truth.asks = isTold ? step.at("asks").get<std::string>() : std::string();
      if (truth.isWait()) ++score_.waits;
      waiting_.erase(step.at("truth").get<std::string>());
    }
  }

  void pollAt(double now) {
    for (const AgentSession& session : poll_.sessions(home_.path(), at(now))) {
      const auto found = truths_.find(session.id);
      if (found == truths_.end()) continue;
      const Truth& truth = found->second;
      const bool isRight = truth.isTold(session);
      const bool agrees = isRight || (now - truth.since < settling && formerTruths_[session.id].isTold(session));
      ++score_.moments;
      if (agrees) ++score_.agreeing;
      if (truth.isWait() && isRight && now - truth.since <= pollInterval && waiting_.insert(session.id).second)
        ++score_.found;
      if (!truth.isWait() && !agrees && session.status == AgentStatus::needsInput) ++score_.falseAlarms;
      if (!agrees)
        score_.differences += fmt::format("  {} at {:.0f}: {} {} \"{}\" instead of {} {} \"{}\"\n", name_, now,
                                          nameOf(session.status), session.wait ? nameOf(session.wait->reason) : "",
                                          session.wait ? session.wait->detail.value_or("") : "", truth.status,
                                          truth.reason, truth.asks.value_or(""));
    }
  }

  ReplayScore score() { return score_; }

 private:
  static std::string registryFile(int pid) { return fmt::format(".claude/sessions/{}.json", pid); }

  void writeProcess(int pid, int parent, const std::string& start) {
    home_.write(fmt::format("proc/{}/stat", pid),
                fmt::format("{} (node (x) y) S {} {} {} 0 -1 4194304 1 1 1 1 1 1 1 1 20 0 11 0 {} 1 1\n", pid, parent,
                            pid, pid, start));
  }

  void callHook(const JSON& step) {
    LineParser parser;
    const double now = step.at("at");
    auto event = hookEvent(*fromName<AgentKind>(step.at("hook").get<std::string>()),
                           compactJSON(filled(step.at("input"))), at(now), parser);
    if (!event) return;
    const int pid = step.at("pid");
    std::ifstream stat(home_ / fmt::format("proc/{}/stat", pid));
    const std::string text((std::istreambuf_iterator<char>(stat)), {});
    event->process = {pid, std::string(processStart(text).value_or("")),
                      ticksAtBeginning + std::llround(now * ticksPerSecond)};
    appendHookEvent(hooks_, *event);
  }

  ReplayOptions options_;
  std::string name_;
  TemporaryFolder home_;
  HookStoreFiles hooks_;
  AgentPoll poll_;
  std::map<std::string, Truth> truths_, formerTruths_;
  std::set<std::string> waiting_;
  ReplayScore score_;
};

}  // namespace

ReplayScore& ReplayScore::operator+=(const ReplayScore& other) {
  moments += other.moments;
  agreeing += other.agreeing;
  waits += other.waits;
  found += other.found;
  falseAlarms += other.falseAlarms;
  differences += other.differences;
  return *this;
}

ReplayScore replay(const std::filesystem::path& recording, const ReplayOptions& options) {
  Player player(recording.stem(), options);
  std::ifstream file(recording);
  double next = 0;
  for (std::string line; std::getline(file, line);) {
    const JSON step = JSON::parse(line);
    // A poll between two steps sees what was before it.
    for (; next < step.at("at").get<double>(); next += pollInterval) player.pollAt(next);
    player.play(step);
  }
  return player.score();
}

}  // namespace ambrel
