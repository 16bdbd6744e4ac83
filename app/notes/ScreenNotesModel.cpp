#include "app/notes/ScreenNotesModel.h"

#include <QBuffer>
#include <QFileInfo>
#include <algorithm>

#include "app/base/StoredValue.h"
#include "app/notes/MarkDrawing.h"
#include "core/base/LocalText.h"

namespace ambrel {
namespace {

NormalizedPoint pointOf(QPointF place) { return {std::clamp(place.x(), 0.0, 1.0), std::clamp(place.y(), 0.0, 1.0)}; }

NormalizedRect rectOf(const QRectF& box) {
  const QRectF inside = box.normalized() & QRectF(0, 0, 1, 1);
  return {inside.x(), inside.y(), inside.width(), inside.height()};
}

UUID idOf(const QString& text) { return UUID::parse(text.toStdString()).value_or(UUID{}); }

QByteArray packed(const QImage& image) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  // Of zlib's levels a low one: most of the gain at a third of the time.
  image.save(&buffer, "PNG", 85);
  return buffer.data();
}

}  // namespace

ScreenNotesModel::ScreenNotesModel(Seams seams, Shell& shell, QObject* parent)
    : QObject(parent), seams_(std::move(seams)), shell_(shell) {}

QImage ScreenNotesModel::pixelsOf(const Picture& picture) {
  return picture.pixels.isNull() ? QImage::fromData(picture.packed, "PNG") : picture.pixels;
}

void ScreenNotesModel::capture() {
  seams_.screen.capture([this, turn = turn_](ScreenPicture taken) {
    if (turn != turn_) return;
    if (taken.image.isNull()) {
      if (!taken.problem.empty())
        shell_.showToast(tr("No capture"), toQString(taken.problem), QStringLiteral("exclamationmark.triangle"));
      return;
    }
    const Instant now = seams_.now();
    if (!started_) started_ = now;
    const UUID id = UUID::random();
    add(id, {.pixels = std::move(taken.image), .packed = {}, .taken = now, .windows = std::move(taken.windows)});
    page_ = id;
    edit([&](ScreenReview& review) { review.addPage(id); });
    showPicture();
    Q_EMIT captured();
  });
}

void ScreenNotesModel::add(const UUID& id, Picture picture) { pictures_[id] = std::move(picture); }

void ScreenNotesModel::showPage(int number) {
  const auto& pages = history_.present().pages;
  if (number < 1 || number > static_cast<int>(pages.size())) return;
  page_ = pages[static_cast<std::size_t>(number) - 1].id;
  history_.endRun();
  publish();
  showPicture();
}

void ScreenNotesModel::removePage() {
  const UUID removed = page_;
  const int number = face_.pageNumber;
  edit([&](ScreenReview& review) { review.removePage(removed); });
  showPage(std::min(number, face_.pageCount));
}

// The shown picture is at hand as pixels; decoding another takes long enough to do it elsewhere.
void ScreenNotesModel::showPicture() {
  const auto found = pictures_.find(page_);
  if (found == pictures_.end()) {
    picture_ = {};
    return Q_EMIT pictureChanged();
  }
  if (!found->second.pixels.isNull()) {
    picture_ = found->second.pixels;
    Q_EMIT pictureChanged();
    return pack();
  }
  auto decoded = std::make_shared<QImage>();
  seams_.background([decoded, picture = found->second] { *decoded = pixelsOf(picture); },
                    [this, decoded, id = page_, turn = turn_] {
                      const auto at = pictures_.find(id);
                      if (turn != turn_ || at == pictures_.end() || id != page_) return;
                      at->second.pixels = *decoded;
                      if (decoded->isNull()) {
                        picture_ = {};
                        return Q_EMIT pictureChanged();
                      }
                      showPicture();
                      publish();
                    });
}

void ScreenNotesModel::pack() {
  for (auto& [id, picture] : pictures_) {
    if (id == page_ || picture.pixels.isNull()) continue;
    if (!picture.packed.isEmpty()) {
      picture.pixels = {};
      continue;
    }
    auto bytes = std::make_shared<QByteArray>();
    seams_.background([bytes, pixels = picture.pixels] { *bytes = packed(pixels); },
                      [this, bytes, id = id, turn = turn_] {
                        const auto at = pictures_.find(id);
                        if (turn != turn_ || at == pictures_.end() || bytes->isEmpty()) return;
                        at->second.packed = *bytes;
                        if (id != page_) at->second.pixels = {};
                      });
  }
}

