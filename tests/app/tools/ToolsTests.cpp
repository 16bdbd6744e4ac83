#include <QGuiApplication>
#include <QScreen>
#include <QTest>

#include "app/base/StoredValue.h"
#include "core/clipboard/Capture.h"
#include "tests/app/tools/ToolsDesk.h"

namespace ambrel {

class ToolsTests : public QObject {
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

  void readsTheClipboardOnceAndOnlyWhileATileIsSeen() {
    ToolsDesk desk;
    desk.copied("abc");
    desk.show({DockWidget::hash, DockWidget::textCounter}, false);
    desk.show({DockWidget::uuid}, true);
    QCOMPARE(desk.reads, 0);
    desk.show({DockWidget::hash, DockWidget::textCounter});
    QCOMPARE(desk.reads, 1);
    QCOMPARE(desk.tool("hash").face().value, QStringLiteral("ba7816bf"));
    QCOMPARE(desk.tool("textCounter").face().value, QStringLiteral("3"));
    desk.show({}, true);
    desk.copied("other");
    QCOMPARE(desk.reads, 1);
    QCOMPARE(desk.tool("base64").face().value, QString());
  }

  void keepsThePanelsTextWhileOthersCopy() {
    ToolsDesk desk;
    desk.copied("first");
    TextToolModel& tool = desk.tool("caseConverter");
    desk.area.begin(&tool);
    QCOMPARE(tool.face().output, QStringLiteral("FIRST"));
    tool.setInput(QStringLiteral("typed"));
    desk.copied("second");
    QCOMPARE(tool.face().output, QStringLiteral("TYPED"));
    tool.useClipboard();
    QCOMPARE(tool.face().output, QStringLiteral("SECOND"));
    tool.setInput(QStringLiteral("typed"));
    tool.end();
    desk.area.begin(&tool);
    QCOMPARE(tool.face().input, QStringLiteral("second"));
    // What was chosen is there at the next start.
    tool.setChoice(1);
    QCOMPARE(desk.defaults.integer("caseConverter.mode"), std::optional<std::int64_t>(1));
    store(desk.defaults, "caseConverter.mode", 99);
    tool.reload();
    QCOMPARE(tool.choice(), 0);
  }

  void worksOnLongTextsElsewhereAndShowsTheirBeginning() {
    ToolsDesk desk;
    desk.show({DockWidget::jsonFormatter});
    TextToolModel& tool = desk.tool("jsonFormatter");
    desk.copied("[" + std::string(200000, '1') + "]");
    QVERIFY(tool.face().isWorking);
    // A click waits for what is being worked out.
    QVERIFY(tool.act());
    QVERIFY(desk.shell.copied.isEmpty());
    desk.held.letGo();
    QVERIFY(!tool.face().isWorking);
    QCOMPARE(desk.shell.copied.value(0).size(), 200000 + 6);
    QCOMPARE(tool.face().output.size(), mostShownText);
    QCOMPARE(tool.face().outputNote, QStringLiteral("The beginning of 200 kB"));
    // The answer to an older text comes too late.
    desk.copied("[" + std::string(200000, '2') + "]");
    desk.copied("[3]");
    desk.held.letGo();
    QCOMPARE(tool.face().output, QStringLiteral("[\n  3\n]"));
  }

  void givesEachSecretAndEachParagraphOnce() {
    ToolsDesk desk;
    desk.show({DockWidget::password, DockWidget::loremIpsum});
    TextToolModel& tool = desk.tool("password");
    const QString secret = tool.face().output;
    QCOMPARE(secret.size(), 20);
    QVERIFY(tool.act());
    // Past the history, with the mark of a secret, and in no message.
    QVERIFY(desk.shell.copied.isEmpty());
    QCOMPARE(desk.written.size(), std::size_t(1));
    QCOMPARE(desk.written[0].front().bytes, secret.toStdString());
    QVERIFY(std::ranges::any_of(desk.written[0], [](const Representation& one) { return isPrivate({&one.type, 1}); }));
    QVERIFY(tool.face().output != secret);
    store(desk.defaults, "passwordLength", 33);
    desk.area.defaultsChanged({"passwordLength"});
    QCOMPARE(tool.face().output.size(), 33);

    QVERIFY(desk.tool("loremIpsum").act());
    QVERIFY(desk.tool("loremIpsum").act());
    QVERIFY(desk.shell.copied.value(0) != desk.shell.copied.value(1));
    QCOMPARE(desk.defaults.integer("loremIndex"), std::optional<std::int64_t>(2));
  }

  void takesWhatIsDroppedAndSaysWhatCannotBeUsed() {
    ToolsDesk desk;
    TextToolModel& tool = desk.tool("hash");
    QVERIFY(!tool.act());
    desk.area.begin(&tool);
    desk.folder.write("file", "abc");
    const QString folder = QString::fromStdString(std::string(desk.folder.path()));
    tool.take({}, {QUrl(QStringLiteral("https://a.b/")), QUrl::fromLocalFile(folder + QStringLiteral("/file"))});
    desk.held.letGo();
    QVERIFY(tool.face().output.startsWith(QStringLiteral("ba7816bf")));
    tool.take({}, {QUrl::fromLocalFile(folder)});
    desk.held.letGo();
    QCOMPARE(desk.shell.toasts, QStringList{QStringLiteral("Hash")});
    QVERIFY(tool.face().output.startsWith(QStringLiteral("ba7816bf")));
    tool.take(QStringLiteral("dragged"), {});
    QCOMPARE(tool.face().input, QStringLiteral("dragged"));
  }
};

}  // namespace ambrel

QTEST_MAIN(ambrel::ToolsTests)
#include "ToolsTests.moc"
