#include <QSignalSpy>
#include <QTest>

#include "app/kit/Tips.h"
#include "tests/app/kit/Scene.h"

namespace ambrel {

static QString page(const QString& control) {
  return QStringLiteral(
             "Item { id: page; width: 300; height: 200; property int count: 0; property var last\n"
             "function note(value) { count += 1; last = value }\n%1 }")
      .arg(control);
}

// Every control by keyboard and by pointer. Each page counts what it was asked in `count` and keeps it in `last`.
class ControlTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void keys() {
    const char* button = "Button { focus: true; text: 'Go'; onClicked: page.note('go') }";
    const char* segments =
        "Segments { focus: true; options: ['a', 'b', 'c']; current: 1; onChosen: i => page.note(i) }";
    const char* slider =
        "Slider { focus: true; from: 60; to: 100; stepSize: 2; value: 80; onMoved: v => page.note(v) }";
    const struct {
      const char *what, *control;
      int key;
      QVariant wanted;
    } rows[] = {
        {"button by space", button, Qt::Key_Space, "go"},
        {"button by return", button, Qt::Key_Return, "go"},
        {"button by enter", button, Qt::Key_Enter, "go"},
        {"icon button", "IconButton { focus: true; label: 'Go'; onClicked: page.note('go') }", Qt::Key_Return, "go"},
        {"link", "LinkButton { focus: true; text: 'Go'; onClicked: page.note('go') }", Qt::Key_Return, "go"},
        {"chip", "Chip { focus: true; text: 'Go'; onClicked: page.note('go') }", Qt::Key_Space, "go"},
        {"switch off to on", "Switch { focus: true; label: 'It'; onToggled: on => page.note(on) }", Qt::Key_Space,
         true},
        {"switch on to off", "Switch { focus: true; checked: true; label: 'It'; onToggled: on => page.note(on) }",
         Qt::Key_Return, false},
        {"check box", "CheckBox { focus: true; label: 'It'; onToggled: on => page.note(on) }", Qt::Key_Space, true},
        {"partly chosen check box",
         "CheckBox { focus: true; checkState: Qt.PartiallyChecked; label: 'It'; onToggled: on => page.note(on) }",
         Qt::Key_Space, true},
        {"segments to the right", segments, Qt::Key_Right, 2},
        {"segments to the left", segments, Qt::Key_Left, 0},
        {"segments at the end",
         "Segments { focus: true; options: ['a']; onChosen: i => page.note(i) }",
         Qt::Key_Right,
         {}},
        {"slider up", slider, Qt::Key_Right, 82.0},
        {"slider down", slider, Qt::Key_Down, 78.0},
        {"slider by a page", slider, Qt::Key_PageUp, 100.0},
        {"slider to its start", slider, Qt::Key_Home, 60.0},
        {"menu row", "MenuRow { focus: true; text: 'Go'; onClicked: page.note('go') }", Qt::Key_Return, "go"},
        {"list row", "ListRow { focus: true; title: 'Go'; onClicked: page.note('go') }", Qt::Key_Return, "go"},
        {"list row that is only read",
         "ListRow { focus: true; isPressable: false; onClicked: page.note('go') }",
         Qt::Key_Return,
         {}},
        {"tile by return", "TileFrame { focus: true; name: 'Go'; onClicked: page.note('go') }", Qt::Key_Return, "go"},
        {"tile by space", "TileFrame { focus: true; name: 'Go'; onClicked: page.note('go') }", Qt::Key_Space, "go"},
        {"field", "Field { focus: true; hint: 'It'; text: 'abc'; onAccepted: page.note(text) }", Qt::Key_Return, "abc"},
        {"another key", button, Qt::Key_X, {}},
        {"disabled", "Button { enabled: false; focus: true; onClicked: page.note('go') }", Qt::Key_Return, {}}};
    for (const auto& [what, control, key, wanted] : rows) {
      Scene scene;
      QVERIFY(scene.load(page(control)));
      QTest::keyClick(&scene.window(), static_cast<Qt::Key>(key));
      QVERIFY2(scene.root()->property("count").toInt() == wanted.isValid(), what);
      QVERIFY2(scene.root()->property("last") == wanted, what);
    }
  }

