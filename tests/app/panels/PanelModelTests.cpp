#include <QSignalSpy>
#include <QTest>

#include "app/panels/GalleryModel.h"
#include "tests/TemporaryFolder.h"

namespace ambrel {
namespace {

struct Fixture {
  TemporaryFolder folder;
  UserDefaults defaults{folder / "defaults.json"};
  LicenseManager license;
  AppModel model{folder / "profiles.json", defaults, license, [] { return std::vector<DisplaySnapshot>(); }};
  GalleryModel gallery{model};

  QStringList shown() const {
    QStringList names;
    for (GalleryGroup* group : gallery.groups())
      for (const GalleryRow& row : group->rows()->rows()) names << row.widget;
    return names;
  }
};

}  // namespace

class PanelModelTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void aQueryLeavesWhatItFinds() {
    Fixture f;
    QCOMPARE(f.shown().size(), qsizetype(allCases<DockWidget>().size()));
    QSignalSpy changed(&f.gallery, &GalleryModel::changed);
    f.gallery.setQuery("CLIPBOARD");
    QVERIFY(f.shown().contains("clipboard") && !f.shown().contains("cpu"));
    f.gallery.setQuery("no such thing anywhere");
    QVERIFY(f.gallery.isEmpty() && f.shown().isEmpty());
    f.gallery.setQuery("");
    QVERIFY(!f.gallery.isEmpty());
    QCOMPARE(changed.count(), 3);
  }

  void togglingAddsAndRemoves() {
    Fixture f;
    QVERIFY(f.model.isOnBar("clock"));
    f.gallery.toggle("clock");
    QVERIFY(!f.model.isOnBar("clock"));
    f.gallery.toggle("clock");
    QVERIFY(f.model.isOnBar("clock"));
    QCOMPARE(f.model.activeProfile()->items.back().widget, std::optional<std::string>("clock"));
    const auto before = f.model.profiles();
    for (const char* none : {"nothing", ""}) f.gallery.toggle(none);
    QVERIFY(f.model.profiles() == before);
  }

  void rowsFollowTheActiveProfile() {
    Fixture f;
    const auto marked = [&](const char* widget) {
      for (GalleryGroup* group : f.gallery.groups())
        for (const GalleryRow& row : group->rows()->rows())
          if (row.widget == QLatin1String(widget)) return row.isOnBar;
      return false;
    };
    QVERIFY(marked("clock"));
    QVERIFY(!marked("battery"));
    std::vector<std::unique_ptr<QSignalSpy>> resets;
    for (GalleryGroup* group : f.gallery.groups())
      resets.push_back(std::make_unique<QSignalSpy>(group->rows(), &QAbstractItemModel::modelReset));
    f.model.setPinnedProfileID(f.model.profiles()[1].id);
    QVERIFY(marked("battery"));
    f.gallery.toggle("battery");
    QVERIFY(!marked("battery"));
    for (const auto& reset : resets) QCOMPARE(reset->count(), 0);
  }

  void whatTheLicenceDeniesShowsTheUpsell() {
    Fixture f;
    int shown = 0;
    f.license.showUpsell = [&] { ++shown; };
    f.license.setCheck([](ProFeature feature) { return feature != ProFeature::agentTracking; });
    f.gallery.toggle("agents");
    QCOMPARE(shown, 1);
    QVERIFY(!f.model.isOnBar("agents"));
    f.gallery.toggle("battery");
    QCOMPARE(shown, 1);
    QVERIFY(f.model.isOnBar("battery"));
    f.license.setCheck({});
    f.gallery.toggle("agents");
    QVERIFY(f.model.isOnBar("agents"));
    // One that is on the bar can be taken off whatever the licence says.
    f.license.setCheck([](ProFeature) { return false; });
    f.gallery.toggle("agents");
    QCOMPARE(shown, 1);
    QVERIFY(!f.model.isOnBar("agents"));
  }
};

}  // namespace ambrel

QTEST_MAIN(ambrel::PanelModelTests)
#include "PanelModelTests.moc"
