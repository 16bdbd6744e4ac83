#include "core/assistant.h"
#include "core/base/PlatformWords.h"

namespace ambrel {

std::span<const AssistantTool> assistantTools() {
  static constexpr AssistantTool tools[] = {
      {AssistantAction::agentsStatus, "agentsStatus",
       "Lists the active AI coding agent sessions (Claude Code, Codex, Cursor, Antigravity) with tool, project, status "
       "and age.",
       "", ""},
      {AssistantAction::addWidget, "addWidgetToDock",
       "Adds one dock widget by its name, for example CPU, Battery, Clock or Focus Timer.", "widgetName",
       "The widget name"},
      {AssistantAction::removeWidget, "removeWidget", "Removes a widget from the bar of the active profile.",
       "itemName", "The widget name"},
      {AssistantAction::switchProfile, "switchProfile",
       "Pins a dock profile by name, or 'auto' to follow the connected displays again.", "profileName",
       "The profile name, or auto"},
  };
  return tools;
}

std::string assistantInstructions() {
  constexpr std::string_view opening =
      "You are Buddy, the assistant inside Tilebay, a dock app for {system}.\n"
      "Answer in one or two short sentences, in the language of the request.\n"
      "Apps live in the {system} Dock; this bar holds widgets only. Use the tools to read agent status or to change "
      "the widgets. Never invent widgets or sessions.\n"
      "Widgets: "_local;
  std::string text(opening);
  std::string_view between;
  for (const DockWidget widget : allCases<DockWidget>()) {
    text.append(between).append(title(widget));
    between = ", ";
  }
  return text + ".";
}

std::string_view sentence(ModelAbsence absence) {
  switch (absence) {
    case ModelAbsence::off:
      return "Turn on the language model in Settings."_local;
    case ModelAbsence::notFound:
      return "No model server is running here.";
    case ModelAbsence::notAllowed:
      return "The model server is on another {machine}. Allow it in Settings."_local;
    case ModelAbsence::noModel:
      return "The model server does not have the model.";
    case ModelAbsence::loading:
      return "The model server is still loading the model.";
    case ModelAbsence::other:
      return "{intelligence} is not available now."_local;
  }
  return {};
}

}  // namespace ambrel
