#include "app/feeds/StoriesModel.h"

#include <algorithm>

#include "app/base/QmlObjects.h"
#include "app/base/Replaced.h"
#include "app/base/StoredValue.h"
#include "core/settings.h"

namespace ambrel {
namespace {

std::string_view bytesOf(const QByteArray& body) { return {body.constData(), static_cast<std::size_t>(body.size())}; }

}  // namespace

// One question: a request for each story, whose answers come in any order.
struct StoriesModel::Round {
  std::vector<std::optional<Story>> stories;
  std::size_t missing = 0;
  Download problem;  // the last
};

StoriesModel::StoriesModel(FeedSeams seams, QObject* parent) : Feed(std::move(seams), storiesInterval, parent) {
  keep({&rows_});
  show(seams_.now());
}

QUrl StoriesModel::address(std::string_view path) const {
  const QUrl host = addressFrom(QString::fromStdString(valueOf(seams_.defaults, setting::hackerNewsURL)),
                                QUrl(QStringLiteral("https://hacker-news.firebaseio.com")));
  return QUrl(host.toString(QUrl::FullyEncoded | QUrl::StripTrailingSlash) + toQString(path), QUrl::StrictMode);
}

std::optional<Instant> StoriesModel::load() {
  if (auto kept = loaded<StoryList>(file)) list_ = std::move(*kept);
  return list_.stories.empty() ? std::nullopt : std::optional(list_.fetchedAt);
}

void StoriesModel::ask() {
  get(address(topStoriesPath), 256 << 10, [this](const Download& top) {
    const auto ids = top.body ? decodeTopStories(bytesOf(*top.body), mostStories) : std::vector<std::int64_t>();
    if (ids.empty()) return failed(top);
    auto round = std::make_shared<Round>();
    round->stories.resize(ids.size());
    round->missing = ids.size();
    // The number of its answers is in a story, which may be a long list.
    for (std::size_t i = 0; i < ids.size(); ++i)
      get(address(storyPath(ids[i])), 128 << 10, [this, round, i](const Download& answer) {
        if (answer.body)
          round->stories[i] = decodeStory(bytesOf(*answer.body));
        else
          round->problem = answer;
        if (--round->missing == 0) take(round);
      });
  });
}

void StoriesModel::take(const std::shared_ptr<Round>& round) {
  StoryList next{seams_.now(), {}};
  for (auto& story : round->stories)
    if (story) next.stories.push_back(std::move(*story));
  // Without the top story the list would name another as the top.
  if (!round->stories.front() && !round->problem.problem.isEmpty()) return failed(round->problem);
  if (next.stories.empty()) return failed(round->problem);
  list_ = std::move(next);
  keepIn(file, list_);
  succeeded();
}

void StoriesModel::show(Instant now) {
  const Calendar calendar = seams_.calendar();
  rows_.setRows(storyRows(list_, calendar));
  if (replaced(face_, storiesFace(list_, problem(), calendar, now))) Q_EMIT changed();
}

bool StoriesModel::openTop() {
  if (list_.stories.empty()) return false;
  open(QString::number(list_.stories.front().id));
  return true;
}

void StoriesModel::open(const QString& storyId) { openPage(storyId, addressOf); }

void StoriesModel::openDiscussion(const QString& storyId) { openPage(storyId, discussionOf); }

void StoriesModel::openPage(const QString& storyId, std::string (*addressOfStory)(const Story&)) {
  const auto found = std::ranges::find(list_.stories, storyId.toLongLong(), &Story::id);
  if (found == list_.stories.end()) return;
  const QString address = toQString(addressOfStory(*found));
  if (!seams_.open(QUrl(address)))
    seams_.shell.showToast(tr("No browser opens it"), address, QStringLiteral("exclamationmark.triangle"));
}

}  // namespace ambrel
