#pragma once
// One session as a row or a tile shows it.

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include "core/agents.h"
#include "core/base/Calendar.h"

namespace ambrel {

struct AgentFace {
  Q_GADGET
  QML_VALUE_TYPE(agentFace)
  Q_PROPERTY(QString id MEMBER id)
  Q_PROPERTY(QString kind MEMBER kind)
  Q_PROPERTY(QString symbol MEMBER symbol)
  Q_PROPERTY(QString icon MEMBER icon)
  Q_PROPERTY(QString title MEMBER title)
  Q_PROPERTY(QString subtitle MEMBER subtitle)
  Q_PROPERTY(QString status MEMBER status)
  Q_PROPERTY(QString statusText MEMBER statusText)
  Q_PROPERTY(QString age MEMBER age)

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

}  // namespace ambrel
