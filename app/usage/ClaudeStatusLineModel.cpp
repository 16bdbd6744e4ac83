#include "app/usage/ClaudeStatusLineModel.h"

#include "app/base/Log.h"

namespace ambrel {

ClaudeStatusLineModel::ClaudeStatusLineModel(ClaudeStatusLine::Files files, QObject* parent)
    : QObject(parent), files_(std::move(files)), isConnected_(ClaudeStatusLine::isConnected(files_)) {}

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
