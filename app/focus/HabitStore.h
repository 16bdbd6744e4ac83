#pragma once

#include <filesystem>

#include "app/base/Face.h"
#include "app/base/FollowedFile.h"
#include "app/base/GadgetListModel.h"
#include "app/base/PatientWrite.h"
#include "app/focus/FocusModel.h"

namespace ambrel {

struct HabitRow {
  Q_GADGET
  Q_PROPERTY(QString habitId MEMBER id FINAL)

 public:
  QString id{};
  FACE_FIELDS(QString, name);
  FACE_FIELDS(bool, isDone);         // today
  FACE_FIELDS(QString, streakText);  // "5 days in a row"; empty below 2

  bool operator==(const HabitRow&) const = default;
};

// The habits, kept in a file of their own. What others write into it is taken over, and read before each change.
class HabitStore : public ambrel::FocusModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::RowList* rows READ rows CONSTANT FINAL)
  Q_PROPERTY(ambrel::HabitsFace face READ face NOTIFY changed FINAL)

 public:
  HabitStore(std::filesystem::path file, FocusSeams seams, QObject* parent = nullptr);
  ~HabitStore() override { write_.end(); }

  const std::vector<Habit>& items() const { return items_; }
  RowList* rows() { return &rows_; }
  const HabitsFace& face() const { return face_; }

  // Says whether it was taken: a name, and room for one more.
  Q_INVOKABLE bool add(const QString& name);
  Q_INVOKABLE void remove(const QString& id);
  Q_INVOKABLE void toggleToday(const QString& id);

 Q_SIGNALS:
  void problemFound(const QString& title, const QString& detail);

 private:
  void read();
  void refresh();
  void write();
  void save();
  void keepUnreadable();
  bool renewFace(Instant now) override;

  std::filesystem::path file_;
  std::vector<Habit> items_;
  GadgetListModel<HabitRow> rows_;
  HabitsFace face_;
  std::optional<FileStatus> seen_;  // the file that was read or written last
  PatientWrite write_;
  FollowedFile followed_;
};

}  // namespace ambrel
