#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QSignalSpy>
#include <QTest>

#include "app/context/WidgetContext.h"
#include "app/kit/LongTexts.h"
#include "app/model/SettingValue.h"
#include "app/panels/GalleryModel.h"
#include "tests/app/kit/Looks.h"
#include "tests/app/kit/Scene.h"
#include "tests/app/model/ProfilesRoom.h"

namespace ambrel {
namespace {

// The panels on models of their own, in a scene.
struct Stage : ProfilesRoom {
  GalleryModel gallery{model};
  AppSettings settings{defaults};
  WidgetContext context{model, settings};
  Scene scene;

  explicit Stage(Theme::Choice choice = Theme::Choice::Dark) {
    SettingValue::lend(scene.engine(), settings);
    scene.theme().setAlwaysReducesMotion(true);
    scene.theme().setChoice(choice);
  }

  // The scene must be closed before the models that it shows are destroyed.
  ~Stage() { scene.close(); }

  bool open(const QString& view, QVariantMap more = {}) {
    if (view == "CustomizeView") {
      more.insert("model", QVariant::fromValue(&model));
      more.insert("gallery", QVariant::fromValue(&gallery));
      more.insert("context", QVariant::fromValue(&context));
    }
    if (view == "SettingsView") {
      more.insert("settings", QVariant::fromValue(&settings));
    }
    if (!scene.loadFile("qrc:/qt/qml/Ambrel/Panels/" + view + ".qml", more)) return false;
    scene.root()->setSize({scene.root()->implicitWidth(), scene.root()->implicitHeight()});
    scene.window().resize(scene.root()->size().toSize());
    return true;
  }
  QQuickItem* labelled(const QString& label) { return ambrel::labelled(scene.root(), label); }
  bool click(const QString& label) { return ambrel::click(labelled(label)); }
  void type(const QString& text) {
    for (const QChar letter : text) QTest::keyClick(&scene.window(), letter.toLatin1());
  }
  void press(Qt::Key key, Qt::KeyboardModifiers with = {}) { QTest::keyClick(&scene.window(), key, with); }
};

// Rows of every panel and every page of the settings, under these names for what they are looked at in.
void addPanels(std::initializer_list<std::pair<const char*, Theme::Choice>> looks) {
  QTest::addColumn<QString>("view");
  QTest::addColumn<QString>("tab");
  QTest::addColumn<Theme::Choice>("choice");
  for (const auto& [look, choice] : looks) {
    for (const char* view : {"CustomizeView", "WelcomeView", "UpsellView"})
      QTest::addRow("%s, %s", view, look) << QString(view) << QString() << choice;
    for (const char* tab : {"general", "appearance", "tiles", "calendars", "buddy", "agents", "clipboard", "disk",
                            "privacy", "licence", "about"})
      QTest::addRow("settings, %s, %s", tab, look) << QString("SettingsView") << QString(tab) << choice;
  }
}

// The control of a row, which may be the item itself.
QQuickItem* firstControlIn(QQuickItem* item) {
  return firstShown(item, [](QQuickItem* each) { return each->activeFocusOnTab(); });
}

}  // namespace

class PanelTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void panelsLookRight_data() { addPanels({{"dark", Theme::Choice::Dark}, {"light", Theme::Choice::Light}}); }

  void panelsLookRight() {
    QFETCH(QString, view);
    QFETCH(QString, tab);
    QFETCH(Theme::Choice, choice);
    Stage stage(choice);
    QVERIFY(stage.open(view, tab.isEmpty() ? QVariantMap() : QVariantMap{{"tab", tab}}));
    QCOMPARE(faultsOf(stage.scene), QStringList());
    int texts = 0;
    visitShown(stage.scene.root(), [&](QQuickItem* item) { texts += item->inherits("QQuickText"); });
    QVERIFY(texts > 6);
  }

  // As a language with long words has it, at one and a half times the size: what does not fit is broken or elided.
  void longAndLargeTextsHaveRoom_data() { addPanels({{"long", Theme::Choice::Dark}}); }

