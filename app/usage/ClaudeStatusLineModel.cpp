#include "app/usage/ClaudeStatusLineModel.h"

#include <QFile>
#include <QFileInfo>

#include "app/base/Log.h"

namespace ambrel {

ClaudeStatusLineModel::ClaudeStatusLineModel(ClaudeStatusLine::Files files, QObject* parent)
    : QObject(parent), files_(std::move(files)), isConnected_(ClaudeStatusLine::isConnected(files_)) {
  for (const auto changed : {&QFileSystemWatcher::fileChanged, &QFileSystemWatcher::directoryChanged})
    connect(&watcher_, changed, this, [this] {
      watch();
      look();
    });
  watch();
}

void ClaudeStatusLineModel::watch() {
  const QFileInfo file(QFile::decodeName(files_.settings.c_str()));
  const QString folder = file.absolutePath();
  const bool hasFolder = QFileInfo::exists(folder);
  QStringList wanted{hasFolder ? folder : QFileInfo(folder).absolutePath()};
  if (file.exists()) wanted << file.absoluteFilePath();
  QStringList old;
  for (const QString& path : watcher_.files() + watcher_.directories())
    if (!wanted.removeOne(path)) old << path;
  if (!old.isEmpty()) watcher_.removePaths(old);
  if (!wanted.isEmpty()) watcher_.addPaths(wanted);
}

QString ClaudeStatusLineModel::text() const {
  return isConnected_ ? tr("Connected. The session and week update each time Claude Code replies in the terminal. Your "
                           "own status line still runs.")
                      : tr("Connects Claude Code's status line, so that the tile shows your session and week like the "
                           "usage page of the Claude web site. For Pro and Max plans, in the terminal.");
}

void ClaudeStatusLineModel::look() {
  const bool isConnected = ClaudeStatusLine::isConnected(files_);
  update(isConnected, isConnected == isConnected_ ? problem_ : QString());
}

void ClaudeStatusLineModel::install() { perform(ClaudeStatusLine::install); }
void ClaudeStatusLineModel::remove() { perform(ClaudeStatusLine::remove); }

void ClaudeStatusLineModel::perform(void (*action)(const ClaudeStatusLine::Files&)) {
  QString problem;
  try {
    action(files_);
  } catch (const std::exception& error) {
    logLine(std::string("cannot change the Claude settings: ") + error.what());
    problem = QString::fromUtf8(ClaudeStatusLine::cannotChange);
  }
  update(ClaudeStatusLine::isConnected(files_), problem);
}

void ClaudeStatusLineModel::update(bool isConnected, const QString& problem) {
  if (isConnected == isConnected_ && problem == problem_) return;
  const bool isOther = isConnected != isConnected_;
  isConnected_ = isConnected;
  problem_ = problem;
  Q_EMIT changed();
  if (isOther) Q_EMIT connectionChanged();
}

}  // namespace ambrel
