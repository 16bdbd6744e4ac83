#pragma once
// Ask Buddy: the four things that he can do, the commands that a user types for them, and the texts around both.
//
// A typed command and a tool call of a language model become the same AssistantCall and get the same reply. How a model
// server is spoken to is in core/assistant/ChatExchange.h.

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "core/agents.h"
#include "core/base/SearchFolding.h"
#include "core/profiles.h"
#include "core/widgets.h"

namespace ambrel {

enum class AssistantAction { agentsStatus, addWidget, removeWidget, switchProfile };

struct AssistantCall {
  AssistantAction action = AssistantAction::agentsStatus;
  std::string name = {};  // of a widget or a profile, as it was given; empty for agentsStatus
  friend bool operator==(const AssistantCall&, const AssistantCall&) = default;
};

// An action as a language model is told of it.
struct AssistantTool {
  AssistantAction action;
  std::string_view name, description;
  std::string_view argument, guide;  // empty: it takes none
};
// In the order in which they are offered.
std::span<const AssistantTool> assistantTools();

// What the actions look at. `active` is one of `profiles`, or null when there is none.
struct AssistantScene {
  std::span<const Profile> profiles;
  const Profile* active = nullptr;
  std::span<const AgentSession> sessions = {};  // agentsStatus alone
  Instant now = {};                             // agentsStatus alone
  SearchFolding folding = {};
};

// What an action changes; it is for the caller to carry out.
namespace assistant_change {
struct AddWidget {
  DockWidget widget;
  UUID profile;
  bool operator==(const AddWidget&) const = default;
};
struct RemoveWidget {
  DockWidget widget;
  UUID profile;
  bool operator==(const RemoveWidget&) const = default;
};
// Absent: the displays choose again.
struct PinProfile {
  std::optional<UUID> profile;
  bool operator==(const PinProfile&) const = default;
};
}  // namespace assistant_change
using AssistantChange =
    std::variant<assistant_change::AddWidget, assistant_change::RemoveWidget, assistant_change::PinProfile>;

struct AssistantOutcome {
  std::string reply;
  std::optional<AssistantChange> change = {};
};
// Every failure is a sentence of the reply.
AssistantOutcome carryOut(const AssistantCall& call, const AssistantScene& scene);

// The widget that a user means. A title that equals the name comes first, letter case aside. Else it is the shortest
// title that holds the name or is held by it, case and diacritics aside; of equally short ones the first.
std::optional<DockWidget> findWidget(std::string_view name, std::span<const DockWidget> candidates,
                                     SearchFolding folding);

// The command grammar: what a typed text asks for, in order. Absent when it is no command; empty when it names nothing.
std::optional<std::vector<AssistantCall>> parseCommand(std::string_view text);
// The replies to all of its calls; `perform` carries one out and gives its reply.
std::string commandReply(std::string_view text, const std::function<std::string(const AssistantCall&)>& perform);

// What a language model is told before the first question.
std::string assistantInstructions();

// Why a question goes to the grammar.
enum class ModelAbsence {
  off,         // by the user's choice
  notFound,    // no server answers
  notAllowed,  // the server is on another computer, and the user has not allowed it
  noModel,     // the server has none, or not the chosen one
  loading,     // the server is not ready yet
  other,
};
std::string_view sentence(ModelAbsence absence);

// A question of a conversation, with its answer.
struct ChatTurn {
  std::string question, answer;
  friend bool operator==(const ChatTurn&, const ChatTurn&) = default;
};

// How long a conversation lives after its last question, whether or not its panel is open.
inline constexpr Seconds conversationKept{600};
inline constexpr std::string_view conversationSuggestions[] = {"What are my agents doing?", "Add the Focus Timer",
                                                               "Add the CPU and Battery widgets",
                                                               "Switch to the Laptop profile"};

}  // namespace ambrel