  void longAndLargeTextsHaveRoom() {
    QFETCH(QString, view);
    QFETCH(QString, tab);
    LongTexts longTexts;
    QVERIFY(QCoreApplication::installTranslator(&longTexts));
    Stage stage;
    stage.scene.theme().setTextScale(1.5);
    QVERIFY(stage.open(view, tab.isEmpty() ? QVariantMap() : QVariantMap{{"tab", tab}}));
    QStringList faults = faultsOf(stage.scene);
    // Beside one another, and not over one another.
    visitShown(stage.scene.root(), [&](QQuickItem* item) {
      if (!item->inherits("QQuickText") || item->property("text").toString().isEmpty()) return;
      const QRectF place = item->mapRectToItem(stage.scene.root(), QRectF({}, item->size()));
      if (place.left() < 0 || place.right() > stage.scene.root()->width()) faults << item->property("text").toString();
    });
    QCOMPARE(faults, QStringList());
  }

  void everyTitleOfTheGalleryIsWhole() {
    Stage stage;
    QVERIFY(stage.open("CustomizeView"));
    // All of it at once.
    stage.scene.root()->setHeight(6000);
    stage.scene.window().resize(760, 6000);
    QStringList titles, cut;
    for (const DockWidget widget : allCases<DockWidget>()) titles << QString::fromStdString(std::string(title(widget)));
    int seen = 0;
    QTRY_VERIFY((seen = 0,
                 visitShown(stage.scene.root(),
                            [&](QQuickItem* item) {
                              if (!item->inherits("QQuickText") || !titles.contains(item->property("text").toString()))
                                return;
                              ++seen;
                              if (item->property("truncated").toBool()) cut << item->property("text").toString();
                            }),
                 seen >= titles.size()));
    QCOMPARE(cut, QStringList());
  }

  void galleryTogglesByClickAndKey() {
    Stage stage;
    QVERIFY(stage.open("CustomizeView"));
    QVERIFY(stage.model.isOnBar("cpu"));
    QVERIFY(stage.click("CPU"));
    QVERIFY(!stage.model.isOnBar("cpu"));
    stage.labelled("CPU")->forceActiveFocus();
    stage.press(Qt::Key_Space);
    QVERIFY(stage.model.isOnBar("cpu"));
  }

  void searchNarrowsTheGallery() {
    Stage stage;
    QVERIFY(stage.open("CustomizeView"));
    QVERIFY(stage.labelled("CPU"));
    stage.scene.root()->forceActiveFocus();
    stage.type("wind");
    QCOMPARE(stage.gallery.query(), QString("wind"));
    QVERIFY(!stage.labelled("CPU"));
    QTRY_VERIFY(stage.labelled("Wind"));
    // A panel that closes forgets what was searched.
    stage.scene.root()->setProperty("open", false);
    QCOMPARE(stage.gallery.query(), QString());
  }

  void profilesAreChosenAddedAndDeleted() {
    Stage stage;
    QVERIFY(stage.open("CustomizeView"));
    QCOMPARE(stage.model.activeProfile()->name, std::string("Laptop"));
    QVERIFY(stage.click("Desk, 7 tiles"));
    QCOMPARE(stage.model.activeProfile()->name, std::string("Desk"));
    QVERIFY(stage.click("Auto (by display)"));
    QCOMPARE(stage.model.activeProfile()->name, std::string("Laptop"));

    QVERIFY(stage.click("New profile"));
    stage.type("train");
    stage.press(Qt::Key_Return);
    QCOMPARE(stage.model.profiles().size(), 3u);
    // The displays go on choosing.
    QCOMPARE(stage.model.activeProfile()->name, std::string("Laptop"));

    stage.labelled("train, 5 tiles")->forceActiveFocus();
    stage.press(Qt::Key_Delete);
    // It is asked, and the answer that is ready keeps the profile.
    stage.press(Qt::Key_Return);
    QCOMPARE(stage.model.profiles().size(), 3u);
    stage.press(Qt::Key_Delete);
    stage.scene.grab();
    QVERIFY(stage.click("Delete"));
    QCOMPARE(stage.model.profiles().size(), 2u);
  }

