#pragma once
// The agents' sessions: where they come from, and what a click on a notification of theirs does.

#include "app/agents/AgentsModel.h"
#include "app/base/Area.h"

namespace ambrel {

class AgentsArea : public Area {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::AgentsModel* agents READ agents CONSTANT FINAL)

 public:
  // dataFolder: the program's own, where the tools' hooks leave their events.
  AgentsArea(AppSettings& settings, std::filesystem::path home, const std::filesystem::path& dataFolder,
             Calendar calendar, AgentsModel::Seams seams, QObject* parent = nullptr);

  AgentsModel* agents() { return &agents_; }
  // What is no other area's is the id of a session.
  bool answerNotification(const std::string& identifier, const std::string& action) override;

 private:
  AgentsModel agents_;
};

}  // namespace ambrel
