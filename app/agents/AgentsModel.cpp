#include "app/agents/AgentsModel.h"

#include <map>

#include "app/model/AppSettings.h"
#include "core/base/LocalText.h"

namespace ambrel {
AgentsModel::AgentsModel(AppSettings& settings, AgentReaders readers, std::filesystem::path home, Calendar calendar,
                         Seams seams, QObject* parent)
    : RecordListModel(parent),
      settings_(settings),
      readers_(std::make_shared<const AgentReaders>(std::move(readers))),
      home_(std::move(home)),
      calendar_(std::move(calendar)),
      seams_(std::move(seams)) {}

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
      if (session.status == AgentStatus::finished && onSessionFinished) onSessionFinished();
      if (!settings_.agentNotifications()) continue;
      const AgentAnnouncement news = announcement(session);
      seams_.notifications.post({.identifier = news.identifier, .title = news.title, .body = news.body, .sound = true});
    }
  }
  publish(std::move(sessions), now);
  if (!std::exchange(hasLoadedOnce_, true)) Q_EMIT loaded();
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
  setRows(faces);
  first_ = faces.empty() ? AgentFace() : faces.front();
  Q_EMIT firstChanged();
  if (isSame) return;
  sessions_ = std::move(sessions);
  counts_ = agentCounts(sessions_);
  Q_EMIT sessionsChanged();
}

QString AgentsModel::summary() const {
  if (sessions_.empty()) return QStringLiteral("No agent activity");
  QStringList parts;
  if (counts_.needsInput > 0) parts << QStringLiteral("%1 need you").arg(counts_.needsInput);
  if (counts_.working > 0) parts << QStringLiteral("%1 working").arg(counts_.working);
  if (counts_.finished > 0) parts << QStringLiteral("%1 done").arg(counts_.finished);
  if (counts_.idle > 0) parts << QStringLiteral("%1 idle").arg(counts_.idle);
  return parts.join(QStringLiteral(", "));
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

QVariant AgentsModel::data(const QModelIndex& index, int role) const {
  const AgentFace* face = row(index);
  if (!face) return {};
  switch (role) {
    case IdRole:
      return face->id;
    case KindRole:
      return face->kind;
    case SymbolRole:
      return face->symbol;
    case IconRole:
      return face->icon;
    case Qt::DisplayRole:
    case TitleRole:
      return face->title;
    case SubtitleRole:
      return face->subtitle;
    case StatusRole:
      return face->status;
    case StatusTextRole:
      return face->statusText;
    case AgeRole:
      return face->age;
    default:
      return {};
  }
}

QHash<int, QByteArray> AgentsModel::roleNames() const {
  return {{IdRole, "sessionId"}, {KindRole, "kind"},         {SymbolRole, "symbol"}, {IconRole, "icon"},
          {TitleRole, "title"},  {SubtitleRole, "subtitle"}, {StatusRole, "status"}, {StatusTextRole, "statusText"},
          {AgeRole, "age"}};
}

}  // namespace ambrel
