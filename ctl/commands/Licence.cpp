#include "core/licence/Licence.h"

#include "core/base/JSON.h"
#include "ctl/Context.h"
#include "ctl/commands/Commands.h"

namespace ambrel {
namespace {

void runLicence(const Arguments&, Context& context) {
  const std::filesystem::path file = licenceFile(context.data);
  const CheckedLicence checked = readLicence(file, licenceKey(), context.now());
  if (!context.json) {
    context.out << sentence(checked, context.calendar) << "\n";
    if (const auto todo = advice(checked.state); !todo.empty()) context.out << todo << "\n";
    return;
  }
  JSON out{{"state", nameOf(checked.state)}, {"file", file.string()}};
  if (checked.licence) {
    out["holder"] = checked.licence->holder;
    out["number"] = checked.licence->number;
    if (checked.licence->expires) out["expires"] = *checked.licence->expires;
  }
  context.print(out);
}

}  // namespace

Command licenceCommand() {
  return {.name = "licence",
          .summary = "Whether this computer has a licence, and whose",
          .options = {},
          .commands = {},
          .run = runLicence};
}

}  // namespace ambrel