  void theMenuOfAProfileChangesIt() {
    Stage stage;
    QVERIFY(stage.open("CustomizeView"));
    const auto choose = [&](const char* profile, const char* row) {
      stage.labelled(profile)->forceActiveFocus();
      stage.press(Qt::Key_Menu);
      // Rows are laid out when a picture is drawn.
      stage.scene.grab();
      return stage.click(row);
    };
    QVERIFY(choose("Desk, 7 tiles", "Duplicate"));
    QCOMPARE(stage.model.profiles().back().name, std::string("Desk 2"));
    QVERIFY(choose("Desk 2, 7 tiles", "With an external display"));
    QCOMPARE(stage.model.profiles()[2].trigger, std::optional(DisplayContext::external));
    QVERIFY(choose("Desk 2, 7 tiles", "Move Up"));
    QCOMPARE(stage.model.profiles()[1].name, std::string("Desk 2"));
    QVERIFY(stage.labelled("Desk 2, 7 tiles")->hasActiveFocus());
    stage.press(Qt::Key_Up, Qt::ControlModifier);
    QCOMPARE(stage.model.profiles()[0].name, std::string("Desk 2"));
  }

  void aProfileIsRenamed() {
    Stage stage;
    QVERIFY(stage.open("CustomizeView"));
    stage.labelled("Desk, 7 tiles")->forceActiveFocus();
    stage.press(Qt::Key_F2);
    stage.type("my office");
    stage.press(Qt::Key_Delete);
    stage.press(Qt::Key_Return);
    QCOMPARE(stage.model.profiles()[1].name, std::string("my office"));
    QVERIFY2(stage.model.pinnedProfileID() == std::nullopt, "Return has named it, and not chosen it");

    // By its menu, and a change of mind.
    QTest::mouseMove(&stage.scene.window(), stage.scene.centerOf(stage.labelled("my office, 7 tiles")));
    QTRY_VERIFY(stage.labelled("Change my office"));
    // The button has come with the pointer: a picture is drawn when it has its place.
    stage.scene.grab();
    QVERIFY(stage.click("Change my office"));
    stage.scene.grab();
    QVERIFY(stage.click("Rename"));
    stage.type("elsewhere");
    stage.press(Qt::Key_Escape);
    QCOMPARE(stage.model.profiles()[1].name, std::string("my office"));
    QQuickItem* row = stage.labelled("my office, 7 tiles");
    QVERIFY(row);
    QVERIFY(row->hasActiveFocus());
  }

  void tilesExistWhereTheyCanBeSeen() {
    Stage stage;
    QVERIFY(stage.open("CustomizeView"));
    const int most = 40;
    QVERIFY(stage.gallery.rows()->count() > 8);
    // Arrows reach them all, from the search field to the last.
    stage.scene.root()->forceActiveFocus();
    stage.press(Qt::Key_Down);
    QString last;
    for (int i = 0; i < 105; ++i) {
      QQuickItem* item = stage.scene.window().activeFocusItem();
      QVERIFY(item && item->property("label").toString() != last);
      last = item->property("label").toString();
      QVERIFY2(stage.gallery.rows()->count() < most, qPrintable(last));
      stage.press(Qt::Key_Right);
    }
    QCOMPARE(last, QString("Mic Mute"));
    stage.press(Qt::Key_Up);
    QVERIFY(stage.scene.window().activeFocusItem()->property("label").toString() != last);
    // None are left when nobody looks.
    stage.scene.root()->setProperty("open", false);
    QTRY_COMPARE(stage.gallery.rows()->count(), 0);
  }

  void switchesAreWritten() {
    const struct {
      const char *tab, *label, *property;
    } rows[] = {{"general", "Always show the bar", "barAlwaysVisible"},
                {"general", "Open the clipboard shelf by hovering", "shelfOpensOnHover"},
                {"tiles", "Show the last copy on the bar", "clipboardPreviewInBar"},
                {"agents", "Follow AI agents", "agentsEnabled"},
                {"buddy", "Only agents out of view", "buddyOnlyUnfocusedAgents"},
                {"buddy", "Limits", "buddyCategories"},
                {"clipboard", "Forget secrets soon", "clipboardForgetSensitive"}};
    for (const auto& row : rows) {
      Stage stage;
      QVERIFY(stage.open("SettingsView", {{"tab", row.tab}}));
      const QVariant before = stage.settings.property(row.property);
      QVERIFY(before.isValid() && stage.click(row.label));
      const QVariant after = stage.settings.property(row.property);
      QVERIFY2(after != before, row.label);
      QCOMPARE(AppSettings(stage.defaults).property(row.property), after);
      QVERIFY(stage.click(row.label));
      QVERIFY2(stage.settings.property(row.property) != after, row.label);
    }
  }

