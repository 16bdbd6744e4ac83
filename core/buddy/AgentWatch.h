#pragma once
// Which agent the user is looking at, and what changed in the sessions, so that Buddy is quiet about the agent in view
// and can tell what the others did meanwhile.

#include <map>
#include <unordered_map>

#include "core/buddy.h"

namespace ambrel {

struct AgentWatch {
  struct Change {
    std::string sessionID;
    AgentKind kind = AgentKind::claudeCode;
    std::optional<std::string> project = {};
    AgentStatus from = AgentStatus::idle;
    AgentStatus to = AgentStatus::idle;
    std::optional<std::string> detail = {};
    std::optional<Seconds> ranFor = {};  // of a run that ended with it
    Instant at = {};
    friend bool operator==(const Change&, const Change&) = default;
  };
  struct DigestEntry {
    std::string sessionID;
    AgentKind kind = AgentKind::claudeCode;
    std::optional<std::string> project;
    std::vector<std::string> lines;  // oldest first, never empty
    friend bool operator==(const DigestEntry&, const DigestEntry&) = default;
  };

  Instant lastLookAt = {};         // the digest covers what came after it; begin with the start of the program
  std::vector<Change> log = {};    // of the last 6 hours, oldest first
  std::set<AgentKind> front = {};  // the agents in the window in front: a terminal may show several
  std::map<AgentKind, Instant> lastFront = {};              // when each last left the front
  std::unordered_map<std::string, AgentSession> last = {};  // by session id, as last seen
  std::unordered_map<std::string, Instant> runStart = {};   // by session id, of the present run

  // What is in front now, told as often as it is looked at. True when the user has just come back to an agent after two
  // minutes or more.
  bool setFront(std::set<AgentKind> kinds, Instant now);
  // In view: in front, or there 20 seconds ago or less.
  std::set<AgentKind> focused(Instant now) const;
  void update(const std::vector<AgentSession>& sessions, Instant now);
  // What changed since `lastLookAt` in sessions that are out of view, by session in the order of their first change.
  // Who shows it sets `lastLookAt`.
  std::vector<DigestEntry> digest(Instant now) const;
  // "Finished after 12 min"; absent for a change that is not worth a line.
  static std::optional<std::string> line(const Change& change);
  // After the clock was set, by so much.
  void clockMoved(Seconds by);

  friend bool operator==(const AgentWatch&, const AgentWatch&) = default;
};

// The notice of a digest that is not empty.
BuddyNotice awayNotice(const std::vector<AgentWatch::DigestEntry>& digest, Instant now);

}  // namespace ambrel
