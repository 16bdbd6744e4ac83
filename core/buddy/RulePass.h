#pragma once
// One walk over all rules, in their fixed order.

#include "core/buddy/BuddyNoticeEngine.h"

namespace ambrel {

class RulePass {
 public:
  // Keeps the engine's memory of runs, days and load up to date as it goes.
  RulePass(BuddyNoticeEngine& engine, const BuddySignals& signals, bool onlyUnfocused, Instant now,
           const Calendar& calendar);

  std::vector<BuddyNotice> run();

 private:
  void agents();
  void agent(const AgentSession& session);
  void forgetGoneAgents();
  void meetings();
  void claude();
  void claudeBudget();
  void codex();
  void battery();
  void disk();
  void processor();
  void water();
  void focusTimer();
  void daySummary();

  void raiseAgent(BuddyRule rule, std::string id, std::string_view verb, std::string detail,
                  const AgentSession& session);
  struct LimitWords {
    BuddyRule rule;
    std::string_view id, tool, limit;
    bool isLong;  // its reset is told with the weekday
  };
  void raiseLimit(const LimitWords& words, const CodexUsage::Window& window);

  BuddyNoticeEngine& engine_;
  const BuddySignals& signals_;
  const bool onlyUnfocused_;
  const Instant now_;
  const Calendar& calendar_;
  const std::string today_;
  std::vector<BuddyNotice> notices_;
};

// "stillWorking:", the session and the start of its run: what the step is appended to.
std::string stillWorkingID(std::string_view session, Instant since);

}  // namespace ambrel
