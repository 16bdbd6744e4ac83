#pragma once
// Disk Doctor: its models, its window, and where its messages and its files lead.

#include <filesystem>
#include <optional>

#include "app/base/Area.h"
#include "app/disk/DiskCleaner.h"
#include "app/disk/DiskDoctor.h"
#include "app/disk/DiskDoctorController.h"
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
    Calendar calendar;
    std::function<Instant()> now;
  };
  // All that the seams refer to outlives it, as does the shell.
  DiskArea(const std::filesystem::path& home, Seams seams, Shell& shell, QObject* parent = nullptr);

  DiskCleaner* cleaner() { return &cleaner_; }
  DiskDoctorController& window() { return window_; }
  // Brings Disk Doctor forward.
  Q_INVOKABLE void open() { window_.open(); }
  bool carryOut(const Wish& wish) override;

 private:
  // Buddy tells of what a scan found, once nobody looks at Disk Doctor: it is said there, and the bubble would cover
  // its buttons.
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
