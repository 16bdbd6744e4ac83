#pragma once
// The sessions as rows and tiles show them.

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include "core/agents.h"
#include "core/agents/AgentTransitions.h"
#include "core/base/Calendar.h"

namespace ambrel {

struct AgentFace {
  Q_GADGET
  QML_VALUE_TYPE(agentFace)
  Q_PROPERTY(QString sessionId MEMBER id FINAL)
  Q_PROPERTY(QString kind MEMBER kind FINAL)
  Q_PROPERTY(QString symbol MEMBER symbol FINAL)
  Q_PROPERTY(QString icon MEMBER icon FINAL)
  Q_PROPERTY(QString title MEMBER title FINAL)
  Q_PROPERTY(QString subtitle MEMBER subtitle FINAL)
  Q_PROPERTY(QString status MEMBER status FINAL)
  Q_PROPERTY(QString statusText MEMBER statusText FINAL)
  Q_PROPERTY(QString age MEMBER age FINAL)

 public:
  QString id;
  QString kind;    // "Claude Code"
  QString symbol;  // of the kind, where the tool has no icon
  QString icon;    // where its picture is; empty when it has none
  QString title;
  QString subtitle;  // "web-shop · Bash"
  QString status;    // the name of the case
  QString statusText;
  QString age;  // "2 min"

  friend bool operator==(const AgentFace&, const AgentFace&) = default;
};

AgentFace agentFace(const AgentSession& session, QString icon, Instant now, const Calendar& calendar);

// What a tile shows of all sessions.
struct AgentsFace {
  Q_GADGET
  QML_VALUE_TYPE(agentsFace)
  Q_PROPERTY(int needsInput MEMBER needsInput FINAL)
  Q_PROPERTY(int working MEMBER working FINAL)
  Q_PROPERTY(int finished MEMBER finished FINAL)
  Q_PROPERTY(int count MEMBER count FINAL)
  Q_PROPERTY(QString summary MEMBER summary FINAL)
  Q_PROPERTY(ambrel::AgentFace first MEMBER first FINAL)

 public:
  int needsInput = 0, working = 0, finished = 0, count = 0;
  QString summary;  // one sentence for a tooltip and a screen reader
  AgentFace first;  // the most urgent session, and of these the newest

  friend bool operator==(const AgentsFace&, const AgentsFace&) = default;
};

AgentsFace agentsFace(const AgentCounts& counts, const std::vector<AgentFace>& sessions);

}  // namespace ambrel
