#include "app/menu/UpdateCheck.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTimer>
#include <chrono>

namespace ambrel {
namespace {

constexpr auto longest = std::chrono::seconds(10);
constexpr const char* package = "tilebay";

}  // namespace

UpdateCheck::Places UpdateCheck::ofThisProgram() {
  // Asked for at the start: after an upgrade the file has another name.
  return {
      .program = QCoreApplication::applicationFilePath().toStdString(), .dpkg = "/var/lib/dpkg", .apt = "apt-cache"};
}

UpdateCheck::UpdateCheck(std::string version, Places places, QObject* parent)
    : QObject(parent), version_(std::move(version)), places_(std::move(places)) {}

void UpdateCheck::check(std::function<void(const UpdateAnswer&)> done) {
  if (apt_) return;
  apt_ = new QProcess(this);
  apt_->setStandardInputFile(QProcess::nullDevice());
  apt_->setStandardErrorFile(QProcess::nullDevice());
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C"));
  apt_->setProcessEnvironment(environment);
  const auto finish = [this, done = std::move(done)] {
    if (!apt_) return;
    QProcess* apt = std::exchange(apt_, nullptr);
    apt->disconnect(this);
    const bool isDone = apt->state() == QProcess::NotRunning && apt->error() == QProcess::UnknownError &&
                        apt->exitStatus() == QProcess::NormalExit && apt->exitCode() == 0;
    const std::string output = isDone ? apt->readAllStandardOutput().toStdString() : std::string();
    apt->kill();
    apt->deleteLater();
    done(updateAnswer(version_, packageOf(places_.program, package, places_.dpkg), parseAptPolicy(output)));
  };
  connect(apt_, &QProcess::finished, this, finish);
  connect(apt_, &QProcess::errorOccurred, this, finish);
  QTimer::singleShot(longest, apt_, finish);
  apt_->start(QString::fromStdString(places_.apt), {QStringLiteral("policy"), QString::fromLatin1(package)},
              QIODevice::ReadOnly);
}

}  // namespace ambrel