void ScreenNotesModel::edit(const std::function<void(ScreenReview&)>& change, const std::string& run) {
  ScreenReview next = history_.present();
  change(next);
  history_.apply(std::move(next), run);
  publish();
}

void ScreenNotesModel::choosePin(const QString& id) {
  if (id == chosenPin_) return;
  chosenPin_ = id;
  history_.endRun();
  Q_EMIT chosenPinChanged();
}

void ScreenNotesModel::addPin(QPointF place) {
  std::optional<UUID> added;
  edit([&](ScreenReview& review) { added = review.addPin(page_, pointOf(place)); });
  if (added) choosePin(toQString(added->text()));
}

void ScreenNotesModel::movePin(const QString& pin, QPointF place) {
  edit([&](ScreenReview& review) { review.movePin(page_, idOf(pin), pointOf(place)); }, "move " + pin.toStdString());
}

void ScreenNotesModel::setNote(const QString& pin, const QString& note) {
  edit([&](ScreenReview& review) { review.setText(page_, idOf(pin), note.toStdString()); },
       "note " + pin.toStdString());
}

void ScreenNotesModel::removePin(const QString& pin) {
  edit([&](ScreenReview& review) { review.removePin(page_, idOf(pin)); });
}

void ScreenNotesModel::addHighlight(QRectF box) {
  edit([&](ScreenReview& review) { review.addHighlight(page_, rectOf(box)); });
}

void ScreenNotesModel::removeHighlight(int index) {
  if (index < 0) return;
  edit([&](ScreenReview& review) { review.removeHighlight(page_, static_cast<std::size_t>(index)); });
}

void ScreenNotesModel::crop(QRectF box) {
  const auto found = pictures_.find(page_);
  if (found == pictures_.end() || found->second.pixels.isNull()) return;
  const QRect area = QRectF(box.x() * picture_.width(), box.y() * picture_.height(), box.width() * picture_.width(),
                            box.height() * picture_.height())
                         .toAlignedRect() &
                     picture_.rect();
  // A slip of the pointer, or the whole.
  if (area.width() < 8 || area.height() < 8 || area == picture_.rect()) return;
  const double width = picture_.width(), height = picture_.height();
  const NormalizedRect exact{area.x() / width, area.y() / height, area.width() / width, area.height() / height};
  ScreenReview next = history_.present();
  const std::optional<UUID> cropped = next.crop(page_, exact);
  if (!cropped) return;
  Picture picture{.pixels = picture_.copy(area), .packed = {}, .taken = found->second.taken, .windows = {}};
  for (const QRectF& window : found->second.windows) {
    const QRectF inside = window & QRectF(exact.x, exact.y, exact.width, exact.height);
    if (!inside.isEmpty())
      picture.windows.emplace_back((inside.x() - exact.x) / exact.width, (inside.y() - exact.y) / exact.height,
                                   inside.width() / exact.width, inside.height() / exact.height);
  }
  add(*cropped, std::move(picture));
  page_ = *cropped;
  history_.apply(std::move(next));
  publish();
  showPicture();
}

QRectF ScreenNotesModel::windowAt(QPointF place) const {
  const auto found = pictures_.find(page_);
  if (found == pictures_.end()) return {};
  const auto& windows = found->second.windows;
  const auto at =
      std::find_if(windows.rbegin(), windows.rend(), [&](const QRectF& box) { return box.contains(place); });
  return at == windows.rend() ? QRectF() : *at;
}

QString ScreenNotesModel::pinAt(QPointF place, QSizeF reach) const {
  const ReviewPage* shown = page();
  if (!shown) return {};
  const auto at = std::find_if(shown->pins.rbegin(), shown->pins.rend(), [&](const ReviewPin& pin) {
    return std::abs(pin.point.x - place.x()) <= reach.width() && std::abs(pin.point.y - place.y()) <= reach.height();
  });
  return at == shown->pins.rend() ? QString() : toQString(at->id.text());
}

void ScreenNotesModel::removeMarkAt(QPointF place, QSizeF reach) {
  if (const QString pin = pinAt(place, reach); !pin.isEmpty()) return removePin(pin);
  const ReviewPage* shown = page();
  if (!shown) return;
  for (std::size_t i = shown->highlights.size(); i-- > 0;) {
    const NormalizedRect& box = shown->highlights[i];
    if (QRectF(box.x, box.y, box.width, box.height).contains(place)) return removeHighlight(static_cast<int>(i));
  }
}

void ScreenNotesModel::undo() {
  const int number = face_.pageNumber;
  history_.undo();
  publish();
  if (!page()) showPage(std::clamp(number, 1, std::max(1, face_.pageCount)));
}

