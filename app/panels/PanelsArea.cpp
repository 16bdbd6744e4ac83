#include "app/panels/PanelsArea.h"

#include <QGuiApplication>
#include <QLocale>
#include <QQmlEngine>
#include <QScreen>
#include <QStandardPaths>
#include <QSysInfo>

#include "app/base/QmlObjects.h"
#include "app/kit/DialogPalette.h"
#include "app/kit/Theme.h"
#include "app/window/FileDialog.h"
#include "core/workspace/Autostart.h"

namespace ambrel {
namespace {

std::vector<PrivacyModel::Source> sourcesOf(const PanelsArea::Seams& seams) {
  const auto tr = [](const char* text) { return PanelsArea::tr(text); };
  const QString agentDetail = tr("Status, tool, project folder and times of its sessions, and the tokens it has used");
  return {{tr("Claude Code"), agentDetail, seams.agentFolders.claudeIn(seams.home) / "projects"},
          {tr("Codex"), agentDetail, seams.agentFolders.codexIn(seams.home) / "sessions"},
          {tr("Cursor"), tr("Status, title and project folder of its sessions"), seams.home / ".config/Cursor/User"},
          {tr("Antigravity"), tr("Status and title of its conversations"), seams.home / ".gemini"}};
}

std::vector<LibraryRow> librariesInUse() {
  struct Library {
    const char *name, *use, *licence;
  };
  constexpr Library table[] = {
      {"Qt", QT_TRANSLATE_NOOP("ambrel::PanelsArea", "Windows, pictures, D-Bus and network"), "LGPL 3"},
      {"ICU", QT_TRANSLATE_NOOP("ambrel::PanelsArea", "Texts, calendars and time zones"), "Unicode"},
      {"SQLite", QT_TRANSLATE_NOOP("ambrel::PanelsArea", "Stores of agent tools"), "Public domain"},
      {"simdjson", QT_TRANSLATE_NOOP("ambrel::PanelsArea", "Logs of agent tools"), "Apache 2.0"},
      {"JSON for Modern C++", QT_TRANSLATE_NOOP("ambrel::PanelsArea", "Documents"), "MIT"},
      {"RE2", QT_TRANSLATE_NOOP("ambrel::PanelsArea", "Patterns"), "BSD"},
      {"oneTBB", QT_TRANSLATE_NOOP("ambrel::PanelsArea", "Scans of the disk"), "Apache 2.0"},
      {"OpenSSL", QT_TRANSLATE_NOOP("ambrel::PanelsArea", "Digests and signatures"), "Apache 2.0"},
      {"libical", QT_TRANSLATE_NOOP("ambrel::PanelsArea", "Calendars"), "MPL 2.0"},
      {"pugixml", QT_TRANSLATE_NOOP("ambrel::PanelsArea", "Property lists"), "MIT"},
      {"fmt", QT_TRANSLATE_NOOP("ambrel::PanelsArea", "Texts with numbers"), "MIT"},
      {"libqrencode", QT_TRANSLATE_NOOP("ambrel::PanelsArea", "QR codes"), "LGPL 2.1"},
      {"PulseAudio", QT_TRANSLATE_NOOP("ambrel::PanelsArea", "Volume and microphone"), "LGPL 2.1"},
      {"libcanberra", QT_TRANSLATE_NOOP("ambrel::PanelsArea", "Sounds"), "LGPL 2.1"},
      {"XCB", QT_TRANSLATE_NOOP("ambrel::PanelsArea", "What X11 alone can tell"), "MIT"},
      {"Inter", QT_TRANSLATE_NOOP("ambrel::PanelsArea", "The typeface"), "OFL 1.1"},
      {"Material Icons", QT_TRANSLATE_NOOP("ambrel::PanelsArea", "The symbols"), "Apache 2.0"}};
  std::vector<LibraryRow> rows;
  for (const Library& library : table) {
    LibraryRow row;
    row.name = QString::fromLatin1(library.name);
    row.use = PanelsArea::tr(library.use);
    row.licence = QString::fromLatin1(library.licence);
    rows.push_back(std::move(row));
  }
  return rows;
}

}  // namespace

PanelsArea::PanelsArea(const Seams& seams, DueTimer& due, QObject* parent)
    : Area(QStringLiteral("Panels"), parent),
      engine_(seams.engine),
      keys_(seams.hotKeys, seams.settings),
      startAtLogin_(seams.userHome.config, installedAutostartFile(), seams.program),
      choices_(seams.defaults, seams.settings, seams.model),
      privacy_({.data = seams.data, .defaults = seams.defaultsFile, .cache = seams.userHome.ownCache()},
               sourcesOf(seams), seams.home, seams.calendar),
      licence_({.file = licenceFile(seams.data), .key = seams.licenceKey, .calendar = seams.calendar, .now = seams.now},
               seams.license),
      welcome_(seams.model, {.home = seams.home, .agentFolders = seams.agentFolders, .userHome = seams.userHome}) {
  keep({this, &keys_, &startAtLogin_, &choices_, &privacy_, &licence_, &welcome_});
  libraries_.setRows(librariesInUse());
  due.add(licence_);
  const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  const auto palette = [this] { return dialogPalette(themeOf(engine_).palette()); };
  connect(&choices_, &ChoicesModel::exportAsked, this, [this, documents, palette] {
    chooseNewFile(nullptr, tr("Where to write all choices"), documents + QStringLiteral("/tilebay-choices.json"),
                  palette(), [this](const std::string& file) {
                    choices_.exportTo(file);
                    tellOfChoices();
                  });
  });
  connect(&choices_, &ChoicesModel::importAsked, this, [this, documents, palette] {
    chooseFile(nullptr, tr("A file of choices to take over"), documents, palette(), [this](const std::string& file) {
      choices_.importFrom(file);
      tellOfChoices();
    });
  });
  connect(&licence_, &LicenseFile::fileAsked, this, [this, documents, palette] {
    chooseFile(nullptr, tr("The licence's file"), documents, palette(), [this](const std::string& file) {
      licence_.install(file);
      Q_EMIT settled(QStringLiteral("licence"), licence_.problem().isEmpty() ? licence_.text() : licence_.problem(),
                     {});
    });
  });
}

void PanelsArea::tellOfChoices() {
  const QStringList lines = choices_.report().split(u'\n');
  const QString more =
      lines.size() > 1 ? tr("Skipped: %1. Settings, General says which.").arg(lines.size() - 1) : QString();
  Q_EMIT settled(QStringLiteral("general"), lines.first(), more);
}

QString PanelsArea::version() const { return QStringLiteral(AMBREL_VERSION); }

QString PanelsArea::details() const {
  QStringList lines{QStringLiteral("Tilebay ") + version(),
                    QStringLiteral("Qt %1 (%2)").arg(QString::fromLatin1(qVersion()), QGuiApplication::platformName()),
                    QSysInfo::prettyProductName() + QStringLiteral(", ") + QSysInfo::kernelVersion() + u' ' +
                        QSysInfo::currentCpuArchitecture(),
                    QStringLiteral("%1 %2, %3")
                        .arg(qEnvironmentVariable("XDG_CURRENT_DESKTOP", QStringLiteral("no desktop")),
                             qEnvironmentVariable("XDG_SESSION_TYPE"), QLocale().name())};
  const auto screens = QGuiApplication::screens();
  for (const QScreen* screen : screens)
    lines << QStringLiteral("Screen %1 x %2, scale %3")
                 .arg(screen->size().width())
                 .arg(screen->size().height())
                 .arg(screen->devicePixelRatio());
  return lines.join(u'\n');
}

}  // namespace ambrel
