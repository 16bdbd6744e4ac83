#include "app/disk/DiskDoctorController.h"

#include "app/base/QmlObjects.h"

namespace ambrel {

DiskDoctorController::DiskDoctorController(QQmlEngine& engine, WindowStyle& style, DiskDoctor& doctor, QObject* parent)
    : ViewWindow(engine, style,
                 {.title = tr("Disk Doctor"),
                  .size = {980, 640},
                  .smallest = {860, 560},
                  .source = QUrl(QStringLiteral("qrc:/qt/qml/Ambrel/Disk/DiskDoctorView.qml")),
                  .properties = {{QStringLiteral("doctor"), toVariant(doctor)}}},
                 parent),
      doctor_(doctor) {
  connect(this, &ViewWindow::closeAsked, this, &DiskDoctorController::close);
}

void DiskDoctorController::close() {
  if (!isShown()) return;
  doctor_.stop();
  doctor_.question()->close();
  doctor_.review()->close();
  ViewWindow::close();
}

}  // namespace ambrel
