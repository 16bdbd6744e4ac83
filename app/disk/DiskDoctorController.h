#pragma once
// The window of Disk Doctor.

#include "app/disk/DiskDoctor.h"
#include "app/window/ViewWindow.h"

namespace ambrel {

class DiskDoctorController : public ViewWindow {
  Q_OBJECT

 public:
  // All must outlive it.
  DiskDoctorController(QQmlEngine& engine, WindowStyle& style, DiskDoctor& doctor, QObject* parent = nullptr);

  // Ends a scan that is under way; what was found stays for the next time.
  void close();

 private:
  DiskDoctor& doctor_;
};

}  // namespace ambrel
