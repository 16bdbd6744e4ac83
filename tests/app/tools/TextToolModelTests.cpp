#include <QSignalSpy>
#include <QTest>

#include "app/base/StoredValue.h"
#include "core/clipboard/Capture.h"
#include "tests/app/tools/ToolsDesk.h"

namespace ambrel {

class TextToolModelTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void readsTheClipboardOnceAndOnlyWhileATileIsSeen() {
    ToolsDesk f;
    f.copied("abc");
    f.show({DockWidget::hash, DockWidget::textCounter}, false);
    f.show({DockWidget::uuid}, true);
    QCOMPARE(f.reads, 0);
    f.show({DockWidget::hash, DockWidget::textCounter});
    QCOMPARE(f.reads, 1);
    QCOMPARE(f.tool("hash").face().value, QStringLiteral("ba7816bf"));
    QCOMPARE(f.tool("textCounter").face().value, QStringLiteral("3"));
    f.show({}, true);
    f.copied("other");
    QCOMPARE(f.reads, 1);
    QCOMPARE(f.tool("base64").face().value, QString());
  }

  void keepsThePanelsTextWhileOthersCopy() {
    ToolsDesk f;
    f.copied("first");
    TextToolModel& tool = f.tool("caseConverter");
    f.area.begin(&tool);
    QCOMPARE(tool.face().output, QStringLiteral("FIRST"));
    tool.setInput(QStringLiteral("typed"));
    f.copied("second");
    QCOMPARE(tool.face().output, QStringLiteral("TYPED"));
    tool.useClipboard();
    QCOMPARE(tool.face().output, QStringLiteral("SECOND"));
    tool.setInput(QStringLiteral("typed"));
    tool.end();
    f.area.begin(&tool);
    QCOMPARE(tool.face().input, QStringLiteral("second"));
    // What was chosen is there at the next start.
    tool.setChoice(1);
    QCOMPARE(f.defaults.integer("caseConverter.mode"), std::optional<std::int64_t>(1));
    store(f.defaults, "caseConverter.mode", 99);
    tool.reload();
    QCOMPARE(tool.choice(), 0);
  }

  void worksOnLongTextsElsewhereAndShowsTheirBeginning() {
    ToolsDesk f;
    f.show({DockWidget::jsonFormatter});
    TextToolModel& tool = f.tool("jsonFormatter");
    f.copied("[" + std::string(200000, '1') + "]");
    QVERIFY(tool.face().isWorking);
    // A click waits for what is being worked out.
    QVERIFY(tool.act());
    QVERIFY(f.shell.copied.isEmpty());
    f.held.letGo();
    QVERIFY(!tool.face().isWorking);
    QCOMPARE(f.shell.copied.value(0).size(), 200000 + 6);
    QCOMPARE(tool.face().output.size(), mostShownText);
    QCOMPARE(tool.face().outputNote, QStringLiteral("The beginning of 200 kB"));
    // The answer to an older text comes too late.
    f.copied("[" + std::string(200000, '2') + "]");
    f.copied("[3]");
    f.held.letGo();
    QCOMPARE(tool.face().output, QStringLiteral("[\n  3\n]"));
  }

  void givesEachSecretAndEachParagraphOnce() {
    ToolsDesk f;
    f.show({DockWidget::password, DockWidget::loremIpsum});
    TextToolModel& tool = f.tool("password");
    const QString secret = tool.face().output;
    QCOMPARE(secret.size(), 20);
    QVERIFY(tool.act());
    // Past the history, with the mark of a secret, and in no message.
    QVERIFY(f.shell.copied.isEmpty());
    QCOMPARE(f.written.size(), std::size_t(1));
    QCOMPARE(f.written[0].front().bytes, secret.toStdString());
    QVERIFY(std::ranges::any_of(f.written[0], [](const Representation& one) { return isPrivate({&one.type, 1}); }));
    QVERIFY(tool.face().output != secret);
    store(f.defaults, "passwordLength", 33);
    f.area.defaultsChanged({"passwordLength"});
    QCOMPARE(tool.face().output.size(), 33);

    QVERIFY(f.tool("loremIpsum").act());
    QVERIFY(f.tool("loremIpsum").act());
    QVERIFY(f.shell.copied.value(0) != f.shell.copied.value(1));
    QCOMPARE(f.defaults.integer("loremIndex"), std::optional<std::int64_t>(2));
  }

  void takesWhatIsDroppedAndSaysWhatCannotBeUsed() {
    ToolsDesk f;
    TextToolModel& tool = f.tool("hash");
    QVERIFY(!tool.act());
    f.area.begin(&tool);
    f.folder.write("file", "abc");
    const QString folder = QString::fromStdString(std::string(f.folder.path()));
    tool.take({}, {QUrl(QStringLiteral("https://a.b/")), QUrl::fromLocalFile(folder + QStringLiteral("/file"))});
    f.held.letGo();
    QVERIFY(tool.face().output.startsWith(QStringLiteral("ba7816bf")));
    tool.take({}, {QUrl::fromLocalFile(folder)});
    f.held.letGo();
    QCOMPARE(f.shell.toasts, QStringList{QStringLiteral("Hash")});
    QVERIFY(tool.face().output.startsWith(QStringLiteral("ba7816bf")));
    tool.take(QStringLiteral("dragged"), {});
    QCOMPARE(tool.face().input, QStringLiteral("dragged"));
  }
};

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::TextToolModelTests)
#include "TextToolModelTests.moc"
