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

  // For a question that is asked now: carries out its calls and gives the replies, whenever they come. They are for the
  // profile that is active now, or for the one that the question itself has switched to.
  std::function<std::string(const AssistantCall& call)> performer();

 private:
  std::string perform(const AssistantCall& call, const Profile* active);

  Seams seams_;
};

}  // namespace ambrel
