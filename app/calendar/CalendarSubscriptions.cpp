#include "app/calendar/CalendarSubscriptions.h"

#include <QCryptographicHash>
#include <algorithm>

#include "app/base/Log.h"
#include "core/base/Text.h"
#include "core/web/Address.h"

namespace ambrel {
namespace {

DownloadLimits limits() {
  DownloadLimits limits;
  limits.time = std::chrono::seconds(60);
  limits.bytes = CalendarReader::largestFile;
  return limits;
}

}  // namespace

std::optional<QUrl> subscriptionUrl(const std::string& address) {
  QUrl url(QString::fromStdString(std::string(trimmed(address))), QUrl::StrictMode);
  if (url.scheme() == QLatin1String("webcal") || url.scheme() == QLatin1String("webcals"))
    url.setScheme(QStringLiteral("https"));
  return url.isValid() && mayBeAsked(url.toString(QUrl::FullyEncoded).toStdString()) ? std::optional(url)
                                                                                     : std::nullopt;
}

CalendarSubscriptions::CalendarSubscriptions(Seams seams, QObject* parent)
    : QObject(parent), seams_(std::move(seams)) {}

void CalendarSubscriptions::setAddresses(const std::vector<std::string>& addresses) {
  const auto left = std::erase_if(subscriptions_, [&](const auto& subscription) {
    return std::ranges::find(addresses, subscription.first) == addresses.end();
  });
  for (const std::string& address : addresses) {
    const auto url = subscriptionUrl(address);
    if (!url || subscriptions_.contains(address)) continue;
    // Addresses hold secrets; names of files are for everybody to see.
    const QByteArray name = QCryptographicHash::hash(url->toEncoded(), QCryptographicHash::Sha256).toHex().left(32);
    Subscription& subscription = subscriptions_[address];
    subscription.url = *url;
    subscription.file = seams_.folder / (name.toStdString() + ".ics");
    ask(address, subscription);
  }
  // At first, too: an address may have been left out while the program did not run.
  if (left > 0 || !std::exchange(hasCleared_, true)) removeOtherFiles();
}

// Two addresses may be written differently and have one file.
void CalendarSubscriptions::removeOtherFiles() {
  std::vector<std::filesystem::path> others;
  std::error_code error;
  for (std::filesystem::directory_iterator at(seams_.folder, error), end; !error && at != end; at.increment(error))
    if (at->path().extension() == ".ics" &&
        std::ranges::none_of(subscriptions_, [&](const auto& each) { return each.second.file == at->path(); }))
      others.push_back(at->path());
  for (const auto& file : others) std::filesystem::remove(file, error);
}

std::vector<CalendarPlace> CalendarSubscriptions::places() const {
  std::vector<CalendarPlace> places;
  for (const auto& [address, subscription] : subscriptions_)
    places.push_back({subscription.file, subscription.url.host().toStdString(), address});
  return places;
}

QString CalendarSubscriptions::problem(const std::string& address) const {
  const auto found = subscriptions_.find(address);
  return found == subscriptions_.end() ? QString() : found->second.problem;
}

std::optional<Instant> CalendarSubscriptions::due() const {
  std::optional<Instant> first;
  for (const auto& [address, subscription] : subscriptions_)
    if (!subscription.isAsking && (!first || subscription.due < *first)) first = subscription.due;
  return first;
}

void CalendarSubscriptions::tick(Instant now) {
  for (auto& [address, subscription] : subscriptions_)
    if (!subscription.isAsking && subscription.due <= now) ask(address, subscription);
}

void CalendarSubscriptions::clockMoved(Seconds by) {
  for (auto& [address, subscription] : subscriptions_) subscription.due = advanced(subscription.due, by);
}

void CalendarSubscriptions::ask(const std::string& address, Subscription& subscription) {
  subscription.isAsking = true;
  seams_.fetcher.get(subscription.url, limits(), this,
                     [this, address](Download answer) { answered(address, std::move(answer)); });
}

void CalendarSubscriptions::answered(const std::string& address, Download answer) {
  const auto found = subscriptions_.find(address);
  if (found == subscriptions_.end()) return;
  Subscription& subscription = found->second;
  subscription.isAsking = false;
  QString problem = answer.problem;
  // A page that asks for a login is a good answer, too.
  if (answer.body && !answer.body->left(4096).toUpper().contains("BEGIN:VCALENDAR")) {
    answer.body.reset();
    problem = tr("there is no calendar at this address");
  }
  subscription.problem = problem;
  if (!answer.body) {
    subscription.due = seams_.now() + std::max(subscription.retry, answer.wait);
    subscription.retry = std::min<std::chrono::seconds>(subscription.retry * 2, longestRetry);
    Q_EMIT changed();
    return;
  }
  subscription.due = seams_.now() + interval;
  subscription.retry = firstRetry;
  seams_.background(
      [file = subscription.file, body = std::move(*answer.body)] {
        try {
          makeFolders(file.parent_path());
          const std::string_view bytes(body.constData(), static_cast<std::size_t>(body.size()));
          if (readFile(file) != bytes) writeAtomically(file, bytes);
        } catch (const std::exception& error) {
          logLine(std::string("cannot keep a calendar: ") + error.what());
        }
      },
      [this] { Q_EMIT changed(); });
}

}  // namespace ambrel
