#include <QSignalSpy>
#include <QTest>
#include <deque>

#include "app/base/Presentation.h"

namespace ambrel {

// The states are core's: these are the windows that they order, and steps that come too late.
class PresentationTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void theWindowComesFirstAndLeavesLast() {
    std::deque<std::function<void()>> steps;
    const auto runNext = [&] {
      const auto step = steps.front();
      steps.pop_front();
      step();
    };
    auto presentation = std::make_unique<Presentation>([&](Seconds, auto step) { steps.push_back(step); });
    QSignalSpy front(presentation.get(), &Presentation::orderFront), out(presentation.get(), &Presentation::orderOut);
    presentation->show();
    presentation->show();
    QVERIFY(presentation->isOnScreen() && !presentation->isContentShown());
    QCOMPARE(front.size(), 1);
    QCOMPARE(steps.size(), 1u);
    runNext();
    QVERIFY(presentation->isContentShown());
    presentation->hide();
    presentation->show();
    runNext();  // the removal, too late
    QVERIFY(presentation->isOnScreen() && out.empty());
    presentation->hide();
    QVERIFY(!presentation->isContentShown() && presentation->isOnScreen());
    runNext();
    runNext();
    QVERIFY(!presentation->isOnScreen());
    QCOMPARE(out.size(), 1);
    // A step may outlive its panel.
    presentation->show();
    presentation.reset();
    runNext();
  }
};

}  // namespace ambrel

QTEST_APPLESS_MAIN(ambrel::PresentationTests)
#include "PresentationTests.moc"
