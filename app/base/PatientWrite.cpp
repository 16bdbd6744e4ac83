#include "app/base/PatientWrite.h"

#include <cstring>
#include <utility>

#include "app/base/Log.h"
#include "core/base/Files.h"

namespace ambrel {

PatientWrite::PatientWrite(QString title, std::string logged, std::function<void()> write,
                           std::chrono::milliseconds pause)
    : title_(std::move(title)), logged_(std::move(logged)), write_(std::move(write)) {
  pause_.setSingleShot(true);
  pause_.setInterval(pause);
  connect(&pause_, &QTimer::timeout, this, &PatientWrite::now);
}

bool PatientWrite::now() {
  pause_.stop();
  try {
    write_();
  } catch (const std::exception& error) {
    failed(error);
    return false;
  }
  setProblem({});
  return true;
}

void PatientWrite::failed(const std::exception& error) {
  const auto* file = dynamic_cast<const FileError*>(&error);
  const QString problem = QString::fromLocal8Bit(file ? std::strerror(file->code()) : error.what());
  if (problem != problem_) logLine(logged_ + error.what());
  pause_.start();
  setProblem(problem);
}

void PatientWrite::end() {
  if (!problem_.isEmpty()) now();
}

void PatientWrite::setProblem(const QString& problem) {
  const QString before = std::exchange(problem_, problem);
  if (problem == before) return;
  if (before.isEmpty()) tell(title_, tr("%1. It is tried again.").arg(problem));
  Q_EMIT problemChanged();
}

void PatientWrite::tell(const QString& title, const QString& detail) {
  QTimer::singleShot(0, this, [this, title, detail] { Q_EMIT problemFound(title, detail); });
}

}  // namespace ambrel
