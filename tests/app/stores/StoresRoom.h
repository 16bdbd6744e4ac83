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
                                                       .fetcher = fetcher,
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
  UserDefaults defaults{folder / "defaults.json"};
  QQmlEngine engine;
  Fetcher fetcher;
  FakeLauncher launcher;
  FakeShell shell;
  HeldWork work;
  QList<QUrl> opened;
  std::unique_ptr<StoresArea> area;
};

}  // namespace ambrel
