#pragma once
// One setting for QML, found by its key: its value, and what its row of the settings' table says that it takes.

#include <QStringList>
#include <QVariant>

#include "app/model/AppSettings.h"

class QQmlEngine;

namespace ambrel {

class SettingValue : public QObject {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QString key READ key WRITE setKey NOTIFY changed REQUIRED FINAL)
  // A boolean, a number or a word. What the setting does not take changes nothing.
  Q_PROPERTY(QVariant value READ value WRITE setValue NOTIFY changed FINAL)
  Q_PROPERTY(bool isSwitch READ isSwitch NOTIFY changed FINAL)
  Q_PROPERTY(bool isText READ isText NOTIFY changed FINAL)
  Q_PROPERTY(QString description READ description NOTIFY changed FINAL)
  // Of a number: its range. Of a word: what it may be.
  Q_PROPERTY(int least READ least NOTIFY changed FINAL)
  Q_PROPERTY(int most READ most NOTIFY changed FINAL)
  Q_PROPERTY(QStringList words READ words NOTIFY changed FINAL)

 public:
  using QObject::QObject;
  // What the setting values of this engine read and write; `settings` outlives them.
  static void lend(QQmlEngine& engine, AppSettings& settings);

  QString key() const { return toQString(row_->key); }
  void setKey(const QString& key);
  QVariant value() const;
  void setValue(const QVariant& value);
  bool isSwitch() const { return row_->type == SettingType::boolean; }
  bool isText() const { return row_->type == SettingType::text || row_->type == SettingType::address; }
  QString description() const { return toQString(row_->description); }
  int least() const { return static_cast<int>(row_->least); }
  int most() const { return static_cast<int>(row_->most); }
  QStringList words() const;

 Q_SIGNALS:
  void changed();

 private:
  const SettingRow* row_ = &setting::dockEdge;
  AppSettings* settings_ = nullptr;
};

}  // namespace ambrel
