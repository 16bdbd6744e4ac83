#pragma once
// The settings row of the user's own budget for Claude's window of five hours.

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include "core/base/Calendar.h"

namespace ambrel {

class AppSettings;

class ClaudeBudgetModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  // "Off", "2M tokens"
  Q_PROPERTY(QString text READ text NOTIFY changed FINAL)
  Q_PROPERTY(bool isOff READ isOff NOTIFY changed FINAL)

 public:
  ClaudeBudgetModel(AppSettings& settings, Calendar calendar, QObject* parent = nullptr);

  QString text() const;
  bool isOff() const;
  // One step up or down.
  Q_INVOKABLE void step(int by);

 Q_SIGNALS:
  void changed();

 private:
  AppSettings& settings_;
  Calendar calendar_;
};

}  // namespace ambrel
