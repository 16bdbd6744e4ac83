#include <QGuiApplication>
#include <QScreen>
#include <QTest>

#include "app/base/StoredValue.h"
#include "tests/app/tools/ToolsDesk.h"

namespace ambrel {

class ToolModelsTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void worksOutWhatWasTypedLastAndOnlyWhileSomebodyLooks() {
    ToolsDesk desk;
    CalculatorModel& calculator = *desk.area.calculator();
    desk.defaults.set("calculatorExpression", DefaultsValue{std::string("1+1")});
    calculator.reload();
    desk.rest();
    QVERIFY(desk.asked.empty());
    desk.show({DockWidget::calculator});
    desk.rest();
    QCOMPARE(desk.asked.size(), std::size_t(1));
    calculator.begin();
    for (const char* text : {"1+", "1+2"}) calculator.setInput(QString::fromLatin1(text));
    // Return before the answer copies the answer, not what was there before.
    calculator.accept();
    QVERIFY(desk.shell.copied.isEmpty());
    QVERIFY(desk.asked[0].stop.stop_requested());
    desk.rest();
    QCOMPARE(desk.asked.size(), std::size_t(2));
    QCOMPARE(desk.asked[1].expression, std::string("1+2"));
    desk.asked[1].done({"3", {}});
    QCOMPARE(desk.shell.copied, QStringList{QStringLiteral("3")});
    QCOMPARE(calculator.history()->rowCount(), 1);
    QCOMPARE(calculator.face().value, QStringLiteral("3"));
    calculator.setInput(QStringLiteral("1+"));
    desk.rest();
    desk.asked[2].done({{}, "Misplaced"});
    QCOMPARE(calculator.face().fault, QStringLiteral("Misplaced"));
    calculator.end();
    QCOMPARE(desk.defaults.string("calculatorExpression"), std::optional<std::string>("1+"));
  }

  void convertsWithTheUnitsThatWereChosen() {
    ToolsDesk desk;
    UnitConverterModel& units = *desk.area.units();
    desk.show({DockWidget::unitConverter});
    desk.rest();
    QCOMPARE(desk.asked.at(0).expression, std::string("(1) mi to km"));
    desk.asked[0].done({"1.609344 km", {}});
    QCOMPARE(units.face().value, QStringLiteral("1.609344 km"));
    units.begin();
    units.swap();
    units.setInput(QStringLiteral(" 5 "));
    desk.rest();
    QCOMPARE(desk.asked.back().expression, std::string("(5) km to mi"));
    // Choosing the unit of the other side swaps the two.
    units.setTo(units.choice().from);
    desk.rest();
    QCOMPARE(desk.asked.back().expression, std::string("(5) mi to km"));
    units.setCategory(2);
    QCOMPARE(desk.defaults.string("unitCategory"), std::optional<std::string>("temperature"));
    // What is stored may be of another category, or of none.
    desk.defaults.set("unitCategory", DefaultsValue{std::string("data")});
    units.reload();
    desk.rest();
    QCOMPARE(desk.asked.back().expression, std::string("(5) bit to byte"));
    units.setInput({});
    QVERIFY(units.face().result.isEmpty());
  }

  void showsTheEmojiWhileThePanelIsOpenAndRemembersThoseUsed() {
    ToolsDesk desk;
    EmojiModel& emoji = *desk.area.emoji();
    desk.folder.write("emoji-test.txt",
                      "# group: Faces\n1F600 ; fully-qualified # 😀 E1.0 grinning face\n"
                      "# group: Animals\n1F431 ; fully-qualified # 🐱 E0.6 cat face\n");
    emoji.begin();
    desk.held.letGo();
    QCOMPARE(emoji.face().groups,
             (QStringList{QStringLiteral("Recently used"), QStringLiteral("Faces"), QStringLiteral("Animals")}));
    QCOMPARE(emoji.rows()->rowCount(), 1);
    emoji.search(QStringLiteral("cat"));
    QVERIFY(emoji.copy(0));
    QCOMPARE(desk.shell.copied, QStringList{QStringLiteral("🐱")});
    QVERIFY(!emoji.copy(1));
    emoji.end();
    QCOMPARE(emoji.rows()->rowCount(), 0);
    // Closed before the file was read.
    emoji.begin();
    emoji.end();
    desk.held.letGo();
    QVERIFY(!emoji.copy(1));
    emoji.begin();
    desk.held.letGo();
    QCOMPARE(emoji.face().group, 0);
    QCOMPARE(emoji.rows()->rowCount(), 1);
  }

