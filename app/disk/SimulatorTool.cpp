#include "app/disk/SimulatorTool.h"

#include <QFileInfo>
#include <algorithm>

#include "core/disk/DiskAnalyzer.h"
#include "platform/linux/ToolRun.h"

namespace ambrel {

std::vector<SimulatorRuntime> readRuntimes(const SimulatorTool& tool) {
  const auto exists = [](const std::string& path) { return QFileInfo::exists(QString::fromStdString(path)); };
  if (std::none_of(tool.signs.begin(), tool.signs.end(), exists)) return {};
  const auto output =
      outputOf({.program = tool.program, .arguments = {"simctl", "runtime", "list", "-j"}, .limit = tool.timeout});
  return output ? DiskAnalyzer::parseRuntimes(*output) : std::vector<SimulatorRuntime>();
}

}  // namespace ambrel
