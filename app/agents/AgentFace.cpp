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

QString placeText(AgentPlace place) {
  switch (place) {
    case AgentPlace::here:
      return {};
    case AgentPlace::container:
      return QObject::tr("in a container");
    case AgentPlace::secureShell:
      return QObject::tr("over SSH");
    case AgentPlace::otherComputer:
      return QObject::tr("on another computer");
  }
  return {};
}

// What it asks, in its own words where they are known.
QString asked(const AgentWait& wait) {
  if (wait.detail) return toQString(*wait.detail);
  switch (wait.reason) {
    case AgentWait::Reason::permission:
      return QObject::tr("Asks for a permission");
    case AgentWait::Reason::question:
      return QObject::tr("Asks a question");
    case AgentWait::Reason::plan:
      return QObject::tr("Asks about a plan");
    case AgentWait::Reason::other:
      break;
  }
  return {};
}

// "web-shop · Bash"; the tool's name when the title says the project already and there is nothing else to say.
QString subtitle(const AgentSession& session) {
  QStringList parts;
  if (session.project && *session.project != session.title) parts << toQString(*session.project);
  if (const QString asks = session.wait ? asked(*session.wait) : QString(); !asks.isEmpty())
    parts << asks;
  else if (session.detail)
    parts << toQString(*session.detail);
  if (parts.isEmpty() || session.title == session.project) parts.prepend(toQString(displayName(session.kind)));
  if (const QString place = placeText(session.place); !place.isEmpty()) parts << place;
  return parts.join(QStringLiteral(" · "));
}

}  // namespace

QString originText(const AgentSession& session, Instant now, const Calendar& calendar) {
  const bool isStored = session.kind == AgentKind::cursor || session.kind == AgentKind::antigravity;
  auto source = isStored ? AgentWait::Source::store : AgentWait::Source::log;
  Instant at = session.updatedAt;
  if (session.word) {
    source = session.word->source;
    at = session.word->at;
  } else if (session.wait) {
    at = session.wait->since;
  }
  const QString tool = toQString(displayName(session.kind)), age = toQString(relativeAge(calendar, at, now));
  switch (source) {
    case AgentWait::Source::hook:
      return QObject::tr("%1 says so, %2").arg(tool, age);
    case AgentWait::Source::registry:
      return QObject::tr("%1's list of sessions says so, %2").arg(tool, age);
    case AgentWait::Source::log:
      return QObject::tr("Its log says so, %1").arg(age);
    case AgentWait::Source::store:
      return QObject::tr("%1's database says so, %2").arg(tool, age);
  }
  return {};
}

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
