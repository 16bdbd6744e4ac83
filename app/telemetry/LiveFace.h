#pragma once
// What one part of the computer shows: on its tile, and as a list in its panel.

#include <QList>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>
#include <optional>
#include <vector>

#include "app/base/Face.h"
#include "app/base/GadgetListModel.h"

namespace ambrel {

// Texts are ready to be shown; empty where there is nothing to say.
struct TileReading {
  Q_GADGET
  QML_VALUE_TYPE(tileReading)
  Q_PROPERTY(QString tip READ wholeTip FINAL)
  Q_PROPERTY(QString figure READ figure FINAL)
  Q_PROPERTY(QString spoken READ spokenText FINAL)
  // 0 to 100; not a number while unknown.
  Q_PROPERTY(qreal percent READ percentOrNaN FINAL)

 public:
  FACE_FIELDS(QString, value, unit, subLine);
  // Of two equal lines, such as read and written: the second.
  FACE_FIELDS(QString, secondValue, secondUnit);
  // At the right edge of the caption.
  FACE_FIELDS(QString, fact);
  // In place of all figures: why there are none, or what state counts more.
  FACE_FIELDS(QString, message);
  // What a small tile says in place of the value, or of the message.
  FACE_FIELDS(QString, shortMessage);
  FACE_FIELDS(QString, symbol);
  // What the pointer over the tile brings up: the whole, and below it what the figures mean.
  QString tip{};
  FACE_FIELDS(QString, help);
  // Read out in place of the figures.
  QString spoken{};
  std::optional<double> percent{};
  // 0 as usual, 1 worth a look, 2 bad.
  FACE_FIELDS(int, level);
  // Such as a switch that is on, or a battery that is being charged.
  FACE_FIELDS(bool, isOn);
  // The computer has no such part.
  FACE_FIELDS(bool, isMissing);
  FACE_FIELDS(QList<qreal>, history, secondHistory);
  // The top of their chart.
  FACE_FIELD(qreal, ceiling, 100);

  // The value with its unit, as one text.
  QString figure() const { return unit.isEmpty() ? value : value + u' ' + unit; }
  // All of it in one line, for a screen reader.
  QString spokenText() const {
    if (!message.isEmpty()) return message;
    if (!spoken.isEmpty()) return spoken;
    const QString figures = figure();
    return figures.isEmpty() || subLine.isEmpty() ? figures + subLine : figures + QStringLiteral(", ") + subLine;
  }
  QString wholeTip() const { return tip.isEmpty() || help.isEmpty() ? tip + help : tip + u'\n' + help; }
  qreal percentOrNaN() const { return percent.value_or(qQNaN()); }

  bool operator==(const TileReading&) const = default;
};

// A program, a drive, a device, or one detail of a part.
struct LiveRow {
  Q_GADGET
  Q_PROPERTY(QString rowId MEMBER id FINAL)
  // Not a number while unknown.
  Q_PROPERTY(double percent READ percentOrNaN FINAL)

 public:
  QString id{};
  FACE_FIELDS(QString, title, detail, figure, symbol);
  std::optional<double> percent{};
  // What is being done with it is under way.
  FACE_FIELDS(bool, isBusy);
  // The detail says what went wrong.
  FACE_FIELDS(bool, hasFailed);
  // Something can be done with it.
  FACE_FIELDS(bool, hasAction);

  double percentOrNaN() const { return percent.value_or(qQNaN()); }

  bool operator==(const LiveRow&) const = default;
};

class LiveFace : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("belongs to the telemetry")
  Q_PROPERTY(ambrel::TileReading reading READ reading NOTIFY changed FINAL)
  Q_PROPERTY(ambrel::RowList* rows READ rows CONSTANT FINAL)

 public:
  explicit LiveFace(QObject* parent = nullptr) : QObject(parent) {}

  const TileReading& reading() const { return reading_; }
  void set(TileReading reading) {
    if (reading == reading_) return;
    reading_ = std::move(reading);
    Q_EMIT changed();
  }
  GadgetListModel<LiveRow>* rows() { return &rows_; }
  void setRows(const std::vector<LiveRow>& rows) { rows_.setRows(rows); }

 Q_SIGNALS:
  void changed();

 private:
  TileReading reading_;
  GadgetListModel<LiveRow> rows_;
};

}  // namespace ambrel
