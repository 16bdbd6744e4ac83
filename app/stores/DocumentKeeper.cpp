#include "app/stores/DocumentKeeper.h"

#include <cstring>
#include <utility>

#include "app/base/Log.h"
#include "app/base/Replaced.h"
#include "app/base/StoredValue.h"
#include "core/base/StoredFile.h"

namespace ambrel {

DocumentKeeper::DocumentKeeper(SharedFile& file, QString name, Shell& shell, QObject* parent)
    : QObject(parent), file_(file), name_(std::move(name)), shell_(shell), followed_(file.path()) {
  pause_.setSingleShot(true);
  connect(&pause_, &QTimer::timeout, this, &DocumentKeeper::write);
  connect(&followed_, &FollowedFile::changed, this, &DocumentKeeper::refresh);
}

DocumentKeeper::~DocumentKeeper() {
  if (!file_.isChanged()) return;
  try {
    file_.save();
  } catch (const std::exception& error) {
    logLine(error.what());
  }
}

void DocumentKeeper::open() {
  if (std::exchange(isOpen_, true)) return;
  removeLeftovers(file_.path());
  refresh();
  followed_.start();
}

void DocumentKeeper::refresh() {
  const bool wasUnreadable = file_.isUnreadable();
  if (file_.refresh()) Q_EMIT takenOver();
  if (file_.isUnreadable() && !wasUnreadable)
    warn(tr("%1 cannot be read").arg(name_), tr("%1 stays as it is, and a copy is kept when you change something here.")
                                                 .arg(toQString(file_.path().filename().string())));
  if (file_.isChanged()) saveSoon();
}

void DocumentKeeper::save() {
  pause_.stop();
  write();
}

// Not started again by what follows: somebody who types without a pause is saved, too.
void DocumentKeeper::saveSoon() {
  if (!pause_.isActive() || pause_.intervalAsDuration() > typingPause) pause_.start(typingPause);
}

void DocumentKeeper::write() {
  QString problem;
  const std::optional<std::filesystem::path> before = file_.kept();
  try {
    if (file_.isChanged() && file_.save()) Q_EMIT takenOver();
  } catch (const FileError& error) {
    problem = QString::fromLocal8Bit(std::strerror(error.code()));
    if (problem != problem_) logLine(error.what());
    pause_.start(retryPause);
  }
  if (file_.kept() && file_.kept() != before)
    warn(tr("%1 has a new file").arg(name_),
         tr("What was in the file is kept as %1").arg(toQString(file_.kept()->filename().string())));
  if (problem == problem_) return;
  if (problem_.isEmpty()) warn(tr("%1 is not saved").arg(name_), tr("%1. It is tried again.").arg(problem));
  problem_ = problem;
  Q_EMIT problemChanged();
}

// The first messages come before there is a bar to show them above.
void DocumentKeeper::warn(const QString& title, const QString& detail) {
  QTimer::singleShot(
      0, this, [this, title, detail] { shell_.showToast(title, detail, QStringLiteral("exclamationmark.triangle")); });
}

}  // namespace ambrel
