#include "core/profiles.h"

#include <algorithm>

#include "core/base/JSON.h"
#include "ctl/Table.h"
#include "ctl/commands/Commands.h"

namespace ambrel {
namespace {

DisplaySnapshot displayNamed(std::string name) {
  constexpr std::string_view mark = ":builtin";
  const bool isBuiltin = name.ends_with(mark);
  if (isBuiltin) name.resize(name.size() - mark.size());
  if (name.empty()) throw UsageError("--display needs a name, as in --display eDP-1:builtin");
  return {std::move(name), isBuiltin};
}

std::optional<UUID> pinnedProfile(const Arguments& arguments, const std::vector<Profile>& profiles) {
  const auto name = arguments.value("--pin");
  if (!name) return std::nullopt;
  const auto found = std::find_if(profiles.begin(), profiles.end(), [&](const Profile& p) { return p.name == *name; });
  if (found == profiles.end()) throw CommandError("there is no profile named '" + *name + "'");
  return found->id;
}

std::string triggerText(const Profile& profile) {
  if (!profile.trigger) return "by hand";
  switch (*profile.trigger) {
    case DisplayContext::builtinOnly:
      return "built-in display only";
    case DisplayContext::external:
      return "external display";
  }
  return {};
}

std::string widgetsText(const Profile& profile) {
  std::string text;
  for (const DockItem& item : profile.items)
    if (item.widget) text += (text.empty() ? "" : " ") + *item.widget;
  return text;
}

void runProfiles(const Arguments& arguments, Context& context) {
  std::vector<DisplaySnapshot> displays;
  for (std::string& name : arguments.values("--display")) displays.push_back(displayNamed(std::move(name)));

  LoadedProfiles loaded = loadProfiles(context.data / "profiles.json");
  if (loaded.problem) context.warn(*loaded.problem);
  // As the program would show them; nothing is saved.
  const std::vector<Profile> profiles = updated(std::move(loaded.profiles), std::nullopt).profiles;
  const Profile* active = resolve(profiles, displays, pinnedProfile(arguments, profiles));

  if (context.json) {
    JSON document{{"profiles", profiles}};
    if (active) document["active"] = active->name;
    return context.print(document);
  }
  std::vector<std::vector<Cell>> rows;
  for (const Profile& profile : profiles) {
    const bool isActive = &profile == active;
    rows.push_back({{isActive ? "*" : "", "32"},
                    {profile.name, isActive ? "1" : ""},
                    {triggerText(profile), "90"},
                    {widgetsText(profile)}});
  }
  context.out << table(rows, 3, context);
}

}  // namespace

Command profilesCommand() {
  using enum CommandOption::Kind;
  return {.name = "profiles",
          .summary = "The profiles of the bar, and which of them is active",
          .options = {{values, "--display", "NAME[:builtin]", "A connected display; may be given several times"},
                      {value, "--pin", "NAME", "The profile that the user has chosen"}},
          .commands = {},
          .run = runProfiles};
}

}  // namespace ambrel
