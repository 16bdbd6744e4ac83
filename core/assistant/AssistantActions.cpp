#include <algorithm>

#include "core/assistant.h"
#include "core/base/Whitespace.h"

namespace ambrel {
namespace {

std::string joined(const auto& texts, std::string_view between) {
  std::string all;
  for (const auto& text : texts) {
    if (&text != &*std::begin(texts)) all += between;
    all += text;
  }
  return all;
}

std::string lineOf(const AgentSession& session, Instant now) {
  const auto minutes = std::chrono::duration_cast<std::chrono::minutes>(now - session.updatedAt).count();
  const std::string parts[] = {std::string(displayName(session.kind)), session.project.value_or("-"),
                               std::string(nameOf(session.status)), session.detail.value_or(""),
                               std::to_string(minutes) + " min ago"};
  return joined(parts, " · ");
}

AssistantOutcome agentsStatus(const AssistantScene& scene) {
  std::vector<std::string> lines;
  for (const AgentSession& session : scene.sessions)
    if (session.status != AgentStatus::idle) lines.push_back(lineOf(session, scene.now));
  return {.reply = lines.empty() ? "No agent sessions are active." : joined(lines, "\n")};
}

constexpr std::string_view noProfile = "There is no active profile.";

AssistantOutcome addWidget(const std::string& name, const AssistantScene& scene) {
  if (!scene.active) return {.reply = std::string(noProfile)};
  std::vector<DockWidget> all;
  for (const DockWidget widget : allCases<DockWidget>()) all.push_back(widget);
  const auto widget = findWidget(name, all, scene.folding);
  if (!widget) return {.reply = "No widget matches " + name + "."};
  const std::string known(title(*widget));
  if (scene.active->contains(nameOf(*widget))) return {.reply = known + " is already in the bar."};
  return {.reply = "Added the " + known + " widget.",
          .change = assistant_change::AddWidget{.widget = *widget, .profile = scene.active->id}};
}

AssistantOutcome removeWidget(const std::string& name, const AssistantScene& scene) {
  if (!scene.active) return {.reply = std::string(noProfile)};
  std::vector<DockWidget> onBar;
  for (const DockWidget widget : allCases<DockWidget>())
    if (scene.active->contains(nameOf(widget))) onBar.push_back(widget);
  const auto widget = findWidget(name, onBar, scene.folding);
  if (!widget) return {.reply = "No widget in the bar matches " + name + "."};
  return {.reply = "Removed the " + std::string(title(*widget)) + " widget.",
          .change = assistant_change::RemoveWidget{.widget = *widget, .profile = scene.active->id}};
}

AssistantOutcome switchProfile(const std::string& name, const AssistantScene& scene) {
  // Also as a part of another word, so a profile with these letters in its name cannot be pinned here.
  if (scene.folding.caseFolded(name).find("auto") != std::string::npos)
    return {.reply = "The dock follows the display again.", .change = assistant_change::PinProfile{std::nullopt}};
  for (const Profile& profile : scene.profiles)
    if (scene.folding.contains(profile.name, name))
      return {.reply = "Pinned the " + profile.name + " profile.", .change = assistant_change::PinProfile{profile.id}};
  std::vector<std::string> names;
  for (const Profile& profile : scene.profiles) names.push_back(profile.name);
  return {.reply = "No profile matches " + name + ". Profiles: " + joined(names, ", ") + "."};
}

}  // namespace

AssistantOutcome carryOut(const AssistantCall& call, const AssistantScene& scene) {
  switch (call.action) {
    case AssistantAction::agentsStatus:
      return agentsStatus(scene);
    case AssistantAction::addWidget:
      return addWidget(call.name, scene);
    case AssistantAction::removeWidget:
      return removeWidget(call.name, scene);
    case AssistantAction::switchProfile:
      return switchProfile(call.name, scene);
  }
  return {};
}

std::optional<DockWidget> findWidget(std::string_view name, std::span<const DockWidget> candidates,
                                     SearchFolding folding) {
  name = trimmedOfBlanks(name);
  if (name.empty()) return std::nullopt;
  const std::string wanted = SearchFolding{}.caseFolded(name);
  for (const DockWidget widget : candidates)
    if (SearchFolding{}.caseFolded(title(widget)) == wanted) return widget;
  std::optional<DockWidget> found;
  for (const DockWidget widget : candidates) {
    if (!folding.contains(title(widget), name) && !folding.contains(name, title(widget))) continue;
    // Titles are ASCII: as many bytes as characters.
    if (!found || title(widget).size() < title(*found).size()) found = widget;
  }
  return found;
}

}  // namespace ambrel
