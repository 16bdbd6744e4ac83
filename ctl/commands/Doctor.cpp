#include "core/doctor.h"

#include "core/base/JSON.h"
#include "core/developer/Containers.h"
#include "core/settings.h"
#include "ctl/Folders.h"
#include "ctl/Session.h"
#include "ctl/Table.h"
#include "ctl/commands/Commands.h"

namespace ambrel {
namespace {

DoctorFacts gathered(const Context& context) {
  DoctorFacts facts{.version = AMBREL_VERSION,
                    .package = {},
                    .sessionType = environmentVariable("XDG_SESSION_TYPE"),
                    .desktop = environmentVariable("XDG_CURRENT_DESKTOP"),
                    .display = environmentVariable("DISPLAY"),
                    .x11 = askWindowSystem(environmentVariable("DISPLAY")),
                    .compositor = askCompositor(environmentVariable("WAYLAND_DISPLAY")),
                    .canUseLayerShell = AMBREL_HAS_LAYER_SHELL,
                    .sessionBus = askBus(BusKind::session),
                    .systemBus = askBus(BusKind::system),
                    .places = hookPlaces(context),
                    .defaultsFile = context.config / "defaults.json",
                    .runtime = environmentVariable("XDG_RUNTIME_DIR"),
                    .calculator = calculatorProgram(),
                    .fonts = dataFolder().parent_path() / "fonts",
                    .modelServer = {},
                    .engines = {}};
  facts.package = packageOf(facts.places.tool, "tilebayctl", "/var/lib/dpkg");
  const UserDefaults defaults(facts.defaultsFile);
  if (valueOf(defaults, setting::askUsesModel)) facts.modelServer = valueOf(defaults, setting::modelServerURL);
  facts.engines = containerSockets(environmentVariable("DOCKER_HOST"), facts.runtime, facts.places.home);
  return facts;
}

Cell cellOf(DoctorState state) {
  switch (state) {
    case DoctorState::found:
      return {"found", "32"};
    case DoctorState::limited:
      return {"limited", "33"};
    case DoctorState::missing:
      return {"missing", "1;33"};
  }
  return {};
}

void runDoctor(const Arguments&, Context& context) {
  JSON document = JSON::array();
  std::vector<std::vector<Cell>> rows;
  std::string advice;
  for (const DoctorRow& row : diagnose(gathered(context))) {
    JSON object{{"what", row.what}, {"state", nameOf(row.state)}, {"detail", row.detail}};
    if (!row.advice.empty()) {
      object["advice"] = row.advice;
      advice += "  " + context.styled("1", row.what) + ": " + row.advice + ".\n";
    }
    document.push_back(std::move(object));
    rows.push_back({{row.what, "1"}, cellOf(row.state), {row.detail}});
  }
  if (context.json) return context.print(document);
  context.out << table(rows, 2, context);
  if (!advice.empty()) context.out << "\nWhat can be done:\n" << advice;
}

}  // namespace

Command doctorCommand() {
  return {.name = "doctor",
          .summary = "What Tilebay meets on this machine, what is missing, and what to install",
          .options = {},
          .commands = {},
          .run = runDoctor};
}

}  // namespace ambrel