void ScreenNotesModel::redo() {
  const int number = face_.pageNumber, count = face_.pageCount;
  history_.redo();
  publish();
  if (face_.pageCount > count)
    showPage(face_.pageCount);
  else if (!page())
    showPage(std::clamp(number, 1, std::max(1, face_.pageCount)));
}

std::string ScreenNotesModel::title() const {
  return "Screen review · " + formattedDate(seams_.calendar(), started_.value_or(seams_.now()), "dMMMMy");
}

void ScreenNotesModel::copyNotes() {
  seams_.copy(review().markdown(title()));
  shell_.showToast(tr("Copied the notes"), tr("%1 notes as a Markdown list").arg(review().noteCount()),
                   QStringLiteral("list.number"));
}

void ScreenNotesModel::exportTo(const QString& folder, Exporter exporter) {
  if (isExporting_ || review().pages.empty()) return;
  isExporting_ = true;
  publish();
  auto result = std::make_shared<ExportResult>();
  const ExportedReview exported{
      .review = review(), .title = toQString(title()), .picture = [pictures = pictures_](const UUID& id) {
        const auto found = pictures.find(id);
        return found == pictures.end() ? QImage() : pixelsOf(found->second);
      }};
  seams_.background(
      [result, exported, folder, exporter] { *result = exporter(exported, folder); },
      [this, result, folder] {
        isExporting_ = false;
        publish();
        const bool isDone = result->problem.isEmpty();
        if (isDone && !result->files.isEmpty())
          shell_.showToast(tr("Saved the review"),
                           result->files.size() == 1 ? result->files.front()
                                                     : tr("%1 pictures in %2").arg(result->files.size()).arg(folder),
                           QStringLiteral("square.and.arrow.down"));
        else
          shell_.showToast(tr("The review was not saved"), result->problem, QStringLiteral("exclamationmark.triangle"));
      });
}

void ScreenNotesModel::askToClose() {
  if (review().pages.empty()) return answerClose(true);
  asksToClose_ = true;
  publish();
}

void ScreenNotesModel::answerClose(bool closes) {
  asksToClose_ = false;
  if (closes) {
    ++turn_;
    history_ = {};
    pictures_.clear();
    picture_ = {};
    started_.reset();
    choosePin({});
    Q_EMIT pictureChanged();
    Q_EMIT closed();
  }
  publish();
}

void ScreenNotesModel::publish() {
  const ScreenReview& review = history_.present();
  NotesFace face;
  face.pageCount = static_cast<int>(review.pages.size());
  face.noteCount = static_cast<int>(review.noteCount());
  face.canUndo = history_.canUndo();
  face.canRedo = history_.canRedo();
  face.isExporting = isExporting_;
  face.asksToClose = asksToClose_;
  std::vector<PinRow> pins;
  std::vector<HighlightRow> highlights;
  if (const ReviewPage* shown = page()) {
    face.pageNumber = static_cast<int>(shown - review.pages.data()) + 1;
    face.pageText = tr("Capture %1 of %2").arg(face.pageNumber).arg(face.pageCount);
    if (const auto found = pictures_.find(page_); found != pictures_.end()) {
      face.capturedText = tr("Captured %1").arg(toQString(shortTime(seams_.calendar(), found->second.taken)));
      const QSize size = found->second.pixels.isNull() ? picture_.size() : found->second.pixels.size();
      face.sizeText = tr("%1 × %2").arg(size.width()).arg(size.height());
    }
    for (std::size_t i = 0; i < shown->pins.size(); ++i) {
      const ReviewPin& pin = shown->pins[i];
      pins.push_back({.id = toQString(pin.id.text()),
                      .number = static_cast<int>(i) + 1,
                      .note = toQString(pin.text),
                      .place = {pin.point.x, pin.point.y},
                      .tone = markColor(i)});
    }
    for (std::size_t i = 0; i < shown->highlights.size(); ++i) {
      const NormalizedRect& box = shown->highlights[i];
      highlights.push_back(
          {.index = static_cast<int>(i), .box = {box.x, box.y, box.width, box.height}, .tone = markColor(i)});
    }
  }
  pins_.setRows(pins);
  highlights_.setRows(highlights);
  if (std::none_of(pins.begin(), pins.end(), [this](const PinRow& row) { return row.id == chosenPin_; })) choosePin({});
  if (face == face_) return;
  face_ = face;
  Q_EMIT faceChanged();
}

}  // namespace ambrel
