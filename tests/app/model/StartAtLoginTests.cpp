#include <QtTest>

#include "app/model/StartAtLogin.h"
#include "core/base/Files.h"
#include "core/workspace/Autostart.h"
#include "tests/TemporaryFolder.h"

namespace ambrel {

class StartAtLoginTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void isWhatTheUsersEntrySaysElseTheInstalledOne() {
    TemporaryFolder folder;
    const auto own = autostartFile(folder.path()), installed = folder / "installed.desktop";
    const auto model = [&] { return StartAtLogin(folder.path(), installed, "/usr/bin/tilebay").isOn(); };
    QVERIFY(!model());
    writeAtomically(installed, autostartEntry("/usr/bin/tilebay"));
    QVERIFY(model());
    makeFolders(own.parent_path());
    writeAtomically(own, noAutostartEntry());
    QVERIFY(!model());
  }

  void theSwitchLeavesNoEntryThatIsNotNeeded() {
    TemporaryFolder folder;
    const auto own = autostartFile(folder.path()), installed = folder / "installed.desktop";
    for (const bool isInstalled : {false, true}) {
      if (isInstalled) writeAtomically(installed, autostartEntry("/usr/bin/tilebay"));
      StartAtLogin model(folder.path(), installed, "/usr/bin/tilebay");
      QCOMPARE(model.isOn(), isInstalled);
      model.setOn(!isInstalled);
      QCOMPARE(model.isOn(), !isInstalled);
      QVERIFY(std::filesystem::exists(own));
      model.setOn(isInstalled);
      QCOMPARE(model.isOn(), isInstalled);
      QVERIFY(!std::filesystem::exists(own));
    }
  }
};

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::StartAtLoginTests)
#include "StartAtLoginTests.moc"
