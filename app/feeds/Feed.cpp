#include "app/feeds/Feed.h"

#include <QRandomGenerator>
#include <algorithm>
#include <utility>

namespace ambrel {

Feed::Feed(FeedSeams seams, std::chrono::seconds interval, QObject* parent)
    : SeenModel(parent),
      seams_(std::move(seams)),
      schedule_(interval, seams_.mostJitter * QRandomGenerator::global()->generateDouble()) {}

void Feed::neededChanged() {
  const bool isWanted = isNeeded();
  if (isWanted == schedule_.isWanted()) return;
  const Instant now = seams_.now();
  if (isWanted && !isLoaded_) {
    isLoaded_ = true;
    // A time saved while the clock was ahead would put off the next request for ever.
    if (const auto askedAt = load()) schedule_.kept(std::min(*askedAt, now));
    connect(&seams_.fetcher, &Fetcher::onlineChanged, this, [this](bool isOnline) {
      isOnline_ = isOnline;
      schedule_.setOnline(isOnline, seams_.now());
      show(seams_.now());
      announceDue();
    });
    isOnline_ = seams_.fetcher.isOnline();
    schedule_.setOnline(isOnline_, now);
  }
  askIf(schedule_.setWanted(isWanted, now));
  if (isWanted) show(now);
}

void Feed::askIf(bool isDue) {
  if (isDue) {
    ++question_;
    ask();
  }
  announceDue();
}

void Feed::refresh() { askIf(schedule_.refresh(seams_.now())); }

void Feed::restart() { askIf(schedule_.restart(seams_.now())); }

void Feed::tick(Instant now) {
  askIf(schedule_.tick(now));
  show(now);
}

void Feed::slept(Seconds /*span*/, Instant now) {
  schedule_.slept(now);
  announceDue();
}

void Feed::clockMoved(Seconds by, Instant now) {
  schedule_.clockMoved(by);
  show(now);
  announceDue();
}

void Feed::get(const QUrl& address, qint64 mostBytes, std::function<void(Download)> answered) {
  seams_.fetcher.get(address, {.bytes = mostBytes}, this,
                     [this, question = question_, answered = std::move(answered)](Download download) {
                       if (question == question_) answered(std::move(download));
                     });
}

void Feed::succeeded() {
  schedule_.answered();
  failure_.reset();
  show(seams_.now());
  announceDue();
}

void Feed::failed(const Download& download) {
  schedule_.failed(download.failure, download.wait, seams_.now());
  failure_ = download.failure;
  show(seams_.now());
  announceDue();
}

}  // namespace ambrel
