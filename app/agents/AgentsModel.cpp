#include "app/agents/AgentsModel.h"

#include <QStringList>
#include <algorithm>
#include <map>

#include "app/base/QmlObjects.h"
#include "app/base/StoredValue.h"
#include "app/model/AppSettings.h"
#include "core/base/LocalText.h"

namespace ambrel {
namespace {

std::map<std::string_view, AgentStatus> statusesOf(const std::vector<AgentSession>& sessions) {
  std::map<std::string_view, AgentStatus> statuses;
  for (const AgentSession& session : sessions) statuses[session.id] = session.status;
  return statuses;
}

}  // namespace

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
    lookedAt_.reset();
    publish({}, seams_.now());
    return;
  }
  if (isRefreshing_) return;
  isRefreshing_ = true;
  const Instant now = seams_.now();
  lookedAt_ = now;
  pause_.reset();
  ++generation_;
  auto result = std::make_shared<std::vector<AgentSession>>();
  seams_.background([readers = readers_, home = home_, now, result] { *result = mergedSessions(*readers, home, now); },
                    [this, result, now] {
                      isRefreshing_ = false;
                      // Switched off while the poll ran: its result is no longer wanted.
                      if (settings_.agentsEnabled()) apply(std::move(*result), now);
                      if (pause_) lookLater();
                    });
}

void AgentsModel::poll() {
  const Instant now = seams_.now();
  if (!mayRest(now)) return refresh();
  // The ages go on.
  publish(sessions_, now);
}

bool AgentsModel::mayRest(Instant now) const {
  if (!settings_.agentsEnabled() || !seams_.folders || !seams_.folders->tellsAll() || pause_ || !lookedAt_)
    return false;
  const Seconds since = secondsBetween(*lookedAt_, now);
  if (since < Seconds(0) || since >= restingInterval) return false;
  // Those may end without a word.
  return std::none_of(sessions_.begin(), sessions_.end(), [](const AgentSession& session) {
    return session.status == AgentStatus::working || session.status == AgentStatus::needsInput;
  });
}

void AgentsModel::follow(const std::vector<AgentTrace>& traces) {
  if (!seams_.folders) return;
  std::vector<WatchedFolder> folders;
  std::vector<Seconds> pauses;
  for (const AgentTrace& trace : traces) {
    folders.push_back({trace.folder, trace.levels});
    pauses.push_back(trace.pause);
  }
  seams_.folders->follow(std::move(folders),
                         [this, pauses = std::move(pauses)](std::size_t folder) { heard(pauses[folder]); });
}

void AgentsModel::heard(Seconds pause) {
  // Before the first poll nobody looks yet.
  if (!hasLoadedOnce_ || (pause_ && *pause_ <= pause)) return;
  pause_ = pause;
  if (!isRefreshing_) lookLater();
}

void AgentsModel::lookLater() {
  const Instant now = seams_.now();
  const Seconds since = secondsBetween(lookedAt_.value_or(now), now);
  // A moment for what is written together; a clock that was set back is no reason to wait longer.
  constexpr Seconds moment{0.05};
  const Seconds left = std::clamp(*pause_ - since, moment, std::max(moment, *pause_));
  seams_.later(left, [this, generation = ++generation_] {
    if (generation == generation_) refresh();
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
  const bool isSameNews = statusesOf(sessions) == statusesOf(sessions_);
  sessions_ = std::move(sessions);
  Q_EMIT sessionsChanged();
  if (!isSameNews) Q_EMIT statusesChanged();
}

const AgentSession* AgentsModel::session(std::string_view id) const {
  const auto found = std::find_if(sessions_.begin(), sessions_.end(), [&](const auto& each) { return each.id == id; });
  return found == sessions_.end() ? nullptr : &*found;
}

bool AgentsModel::openOwnWindow(const std::string& id) {
  const AgentSession* found = session(id);
  if (!found || (found->place == AgentPlace::here && found->process == 0)) return false;
  if (found->place == AgentPlace::here && seams_.workspace.activateProcess(found->process)) return true;
  // Another window of the tool would be another session's.
  const QString name = toQString(displayName(found->kind));
  switch (found->place) {
    case AgentPlace::here:
      Q_EMIT problemFound(tr("%1 has no window").arg(name),
                          tr("It may run in a terminal that cannot be told apart, or that nobody looks at."));
      break;
    case AgentPlace::container:
      Q_EMIT problemFound(tr("%1 runs in a container").arg(name), tr("Its terminal cannot be told from here."));
      break;
    case AgentPlace::secureShell:
    case AgentPlace::otherComputer:
      Q_EMIT problemFound(tr("%1 runs elsewhere").arg(name), tr("Its terminal is on another computer."));
      break;
  }
  return true;
}

void AgentsModel::openSession(const QString& id) {
  const AgentSession* found = session(id.toStdString());
  if (!found || openOwnWindow(found->id)) return;
  const std::string_view bundle = bundleIdentifier(found->kind);
  if (!seams_.workspace.activate(bundle)) seams_.workspace.open(bundle);
}

QString AgentsModel::origin(const QString& id) const {
  const AgentSession* found = session(id.toStdString());
  return found ? originText(*found, seams_.now(), calendar_) : QString();
}

}  // namespace ambrel
