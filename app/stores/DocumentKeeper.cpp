#include "app/stores/DocumentKeeper.h"

#include <utility>

#include "app/base/Log.h"
#include "app/base/Replaced.h"
#include "app/base/StoredValue.h"
#include "core/base/StoredFile.h"

namespace ambrel {

DocumentKeeper::DocumentKeeper(SharedFile& file, QString name, Shell& shell, QObject* parent)
    : QObject(parent),
      file_(file),
      name_(std::move(name)),
      shell_(shell),
      followed_(file.path()),
      write_(tr("%1 is not saved").arg(name_), "", [this] { write(); }) {
  pause_.setSingleShot(true);
  connect(&pause_, &QTimer::timeout, &write_, &PatientWrite::now);
  connect(&write_, &PatientWrite::problemChanged, this, &DocumentKeeper::problemChanged);
  connect(&write_, &PatientWrite::problemFound, this, [this](const QString& title, const QString& detail) {
    shell_.showToast(title, detail, QStringLiteral("exclamationmark.triangle"));
  });
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
    write_.tell(tr("%1 cannot be read").arg(name_),
                tr("%1 stays as it is, and a copy is kept when you change something here.")
                    .arg(toQString(file_.path().filename().string())));
  if (file_.isChanged()) saveSoon();
}

void DocumentKeeper::save() {
  pause_.stop();
  write_.now();
}

// Not started again by what follows: somebody who types without a pause is saved, too.
void DocumentKeeper::saveSoon() {
  if (!pause_.isActive()) pause_.start(typingPause);
}

void DocumentKeeper::write() {
  const auto tellOfKept = [this, before = file_.kept()] {
    if (file_.kept() && file_.kept() != before)
      write_.tell(tr("%1 has a new file").arg(name_),
                  tr("What was in the file is kept as %1").arg(toQString(file_.kept()->filename().string())));
  };
  try {
    if (file_.isChanged() && file_.save()) Q_EMIT takenOver();
  } catch (const FileError&) {
    tellOfKept();
    throw;
  }
  tellOfKept();
}

}  // namespace ambrel
