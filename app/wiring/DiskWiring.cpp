// Disk Doctor: its window, its dialog, and where its messages and its files lead.

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>
#include <QPalette>
#include <QUrl>
#include <filesystem>
#include <unistd.h>

#include "app/AppDelegate.h"
#include "app/base/QmlObjects.h"
#include "app/disk/DiskTexts.h"
#include "app/disk/FolderDialog.h"
#include "app/disk/SimulatorTool.h"
#include "app/kit/Theme.h"
#include "core/base/Text.h"

namespace ambrel {
namespace {

// A path may hold any bytes; its URL does not.
QUrl urlOf(const std::string& path) {
  return QUrl::fromEncoded(QByteArray::fromStdString("file://" + percentEncodedPath(path)));
}

// The file manager shows the folder with the thing in it chosen; where none listens for that, just the folder.
void showInFileManager(const std::string& path, QObject& context) {
  auto message = QDBusMessage::createMethodCall(
      QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("/org/freedesktop/FileManager1"),
      QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
  message << QStringList(QString::fromLatin1(urlOf(path).toEncoded())) << QString();
  auto* watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(message), &context);
  QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &context, [watcher, path] {
    watcher->deleteLater();
    if (watcher->isError()) QDesktopServices::openUrl(urlOf(path.substr(0, path.rfind('/') + 1)));
  });
}

QPalette dialogPalette(const Palette& colors) {
  QPalette palette(colors.card, colors.panel);
  palette.setColor(QPalette::Base, colors.field);
  palette.setColor(QPalette::AlternateBase, colors.card);
  for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
    palette.setColor(role, colors.ink);
    palette.setColor(QPalette::Disabled, role, colors.ink3);
  }
  palette.setColor(QPalette::PlaceholderText, colors.ink3);
  palette.setColor(QPalette::Highlight, colors.accent);
  palette.setColor(QPalette::HighlightedText, colors.onAccent);
  return palette;
}

constexpr Seconds celebration{6};

}  // namespace

void AppDelegate::makeDisk() {
  std::error_code error;
  const std::string home = std::filesystem::weakly_canonical(surroundings_.home, error).string();
  // A scan takes its time, and a second one may begin before the first has noticed: others are not kept waiting.
  const Background background = makeBackground(*this);
  disk_ = std::make_unique<DiskCleaner>(DiskCleaner::Seams{.trash = desktop_.trash,
                                                           .background = background,
                                                           .now = surroundings_.now,
                                                           .calendar = surroundings_.calendar},
                                        home);
  disk_->onOutcome = [this](bool hasMoved) {
    if (hasMoved) notices_->buddy()->play(BuddyTrigger::celebrate, celebration);
  };
  disk_->onFinish = [this](const QString& title, const QString& body) {
    toast_.show(title, body, QStringLiteral("trash.fill"));
  };
  diskDoctorModel_ = std::make_unique<DiskDoctor>(
      home, *disk_,
      DiskDoctor::Seams{.background = background,
                        .now = surroundings_.now,
                        .calendar = surroundings_.calendar,
                        .hasAccess = [home] { return access(home.c_str(), R_OK | X_OK) == 0; },
                        .runtimes = [] { return readRuntimes(SimulatorTool{}); }});
  keep({disk_.get(), diskDoctorModel_.get()});
  diskDoctor_ = std::make_unique<DiskDoctorController>(engine_, desktop_.windowStyle, *diskDoctorModel_);
  diskDoctorModel_->onChooseFolder = [this, home](std::function<void(const std::string&)> chosen) {
    chooseFolder(diskDoctor_->window(), tr("Choose a folder for Disk Doctor to scan."), QString::fromStdString(home),
                 dialogPalette(themeOf(engine_).palette()), std::move(chosen));
  };
  diskDoctorModel_->onScanFinished = [this](std::int64_t) { tellOfDiskScan(); };
  connect(diskDoctorModel_->question(), &DiskQuestion::answerChanged, this, [this] {
    if (diskDoctorModel_->question()->isAnswering()) notices_->buddy()->play(BuddyTrigger::typing);
  });
  diskDoctorModel_->onShowInFolder = [this](const std::string& path) { showInFileManager(path, *this); };
  diskDoctorModel_->onOpenTrash = [] { QDesktopServices::openUrl(QUrl(QStringLiteral("trash:///"))); };
}

void AppDelegate::tellOfDiskScan() {
  const std::int64_t bytes = disk_->freeableBytes().value_or(0);
  if (bytes <= 0) return;
  notices_->post(
      diskFoundNotice(bytes, diskDoctorModel_->headline().toStdString(), surroundings_.now(), surroundings_.calendar));
}

}  // namespace ambrel