  void choicesAndNumbersKeepToTheirSetting() {
    const struct {
      const char *tab, *label;
      Qt::Key key;
      const char* property;
      QVariant wanted;
    } rows[] = {{"general", "Edge of the screen", Qt::Key_Right, "dockEdge", "right"},
                {"appearance", "Theme", Qt::Key_Right, "theme", "dark"},
                {"appearance", "Motion", Qt::Key_Right, "reduceMotion", true},
                {"buddy", "Buddy speaks up", Qt::Key_Right, "buddyLevel", "important"},
                {"buddy", "Quiet from", Qt::Key_Up, "quietStartHour", 23.0},
                {"buddy", "Quiet to", Qt::Key_Down, "quietEndHour", 7.0},
                {"clipboard", "Items to keep", Qt::Key_Right, "clipboardLimit", 1000.0},
                {"clipboard", "Forget after", Qt::Key_Right, "clipboardMaxAgeDays", 1.0}};
    for (const auto& row : rows) {
      Stage stage;
      QVERIFY(stage.open("SettingsView", {{"tab", row.tab}}));
      QVERIFY2(stage.labelled(row.label), row.label);
      QQuickItem* control = firstControlIn(stage.labelled(row.label));
      const QVariant before = stage.settings.property(row.property);
      control->forceActiveFocus();
      stage.press(row.key);
      QCOMPARE(stage.settings.property(row.property), row.wanted);
      // A change from elsewhere is shown.
      const QString spoken = spokenName(control);
      stage.settings.setProperty(row.property, before);
      QVERIFY2((spokenName(control) != spoken) == (before != row.wanted), row.label);
    }
    // After the last hour comes the first again.
    Stage stage;
    stage.settings.set(setting::quietStartHour, 23);
    QVERIFY(stage.open("SettingsView", {{"tab", "buddy"}}));
    firstControlIn(stage.labelled("Quiet from"))->forceActiveFocus();
    stage.press(Qt::Key_Up);
    QCOMPARE(stage.settings.quietStartHour(), 0);
  }

  void everySettingIsOnThePageThatItsTableNames() {
    // Of models that have a row of their own, which this stage is without.
    const QSet<QString> ofModels{"claudeBudgetTokens", "calendarPlaces", "calendarsHidden",
                                 "askUsesModel",       "modelName",      "modelServerURL"};
    Stage stage;
    for (const QString page : {"general", "appearance", "tiles", "calendars", "buddy", "agents", "clipboard", "disk"}) {
      QSet<QString> offered, wanted;
      for (const QString& key : stage.settings.keysOf(page) + stage.settings.keysOf(page == "tiles" ? "panel" : ""))
        if (findSetting(key.toStdString())->type != SettingType::keys && !ofModels.contains(key)) wanted << key;
      QVERIFY(stage.open("SettingsView", {{"tab", page}}));
      visitShown(stage.scene.root(), [&](QQuickItem* item) {
        if (const QString key = item->property("key").toString(); !key.isEmpty()) offered << key;
      });
      // Others are bound to the settings themselves.
      QFile source(":/qt/qml/Ambrel/Panels/Settings" + page.left(1).toUpper() + page.mid(1) + ".qml");
      QVERIFY(source.open(QFile::ReadOnly));
      static const QRegularExpression bound("settings\\.(\\w+) = ");
      for (auto found = bound.globalMatch(QString::fromUtf8(source.readAll())); found.hasNext();)
        offered << found.next().captured(1);
      QCOMPARE(offered - wanted, QSet<QString>());
      QCOMPARE(wanted - offered, QSet<QString>());
    }
  }

