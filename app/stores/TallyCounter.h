#pragma once
// A number that counts whatever the user likes.

#include <QObject>
#include <QtQml/qqmlregistration.h>
#include <cstdint>
#include <optional>

#include "app/base/Face.h"
#include "core/base/PresentCalendar.h"
#include "core/base/UserDefaults.h"

namespace ambrel {

struct TallyFace {
  Q_GADGET
  QML_VALUE_TYPE(tallyFace)
 public:
  FACE_FIELDS(QString, text, brief);  // "12,345", "12.3K"
  FACE_FIELDS(bool, isZero, canUndo);

  bool operator==(const TallyFace&) const = default;
};

class TallyCounter : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::TallyFace face READ face NOTIFY faceChanged FINAL)

 public:
  // The defaults outlive it.
  TallyCounter(UserDefaults& defaults, PresentCalendar calendar, QObject* parent = nullptr);

  const TallyFace& face() const { return face_; }
  // The stored count may be another.
  void reload();

  // Never below zero.
  Q_INVOKABLE void add(int number);
  Q_INVOKABLE void reset();
  // Takes the reset back; what was counted since stays.
  Q_INVOKABLE void undo();

 Q_SIGNALS:
  void faceChanged();

 private:
  void set(std::int64_t count);

  UserDefaults& defaults_;
  PresentCalendar calendar_;
  std::int64_t beforeReset_ = 0;
  TallyFace face_;
};

}  // namespace ambrel
