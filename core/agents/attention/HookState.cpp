#include "core/agents/attention/HookState.h"

#include <algorithm>

#include "core/agents/attention/AskedText.h"

namespace ambrel {
namespace {

// A notification repeats a request for a permission some seconds after it.
constexpr Seconds repeatWithin{30};

}  // namespace

void HookState::set(Turn next, Instant at) {
  turn = next;
  turnAt = at;
}

void HookState::ask(AgentWait::Reason reason, const HookEvent& event) {
  const auto isSame = [&](const Open& each) {
    return each.agent == event.agent && each.tool == event.tool &&
           (reason != AgentWait::Reason::permission || each.call == event.call);
  };
  if (std::none_of(open.begin(), open.end(), isSame))
    open.push_back({reason, event.asks, event.agent, event.tool, event.call, event.at, event.process.ticks});
}

template <typename Which>
void HookState::end(Instant at, Which which) {
  if (std::erase_if(open, which) > 0) answeredAt = at;
}

void HookState::takeNotice(const HookEvent& event) {
  const std::string_view notice = event.notice ? std::string_view(*event.notice) : std::string_view();
  if (notice == "permission_prompt") {
    const bool isRepeat = requestedAt && secondsBetween(*requestedAt, event.at) < repeatWithin;
    if (open.empty() && !isRepeat) ask(AgentWait::Reason::permission, event);
  } else if (notice == "elicitation_dialog" || notice == "elicitation_url_dialog") {
    ask(AgentWait::Reason::question, event);
  } else if (notice == "agent_needs_input") {
    ask(AgentWait::Reason::other, event);
  } else if (notice.starts_with("elicitation_")) {
    end(event.at, [](const Open& each) { return !each.tool; });
  } else if (notice == "idle_prompt") {
    // No dialog is open, and whatever ran has been interrupted.
    end(event.at, [](const Open& each) { return !each.agent; });
    if (turn == Turn::running) set(Turn::ended, event.at);
  }
}

void HookState::take(const HookEvent& event) {
  using enum HookEvent::Name;
  lastAt = event.at;
  if (event.process.pid > 0) process = event.process;
  if (event.agent)
    if (const auto known = agents.find(*event.agent); known != agents.end()) known->second = event.at;

  const auto isOfAgent = [&](const Open& each) { return each.agent == event.agent; };
  // The agent goes on: a dialog that belongs to no call has been answered.
  const auto goOn = [&] {
    end(event.at, [&](const Open& each) { return !each.tool && isOfAgent(each); });
    if (!event.agent) set(Turn::running, event.at);
  };
  const auto all = [](const Open&) { return true; };

  switch (event.name) {
    case sessionStart:
      if (event.notice == "compact") return;
      end(event.at, all);
      agents.clear();
      return set(Turn::opened, event.at);
    case sessionEnd:
      end(event.at, all);
      agents.clear();
      return set(Turn::closed, event.at);
    case userPromptSubmit:
      end(event.at, all);
      return set(Turn::running, event.at);
    case preToolUse:
      goOn();
      if (event.tool && reasonOf(*event.tool) != AgentWait::Reason::permission) ask(reasonOf(*event.tool), event);
      return;
    case permissionRequest:
      goOn();
      requestedAt = event.at;
      return ask(reasonOf(event.tool.value_or("")), event);
    case postToolUse:
    case postToolUseFailure:
      goOn();
      return end(event.at, [&](const Open& each) {
        return isOfAgent(each) && each.tool == event.tool &&
               (each.reason != AgentWait::Reason::permission || each.call == event.call);
      });
    case notification:
      return takeNotice(event);
    case stop:
      end(event.at, isOfAgent);
      return set(Turn::ended, event.at);
    case subagentStart:
      if (event.agent) agents[*event.agent] = event.at;
      return;
    case subagentStop:
      end(event.at, [&](const Open& each) { return event.agent && isOfAgent(each); });
      if (event.agent) agents.erase(*event.agent);
      return;
    case interrupt:
      end(event.at, all);
      return set(Turn::interrupted, event.at);
  }
}

}  // namespace ambrel
