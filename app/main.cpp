// The desktop program: finds the desktop, builds the delegate, and runs.

#include <QApplication>
#include <QQuickWindow>
#include <QTextStream>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <unistd.h>

#include "app/AppDelegate.h"
#include "app/Environment.h"
#include "app/QuitSignals.h"
#include "app/base/Heap.h"
#include "app/base/Log.h"
#include "app/kit/LongTexts.h"
#include "core/licence/Licence.h"
#include "core/settings/PersonalData.h"
#include "platform/linux/LinuxDesktop.h"
#include "platform/wayland/WaylandWindows.h"

namespace ambrel {
namespace {

// Becomes a new run of the program.
void startAgain(const Surroundings& surroundings, const char* argument) {
  execl(surroundings.program.c_str(), "tilebay", argument, nullptr);
  logLine("cannot start " + surroundings.program.string() + " again");
}

// Deletes what the user keeps here no longer, and becomes a new run of the program that knows nothing of it.
void startWithout(const std::string& data, const Surroundings& surroundings) {
  const PersonalPlaces places{.data = surroundings.dataFolder,
                              .defaults = surroundings.defaultsFile,
                              .cache = surroundings.userHome.ownCache()};
  for (const auto& left : deleteFiles(filesOf(data, places))) logLine("cannot delete " + left.string());
  // Without anything the guide comes.
  const bool isFirstRun = data.empty();
  startAgain(surroundings, isFirstRun ? nullptr : "--settings");
}

}  // namespace
}  // namespace ambrel

int main(int argc, char** argv) {
  using namespace ambrel;
  returnLargeBlocks();
  const Environment environment = environmentOf([](const char* name) { return std::getenv(name); });

  const std::vector<std::string> arguments(argv + 1, argv + argc);
  const CommandLine commandLine = parseCommandLine(arguments);
  if (!commandLine.error.empty()) {
    std::fprintf(stderr, "tilebay: %s\n", commandLine.error.c_str());
    return 2;
  }
  if (commandLine.showsHelp || commandLine.showsVersion) {
    std::fputs(commandLine.showsHelp ? commandLineHelp().c_str() : "tilebay " AMBREL_VERSION "\n", stdout);
    return 0;
  }
  std::error_code error;
  const char* searchPath = std::getenv("PATH");
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
  const std::filesystem::path tool = toolOf(program, searchPath ? searchPath : "");
  if (commandLine.showsDoctor) {
    execl(tool.c_str(), "tilebayctl", "doctor", commandLine.asJSON ? "--json" : nullptr, nullptr);
    std::fputs("tilebay: its tool tilebayctl, which looks, is not installed\n", stderr);
    return 1;
  }
  // The toolkit ends the process with a signal when it finds no display; say it in words.
  const bool isNative = canHaveWaylandWindows(environment.waylandDisplay);
  if (!environment.hasDisplay || (environment.display.empty() && !environment.choosesPlatform && !isNative)) {
    std::fputs("tilebay: there is no display (DISPLAY is not set); script/run starts a virtual one\n", stderr);
    return 1;
  }

  // Drawn by the processor: a bar of this size costs a third of what a graphics stack does, in memory and at rest.
  if (!environment.choosesRenderer) QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
  // Choices of ours that the programs we start are not to inherit; what the user has set stays.
  std::map<const char*, QByteArray> before;
  const auto set = [&](const char* variable, const char* value) {
    before[variable] = qgetenv(variable);
    qputenv(variable, value);
  };
  const auto choose = [&](const char* variable, const char* value) {
    if (qEnvironmentVariableIsEmpty(variable)) set(variable, value);
  };
  // A compositor that lets a program place its windows is asked to; in any other session of Wayland they go through
  // XWayland. The toolkit takes the second where it lacks the plug-in of the first.
  if (!environment.choosesPlatform) set("QT_QPA_PLATFORM", isNative ? "wayland;xcb" : "xcb");
  // Where a window is, is what we say.
  choose("QT_WAYLAND_DISABLE_FIXED_POSITIONS", "1");
  // KWin starts again after a crash, and so do we.
  choose("QT_WAYLAND_RECONNECT", "1");
  // What changes at rest is a few kilobytes of pixels. Through the socket they cost less than shared memory, of which
  // each frame asks the server whether it is free again.
  choose("QT_XCB_NO_MITSHM", "1");
  // A wake-up costs less in the toolkit's own event loop than in GLib's.
  if (!environment.takesGTKTheme) choose("QT_NO_GLIB", "1");
  QQuickWindow::setDefaultAlphaBuffer(true);
  QApplication::setDesktopFileName(QStringLiteral("tilebay"));
  QApplication application(argc, argv);
  for (const auto& [variable, value] : before) value.isNull() ? qunsetenv(variable) : qputenv(variable, value);
  LongTexts longTexts;
  if (environment.hasLongTexts) QCoreApplication::installTranslator(&longTexts);
  QApplication::setApplicationName(QStringLiteral("tilebay"));
  QApplication::setApplicationDisplayName(QStringLiteral("Tilebay"));
  QApplication::setApplicationVersion(QStringLiteral(AMBREL_VERSION));
  // Closing the settings window does not end the bar.
  QApplication::setQuitOnLastWindowClosed(false);

  auto session = openSession();
  switch (session->start(commandLine.wish)) {
    case SessionRole::handedOver:
      return 0;
    case SessionRole::notAnswered:
      std::fputs("tilebay: a bar is running in this session, but it does not answer\n", stderr);
      return 1;
    case SessionRole::owner:
    case SessionRole::alone:
      break;
  }

  // There was nothing to quit.
  if (commandLine.wish && std::holds_alternative<wish::Quit>(*commandLine.wish)) return 0;

  Surroundings surroundings = environment.surroundings;
  surroundings.program = program;
  surroundings.licenceKey = licenceKey();
  surroundings.tool = tool;
  whenCompositorEnds([&] {
    // The next run takes its place. What the user keeps is written already.
    session.reset();
    if (waitForWaylandWindows(environment.waylandDisplay)) startAgain(surroundings, nullptr);
    _exit(1);
  });
  LinuxDesktop desktop(QApplication::platformName() == QLatin1String("xcb") ? environment.display : std::string(),
                       surroundings.dataFolder.parent_path(), surroundings.calendar, environment.zoneFile);
  const QuitSignals signals([] { QCoreApplication::exit(); });
  std::optional<std::string> deletion;
  int status = 0;
  {
    AppDelegate delegate(surroundings, desktop.seams());
    session->setWishHandler([&delegate](const Wish& wish) { delegate.carryOut(wish); });
    delegate.launch();
    if (commandLine.wish) delegate.carryOut(*commandLine.wish);
    status = QApplication::exec();
    session->setWishHandler({});
    deletion = delegate.deletion();
  }
  // The next run takes its place.
  session.reset();
  if (deletion) startWithout(*deletion, surroundings);
  return status;
}
