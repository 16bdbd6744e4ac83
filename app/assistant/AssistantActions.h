#pragma once
// Carries out what a command or a language model asks for, on the program's own models.

#include <functional>

#include "app/agents/AgentsModel.h"
#include "app/model/AppModel.h"
#include "core/assistant.h"

namespace ambrel {

class AssistantActions {
 public:
  struct Seams {
    AppModel& model;
    AgentsModel& agents;
    SearchFolding folding;
    std::function<Instant()> now;
  };
  explicit AssistantActions(Seams seams) : seams_(std::move(seams)) {}

  // Gives the reply.
  std::string perform(const AssistantCall& call);

 private:
  Seams seams_;
};

}  // namespace ambrel
