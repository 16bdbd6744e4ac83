#pragma once
// The window of Disk Doctor; it exists only while it is open.

#include <QObject>
#include <memory>

#include "app/disk/DiskDoctor.h"
#include "app/window/FramedWindow.h"

class QQmlEngine;

namespace ambrel {

class DiskDoctorController : public QObject {
  Q_OBJECT

 public:
  // All must outlive it.
  DiskDoctorController(QQmlEngine& engine, WindowStyle& style, DiskDoctor& doctor, QObject* parent = nullptr);
  ~DiskDoctorController() override;

  // Opens the window or brings it forward.
  void open();
  // Stops a running scan; results stay for the next time.
  void close();
  bool isShown() const { return window_ != nullptr; }
  FramedWindow* window() const { return window_.get(); }

 private:
  QQmlEngine& engine_;
  WindowStyle& style_;
  DiskDoctor& doctor_;
  std::unique_ptr<FramedWindow> window_;
  // Deleted later, because the window may be closed from its own code.
  std::unique_ptr<FramedWindow> closed_;
};

}  // namespace ambrel
