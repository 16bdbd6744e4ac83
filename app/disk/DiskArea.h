#pragma once
// Disk Doctor's part of the program.

#include <filesystem>

#include "app/base/Area.h"
#include "app/disk/DiskCleaner.h"
#include "app/disk/DiskDoctor.h"
#include "app/disk/DiskDoctorController.h"
#include "core/base/UserDefaults.h"
#include "platform/WindowStyle.h"

namespace ambrel {

class DiskArea : public Area {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::DiskCleaner* disk READ cleaner CONSTANT FINAL)

 public:
  struct Seams {
    QQmlEngine& engine;
    WindowStyle& windowStyle;
    Trash& trash;
    LanguageModel& model;
    const UserDefaults& defaults;
    Calendar calendar;
    std::function<Instant()> now;
  };
  // The seams and the shell must outlive it.
  DiskArea(const std::filesystem::path& home, Seams seams, Shell& shell, QObject* parent = nullptr);

  DiskCleaner* cleaner() { return &cleaner_; }
  DiskDoctorController& window() { return window_; }
  // Brings Disk Doctor forward.
  Q_INVOKABLE void open() { window_.open(); }
  bool carryOut(const Wish& wish) override;

 private:
  // Posts a notice about a finished scan once the window is not active: there it is shown anyway, and the bubble
  // would cover its buttons.
  void tellOfScan();

  Seams seams_;
  Shell& shell_;
  std::string home_;
  Background background_;
  DiskCleaner cleaner_;
  DiskDoctor doctor_;
  DiskDoctorController window_;
  bool hasNews_ = false;
};

}  // namespace ambrel