  void theSearchGoesOverAllPages() {
    Stage stage;
    QVERIFY(stage.open("SettingsView"));
    stage.scene.root()->forceActiveFocus();
    stage.press(Qt::Key_F, Qt::ControlModifier);
    stage.type("hours qui");
    QVERIFY(stage.labelled("Quiet hours"));
    QVERIFY(!stage.labelled("Theme"));
    QVERIFY(!stage.labelled("Always show the bar"));
    // Drawn, the rows have their places.
    stage.scene.grab();
    QVERIFY(stage.click("Quiet hours"));
    QVERIFY(!stage.settings.quietHoursOn());
    // By the words of the table, too, and what is not on the page of its name.
    stage.press(Qt::Key_Escape);
    stage.type("waterGoal");
    QVERIFY(stage.labelled("Glasses of water a day"));
    stage.press(Qt::Key_Escape);
    QVERIFY(stage.labelled("Always show the bar"));
  }

  void tabsAskToBeChosen() {
    Stage stage;
    QVERIFY(stage.open("SettingsView"));
    QSignalSpy chosen(stage.scene.root(), SIGNAL(tabChosen(QString)));
    QVERIFY(stage.click("Agents"));
    QCOMPARE(chosen.count(), 1);
    QCOMPARE(chosen.first().first().toString(), QString("agents"));
    stage.scene.root()->setProperty("tab", "agents");
    QVERIFY(stage.labelled("Follow AI agents"));
    // A name that is no tab shows the first.
    stage.scene.root()->setProperty("tab", "nonsense");
    QVERIFY(stage.labelled("Always show the bar"));
  }

  void everyPanelClosesByItsButtonAndByEscape() {
    const std::pair<const char*, const char*> rows[] = {
        {"CustomizeView", "Done"}, {"SettingsView", "Close"}, {"WelcomeView", "Start"}, {"UpsellView", "Not now"}};
    for (const auto& [view, button] : rows) {
      Stage stage;
      // The guide's last page.
      QVERIFY(stage.open(view, view == std::string("WelcomeView") ? QVariantMap{{"page", 4}} : QVariantMap()));
      QSignalSpy closing(stage.scene.root(), SIGNAL(closeRequested()));
      QVERIFY2(stage.click(button), button);
      QCOMPARE(closing.count(), 1);
      stage.scene.root()->forceActiveFocus();
      stage.press(Qt::Key_Escape);
      QCOMPARE(closing.count(), 2);
    }
  }

  void rowsFollowTheActiveProfile() {
    Stage stage;
    stage.gallery.look({0, 0, 550, 10000}, 1);
    const auto marked = [&](const char* widget) {
      const auto& rows = stage.gallery.rows()->rows();
      const auto row = std::ranges::find(rows, QString(widget), &GalleryRow::widget);
      return row != rows.end() && row->isOnBar;
    };
    QVERIFY(marked("clock"));
    QVERIFY(!marked("battery"));
    QSignalSpy resets(stage.gallery.rows(), &QAbstractItemModel::modelReset);
    stage.model.setPinnedProfileID(stage.model.profiles()[1].id);
    QVERIFY(marked("battery"));
    stage.gallery.toggle("battery");
    QVERIFY(!marked("battery"));
    stage.model.undo();
    QVERIFY(marked("battery"));
    QCOMPARE(resets.count(), 0);
  }

  void whatTheLicenceDeniesShowsTheUpsell() {
    Stage stage;
    int shown = 0;
    stage.license.showUpsell = [&] { ++shown; };
    stage.license.setCheck([](ProFeature feature) { return feature != ProFeature::agentTracking; });
    stage.gallery.toggle("agents");
    QCOMPARE(shown, 1);
    QVERIFY(!stage.model.isOnBar("agents"));
    stage.gallery.toggle("battery");
    QCOMPARE(shown, 1);
    QVERIFY(stage.model.isOnBar("battery"));
    stage.license.setCheck({});
    stage.gallery.toggle("agents");
    QVERIFY(stage.model.isOnBar("agents"));
    // One that is on the bar can be taken off whatever the licence says.
    stage.license.setCheck([](ProFeature) { return false; });
    stage.gallery.toggle("agents");
    QCOMPARE(shown, 1);
    QVERIFY(!stage.model.isOnBar("agents"));
  }
};

}  // namespace ambrel

QTEST_MAIN(ambrel::PanelTests)
#include "PanelTests.moc"
