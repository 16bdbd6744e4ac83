#include "core/agents/attention/Attention.h"

#include <algorithm>
#include <charconv>
#include <tuple>

namespace ambrel {
namespace {

using Status = LiveRecord::Status;

// Claude Code lists its running sessions since 2.1.139.
bool listsItself(const LogSigns& log) {
  if (!log.isFromTerminal || !log.version) return false;
  int numbers[3] = {};
  const char* at = log.version->data();
  const char* const end = at + log.version->size();
  for (int& number : numbers) {
    const auto read = std::from_chars(at, end, number);
    if (read.ec != std::errc()) return false;
    at = read.ptr + (read.ptr != end && *read.ptr == '.' ? 1 : 0);
  }
  return std::tuple(numbers[0], numbers[1], numbers[2]) >= std::tuple(2, 1, 139);
}

class Judge {
 public:
  Judge(AgentSession session, const AttentionSigns& signs, Instant now)
      : session_(std::move(session)),
        signs_(signs),
        log_(signs.log ? *signs.log : none_),
        hook_(signs.hook),
        now_(now) {
    live_ = newestAlive(signs.live);
  }

  AgentSession judged() {
    const bool isOver = hasEnded();
    auto wait = isOver ? std::nullopt : hookWait();
    if (!wait && !isOver) wait = registryWait();
    if (!wait && !isOver) wait = logWait();
    if (wait) {
      session_.status = AgentStatus::needsInput;
      if (wait->detail) session_.detail = wait->detail;
      if (wait->source != AgentWait::Source::log) session_.word = AgentSession::Word{wait->source, wait->since};
      session_.wait = std::move(wait);
    } else if (isOver) {
      leave();
    } else if (live_ && live_->status != Status::unknown) {
      followRegistry();
    } else {
      followNewest();
    }
    return std::move(session_);
  }

 private:
  // The tool has left the conversation.
  bool hasEnded() const {
    if (live_) return false;
    if (!signs_.live.empty() || signs_.tool == AttentionSigns::ToolState::ended) return true;
    if (hook_ && hook_->turn == HookState::Turn::closed) return logAt() <= hook_->turnAt;
    if (toolRuns()) return false;
    return session_.kind == AgentKind::claudeCode && signs_.hasRegistry && listsItself(log_);
  }

  bool toolRuns() const { return signs_.tool == AttentionSigns::ToolState::runs; }
  Instant logAt() const { return log_.turnAt.value_or(session_.updatedAt); }

  // The registry says something else than "waiting", and has said so since.
  bool registryWentOn(Instant since) const {
    return live_ && live_->status != Status::unknown && live_->status != Status::waiting && live_->statusAt > since;
  }

  bool logWentOn(Instant since) const {
    using enum LogSigns::Turn;
    if (log_.turn != running && log_.turn != unknown && log_.turnAt > since) return true;
    // A new message begins only when every call of the one before has its result.
    if (log_.messageAt > since) return true;
    // Codex writes a call before it asks; with no call open, whatever was asked has been answered.
    return session_.kind == AgentKind::codex && log_.resultAt > since && !log_.hasOpenCall;
  }

  std::optional<AgentWait> hookWait() const {
    if (!hook_ || (!live_ && signs_.hasToolGoneOn)) return std::nullopt;
    for (const HookState::Open& each : hook_->open) {
      if (registryWentOn(each.since) || (!each.agent && logWentOn(each.since))) continue;
      return AgentWait{each.reason, each.asks, each.since, AgentWait::Source::hook};
    }
    return std::nullopt;
  }

  std::optional<AgentWait> registryWait() const {
    if (!live_ || live_->status != Status::waiting) return std::nullopt;
    // Written a moment later than the hook is called.
    AgentWait wait{.source = AgentWait::Source::registry};
    wait.since = live_->statusAt.value_or(live_->updatedAt.value_or(session_.updatedAt));
    if (hook_ && hook_->answeredAt > wait.since) return std::nullopt;
    const std::string_view what = live_->waitingFor ? std::string_view(*live_->waitingFor) : std::string_view();
    if (log_.open) {
      wait.reason = log_.open->reason;
      wait.detail = log_.open->detail;
    } else if (what.find("plan") != what.npos) {
      wait.reason = AgentWait::Reason::plan;
    } else if (what.find("question") != what.npos || what.find("input") != what.npos) {
      wait.reason = AgentWait::Reason::question;
    } else {
      // Questions and plans are in the log while they are open; what asks for a permission often is not.
      wait.reason = AgentWait::Reason::permission;
      wait.detail = log_.openAsks;
    }
    if (!wait.detail) wait.detail = live_->waitingFor;
    return wait;
  }

  std::optional<AgentWait> logWait() const {
    if (!log_.open) return std::nullopt;
    const Instant since = log_.open->since;
    if (registryWentOn(since)) return std::nullopt;
    if (hook_) {
      using enum HookState::Turn;
      if (hook_->answeredAt > since) return std::nullopt;
      const bool comesAtTheEnd = log_.turn == LogSigns::Turn::ended;
      const bool wentOn = comesAtTheEnd ? hook_->turn == running : hook_->turn == ended || hook_->turn == interrupted;
      if ((wentOn || hook_->turn == opened || hook_->turn == closed) && hook_->turnAt > since) return std::nullopt;
    }
    AgentWait wait = *log_.open;
    if (wait.since == Instant{}) wait.since = session_.updatedAt;
    return wait;
  }

