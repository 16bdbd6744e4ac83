#include <QSignalSpy>
#include <QTest>
#include <deque>

#include "app/base/Presentation.h"

namespace ambrel {

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
    QVERIFY(presentation.isShown() && presentation.isOnScreen() && !presentation.isContentShown());
    QCOMPARE(front.size(), 1);
    QVERIFY(steps_.front().first == Seconds(0.07));
    runNext();
    QVERIFY(presentation.isContentShown());
    presentation.hide();
    QVERIFY(!presentation.isShown() && !presentation.isContentShown() && presentation.isOnScreen());
    QVERIFY(steps_.front().first == Seconds(0.36));
    runNext();
    QVERIFY(!presentation.isOnScreen());
    QCOMPARE(out.size(), 1);
  }

  void aShowInBetweenCancelsTheRemoval() {
    Presentation presentation(queue());
    QSignalSpy out(&presentation, &Presentation::orderOut);
    presentation.show();
    runNext();
    presentation.hide();
    presentation.show();
    runNext();  // the removal, too late
    QVERIFY(presentation.isOnScreen());
    QCOMPARE(out.size(), 0);
    runNext();
    QVERIFY(presentation.isContentShown());
  }

  void aHideBeforeTheContentCameKeepsItAway() {
    Presentation presentation(queue());
    presentation.show();
    presentation.hide();
    runNext();
    QVERIFY(!presentation.isContentShown());
  }

  void doingTwiceWhatIsDoneDoesNothing() {
    Presentation presentation(queue());
    presentation.hide();
    QVERIFY(steps_.empty());
    presentation.show();
    const int generation = presentation.generation();
    presentation.show();
    QCOMPARE(presentation.generation(), generation);
    QCOMPARE(steps_.size(), std::size_t(1));
  }

  void aStepThatOutlivesItsPanelIsHarmless() {
    {
      Presentation presentation(queue());
      presentation.show();
    }
    runNext();
  }
};

}  // namespace ambrel

QTEST_APPLESS_MAIN(ambrel::PresentationTests)
#include "PresentationTests.moc"
