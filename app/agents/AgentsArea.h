#pragma once
// The agents' sessions: where they come from, how their tools are connected, and what a click on a notification does.

#include "app/agents/AgentHooksModel.h"
#include "app/agents/AgentsModel.h"
#include "app/base/Area.h"

namespace ambrel {

class AgentsArea : public Area {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::AgentsModel* agents READ agents CONSTANT FINAL)
  Q_PROPERTY(ambrel::AgentHooksModel* claudeHooks READ claudeHooks CONSTANT FINAL)
  Q_PROPERTY(ambrel::AgentHooksModel* codexHooks READ codexHooks CONSTANT FINAL)

 public:
  // places.data: the program's own folder, where the tools' hooks leave their events.
  AgentsArea(AppSettings& settings, const HookConnection::Places& places, Calendar calendar, AgentsModel::Seams seams,
             QObject* parent = nullptr);

  AgentsModel* agents() { return &agents_; }
  AgentHooksModel* claudeHooks() { return &claudeHooks_; }
  AgentHooksModel* codexHooks() { return &codexHooks_; }
  QVariantMap sample(DockWidget widget) override;
  // What is no other area's is the id of a session.
  bool answerNotification(const std::string& identifier, const std::string& action) override;

 private:
  AgentsModel agents_;
  AgentHooksModel claudeHooks_, codexHooks_;
};

}  // namespace ambrel
