#pragma once
// A home with something to clean, a Trash that keeps what it is given, and Disk Doctor on work that waits.

#include <QTest>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <unistd.h>
#include <vector>

#include "app/disk/DiskDoctor.h"
#include "app/disk/DiskTexts.h"
#include "tests/TemporaryFolder.h"
#include "tests/fakes/FakeLanguageModel.h"
#include "tests/fakes/FakeTrash.h"
#include "tests/fakes/HeldWork.h"

namespace ambrel {

class DiskHome {
 public:
  // Long after the files of the test were written, so that they are old.
  Instant now{std::chrono::seconds(2'000'000'000)};
  TemporaryFolder folder;
  const std::string home = std::filesystem::canonical(folder.path()) / "home";
  HeldWork held;
  FakeTrash trash;
  FakeLanguageModel model;
  Calendar calendar{"UTC", "en_US"};
  DiskCleaner cleaner{{.trash = trash, .background = held.background(), .now = clock(), .calendar = calendar}, home};

  explicit DiskHome(bool hasModel = false) : hasModel_(hasModel) {
    fill(".cache/pip/wheels", 2);
    fill(".cache/editor/index", 3);
    fill("Downloads/old.iso", 4);
    fill("Downloads/older.zip", 2);
    fill("src/web/node_modules/lib", 5);
    folder.write("home/src/web/package.json", "{}");
    folder.write("home/src/web/package-lock.json", "{}");
    fill(".local/share/Trash/files/gone", 2);
    fill("Documents/thesis.pdf", 6);
  }

  std::function<Instant()> clock() {
    return [this] { return now; };
  }
  DiskDoctor::Seams seams() {
    return {
        .background = held.background(), .now = clock(), .calendar = calendar, .model = hasModel_ ? &model : nullptr};
  }
  DiskDoctor& doctor() {
    if (!doctor_) doctor_ = std::make_unique<DiskDoctor>(home, cleaner, seams());
    return *doctor_;
  }
  void make(DiskDoctor::Seams seams) { doctor_ = std::make_unique<DiskDoctor>(home, cleaner, std::move(seams)); }

  // Files that take so many million bytes of the disk.
  std::string fill(const std::string& relative, int megabytes) const {
    const std::string path = home + "/" + relative;
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (file < 0 || posix_fallocate(file, 0, megabytes * 1'000'000) != 0) throw std::runtime_error("no room");
    close(file);
    return path;
  }
  bool exists(const std::string& relative) const {
    return std::filesystem::exists(std::filesystem::symlink_status(home + "/" + relative));
  }

  void finishScan() {
    held.letGo();  // the folders
    held.letGo();  // the rules
  }
  DiskDoctor& scanHome() {
    doctor().scanHome();
    finishScan();
    return doctor();
  }
  QString idOf(const std::string& relative) const { return pathID(home + "/" + relative); }
  void choose(const std::string& relative) { doctor().findings()->setSelected(idOf(relative), true); }

 private:
  bool hasModel_;
  std::unique_ptr<DiskDoctor> doctor_;
};

}  // namespace ambrel
