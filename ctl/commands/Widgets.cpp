#include "core/widgets.h"

#include "core/base/JSON.h"
#include "ctl/Table.h"
#include "ctl/commands/Commands.h"

namespace ambrel {
namespace {

void runWidgets(const Arguments&, Context& context) {
  JSON document = JSON::array();
  std::vector<std::vector<Cell>> rows;
  for (const DockWidget widget : allCases<DockWidget>()) {
    if (context.json)
      document.push_back({{"id", nameOf(widget)},
                          {"title", title(widget)},
                          {"description", description(widget)},
                          {"symbol", symbol(widget)},
                          {"group", nameOf(group(widget))}});
    else
      rows.push_back({{std::string(nameOf(widget)), "1"},
                      {std::string(title(widget))},
                      {std::string(title(group(widget))), "90"},
                      {std::string(description(widget))}});
  }
  if (context.json)
    context.print(document);
  else
    context.out << table(rows, 3, context);
}

}  // namespace

Command widgetsCommand() {
  return {.name = "widgets",
          .summary = "The catalogue of widgets, in order",
          .options = {},
          .commands = {},
          .run = runWidgets};
}

}  // namespace ambrel
