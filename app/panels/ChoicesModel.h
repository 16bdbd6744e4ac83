#pragma once
// All choices into one file, and out of it.

#include <QObject>
#include <QStringList>
#include <QtQml/qqmlregistration.h>
#include <filesystem>

#include "app/model/AppModel.h"
#include "app/model/AppSettings.h"

namespace ambrel {

class ChoicesModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  // What the last import or export has done; the second says that not all went well.
  Q_PROPERTY(QString report READ report NOTIFY changed FINAL)
  Q_PROPERTY(bool hasProblem READ hasProblem NOTIFY changed FINAL)

 public:
  // All outlive it.
  ChoicesModel(const UserDefaults& defaults, AppSettings& settings, AppModel& model, QObject* parent = nullptr);

  const QString& report() const { return report_; }
  bool hasProblem() const { return hasProblem_; }
  void exportTo(const std::filesystem::path& file);
  void importFrom(const std::filesystem::path& file);
  Q_INVOKABLE void chooseExport() { Q_EMIT exportAsked(); }
  Q_INVOKABLE void chooseImport() { Q_EMIT importAsked(); }

 Q_SIGNALS:
  void changed();
  // Let the user choose a file.
  void exportAsked();
  void importAsked();

 private:
  void tell(const QString& report, bool hasProblem);

  const UserDefaults& defaults_;
  AppSettings& settings_;
  AppModel& model_;
  QString report_;
  bool hasProblem_ = false;
};

}  // namespace ambrel
