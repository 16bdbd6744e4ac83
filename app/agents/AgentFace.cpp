#include "app/agents/AgentFace.h"

#include <QStringList>

#include "app/base/StoredValue.h"
#include "core/base/LocalText.h"

namespace ambrel {
namespace {

QString kindSymbol(AgentKind kind) {
  switch (kind) {
    case AgentKind::claudeCode:
      return QStringLiteral("terminal");
    case AgentKind::codex:
      return QStringLiteral("chevron.left.forwardslash.chevron.right");
    case AgentKind::cursor:
      return QStringLiteral("cursorarrow");
    case AgentKind::antigravity:
      return QStringLiteral("brain");
  }
  return {};
}

// "web-shop · Bash"; the tool's name when the title says the project already and there is nothing else to say.
QString subtitle(const AgentSession& session) {
  QStringList parts;
  if (session.project && *session.project != session.title) parts << toQString(*session.project);
  if (session.detail) parts << toQString(*session.detail);
  if (parts.isEmpty() || session.title == session.project) parts.prepend(toQString(displayName(session.kind)));
  return parts.join(QStringLiteral(" · "));
}

}  // namespace

AgentFace agentFace(const AgentSession& session, QString icon, Instant now, const Calendar& calendar) {
  return {.id = toQString(session.id),
          .kind = toQString(displayName(session.kind)),
          .symbol = kindSymbol(session.kind),
          .icon = std::move(icon),
          .title = toQString(session.title),
          .subtitle = subtitle(session),
          .status = toQString(nameOf(session.status)),
          .statusText = toQString(displayName(session.status)),
          .age = toQString(relativeAge(calendar, session.updatedAt, now))};
}

AgentsFace agentsFace(const AgentCounts& counts, const std::vector<AgentFace>& sessions) {
  QStringList parts;
  if (counts.needsInput > 0) parts << QObject::tr("%1 need you").arg(counts.needsInput);
  if (counts.working > 0) parts << QObject::tr("%1 working").arg(counts.working);
  if (counts.finished > 0) parts << QObject::tr("%1 done").arg(counts.finished);
  if (counts.idle > 0) parts << QObject::tr("%1 idle").arg(counts.idle);
  return {.needsInput = counts.needsInput,
          .working = counts.working,
          .finished = counts.finished,
          .count = static_cast<int>(sessions.size()),
          .summary = parts.isEmpty() ? QObject::tr("No agent activity") : parts.join(QStringLiteral(", ")),
          .first = sessions.empty() ? AgentFace() : sessions.front()};
}

}  // namespace ambrel