  void clicks() {
    const char* row =
        "ListRow { width: 200; title: 'Row'; onClicked: page.note('row')\n"
        "Button { text: 'Inner'; onClicked: page.note('inner') } }";
    const struct {
      const char* control;
      QPoint at;
      QVariant wanted;
    } rows[] = {{"Button { text: 'Go'; onClicked: page.note('go') }", {10, 10}, "go"},
                {"Button { text: 'Go'; onClicked: page.note('go') }", {280, 10}, {}},
                {"Button { enabled: false; text: 'Go'; onClicked: page.note('go') }", {10, 10}, {}},
                {"Switch { label: 'It'; onToggled: on => page.note(on) }", {10, 10}, true},
                {"Segments { options: ['aaaa', 'bbbb']; onChosen: i => page.note(i) }", {80, 16}, 1},
                {"Slider { width: 216; onMoved: v => page.note(v) }", {108, 12}, 50.0},
                {"TileFrame { name: 'Go'; onClicked: page.note('go') }", {50, 30}, "go"},
                {row, {180, 16}, "inner"},
                {row, {40, 22}, "row"},
                {"ListRow { width: 200; isPressable: false; onClicked: page.note('go') }", {40, 22}, {}}};
    for (const auto& [control, at, wanted] : rows) {
      Scene scene;
      QVERIFY(scene.load(page(control)));
      QTest::mouseClick(&scene.window(), Qt::LeftButton, {}, at);
      QCOMPARE(scene.root()->property("count").toInt(), wanted.isValid() ? 1 : 0);
      QVERIFY2(scene.root()->property("last") == wanted, control);
    }
  }

  void tabReachesEveryControl() {
    Scene scene;
    QVERIFY(scene.load(
        "Column { Button { objectName: 'a'; text: 'a' } Switch { objectName: 'b' } CheckBox { objectName: 'c' }\n"
        "Segments { objectName: 'd'; options: ['x'] } Slider { objectName: 'e' } Field { objectName: 'f' }\n"
        "Chip { objectName: 'g'; text: 'g' } TileFrame { objectName: 'h'; name: 'h' }\n"
        "Button { objectName: 'off'; text: 'off'; enabled: false } ListRow { objectName: 'i'; title: 'i' } }"));
    QStringList reached;
    for (int i = 0; i < 9; ++i) {
      QTest::keyClick(&scene.window(), Qt::Key_Tab);
      QQuickItem* item = scene.window().activeFocusItem();
      while (item && item->objectName().isEmpty()) item = item->parentItem();
      reached << (item ? item->objectName() : QString("nothing"));
    }
    QCOMPARE(reached.join(""), QString("abcdefghi"));
  }

  void everyControlHasANameAndARole() {
    const std::pair<const char*, QAccessible::Role> rows[] = {
        {"Button { text: 'It' }", QAccessible::Button},     {"IconButton { label: 'It' }", QAccessible::Button},
        {"Switch { label: 'It' }", QAccessible::CheckBox},  {"CheckBox { label: 'It' }", QAccessible::CheckBox},
        {"Slider { label: 'It' }", QAccessible::Slider},    {"MenuRow { text: 'It' }", QAccessible::MenuItem},
        {"ListRow { title: 'It' }", QAccessible::ListItem}, {"TileFrame { name: 'It' }", QAccessible::Button},
        {"Pill { text: 'It' }", QAccessible::StaticText},   {"Ring { figure: 'It' }", QAccessible::ProgressBar}};
    QAccessible::setActive(true);
    for (const auto& [control, role] : rows) {
      Scene scene;
      QVERIFY(scene.load(control));
      QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(scene.root());
      QVERIFY2(spoken && spoken->role() == role, control);
      QCOMPARE(spoken->text(QAccessible::Name), QString("It"));
    }
  }

