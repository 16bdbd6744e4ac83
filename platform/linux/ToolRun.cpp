#include "platform/linux/ToolRun.h"

#include <QFile>
#include <QProcess>

namespace ambrel {

std::optional<std::string> outputOf(const ToolRun& run) {
  // A path may hold any bytes.
  const auto decoded = [](const std::string& text) { return QFile::decodeName(QByteArray::fromStdString(text)); };
  QProcess process;
  QStringList arguments;
  for (const std::string& argument : run.arguments) arguments << decoded(argument);
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  for (const auto& [name, value] : run.environment) environment.insert(decoded(name), decoded(value));
  process.setProcessEnvironment(environment);
  process.setStandardInputFile(QProcess::nullDevice());
  process.setStandardErrorFile(QProcess::nullDevice());
  process.start(decoded(run.program), arguments, QIODevice::ReadOnly);
  const bool isDone = process.waitForFinished(static_cast<int>(run.limit.count()));
  if (!isDone || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
    process.kill();
    process.waitForFinished(1000);
    return std::nullopt;
  }
  return process.readAllStandardOutput().toStdString();
}

}  // namespace ambrel
