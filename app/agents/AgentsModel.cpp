#include "app/agents/AgentsModel.h"

#include <map>

#include "app/base/QmlObjects.h"
#include "app/model/AppSettings.h"
#include "core/base/LocalText.h"

namespace ambrel {

AgentsModel::AgentsModel(AppSettings& settings, AgentReaders readers, std::filesystem::path home, Calendar calendar,
                         Seams seams, QObject* parent)
    : QObject(parent),
      settings_(settings),
      readers_(std::make_shared<const AgentReaders>(std::move(readers))),
      home_(std::move(home)),
      calendar_(std::move(calendar)),
      seams_(std::move(seams)),
      face_(agentsFace({}, {})) {
  keep({&rows_});
}

void AgentsModel::refresh() {
  if (!settings_.agentsEnabled()) {
    publish({}, seams_.now());
    return;
  }
  if (isRefreshing_) return;
  isRefreshing_ = true;
  const Instant now = seams_.now();
  auto result = std::make_shared<std::vector<AgentSession>>();
  seams_.background([readers = readers_, home = home_, now, result] { *result = mergedSessions(*readers, home, now); },
                    [this, result, now] {
                      isRefreshing_ = false;
                      // Switched off while the poll ran: its result is no longer wanted.
                      if (settings_.agentsEnabled()) apply(std::move(*result), now);
                    });
}

void AgentsModel::apply(std::vector<AgentSession> sessions, Instant now) {
  if (hasLoadedOnce_) {
    for (const AgentSession& session : agentTransitions(sessions_, sessions)) {
      if (session.status == AgentStatus::finished) Q_EMIT sessionFinished();
      if (!settings_.agentNotifications()) continue;
      const AgentAnnouncement news = announcement(session);
      seams_.notifications.post({.identifier = news.identifier, .title = news.title, .body = news.body, .sound = true});
    }
  }
  hasLoadedOnce_ = true;
  publish(std::move(sessions), now);
}

void AgentsModel::publish(std::vector<AgentSession> sessions, Instant now) {
  const bool isSame = sessions == sessions_;
  // Ages hold for a minute or longer; a clock that was set back may need others.
  if (isSame && now >= publishedAt_ && now < nextAgeAt_) return;
  publishedAt_ = now;
  nextAgeAt_ = Instant::max();
  std::map<AgentKind, QString> icons;
  for (const AgentSession& session : sessions)
    if (seams_.icon && !icons.contains(session.kind)) icons[session.kind] = seams_.icon(bundleIdentifier(session.kind));
  std::vector<AgentFace> faces;
  for (const AgentSession& session : sessions) {
    faces.push_back(agentFace(session, icons[session.kind], now, calendar_));
    nextAgeAt_ = std::min(nextAgeAt_, relativeAgeChange(session.updatedAt, now));
  }
  rows_.setRows(faces);
  face_ = agentsFace(agentCounts(sessions), faces);
  Q_EMIT changed();
  if (isSame) return;
  sessions_ = std::move(sessions);
  Q_EMIT sessionsChanged();
}

void AgentsModel::openSession(const QString& id) {
  const std::string wanted = id.toStdString();
  for (const AgentSession& session : sessions_) {
    if (session.id != wanted) continue;
    const std::string_view bundle = bundleIdentifier(session.kind);
    if (!seams_.workspace.activate(bundle)) seams_.workspace.open(bundle);
    return;
  }
}

}  // namespace ambrel
