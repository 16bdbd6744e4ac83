#include "app/stores/QuickNote.h"

#include "app/base/Replaced.h"
#include "app/base/StoredValue.h"

namespace ambrel {

NoteFace noteFace(const QString& text) {
  NoteFace face;
  for (const QStringView line : QStringView(text).split(u'\n')) {
    const QString words = line.trimmed().toString();
    if (words.isEmpty()) continue;
    if (!face.title.isEmpty()) {
      face.next = words;
      break;
    }
    face.title = words;
  }
  face.isEmpty = face.title.isEmpty();
  return face;
}

QuickNote::QuickNote(std::filesystem::path file, Shell& shell, QObject* parent)
    : QObject(parent), file_(std::move(file)), keeper_(file_, tr("The quick note"), shell) {
  connect(&keeper_, &DocumentKeeper::problemChanged, this, &QuickNote::update);
  connect(&keeper_, &DocumentKeeper::takenOver, this, [this] {
    Q_EMIT textChanged();
    update();
  });
  update();
}

QString QuickNote::text() const { return toQString(file_.text()); }

void QuickNote::setText(const QString& text) {
  const QString before = this->text();
  if (text == before) return;
  if (text.isEmpty()) emptied_ = before;
  file_.setText(text.toStdString());
  keeper_.saveSoon();
  Q_EMIT textChanged();
  update();
}

void QuickNote::bringBack() {
  if (face_.canBringBack) setText(emptied_);
}

void QuickNote::update() {
  const QString text = this->text();
  NoteFace face = noteFace(text);
  face.problem = keeper_.problem();
  face.canBringBack = text.isEmpty() && !emptied_.isEmpty();
  if (replaced(face_, std::move(face))) Q_EMIT faceChanged();
}

}  // namespace ambrel
