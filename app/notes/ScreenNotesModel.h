#pragma once
// The review behind the window of Screen Notes: its captures, what is marked on them, and what leaves the program.
// Nothing is kept on the disk unless it is exported.

#include <QImage>
#include <QObject>
#include <QRectF>
#include <QtQml/qqmlregistration.h>
#include <functional>
#include <map>
#include <optional>

#include "app/base/Area.h"
#include "app/base/Background.h"
#include "app/base/Face.h"
#include "app/base/GadgetListModel.h"
#include "app/notes/ReviewExport.h"
#include "core/base/PresentCalendar.h"
#include "core/review.h"
#include "platform/ScreenCapture.h"

namespace ambrel {

struct PinRow {
  Q_GADGET
  Q_PROPERTY(QString pinId MEMBER id FINAL)
 public:
  QString id{};
  FACE_FIELDS(int, number);
  FACE_FIELDS(QString, note);
  FACE_FIELDS(QPointF, place);  // as fractions of the capture
  FACE_FIELDS(QColor, tone);
  bool operator==(const PinRow&) const = default;
};

struct HighlightRow {
  Q_GADGET
 public:
  int index = 0;
  FACE_FIELDS(QRectF, box);  // as fractions of the capture
  FACE_FIELDS(QColor, tone);
  bool operator==(const HighlightRow&) const = default;
};

struct NotesFace {
  Q_GADGET
  QML_VALUE_TYPE(notesFace)
 public:
  FACE_FIELDS(int, pageCount, pageNumber, noteCount);      // pageNumber: of the capture that is shown, from 1
  FACE_FIELDS(QString, pageText, sizeText, capturedText);  // "Capture 2 of 3", "1264 × 928", "Captured 10:42"
  FACE_FIELDS(bool, canUndo, canRedo);
  FACE_FIELDS(bool, isExporting);
  FACE_FIELDS(bool, asksToClose);  // the question before the window closes is up
  bool operator==(const NotesFace&) const = default;
};

class ScreenNotesModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::NotesFace face READ face NOTIFY faceChanged FINAL)
  Q_PROPERTY(ambrel::RowList* pins READ pins CONSTANT FINAL)
  Q_PROPERTY(ambrel::RowList* highlights READ highlights CONSTANT FINAL)
  Q_PROPERTY(QImage picture READ picture NOTIFY pictureChanged FINAL)
  // The id of the pin whose note is being written or moved; empty without one.
  Q_PROPERTY(QString chosenPin READ chosenPin WRITE choosePin NOTIFY chosenPinChanged FINAL)

 public:
  struct Seams {
    ScreenCapture& screen;
    Background background;
    std::function<Instant()> now;
    PresentCalendar calendar;
    std::function<void(const std::string&)> copy;  // to the pasteboard, without a word
  };
  // What the seams refer to and the shell outlive it.
  ScreenNotesModel(Seams seams, Shell& shell, QObject* parent = nullptr);

  const NotesFace& face() const { return face_; }
  RowList* pins() { return &pins_; }
  RowList* highlights() { return &highlights_; }
  const QImage& picture() const { return picture_; }
  const QString& chosenPin() const { return chosenPin_; }
  void choosePin(const QString& id);
  const ScreenReview& review() const { return history_.present(); }

  // Adds a capture of the screen to the review and shows it.
  Q_INVOKABLE void capture();
  Q_INVOKABLE void showPage(int number);
  Q_INVOKABLE void removePage();

  // The new pin is chosen.
  Q_INVOKABLE void addPin(QPointF place);
  Q_INVOKABLE void movePin(const QString& pin, QPointF place);
  Q_INVOKABLE void setNote(const QString& pin, const QString& note);
  // A move of a pin or the writing of a note is over: what follows is undone by itself.
  Q_INVOKABLE void endRun() { history_.endRun(); }
  Q_INVOKABLE void removePin(const QString& pin);
  Q_INVOKABLE void addHighlight(QRectF box);
  Q_INVOKABLE void removeHighlight(int index);
  Q_INVOKABLE void crop(QRectF box);
  // The topmost window of another program at this place, as it was captured; an empty box where there is none.
  Q_INVOKABLE QRectF windowAt(QPointF place) const;
  // The uppermost pin no further than `reach` from this place; empty without one.
  Q_INVOKABLE QString pinAt(QPointF place, QSizeF reach) const;
  // That pin, or else the uppermost highlight there.
  Q_INVOKABLE void removeMarkAt(QPointF place, QSizeF reach);
  Q_INVOKABLE void undo();
  Q_INVOKABLE void redo();

  Q_INVOKABLE void copyNotes();
  Q_INVOKABLE void savePDF() { Q_EMIT folderAsked(&exportPDF); }
  Q_INVOKABLE void savePNG() { Q_EMIT folderAsked(&exportPNG); }
  using Exporter = ExportResult (*)(const ExportedReview&, const QString& folder);
  void exportTo(const QString& folder, Exporter exporter);

  // The window is to close: at once when there is nothing to lose, else it asks first.
  Q_INVOKABLE void askToClose();
  Q_INVOKABLE void answerClose(bool closes);

 Q_SIGNALS:
  void faceChanged();
  void pictureChanged();
  void chosenPinChanged();
  // There is something new to see.
  void captured();
  void folderAsked(ambrel::ScreenNotesModel::Exporter exporter);
  void closed();

 private:
  // One of the two is empty: pictures that are not shown are kept as PNG, a fraction of their size.
  struct Picture {
    QImage pixels;
    QByteArray packed;
    Instant taken{};
    std::vector<QRectF> windows;
  };
  static QImage pixelsOf(const Picture& picture);

  const ReviewPage* page() const { return history_.present().page(page_); }
  void edit(const std::function<void(ScreenReview&)>& change, const std::string& run = {});
  void add(const UUID& id, Picture picture);
  void showPicture();
  void pack();
  void publish();
  std::string title() const;

  Seams seams_;
  Shell& shell_;
  ReviewHistory history_;
  std::map<UUID, Picture> pictures_;
  UUID page_;  // the one that is shown
  std::optional<Instant> started_;
  QImage picture_;
  QString chosenPin_;
  bool isExporting_ = false, asksToClose_ = false;
  int turn_ = 0;  // of the review; what comes late for one that was closed is dropped
  NotesFace face_;
  GadgetListModel<PinRow> pins_;
  GadgetListModel<HighlightRow, &HighlightRow::index> highlights_;
};

}  // namespace ambrel