  void picksTheColorUnderTheLoupeInTheNotationOfTheConverter() {
    ToolsDesk desk;
    ColorPickerModel& picker = *desk.area.colorPicker();
    desk.screen.image = QImage(QGuiApplication::primaryScreen()->size(), QImage::Format_RGB32);
    desk.screen.image.fill(Qt::black);
    desk.screen.image.setPixelColor(11, 20, QColor(255, 128, 0));
    store(desk.defaults, "colorConverter.mode", 1);
    picker.pick();
    QVERIFY(picker.loupe());
    QTest::mouseMove(picker.loupe(), QPoint(10, 20));
    QTest::keyClick(picker.loupe(), Qt::Key_Right);
    QCOMPARE(picker.loupe()->place(), QPoint(11, 20));
    QTest::keyClick(picker.loupe(), Qt::Key_Return);
    QCOMPARE(desk.shell.copied, QStringList{QStringLiteral("#FF8000")});
    QVERIFY(!picker.loupe());
    picker.pick();
    QTest::keyClick(picker.loupe(), Qt::Key_Escape);
    QVERIFY(!picker.loupe());
    QCOMPARE(desk.shell.copied.size(), 1);
    // The desktop's own picker, where it has one.
    desk.screen.picked = PickedColor{.color = QColor(0, 0, 255)};
    picker.pick();
    QCOMPARE(desk.shell.copied.value(1), QStringLiteral("#0000FF"));
    desk.screen.picked = PickedColor{.problem = "none"};
    picker.pick();
    QCOMPARE(desk.shell.toasts.size(), 1);
  }

  void translatesTheClipboardByAModel() {
    ToolsDesk desk;
    TranslateModel& translator = *desk.area.translator();
    desk.clipboard = " Guten Tag\n";
    translator.begin();
    QTRY_COMPARE(desk.model.asked.size(), std::size_t(1));
    QVERIFY(desk.model.asked[0].request.prompt.find("Guten Tag") != std::string::npos);
    desk.model.asked[0].request.grown("de\nGood");
    QCOMPARE(translator.face().output, QStringLiteral("Good"));
    desk.model.asked[0].done({.text = "de\nGood day"});
    QCOMPARE(translator.face().output, QStringLiteral("Good day"));
    QCOMPARE(translator.face().detected, QStringLiteral("German"));
    translator.swap();
    QCOMPARE(translator.face().input, QStringLiteral("Good day"));
    QCOMPARE(desk.defaults.string("translate.target"), std::optional<std::string>("de"));
    QTRY_COMPARE(desk.model.asked.size(), std::size_t(2));
    translator.end();
    QVERIFY(desk.model.asked[1].stop.stop_requested());
    QVERIFY(translator.face().input.isEmpty());
    desk.model.missing = ModelAbsence::notFound;
    translator.begin();
    QTRY_VERIFY(translator.face().problem.startsWith(QStringLiteral("No translator runs on this computer")));
  }

  void sendsNothingToAnotherComputerBeforeItIsAllowed() {
    ToolsDesk desk;
    TranslateModel& translator = *desk.area.translator();
    desk.translator.answer = [](const QByteArray&) {
      return LoopbackServer::Reply{200, R"({"translatedText":"Bonjour"})"};
    };
    desk.clipboard = "Hello";
    translator.begin();
    QVERIFY(translator.setAddress(desk.translator.url().toString()));
    QTRY_COMPARE(translator.face().output, QStringLiteral("Bonjour"));
    QCOMPARE(desk.translator.targets.count("/translate"), 1);
    QVERIFY(!translator.setAddress(QStringLiteral("ftp://a")));
    QVERIFY(translator.setAddress(QStringLiteral("translate.example")));
    QCOMPARE(translator.face().stranger, QStringLiteral("translate.example"));
    QVERIFY(translator.face().problem.contains(QStringLiteral("until you allow it")));
    QVERIFY(!translator.face().isWorking);
    translator.setInput(QString(30000, QLatin1Char('x')));
    translator.translate();
    QVERIFY(translator.face().problem.startsWith(QStringLiteral("The text is too long")));
  }
};

}  // namespace ambrel

QTEST_MAIN(ambrel::ToolModelsTests)
#include "ToolModelsTests.moc"
