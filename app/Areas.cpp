#include "app/Areas.h"

#include <QDesktopServices>
#include <QFile>
#include <QStandardPaths>

#include "app/agents/ProgramIcons.h"
#include "app/model/LicenseManager.h"
#include "app/window/FileManager.h"

namespace ambrel {
namespace {

AgentsModel::Seams agentsSeams(const Services& with, const Background& background) {
  return {.background = background,
          .notifications = with.desktop.notifications,
          .workspace = with.desktop.workspace,
          .now = with.surroundings.now,
          .icon =
              [&workspace = with.desktop.workspace](std::string_view bundleID) {
                return ProgramIcons::source(QString::fromStdString(workspace.iconOf(bundleID)));
              },
          .folders = &with.desktop.folderWatch,
          .later = with.later};
}

ClipboardModel::Seams clipboardSeams(const Services& with, const Background& background) {
  return {.pasteboard = with.desktop.pasteboard,
          .workspace = with.desktop.workspace,
          .background = background,
          .fileBackground = makeDetachedBackground(with.context),
          .later = with.later,
          .now = with.surroundings.now};
}

LiveSeams liveSeams(const Services& with) {
  return {.telemetry = with.desktop.telemetry,
          .latency = with.desktop.latency,
          .sound = with.desktop.soundControl,
          .bluetooth = with.desktop.bluetooth,
          .volumes = with.desktop.volumes,
          .keepAwake = with.desktop.keepAwake,
          .readings = with.desktop.readings,
          .background = makeBackground(with.context),
          .calendar = with.surroundings.calendar,
          .now = with.surroundings.now};
}

bool openAddress(const QUrl& address) { return QDesktopServices::openUrl(address); }

// A user without such a folder has said that the home folder is it.
std::string downloadsFolder() {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
  const QString home = QStandardPaths::writableLocation(QStandardPaths::HomeLocation);
  return QFile::encodeName(folder == home ? home + QStringLiteral("/Downloads") : folder).toStdString();
}

FeedSeams feedSeams(const Services& with, Fetcher& fetcher) {
  return {.fetcher = fetcher,
          .defaults = with.defaults,
          .shell = with.shell,
          .documents = with.surroundings.dataFolder,
          .calendar = with.surroundings.calendar,
          .now = with.surroundings.now,
          .open = openAddress};
}

StoresArea::Seams storesSeams(const Services& with, Fetcher& fetcher, const Background& background) {
  return {.engine = with.engine,
          .documents = with.surroundings.dataFolder,
          .defaults = with.defaults,
          .folderWatch = with.desktop.tileFolder,
          .downloadsWatch = with.desktop.downloads,
          .fetcher = fetcher,
          .launcher = with.desktop.launcher,
          .background = background,
          .fileBackground = makeDetachedBackground(with.context),
          .calendar = with.surroundings.calendar,
          .now = with.surroundings.now,
          .open = openAddress,
          .showInFolder = [&context = with.context](const QUrl& item) { showInFileManager(item, context); },
          .downloads = downloadsFolder,
          .picture = [](const std::string& icon) { return ProgramIcons::source(QString::fromStdString(icon)); }};
}

CalendarModel::Seams calendarSeams(const Services& with, Fetcher& fetcher) {
  return {.home = with.surroundings.userHome,
          .settings = with.settings,
          .folders = with.desktop.calendarFolders,
          .service = with.desktop.calendars,
          .fetcher = fetcher,
          // A calendar may be on a network disk that does not answer.
          .background = makeDetachedBackground(with.context),
          .calendar = with.surroundings.calendar,
          .now = with.surroundings.now,
          .later = with.later};
}

DeveloperArea::Seams developerSeams(const Services& with) {
  return {.engine = with.engine,
          .defaults = with.defaults,
          .repositoryFolders = with.desktop.repositoryFolders,
          .tools = with.desktop.developerTools,
          .home = with.surroundings.home.string(),
          .background = [&context = with.context] { return makeDetachedBackground(context); },
          .calendar = with.surroundings.calendar,
          .now = with.surroundings.now,
          .open = [](const QUrl& address) { return QDesktopServices::openUrl(address); }};
}

}  // namespace

Areas::Areas(const Services& with)
    : background(makeBackground(with.context)),
      languageModel(with.defaults),
      agents(with.settings,
             {.home = with.surroundings.home,
              .data = with.surroundings.dataFolder,
              .tool = with.surroundings.tool,
              .folders = with.surroundings.agentFolders},
             with.surroundings.calendar, agentsSeams(with, background)),
      clipboard(with.settings, with.surroundings.dataFolder / "Clipboard", with.surroundings.calendar,
                clipboardSeams(with, background)),
      time({.defaults = with.defaults, .calendar = with.surroundings.calendar, .now = with.surroundings.now}, with.due),
      telemetry(liveSeams(with), with.shell),
      usage(with.settings, with.surroundings.home, with.surroundings.dataFolder,
            {.background = background,
             .now = with.surroundings.now,
             .calendar = with.surroundings.calendar,
             .folders = with.surroundings.agentFolders}),
      disk(with.surroundings.home,
           {.engine = with.engine,
            .windowStyle = with.desktop.windowStyle,
            .trash = with.desktop.trash,
            .model = languageModel,
            .defaults = with.defaults,
            .calendar = with.surroundings.calendar,
            .now = with.surroundings.now},
           with.shell),
      notes(
          with.engine, with.desktop.windowStyle,
          {.screen = with.desktop.screenCapture,
           .background = background,
           .now = with.surroundings.now,
           .calendar = with.surroundings.calendar,
           .copy = [this](const std::string& text) { clipboard.clipboard()->copyText(QString::fromStdString(text)); }},
          {.screen = with.desktop.screenCapture,
           .background = background,
           .now = with.surroundings.now,
           .calendar = with.surroundings.calendar,
           .later = with.later,
           .folder =
               [] {
                 return QStandardPaths::writableLocation(QStandardPaths::PicturesLocation) +
                        QStringLiteral("/Screenshots");
               },
           .copy = [this](auto what) { clipboard.clipboard()->writeUnrecorded(std::move(what)); }},
          with.shell),
      focus({.defaults = with.defaults,
             .calendar = with.surroundings.calendar,
             .notifications = with.desktop.notifications,
             .sounds = with.desktop.sounds,
             .now = with.surroundings.now},
            with.surroundings.dataFolder / "habits.json", with.due, with.shell),
      weather(fetcher, with.defaults, with.surroundings.calendar, with.surroundings.now, with.due),
      stores(storesSeams(with, fetcher, background), with.shell),
      feeds(feedSeams(with, fetcher), with.due),
      media({.players = with.desktop.mediaPlayers,
             .defaults = with.defaults,
             .fetcher = fetcher,
             .background = makeDetachedBackground(with.context)}),
      calendars(calendarSeams(with, fetcher), with.due),
      panels({.engine = with.engine,
              .hotKeys = with.desktop.hotKeys,
              .defaults = with.defaults,
              .settings = with.settings,
              .model = with.model,
              .license = with.license,
              .licenceKey = with.surroundings.licenceKey,
              .calendar = with.surroundings.calendar,
              .now = with.surroundings.now,
              .home = with.surroundings.home,
              .data = with.surroundings.dataFolder,
              .defaultsFile = with.surroundings.defaultsFile,
              .program = with.surroundings.program,
              .agentFolders = with.surroundings.agentFolders,
              .userHome = with.surroundings.userHome},
             with.due),
      tools({.defaults = with.defaults,
             .shell = with.shell,
             .calendar = with.surroundings.calendar,
             .now = with.surroundings.now,
             .background = background,
             .readClipboard = [this](auto done) { clipboard.clipboard()->readText(std::move(done)); },
             .write = [this](auto what) { clipboard.clipboard()->writeUnrecorded(std::move(what)); },
             .calculate = makeCalculate(QString::fromStdString(with.surroundings.tool.string()), with.context),
             .later = with.later,
             .screen = with.desktop.screenCapture,
             .windowStyle = with.desktop.windowStyle,
             .model = languageModel,
             .usualTranslator = QStringLiteral("http://127.0.0.1:5000"),
             .emojiFile = "/usr/share/unicode/emoji/emoji-test.txt"}),
      developer(developerSeams(with), with.shell),
      buddy({.agents = *agents.agents(),
             .settings = with.settings,
             .defaults = with.defaults,
             .workspace = with.desktop.workspace,
             .calendar = with.surroundings.calendar,
             .now = with.surroundings.now,
             .later = with.later}),
      assistant({.defaults = with.defaults,
                 .model = languageModel,
                 .buddy = *buddy.center()->buddy(),
                 .actions = {.model = with.model,
                             .agents = *agents.agents(),
                             .folding = SearchFolding::forLocale(with.surroundings.calendar().locale()),
                             .now = with.surroundings.now}}) {
  for (Area* area : all) buddy.follow(*area);
  QObject::connect(agents.agents(), &AgentsModel::sessionFinished, &notices(), &BuddyNoticeCenter::sessionFinished);
  QObject::connect(focus.pomodoro(), &PomodoroTimer::phaseEnded, &notices(), [this](PomodoroPhase ended) {
    notices().phaseEnded(ended == PomodoroPhase::focus ? BuddySignals::PhaseEnd::focus
                                                       : BuddySignals::PhaseEnd::breakTime);
  });
  QObject::connect(clipboard.clipboard(), &ClipboardModel::pasteboardChanged, &tools, &ToolsArea::clipboardChanged);
  QObject::connect(&notes, &NotesArea::captureAsked, &notes, [this, &license = with.license] {
    if (license.permits(ProFeature::screenNotes)) notes.notes()->capture();
  });
  with.due.add(notices());
}

}  // namespace ambrel
