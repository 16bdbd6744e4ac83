#include "app/assistant/AssistantActions.h"

#include <memory>

#include "core/base/Overloaded.h"

namespace ambrel {

std::function<std::string(const AssistantCall&)> AssistantActions::performer() {
  const auto activeID = [this] {
    const Profile* active = seams_.model.activeProfile();
    return active ? std::optional(active->id) : std::nullopt;
  };
  return [this, activeID, asking = std::make_shared<std::optional<UUID>>(activeID())](const AssistantCall& call) {
    std::string reply = perform(call, *asking ? seams_.model.profileWith(**asking) : nullptr);
    if (call.action == AssistantAction::switchProfile) *asking = activeID();
    return reply;
  };
}

std::string AssistantActions::perform(const AssistantCall& call, const Profile* active) {
  AppModel& model = seams_.model;
  AssistantOutcome outcome = carryOut(call, {.profiles = model.profiles(),
                                             .active = active,
                                             .sessions = seams_.agents.sessions(),
                                             .now = seams_.now(),
                                             .folding = seams_.folding});
  if (outcome.change)
    std::visit(Overloaded{[&](const assistant_change::AddWidget& add) {
                            model.addWidget(std::string(nameOf(add.widget)), add.profile, std::nullopt);
                          },
                          [&](const assistant_change::RemoveWidget& remove) {
                            model.removeWidget(std::string(nameOf(remove.widget)), remove.profile);
                          },
                          [&](const assistant_change::PinProfile& pin) {
                            // As from the tray: a pin that could have no effect is not said to have one.
                            if (!pin.profile || model.license().allows(ProFeature::profileSwitching))
                              return model.setPinnedProfileID(pin.profile);
                            outcome.reply = "Switching profiles needs a licence.";
                          }},
               *outcome.change);
  return std::move(outcome.reply);
}

}  // namespace ambrel
