#include <QSignalSpy>
#include <QTest>
#include <deque>

#include "app/base/Presentation.h"

namespace ambrel {

// The states are core's: these are the windows that they order, and steps that come too late.
class PresentationTests : public QObject {
  Q_OBJECT

  std::deque<std::pair<Seconds, std::function<void()>>> steps_;
  DelayedStep queue() {
    return [this](Seconds after, std::function<void()> step) { steps_.emplace_back(after, step); };
  }
  void runNext() {
    const auto step = steps_.front().second;
    steps_.pop_front();
    step();
  }

 private Q_SLOTS:
  void init() { steps_.clear(); }

  void theContentFollowsItsWindowInAndTheWindowFollowsTheContentOut() {
    Presentation presentation(queue());
    QSignalSpy front(&presentation, &Presentation::orderFront), out(&presentation, &Presentation::orderOut);
    presentation.show();
    presentation.show();
    QVERIFY(presentation.isOnScreen() && !presentation.isContentShown());
    QCOMPARE(front.size(), 1);
    QCOMPARE(steps_.size(), std::size_t(1));
    runNext();
    QVERIFY(presentation.isContentShown());
    presentation.hide();
    QVERIFY(!presentation.isContentShown() && presentation.isOnScreen());
    runNext();
    QVERIFY(!presentation.isOnScreen());
    QCOMPARE(out.size(), 1);
  }

  void aShowInBetweenCancelsTheRemoval() {
    auto presentation = std::make_unique<Presentation>(queue());
    QSignalSpy out(presentation.get(), &Presentation::orderOut);
    presentation->show();
    runNext();
    presentation->hide();
    presentation->show();
    runNext();  // the removal, too late
    QVERIFY(presentation->isOnScreen() && out.empty());
    // A step may outlive its panel.
    presentation.reset();
    runNext();
  }
};

}  // namespace ambrel

QTEST_APPLESS_MAIN(ambrel::PresentationTests)
#include "PresentationTests.moc"
