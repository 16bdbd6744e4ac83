#pragma once
// What one tile of a live reading shows, as QML binds to it.

#include <QList>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>
#include <optional>

namespace ambrel {

// Texts are ready to be shown; empty where there is nothing to say.
struct TileReading {
  QString value{}, unit{}, subLine{};
  // Of two equal lines, such as read and written: the second.
  QString secondValue{}, secondUnit{};
  // At the right edge of the caption.
  QString fact{};
  // In place of all figures: why there are none, or what state counts more.
  QString message{};
  // What a small tile says in place of the value, or of the message.
  QString shortMessage{};
  QString symbol{};
  // What is shown by the pointer over the tile: the whole, and `help` below it, which says what the figures mean.
  QString tip{};
  QString help{};
  std::optional<double> percent{};
  // 0 as usual, 1 worth a look, 2 bad.
  int level = 0;
  // Such as a switch that is on, or a battery that is being charged.
  bool isOn = false;
  QList<qreal> history{};
  // The top of the history's chart.
  qreal ceiling = 100;

  friend bool operator==(const TileReading&, const TileReading&) = default;
};

class LiveText : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("belongs to LiveModels")
  Q_PROPERTY(QString value READ value NOTIFY changed FINAL)
  Q_PROPERTY(QString unit READ unit NOTIFY changed FINAL)
  Q_PROPERTY(QString subLine READ subLine NOTIFY changed FINAL)
  Q_PROPERTY(QString secondValue READ secondValue NOTIFY changed FINAL)
  Q_PROPERTY(QString secondUnit READ secondUnit NOTIFY changed FINAL)
  Q_PROPERTY(QString fact READ fact NOTIFY changed FINAL)
  Q_PROPERTY(QString message READ message NOTIFY changed FINAL)
  Q_PROPERTY(QString shortMessage READ shortMessage NOTIFY changed FINAL)
  Q_PROPERTY(QString symbol READ symbol NOTIFY changed FINAL)
  Q_PROPERTY(QString tip READ tip NOTIFY changed FINAL)
  Q_PROPERTY(QString help READ help NOTIFY changed FINAL)
  // All of it in one line, for who cannot see it.
  Q_PROPERTY(QString spoken READ spoken NOTIFY changed FINAL)
  // The value with its unit, where they are one text.
  Q_PROPERTY(QString figure READ figure NOTIFY changed FINAL)
  // 0 to 100; not a number while unknown.
  Q_PROPERTY(qreal percent READ percent NOTIFY changed FINAL)
  Q_PROPERTY(int level READ level NOTIFY changed FINAL)
  Q_PROPERTY(bool isOn READ isOn NOTIFY changed FINAL)
  Q_PROPERTY(QList<qreal> history READ history NOTIFY changed FINAL)
  Q_PROPERTY(qreal ceiling READ ceiling NOTIFY changed FINAL)

 public:
  using QObject::QObject;

  const TileReading& reading() const { return reading_; }
  void set(TileReading reading) {
    if (reading == reading_) return;
    reading_ = std::move(reading);
    Q_EMIT changed();
  }

  QString value() const { return reading_.value; }
  QString unit() const { return reading_.unit; }
  QString subLine() const { return reading_.subLine; }
  QString secondValue() const { return reading_.secondValue; }
  QString secondUnit() const { return reading_.secondUnit; }
  QString fact() const { return reading_.fact; }
  QString message() const { return reading_.message; }
  QString shortMessage() const { return reading_.shortMessage; }
  QString symbol() const { return reading_.symbol; }
  QString tip() const {
    return reading_.help.isEmpty()  ? reading_.tip
           : reading_.tip.isEmpty() ? reading_.help
                                    : reading_.tip + u'\n' + reading_.help;
  }
  QString help() const { return reading_.help; }
  QString spoken() const;
  QString figure() const { return reading_.unit.isEmpty() ? reading_.value : reading_.value + u' ' + reading_.unit; }
  qreal percent() const { return reading_.percent.value_or(qQNaN()); }
  int level() const { return reading_.level; }
  bool isOn() const { return reading_.isOn; }
  QList<qreal> history() const { return reading_.history; }
  qreal ceiling() const { return reading_.ceiling; }

 Q_SIGNALS:
  void changed();

 private:
  TileReading reading_;
};

inline QString LiveText::spoken() const {
  if (!reading_.message.isEmpty()) return reading_.message;
  QString text = figure();
  const QString second = reading_.secondValue + u' ' + reading_.secondUnit;
  for (const QString& part : {reading_.secondValue.isEmpty() ? QString() : second, reading_.subLine})
    if (!part.isEmpty()) text += (text.isEmpty() ? QString() : QStringLiteral(", ")) + part;
  return text;
}

}  // namespace ambrel
