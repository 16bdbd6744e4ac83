#include "core/buddy/AgentWatch.h"

#include <algorithm>
#include <fmt/format.h>
#include <iterator>

#include "core/buddy/BuddyText.h"
#include "core/buddy/Thresholds.h"

namespace ambrel {
namespace {

using namespace BuddyThresholds;

bool isRunning(AgentStatus status) { return status == AgentStatus::needsInput || status == AgentStatus::working; }

}  // namespace

bool AgentWatch::setFront(std::set<AgentKind> kinds, Instant now) {
  for (const AgentKind kind : front) lastFront[kind] = now;
  front = std::move(kinds);
  return std::any_of(front.begin(), front.end(), [&](AgentKind kind) {
    const auto left = lastFront.find(kind);
    return left != lastFront.end() && secondsBetween(left->second, now) >= awayThreshold;
  });
}

std::set<AgentKind> AgentWatch::focused(Instant now) const {
  std::set<AgentKind> kinds = front;
  for (const auto& [kind, left] : lastFront)
    if (secondsBetween(left, now) <= inViewGrace) kinds.insert(kind);
  return kinds;
}

void AgentWatch::update(const std::vector<AgentSession>& sessions, Instant now) {
  for (const AgentSession& session : sessions) {
    if (isRunning(session.status)) runStart.try_emplace(session.id, now);
    const auto [known, isNew] = last.try_emplace(session.id, session);
    if (isNew) continue;
    AgentSession& before = known->second;
    if (before.status != session.status) {
      Change change{.sessionID = session.id,
                    .kind = session.kind,
                    .project = session.project,
                    .from = before.status,
                    .to = session.status,
                    .detail = session.detail ? session.detail : before.detail,
                    .ranFor = std::nullopt,
                    .at = now};
      const auto run = runStart.find(session.id);
      if (!isRunning(session.status) && run != runStart.end()) {
        change.ranFor = secondsBetween(run->second, now);
        runStart.erase(run);
      }
      log.push_back(std::move(change));
    }
    if (before != session) before = session;
  }
  std::erase_if(log, [&](const Change& change) { return secondsBetween(change.at, now) > logKept; });
  if (std::ssize(log) > logCapacity) log.erase(log.begin(), log.end() - logCapacity);
}

std::optional<std::string> AgentWatch::line(const Change& change) {
  const std::string after = change.ranFor ? fmt::format(" after {} min", wholeMinutes(*change.ranFor)) : "";
  const std::string note = change.detail ? " · " + *change.detail : "";
  switch (change.to) {
    case AgentStatus::needsInput:
      return "Waiting for you" + note;
    case AgentStatus::working:
      return "Started working" + note;
    case AgentStatus::finished:
      return "Finished" + after;
    case AgentStatus::idle:
      if (!isRunning(change.from)) return std::nullopt;
      return "Stopped" + after + ": no activity for 10 min";
  }
  return std::nullopt;
}

std::vector<AgentWatch::DigestEntry> AgentWatch::digest(Instant now) const {
  const std::set<AgentKind> inView = focused(now);
  std::vector<DigestEntry> entries;
  std::unordered_map<std::string_view, std::size_t> places;
  for (const Change& change : log) {
    if (change.at <= lastLookAt || inView.count(change.kind) != 0) continue;
    auto text = line(change);
    if (!text) continue;
    const auto [place, isFirst] = places.try_emplace(change.sessionID, entries.size());
    if (isFirst) entries.push_back({change.sessionID, change.kind, change.project, {}});
    entries[place->second].lines.push_back(std::move(*text));
  }
  return entries;
}

void AgentWatch::clockMoved(Seconds by) {
  lastLookAt = advanced(lastLookAt, by);
  for (Change& change : log) change.at = advanced(change.at, by);
  for (auto& [kind, left] : lastFront) left = advanced(left, by);
  for (auto& [id, start] : runStart) start = advanced(start, by);
}

BuddyNotice awayNotice(const std::vector<AgentWatch::DigestEntry>& digest, Instant now) {
  constexpr std::size_t shown = 2;
  std::string detail;
  for (std::size_t i = 0; i < std::min(shown, digest.size()); ++i)
    detail += fmt::format("{}{}: {}", i == 0 ? "" : " · ", displayName(digest[i].kind), digest[i].lines.back());
  if (digest.size() > shown) detail += fmt::format(" · +{} more", digest.size() - shown);
  return BuddyNotice("away:" + idTime(now), BuddyRule::awayDigest, "While you were away", std::move(detail), now,
                     {BuddyActions::OpenInbox{}});
}

}  // namespace ambrel
