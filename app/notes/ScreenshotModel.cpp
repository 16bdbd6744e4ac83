#include "app/notes/ScreenshotModel.h"

#include <QBuffer>
#include <algorithm>

#include "app/base/Replaced.h"
#include "app/base/SavePNG.h"
#include "app/base/StoredValue.h"

namespace ambrel {
namespace {

constexpr QRectF all(0, 0, 1, 1);
// Of the picture's sides. A click moves the pointer a little.
constexpr double leastSide = 0.004;

}  // namespace

ScreenshotModel::ScreenshotModel(Seams seams, Shell& shell, QObject* parent)
    : QObject(parent), seams_(std::move(seams)), shell_(shell), box_(all) {}

void ScreenshotModel::take() {
  ++turn_;
  isWaiting_ = false;
  capture();
}

void ScreenshotModel::takeLater() {
  drop();
  isWaiting_ = true;
  publish();
  seams_.later(delay, [this, turn = turn_] {
    if (turn != turn_) return;
    isWaiting_ = false;
    capture();
  });
}

void ScreenshotModel::capture() {
  seams_.screen.capture([this, turn = turn_](ScreenPicture taken) {
    if (turn != turn_) return;
    if (taken.image.isNull()) {
      if (!taken.problem.empty())
        shell_.showToast(tr("No screenshot"), toQString(taken.problem), QStringLiteral("exclamationmark.triangle"));
      return publish();
    }
    picture_ = std::move(taken.image);
    windows_.clear();
    for (const QRectF& window : taken.windows)
      if (const QRectF seen = window & all; !seen.isEmpty()) windows_.push_back(seen);
    box_ = all;
    nextWindow_ = windows_.size();
    Q_EMIT pictureChanged();
    publish();
    Q_EMIT this->taken();
  });
}

void ScreenshotModel::drop() {
  ++turn_;
  isWaiting_ = false;
  windows_.clear();
  if (picture_.isNull()) return publish();
  picture_ = {};
  Q_EMIT pictureChanged();
  publish();
}

void ScreenshotModel::choose(QRectF box) {
  box = box.normalized() & all;
  box_ = box.width() < leastSide || box.height() < leastSide ? all : box;
  publish();
}

void ScreenshotModel::chooseWindowAt(QPointF place) {
  const auto found =
      std::find_if(windows_.rbegin(), windows_.rend(), [&](const QRectF& window) { return window.contains(place); });
  choose(found == windows_.rend() ? all : *found);
}

void ScreenshotModel::chooseNextWindow() {
  if (windows_.empty()) return;
  nextWindow_ = (nextWindow_ == 0 ? windows_.size() : nextWindow_) - 1;
  choose(windows_[nextWindow_]);
}

QImage ScreenshotModel::chosen() const {
  const QRectF pixels(box_.x() * picture_.width(), box_.y() * picture_.height(), box_.width() * picture_.width(),
                      box_.height() * picture_.height());
  return box_ == all ? picture_ : picture_.copy(pixels.toRect());
}

void ScreenshotModel::pack(std::function<void(const QByteArray& png)> use, std::function<void()> done) {
  if (picture_.isNull() || isSaving_) return;
  isSaving_ = true;
  publish();
  seams_.background(
      [image = chosen(), use = std::move(use)] {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        image.save(&buffer, "PNG");
        use(buffer.data());
      },
      [this, done = std::move(done)] {
        isSaving_ = false;
        publish();
        done();
      });
}

void ScreenshotModel::save() {
  const auto at = seams_.calendar().fields(seams_.now());
  const auto two = [](int number) { return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0')); };
  const QString name = tr("Screenshot") + QStringLiteral(" %1-%2-%3 ").arg(at.year).arg(two(at.month), two(at.day)) +
                       QStringList{two(at.hour), two(at.minute), two(at.second)}.join(u'-');
  const auto saved = std::make_shared<SavedFile>();
  pack([saved, folder = seams_.folder(), name](const QByteArray& png) { *saved = savePNG(png, folder, name); },
       [this, saved] {
         if (saved->path.isEmpty())
           shell_.showToast(tr("Not saved"), saved->problem, QStringLiteral("exclamationmark.triangle"));
         else
           shell_.showToast(tr("Saved"), saved->path, QStringLiteral("square.and.arrow.down"));
       });
}

void ScreenshotModel::copy() {
  const auto bytes = std::make_shared<QByteArray>();
  pack([bytes](const QByteArray& png) { *bytes = png; },
       [this, bytes] {
         seams_.copy({{"image/png", bytes->toStdString()}});
         shell_.showToast(tr("Copied"), tr("The screenshot is on the clipboard"), QStringLiteral("doc.on.doc"));
       });
}

void ScreenshotModel::publish() {
  ScreenshotFace face;
  face.hasPicture = !picture_.isNull();
  face.box = box_;
  face.isWhole = box_ == all;
  face.hasWindows = !windows_.empty();
  face.isWaiting = isWaiting_;
  face.isSaving = isSaving_;
  if (face.hasPicture) {
    const QSizeF size(box_.width() * picture_.width(), box_.height() * picture_.height());
    face.sizeText = tr("%1 × %2").arg(qRound(size.width())).arg(qRound(size.height()));
  }
  if (replaced(face_, face)) Q_EMIT faceChanged();
}

}  // namespace ambrel
