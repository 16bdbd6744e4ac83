#include "app/usage/ClaudeStatusLineModel.h"

namespace ambrel {

ClaudeStatusLineModel::ClaudeStatusLineModel(ClaudeStatusLine::Files files, QObject* parent)
    : ConnectionModel(parent), files_(std::move(files)) {
  follow(files_.settings);
}

QString ClaudeStatusLineModel::text() const {
  return isConnected()
             ? tr("Connected. The session and week update each time Claude Code replies in the terminal. Your "
                  "own status line still runs.")
             : tr("Connects Claude Code's status line, so that the tile shows your session and week like the "
                  "usage page of the Claude web site. For Pro and Max plans, in the terminal.");
}

}  // namespace ambrel
