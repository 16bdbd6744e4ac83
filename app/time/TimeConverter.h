#pragma once
// Unix time and dates, each from the other.

#include <QObject>

#include "app/base/Face.h"
#include "app/base/GadgetListModel.h"
#include "app/time/TimeModel.h"

namespace ambrel {

struct ConversionRow {
  Q_GADGET
  QML_VALUE_TYPE(conversionRow)
  Q_PROPERTY(QString rowId MEMBER id FINAL)

 public:
  QString id{};
  FACE_FIELDS(QString, title, value);  // "Seconds", "1795354233": the value is what is copied
  bool operator==(const ConversionRow&) const = default;
};

class TimeConverter : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::RowList* rows READ rows CONSTANT FINAL)
  // "Seconds since 1970", "Now", or what cannot be read.
  Q_PROPERTY(QString note READ note NOTIFY converted FINAL)
  Q_PROPERTY(bool isProblem READ isProblem NOTIFY converted FINAL)

 public:
  explicit TimeConverter(TimeSeams seams, QObject* parent = nullptr);

  RowList* rows() { return &rows_; }
  const QString& note() const { return note_; }
  bool isProblem() const { return isProblem_; }

  // A number or a date; of an empty text, the present moment.
  Q_INVOKABLE void convert(const QString& text);

 Q_SIGNALS:
  void converted();

 private:
  TimeSeams seams_;
  GadgetListModel<ConversionRow> rows_;
  QString note_;
  bool isProblem_ = false;
};

}  // namespace ambrel
