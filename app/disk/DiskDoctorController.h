#pragma once
// The window of Disk Doctor; it exists only while it is open.

#include "app/disk/DiskDoctor.h"
#include "app/window/ViewWindow.h"

namespace ambrel {

class DiskDoctorController : public ViewWindow {
  Q_OBJECT

 public:
  // All must outlive it.
  DiskDoctorController(QQmlEngine& engine, WindowStyle& style, DiskDoctor& doctor, QObject* parent = nullptr);

  // Stops a running scan; results stay for the next time.
  void close();

 private:
  DiskDoctor& doctor_;
};

}  // namespace ambrel
