#pragma once
// The window of Disk Doctor: made when it is opened, gone when it is closed.

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

  // Brings the window forward, also when it is open already.
  void open();
  // Ends a scan that is under way; what was found stays for the next time.
  void close();
  bool isShown() const { return window_ != nullptr; }
  FramedWindow* window() const { return window_.get(); }

 private:
  QQmlEngine& engine_;
  WindowStyle& style_;
  DiskDoctor& doctor_;
  std::unique_ptr<FramedWindow> window_;
  // Closed from within itself, it goes when the call has returned.
  std::unique_ptr<FramedWindow> closed_;
};

}  // namespace ambrel
