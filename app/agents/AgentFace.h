#pragma once
// The sessions as rows and tiles show them.

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include "app/base/Face.h"
#include "core/agents.h"
#include "core/agents/AgentTransitions.h"
#include "core/base/Calendar.h"

namespace ambrel {

struct AgentFace {
  Q_GADGET
  QML_VALUE_TYPE(agentFace)
  Q_PROPERTY(QString sessionId MEMBER id FINAL)

 public:
  QString id;
  FACE_FIELDS(QString, kind);    // "Claude Code"
  FACE_FIELDS(QString, symbol);  // of the kind, where the tool has no icon
  FACE_FIELDS(QString, icon);    // where its picture is; empty when it has none
  FACE_FIELDS(QString, title);
  FACE_FIELDS(QString, subtitle);  // "web-shop · Bash"
  FACE_FIELDS(QString, status);    // the name of the case
  FACE_FIELDS(QString, statusText);
  FACE_FIELDS(QString, age);  // "2 min"

  friend bool operator==(const AgentFace&, const AgentFace&) = default;
};

AgentFace agentFace(const AgentSession& session, QString icon, Instant now, const Calendar& calendar);

// How the status is known, and since when: "Claude Code says so, 12s ago".
QString originText(const AgentSession& session, Instant now, const Calendar& calendar);

// What a tile shows of all sessions.
struct AgentsFace {
  Q_GADGET
  QML_VALUE_TYPE(agentsFace)
 public:
  FACE_FIELDS(int, needsInput, working, finished, count);
  FACE_FIELDS(QString, summary);          // one sentence for a tooltip and a screen reader
  FACE_FIELDS(ambrel::AgentFace, first);  // the most urgent session, and of these the newest

  friend bool operator==(const AgentsFace&, const AgentsFace&) = default;
};

AgentsFace agentsFace(const AgentCounts& counts, const std::vector<AgentFace>& sessions);

}  // namespace ambrel
