#pragma once
// The last look before a move, and the report after it. The list that is shown is the list that moves: it is frozen
// when the review begins, and nothing else is asked for afterwards.

#include <QObject>
#include <QtQml/qqmlregistration.h>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/disk/CleanupListModel.h"
#include "app/disk/DiskCleaner.h"

namespace ambrel {

class DiskReview : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(Stage stage READ stage NOTIFY changed)
  Q_PROPERTY(QString title READ title NOTIFY changed)
  Q_PROPERTY(QString detail READ detail NOTIFY changed)
  // The items have a Trash to go to.
  Q_PROPERTY(bool canMove READ canMove NOTIFY changed)
  Q_PROPERTY(ambrel::CleanupListModel* items READ items CONSTANT)

 public:
  // Names are capitalised because QML asks for it.
  enum class Stage { Closed, Reviewing, Moving, Reported };
  Q_ENUM(Stage)

  DiskReview(DiskCleaner& cleaner, std::string home, Calendar calendar, QObject* parent = nullptr);

  Stage stage() const { return stage_; }
  QString title() const { return title_; }
  QString detail() const { return detail_; }
  bool canMove() const { return canMove_; }
  CleanupListModel* items() { return &rows_; }
  const std::vector<CleanupItem>& frozen() const { return frozen_; }
  const std::optional<DiskAdvice::TrashReport>& report() const { return report_; }

  // Nothing happens without items, and while a list is on its way.
  void begin(std::vector<CleanupItem> items);
  // Moves the list that is shown.
  Q_INVOKABLE void confirm();
  // Puts the review or the report away.
  Q_INVOKABLE void close();
  void clear();

  std::function<void(const DiskAdvice::TrashReport&)> onReport;

 Q_SIGNALS:
  void changed();

 private:
  void set(Stage stage, const QString& title, const QString& detail);
  void setReport(const DiskAdvice::TrashReport& report);
  CleanupRow row(const CleanupItem& item, CleanupRow::Outcome outcome) const;

  DiskCleaner& cleaner_;
  std::string home_;
  Calendar calendar_;
  Stage stage_ = Stage::Closed;
  bool canMove_ = false;
  QString title_, detail_;
  std::vector<CleanupItem> frozen_;
  std::optional<DiskAdvice::TrashReport> report_;
  CleanupListModel rows_;
};

}  // namespace ambrel
