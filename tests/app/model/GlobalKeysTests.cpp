#include <QTest>

#include "app/model/GlobalKeys.h"
#include "tests/TemporaryFolder.h"
#include "tests/fakes/FakePlatform.h"

namespace ambrel {
namespace {

constexpr KeyCombination shelf{.key = 'v', .command = true, .option = true};

struct Keys {
  TemporaryFolder folder;
  UserDefaults defaults{folder / "defaults.json"};
  AppSettings settings{defaults};
  FakeHotKeys desktop;
  GlobalKeys keys{desktop, settings};
  QStringList answered;

  explicit Keys(std::optional<std::string> keeper = std::nullopt) {
    desktop.desktop = std::move(keeper);
    std::vector<AreaKey> all{{&setting::shelfKeys, [this] { answered << "shelf"; }, "--toggle-clipboard"},
                             {&setting::askKeys, [this] { answered << "ask"; }, "--toggle-assistant"}};
    for (const char digit : {'1', '2'})
      all.push_back({&setting::pinnedKeys, [this, digit] { answered << QString(QLatin1Char(digit)); },
                     std::string("--copy-pinned ") + digit, digit});
    keys.add(std::move(all));
  }
  KeyRow row(const QString& key) {
    for (int i = 0; i < keys.rows()->count(); ++i) {
      const auto row = keys.rows()->index(i, 0).data(keys.rows()->roleNames().key("row")).value<KeyRow>();
      if (row.key == key) return row;
    }
    return {};
  }
};

}  // namespace

class GlobalKeysTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void aRecordedKeyTakesTheOldOnesPlace() {
    Keys with;
    QCOMPARE(with.keys.rows()->count(), 3);
    with.keys.record("shelfKeys");
    QVERIFY2(!with.desktop.press(shelf), "while one is recorded, all are for the recorder");
    QVERIFY(with.keys.press(Qt::Key_Super_L, Qt::MetaModifier));
    QVERIFY(with.keys.press(Qt::Key_C, Qt::MetaModifier | Qt::ShiftModifier));
    QCOMPARE(with.row("shelfKeys").text, "Super+Shift+C");
    QVERIFY(with.desktop.press({.key = 'c', .command = true, .shift = true}));
    QVERIFY(!with.desktop.press(shelf));
    QCOMPARE(with.answered, QStringList{"shelf"});
    with.keys.reset("shelfKeys");
    QVERIFY(with.desktop.press(shelf));
    QVERIFY(with.row("shelfKeys").isStandard);
  }

  void whatCannotBeHadIsToldAndChangesNothing() {
    Keys with;
    with.desktop.takenByOthers = {{.key = 'x', .command = true}};
    with.keys.record("shelfKeys");
    const std::pair<int, Qt::KeyboardModifiers> presses[] = {
        {Qt::Key_B, Qt::MetaModifier | Qt::AltModifier},                        // asks Buddy
        {Qt::Key_2, Qt::MetaModifier | Qt::AltModifier | Qt::ControlModifier},  // a pinned clip
        {Qt::Key_X, Qt::MetaModifier},                                          // of another program
        {Qt::Key_V, Qt::ShiftModifier},                                         // could be typed
        {Qt::Key_F5, Qt::MetaModifier}};
    QStringList told;
    for (const auto& [key, held] : presses) {
      QVERIFY(with.keys.press(key, held));
      QVERIFY(with.row("shelfKeys").isRecording);
      told << with.row("shelfKeys").problem;
    }
    QCOMPARE(told,
             (QStringList{"Super+Alt+B is taken: Asks Buddy",
                          "Ctrl+Super+Alt+2 is taken: Copies pinned clip 1; the other digits copy the others",
                          "Another program has Super+X", "Hold Super, Alt or Control and press a letter or a digit",
                          "Hold Super, Alt or Control and press a letter or a digit"}));
    QVERIFY(with.keys.press(Qt::Key_Escape, Qt::NoModifier));
    QVERIFY(with.desktop.press(shelf));
    QVERIFY(!with.keys.press(Qt::Key_V, Qt::MetaModifier));
  }

  void theDigitsOfPinnedClipsCountThrough() {
    Keys with;
    with.keys.record("pinnedKeys");
    QVERIFY(with.keys.press(Qt::Key_7, Qt::MetaModifier));
    QVERIFY(with.desktop.press({.key = '2', .command = true}));
    QCOMPARE(with.answered, QStringList{"2"});
    with.keys.record("pinnedKeys");
    QVERIFY(with.keys.press(Qt::Key_Backspace, Qt::NoModifier));
    QVERIFY(!with.desktop.press({.key = '1', .command = true}));
    QCOMPARE(with.row("pinnedKeys").text, "");
  }

  void aDesktopThatKeepsItsKeysIsGivenLines() {
    Keys with("sway");
    QCOMPARE(with.keys.place(), "sway's configuration, ~/.config/sway/config");
    QCOMPARE(with.row("shelfKeys").binding, "bindsym Mod4+Mod1+v exec tilebay --toggle-clipboard");
    QCOMPARE(with.row("pinnedKeys").binding, "bindsym Ctrl+Mod4+Mod1+1 exec tilebay --copy-pinned 1");
    QCOMPARE(with.row("shelfKeys").problem, "");
    with.defaults.set("shelfKeys", DefaultsValue{std::string("Super+C")});
    with.settings.reload();
    QCOMPARE(with.row("shelfKeys").binding, "bindsym Mod4+c exec tilebay --toggle-clipboard");
  }

  void aChangeElsewhereIsFollowedAndAClashIsTold() {
    Keys with;
    with.defaults.set("askKeys", DefaultsValue{std::string("Super+Alt+V")});
    with.settings.reload();
    QCOMPARE(with.row("askKeys").problem, "The same key as: Opens the clipboard shelf");
    QVERIFY(with.desktop.press(shelf));
    QCOMPARE(with.answered, QStringList{"shelf"});
    with.defaults.set("shelfKeys", DefaultsValue{std::string()});
    with.settings.reload();
    QCOMPARE(with.row("askKeys").problem, "");
    QVERIFY(with.desktop.press(shelf));
    QCOMPARE(with.answered.last(), "ask");
  }
};

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::GlobalKeysTests)
#include "GlobalKeysTests.moc"
