#include "app/agents/AgentsArea.h"

#include "app/base/QmlObjects.h"
#include "core/agents/attention/AgentPoll.h"

namespace ambrel {

AgentsArea::AgentsArea(AppSettings& settings, std::filesystem::path home, const std::filesystem::path& dataFolder,
                       Calendar calendar, AgentsModel::Seams seams, QObject* parent)
    : Area(QStringLiteral("Agents"), parent),
      agents_(settings, makeAttentiveReaders(dataFolder), std::move(home), std::move(calendar), std::move(seams)) {
  keep({this, &agents_});
}

bool AgentsArea::answerNotification(const std::string& identifier, const std::string& /*action*/) {
  agents_.openSession(QString::fromStdString(identifier));
  return true;
}

}  // namespace ambrel
