#pragma once
// The stores' area in a test's own folder.

#include <QQmlEngine>
#include <QTest>

#include "app/stores/StoresArea.h"
#include "core/base/Files.h"
#include "tests/TemporaryFolder.h"
#include "tests/fakes/FakeFolderWatch.h"
#include "tests/fakes/FakeLauncher.h"
#include "tests/fakes/FakeShell.h"
#include "tests/fakes/HeldWork.h"

namespace ambrel {

struct StoresRoom {
  void start() {
    area.reset();
    area =
        std::make_unique<StoresArea>(StoresArea::Seams{.engine = engine,
                                                       .documents = folder / "Ambrel",
                                                       .defaults = defaults,
                                                       .folderWatch = watch,
                                                       .downloadsWatch = downloadsWatch,
                                                       .fetcher = fetcher,
                                                       .launcher = launcher,
                                                       .background = work.background(),
                                                       .fileBackground = work.background(),
                                                       .calendar = Calendar("UTC", "en_US"),
                                                       .now = [this] { return now; },
                                                       .open =
                                                           [this](const QUrl& url) {
                                                             opened << url;
                                                             return true;
                                                           },
                                                       .showInFolder = [this](const QUrl& url) { shown << url; },
                                                       .downloads = [this] { return (folder / "Downloads").string(); },
                                                       .picture = [](const std::string&) { return QString(); }},
                                     shell);
    std::set<DockWidget> all;
    for (const DockWidget widget : allCases<DockWidget>()) all.insert(widget);
    area->widgetsChanged(all, true, {});
    work.letGo();
  }
  std::string file(const char* name) const { return readFile(folder / "Ambrel" / name).value_or("none"); }
  void write(const char* name, std::string_view text) {
    makeFolders(folder / "Ambrel");
    writeAtomically(folder / "Ambrel" / name, text);
  }

  TemporaryFolder folder;
  Instant now = *parseISO8601("2026-11-22T14:00:00Z");
  UserDefaults defaults{folder / "defaults.json"};
  QQmlEngine engine;
  FakeFolderWatch watch, downloadsWatch;
  Fetcher fetcher;
  FakeLauncher launcher;
  FakeShell shell;
  HeldWork work;
  QList<QUrl> opened, shown;
  std::unique_ptr<StoresArea> area;
};

}  // namespace ambrel