  void aPressIsOfferedWhereItDoesSomething() {
    QAccessible::setActive(true);
    for (const char* kind : {"ListRow", "TileFrame"})
      for (const bool isPressable : {true, false}) {
        Scene scene;
        QVERIFY(scene.load(QStringLiteral("%1 { isPressable: %2 }").arg(kind, isPressable ? "false" : "true")));
        scene.root()->setProperty("isPressable", isPressable);
        QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(scene.root());
        const QStringList actions = spoken->actionInterface()->actionNames();
        QCOMPARE(actions.contains(QAccessibleActionInterface::pressAction()), isPressable);
      }
  }

  void menuWalks() {
    Scene scene;
    QVERIFY(scene.load(page(
        "Menu { objectName: 'menu'; focus: true; onCloseRequested: page.note('closed')\n"
        "MenuRow { objectName: 'a'; text: 'a' } MenuRule {} MenuRow { objectName: 'b'; text: 'b'; enabled: false }\n"
        "MenuRow { objectName: 'c'; text: 'c' } }")));
    QMetaObject::invokeMethod(scene.find("menu"), "focusFirst");
    const auto focused = [&] { return scene.window().activeFocusItem()->objectName(); };
    QCOMPARE(focused(), QString("a"));
    QTest::keyClick(&scene.window(), Qt::Key_Down);
    QCOMPARE(focused(), QString("c"));
    QTest::keyClick(&scene.window(), Qt::Key_Up);
    QCOMPARE(focused(), QString("a"));
    QTest::keyClick(&scene.window(), Qt::Key_Escape);
    QCOMPARE(scene.root()->property("last").toString(), QString("closed"));
  }

  void theRingShowsForTheKeyboardAlone() {
    Scene scene;
    QVERIFY(
        scene.load(page("Button { objectName: 'one'; focus: true; text: 'Go' }\n"
                        "Button { objectName: 'two'; y: 50; text: 'Stop' }")));
    const auto ringed = [&](const char* name) {
      for (QQuickItem* child : scene.find(QLatin1String(name))->childItems())
        if (child->inherits("QQuickRectangle") && child->isVisible() && child->x() < 0) return true;
      return false;
    };
    QVERIFY(scene.find("one")->hasActiveFocus());
    QVERIFY2(!ringed("one"), "nobody has touched a key yet");
    QTest::keyClick(&scene.window(), Qt::Key_Tab);
    QVERIFY(ringed("two"));
    QTest::mouseClick(&scene.window(), Qt::LeftButton, {}, {150, 90});
    QVERIFY(scene.find("two")->hasActiveFocus());
    QVERIFY(!ringed("two"));
  }

  void aFieldClearsBeforeItsPanelCloses() {
    Scene scene;
    QVERIFY(scene.load(page(
        "Popover { objectName: 'panel'; focus: true; width: 280; height: 180; onCloseRequested: page.note('closed')\n"
        "Field { objectName: 'field'; focus: true; isSearch: true } }")));
    for (const char key : {'a', 'b'}) QTest::keyClick(&scene.window(), key);
    QCOMPARE(scene.find("field")->property("text").toString(), QString("ab"));
    QTest::keyClick(&scene.window(), Qt::Key_Escape);
    QCOMPARE(scene.find("field")->property("text").toString(), QString());
    QCOMPARE(scene.root()->property("count").toInt(), 0);
    QTest::keyClick(&scene.window(), Qt::Key_Escape);
    QCOMPARE(scene.root()->property("count").toInt(), 1);
    QQuickItem* panel = scene.find("panel");
    panel->setProperty("open", false);
    QTRY_VERIFY(!panel->isVisible());
    panel->setProperty("open", true);
    QTRY_COMPARE(panel->opacity(), 1.0);
  }

