#include "platform/linux/developer/ToolRun.h"

#include <QProcess>

namespace ambrel {

std::optional<std::string> outputOf(const ToolRun& run) {
  QProcess process;
  QStringList arguments;
  for (const std::string& argument : run.arguments) arguments << QString::fromStdString(argument);
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  for (const auto& [name, value] : run.environment)
    environment.insert(QString::fromStdString(name), QString::fromStdString(value));
  process.setProcessEnvironment(environment);
  process.setStandardErrorFile(QProcess::nullDevice());
  process.start(QString::fromStdString(run.program), arguments, QIODevice::ReadOnly);
  const bool isDone = process.waitForFinished(static_cast<int>(run.limit.count()));
  if (!isDone || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
    process.kill();
    process.waitForFinished(1000);
    return std::nullopt;
  }
  return process.readAllStandardOutput().toStdString();
}

}  // namespace ambrel
