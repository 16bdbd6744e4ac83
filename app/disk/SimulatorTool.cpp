#include "app/disk/SimulatorTool.h"

#include <QFileInfo>
#include <QProcess>
#include <algorithm>

#include "core/disk/DiskAnalyzer.h"

namespace ambrel {

std::vector<SimulatorRuntime> readRuntimes(const SimulatorTool& tool) {
  const auto exists = [](const std::string& path) { return QFileInfo::exists(QString::fromStdString(path)); };
  if (std::none_of(tool.signs.begin(), tool.signs.end(), exists)) return {};
  QProcess process;
  process.setStandardErrorFile(QProcess::nullDevice());
  process.start(QString::fromStdString(tool.program),
                {QStringLiteral("simctl"), QStringLiteral("runtime"), QStringLiteral("list"), QStringLiteral("-j")},
                QIODevice::ReadOnly);
  const bool isDone = process.waitForFinished(static_cast<int>(tool.timeout.count()));
  if (!isDone || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
    process.kill();
    process.waitForFinished(1000);
    return {};
  }
  return DiskAnalyzer::parseRuntimes(process.readAllStandardOutput().toStdString());
}

}  // namespace ambrel