  void aNewMessageTakesTheOldOnesPlace() {
    Scene scene;
    QVERIFY(scene.load(
        page("Toast { objectName: 'toast'; onClosed: page.note('closed'); onActionChosen: page.note('chosen') }")));
    QQuickItem* toast = scene.find("toast");
    QVERIFY(!toast->isVisible());
    const auto show = [&](const char* title) {
      QMetaObject::invokeMethod(toast, "show", Q_ARG(QString, title), Q_ARG(QString, ""), Q_ARG(QString, "trash.fill"),
                                Q_ARG(QString, "Undo"));
    };
    show("First");
    show("Second");
    QVERIFY(toast->isVisible());
    QCOMPARE(toast->property("title").toString(), QString("Second"));
    QMetaObject::invokeMethod(toast, "hide");
    QCOMPARE(scene.root()->property("last").toString(), QString("closed"));
    QTRY_VERIFY(!toast->isVisible());
  }

  void scrollViewFollowsTheKeyboard() {
    Scene scene;
    QVERIFY(scene.load(
        "ScrollView { width: 200; height: 100; Column { Repeater { model: 20; Button { text: 'Row ' + index } } } }"));
    QCOMPARE(scene.root()->property("contentY").toReal(), 0.0);
    for (int i = 0; i < 10; ++i) QTest::keyClick(&scene.window(), Qt::Key_Tab);
    QQuickItem* item = scene.window().activeFocusItem();
    const qreal top = item->mapToItem(scene.root(), QPointF(0, 0)).y();
    QVERIFY2(top >= 0 && top + item->height() <= 100, qPrintable(QString::number(top)));
    QTest::keyClick(&scene.window(), Qt::Key_End);
    QCOMPARE(scene.root()->property("contentY").toReal(), 20 * item->height() - 100);
  }

  void tipComesAfterTheDelay() {
    Scene scene;
    QVERIFY(scene.load(page("IconButton { objectName: 'button'; label: 'Close'; tipKeys: 'Esc' }")));
    auto* tips = scene.engine().singletonInstance<Tips*>(qmlTypeId("Ambrel.Kit", 1, 0, "Tips"));
    QVERIFY(tips);
    tips->setDelay(0);
    QTest::mouseMove(&scene.window(), QPoint(10, 10));
    QTRY_COMPARE(tips->text(), QString("Close"));
    QCOMPARE(tips->keys(), QString("Esc"));
    QCOMPARE(tips->window(), &scene.window());
    QTest::mouseMove(&scene.window(), QPoint(250, 150));
    QTRY_COMPARE(tips->text(), QString());
    QTest::mouseMove(&scene.window(), QPoint(10, 10));
    QTRY_COMPARE(tips->text(), QString("Close"));
    QWindow other;
    other.show();
    other.requestActivate();
    QTRY_COMPARE(tips->text(), QString());
    QTest::mouseMove(&scene.window(), QPoint(250, 150));
    QTest::mouseMove(&scene.window(), QPoint(10, 10));
    QTRY_COMPARE(tips->text(), QString("Close"));
    delete scene.find("button");
    QCOMPARE(tips->text(), QString());
    QVERIFY(!tips->window());
  }

  void tileAsksForItsMenu() {
    Scene scene;
    QVERIFY(scene.load(page(
        "TileFrame { focus: true; name: 'It'; onMenuRequested: page.note('menu'); onClicked: page.note('click') }")));
    QTest::mouseClick(&scene.window(), Qt::RightButton, {}, QPoint(50, 30));
    QCOMPARE(scene.root()->property("last").toString(), QString("menu"));
    QCOMPARE(scene.root()->property("count").toInt(), 1);
    QTest::keyClick(&scene.window(), Qt::Key_F10, Qt::ShiftModifier);
    QTest::keyClick(&scene.window(), Qt::Key_Menu);
    QCOMPARE(scene.root()->property("count").toInt(), 3);
  }
};

}  // namespace ambrel

QTEST_MAIN(ambrel::ControlTests)
#include "ControlTests.moc"
