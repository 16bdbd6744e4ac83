#pragma once
// The confirmation before a move, and the report after it. The list is frozen when the review begins, so that exactly
// the items that are shown are moved.

#include <QObject>
#include <QtQml/qqmlregistration.h>
#include <functional>
#include <string>
#include <vector>

#include "app/base/Face.h"
#include "app/base/GadgetListModel.h"
#include "app/disk/DiskCleaner.h"

namespace ambrel {

// An item that will be moved to the Trash, or its result.
struct CleanupRow {
  Q_GADGET
  QML_VALUE_TYPE(cleanupRow)
 public:
  std::string path;
  FACE_FIELDS(QString, title, detail, size);
  FACE_FIELDS(QString, note);   // why it stayed, or why it should be reviewed
  FACE_FIELDS(QString, label);  // for screen readers
  FACE_FIELDS(bool, hasMoved, hasStayed);
  friend bool operator==(const CleanupRow&, const CleanupRow&) = default;
};

struct ReviewFace {
  Q_GADGET
  QML_VALUE_TYPE(reviewFace)
  Q_PROPERTY(bool isOpen READ isOpen FINAL)
  Q_PROPERTY(bool isReviewing READ isReviewing FINAL)
  Q_PROPERTY(bool isReported READ isReported FINAL)

 public:
  enum class Stage { closed, reviewing, moving, reported };

  Stage stage = Stage::closed;
  FACE_FIELDS(bool, canMove);  // at least one item has a Trash
  FACE_FIELDS(QString, title, detail);

  bool isOpen() const { return stage != Stage::closed; }
  bool isReviewing() const { return stage == Stage::reviewing; }
  bool isReported() const { return stage == Stage::reported; }
  friend bool operator==(const ReviewFace&, const ReviewFace&) = default;
};

class DiskReview : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::ReviewFace face READ face NOTIFY faceChanged FINAL)
  Q_PROPERTY(ambrel::RowList* items READ items CONSTANT FINAL)

 public:
  using Rows = GadgetListModel<CleanupRow, &CleanupRow::path>;

  DiskReview(DiskCleaner& cleaner, std::string home, Calendar calendar, QObject* parent = nullptr);

  const ReviewFace& face() const { return face_; }
  Rows* items() { return &rows_; }

  // Ignored without items, and while items are being moved.
  void begin(std::vector<CleanupItem> items);
  // Moves the items that are shown.
  Q_INVOKABLE void confirm();
  // Closes the review or the report.
  Q_INVOKABLE void close();

 Q_SIGNALS:
  void faceChanged();
  // After a move.
  void reported(const ambrel::DiskAdvice::TrashReport& report);

 private:
  void show(ReviewFace face);
  void setReport(const DiskAdvice::TrashReport& report);

  DiskCleaner& cleaner_;
  std::string home_;
  Calendar calendar_;
  ReviewFace face_;
  std::vector<CleanupItem> frozen_;
  Rows rows_;
};

}  // namespace ambrel