  void work(Instant heardAt, bool isCertain) {
    if (session_.detail == "Done") session_.detail = hasBackgroundAgents() ? "Sub-agents" : "Working";
    session_.status =
        isCertain ? AgentStatus::working : AgentTiming::aged(AgentStatus::working, secondsBetween(heardAt, now_));
  }

  void finish(Instant at, const char* detail) {
    session_.detail = detail;
    session_.status = AgentTiming::aged(AgentStatus::finished, secondsBetween(at, now_));
  }

  void breakOff(Instant at) {
    finish(at, "Interrupted");
    session_.isInterrupted = session_.status == AgentStatus::finished;
  }

  void told(AgentWait::Source source, std::optional<Instant> at) {
    if (at) session_.word = AgentSession::Word{source, *at};
  }

  void rest(const char* detail) {
    session_.detail = detail;
    session_.status = AgentStatus::idle;
  }

  // The turn is over: how it ended is in the log.
  void finishAsLogged(Instant at) {
    switch (log_.turn) {
      case LogSigns::Turn::none:
        return rest("No prompt yet");
      case LogSigns::Turn::interrupted:
        return breakOff(at);
      case LogSigns::Turn::failed:
        return finish(at, "Error");
      case LogSigns::Turn::unknown:
      case LogSigns::Turn::running:
      case LogSigns::Turn::ended:
        return finish(at, "Done");
    }
  }

  bool hasBackgroundAgents() const {
    if (log_.backgroundAgents > 0) return true;
    return hook_ && std::any_of(hook_->agents.begin(), hook_->agents.end(), [&](const auto& each) {
             return secondsBetween(each.second, now_) <= AgentTiming::workingTimeout;
           });
  }

  void leave() {
    if (log_.turn == LogSigns::Turn::running || log_.turn == LogSigns::Turn::unknown ||
        session_.status == AgentStatus::needsInput) {
      session_.status = AgentStatus::idle;
      return;
    }
    finishAsLogged(logAt());
  }

  void followRegistry() {
    const auto since = live_->statusAt ? live_->statusAt : live_->updatedAt;
    told(AgentWait::Source::registry, since);
    switch (live_->status) {
      case Status::busy:
      case Status::waiting:  // answered a moment ago
        // Whether a process of another computer has ended, nothing tells but its silence.
        if (live_->place == AgentPlace::otherComputer)
          return work(std::max(since.value_or(Instant{}), session_.updatedAt), false);
        return work(now_, true);
      case Status::idle:
      case Status::shell:
      case Status::unknown:
        break;
    }
    if (log_.turn != LogSigns::Turn::running) return finishAsLogged(logAt());
    // The turn broke off with an earlier process, and the conversation was only opened again.
    if (live_->startedAt > log_.turnAt) return leave();
    // The log is behind, and may still say how the turn ended.
    constexpr Seconds patience{2};
    if (live_->statusAt && secondsBetween(*live_->statusAt, now_) < patience) return work(now_, true);
    finish(std::max(live_->statusAt.value_or(logAt()), logAt()), "Done");
  }

  // Hooks and log speak of the same turn; the later word counts.
  void followNewest() {
    if (hook_ && hook_->turn != HookState::Turn::unknown && hook_->turnAt > logAt()) return followHook();
    switch (log_.turn) {
      case LogSigns::Turn::unknown:
        return;
      case LogSigns::Turn::running:
        return work(session_.updatedAt, toolRuns());
      case LogSigns::Turn::ended:
        if (hasBackgroundAgents()) return work(std::max(session_.updatedAt, hook_ ? hook_->lastAt : Instant{}), false);
        return finishAsLogged(logAt());
      case LogSigns::Turn::none:
      case LogSigns::Turn::interrupted:
      case LogSigns::Turn::failed:
        return finishAsLogged(logAt());
    }
  }

  void followHook() {
    told(AgentWait::Source::hook, hook_->turnAt);
    switch (hook_->turn) {
      case HookState::Turn::unknown:
        return;
      case HookState::Turn::running:
        return work(std::max(hook_->lastAt, session_.updatedAt), toolRuns());
      case HookState::Turn::ended:
        if (hasBackgroundAgents()) return work(hook_->lastAt, false);
        return finish(hook_->turnAt, "Done");
      case HookState::Turn::interrupted:
        return breakOff(hook_->turnAt);
      case HookState::Turn::opened:
      case HookState::Turn::closed:
        return leave();
    }
  }

  inline static const LogSigns none_;

  AgentSession session_;
  const AttentionSigns& signs_;
  const LogSigns& log_;
  const HookState* hook_;
  Instant now_;
  const LiveRecord* live_ = nullptr;
};

}  // namespace

const LiveRecord* newestAlive(const std::vector<LiveRecord>& records) {
  const LiveRecord* newest = nullptr;
  for (const LiveRecord& record : records)
    if (record.isAlive && (!newest || record.statusAt > newest->statusAt)) newest = &record;
  return newest;
}

AgentSession attended(AgentSession session, const AttentionSigns& signs, Instant now) {
  const auto& [custom, ai] = signs.titles;
  if (custom && !custom->empty())
    session.title = *custom;
  else if (ai && !ai->empty())
    session.title = *ai;
  return Judge(std::move(session), signs, now).judged();
}

}  // namespace ambrel
