#include "app/agents/AgentsArea.h"

#include "app/base/QmlObjects.h"
#include "core/agents/attention/AgentPoll.h"

namespace ambrel {

AgentsArea::AgentsArea(AppSettings& settings, const HookConnection::Places& places, Calendar calendar,
                       AgentsModel::Seams seams, QObject* parent)
    : Area(QStringLiteral("Agents"), parent),
      agents_(settings, makeAttentiveReaders(places.data, places.folders), places.home, std::move(calendar),
              std::move(seams)),
      claudeHooks_(AgentKind::claudeCode, places),
      codexHooks_(AgentKind::codex, places) {
  keep({this, &agents_, &claudeHooks_, &codexHooks_});
  agents_.follow(agentTraces(places.home, places.data, places.folders));
}

bool AgentsArea::answerNotification(const std::string& identifier, const std::string& /*action*/) {
  agents_.openSession(QString::fromStdString(identifier));
  return true;
}

QVariantMap AgentsArea::sample(DockWidget /*widget*/) {
  const AgentCounts counts{.needsInput = 2, .working = 3, .finished = 1, .idle = 0};
  return {{QStringLiteral("face"), QVariant::fromValue(agentsFace(counts, std::vector<AgentFace>(6)))}};
}

}  // namespace ambrel
