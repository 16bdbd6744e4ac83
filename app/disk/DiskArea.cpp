#include "app/disk/DiskArea.h"

#include <QDesktopServices>
#include <QGuiApplication>
#include <QUrl>
#include <unistd.h>

#include "app/base/QmlObjects.h"
#include "app/disk/DiskTexts.h"
#include "app/disk/SimulatorTool.h"
#include "app/kit/DialogPalette.h"
#include "app/kit/Theme.h"
#include "app/window/FileDialog.h"
#include "app/window/FileManager.h"
#include "core/base/Text.h"
#include "core/settings.h"

namespace ambrel {
namespace {

constexpr Seconds celebration{6};

std::string withLinksResolved(const std::filesystem::path& path) {
  std::error_code error;
  return std::filesystem::weakly_canonical(path, error).string();
}

DiskAnalyzer chosenRules(const UserDefaults& defaults) {
  constexpr std::int64_t megabyte = 1'000'000;
  const auto days = [&](const auto& row) { return static_cast<double>(valueOf(defaults, row)); };
  DiskAnalyzer rules;
  rules.staleProjectDays = days(setting::diskProjectDays);
  rules.installerDays = days(setting::diskInstallerDays);
  rules.screenshotDays = days(setting::diskScreenshotDays);
  rules.largeFileBytes = valueOf(defaults, setting::diskLargeMegabytes) * megabyte;
  rules.largeFileDays = days(setting::diskLargeDays);
  rules.duplicateMinBytes = valueOf(defaults, setting::diskDuplicateMegabytes) * megabyte;
  return rules;
}

ExcludedFolders chosenExclusions(const UserDefaults& defaults, const std::string& home) {
  ExcludedFolders folders;
  for (const std::string& folder : valueOf(defaults, setting::diskExcludedFolders)) {
    std::string path = folder.starts_with("~/") ? home + folder.substr(1) : folder;
    while (path.size() > 1 && path.ends_with('/')) path.pop_back();
    folders.insert(withLinksResolved(path));
  }
  return folders;
}

}  // namespace

DiskArea::DiskArea(const std::filesystem::path& home, Seams seams, Shell& shell, QObject* parent)
    : Area(QStringLiteral("Disk"), parent),
      seams_(std::move(seams)),
      shell_(shell),
      home_(withLinksResolved(home)),
      // A thread pool of its own, because scans are long and a cancelled one may overlap with the next.
      background_(makeBackground(*this)),
      cleaner_({.trash = seams_.trash, .background = background_, .now = seams_.now, .calendar = seams_.calendar},
               home_),
      doctor_(home_, cleaner_,
              DiskDoctor::Seams{.background = background_,
                                .now = seams_.now,
                                .calendar = seams_.calendar,
                                .model = &seams_.model,
                                .hasAccess = [home = home_] { return access(home.c_str(), R_OK | X_OK) == 0; },
                                .runtimes = [] { return readRuntimes(SimulatorTool{}); },
                                .rules = [this] { return chosenRules(seams_.defaults); },
                                .excluded = [this] { return chosenExclusions(seams_.defaults, home_); }}),
      window_(seams_.engine, seams_.windowStyle, doctor_) {
  keep({this, &cleaner_, &doctor_});
  connect(&cleaner_, &DiskCleaner::finished, this, [this](const QString& title, const QString& body, bool hasMoved) {
    if (hasMoved) Q_EMIT buddyTriggered(BuddyTrigger::celebrate, celebration);
    shell_.showToast(title, body, QStringLiteral("trash.fill"));
  });
  connect(&doctor_, &DiskDoctor::folderAsked, this, [this] {
    chooseFolder(window_.window(), tr("Choose a folder for Disk Doctor to scan."), QString::fromStdString(home_),
                 dialogPalette(themeOf(seams_.engine).palette()),
                 [this](const std::string& folder) { doctor_.scan(folder); });
  });
  connect(&doctor_, &DiskDoctor::scanFinished, this, [this] {
    hasNews_ = true;
    tellOfScan();
  });
  connect(&doctor_, &DiskDoctor::showAsked, this,
          [this](const std::string& path) { showInFileManager(fileURL(path), *this); });
  connect(&doctor_, &DiskDoctor::trashAsked, this,
          [] { QDesktopServices::openUrl(QUrl(QStringLiteral("trash:///"))); });
  connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, &DiskArea::tellOfScan);
  connect(doctor_.question(), &DiskQuestion::faceChanged, this, [this] {
    if (doctor_.question()->face().isAnswering) Q_EMIT buddyTriggered(BuddyTrigger::typing, std::nullopt);
  });
}

void DiskArea::tellOfScan() {
  const QWindow* window = window_.window();
  if (!hasNews_ || (window && window->isActive())) return;
  hasNews_ = false;
  const std::int64_t bytes = cleaner_.freeableBytes().value_or(0);
  if (bytes > 0)
    Q_EMIT noticed(diskFoundNotice(bytes, doctor_.face().headline.toStdString(), seams_.now(), seams_.calendar));
}

bool DiskArea::carryOut(const Wish& wish) {
  if (!std::holds_alternative<wish::OpenDiskDoctor>(wish)) return false;
  open();
  return true;
}

}  // namespace ambrel
