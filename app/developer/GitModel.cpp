#include "app/developer/GitModel.h"

#include <QFile>

#include "app/base/QmlObjects.h"
#include "app/base/Replaced.h"
#include "app/base/StoredFolder.h"
#include "app/base/StoredValue.h"

namespace ambrel {

using namespace std::chrono;

GitModel::GitModel(Seams seams, QObject* parent)
    : QObject(parent), seams_(std::move(seams)), work_(seams_.background, seams_.pause, [this] { return reading(); }) {
  keep({this, &facts_});
  reload();
}

void GitModel::reload() {
  std::string path = storedFolder(seams_.defaults, chosenKey);
  if (path == path_) return;
  path_ = std::move(path);
  work_.forget();
  follow({});
  isStale_ = true;
  facts_.setRows({});
  GitFace face;
  face.isChosen = !path_.empty();
  face.path = QFile::decodeName(QByteArray::fromStdString(path_));
  face.name = face.path.section(u'/', -1);
  if (replaced(face_, std::move(face))) Q_EMIT faceChanged();
  if (isSeen_) work_.ask();
}

std::function<void(const std::string&)> GitModel::chooser() {
  return [this, keep = storeLater(seams_.defaults, chosenKey)](const std::string& path) {
    keep({path});
    reload();
  };
}

void GitModel::setSeen(bool isSeen) {
  if (std::exchange(isSeen_, isSeen) == isSeen || !isSeen) return;
  if (isStale_ || !tellsAll()) work_.ask();
}

void GitModel::tick() {
  if (!isSeen_ || tellsAll()) return;
  if (++ticks_ >= wait_) work_.ask();
}

PacedWork::Job GitModel::reading() {
  isStale_ = !isSeen_;
  if (!isSeen_ || path_.empty()) return {};
  ticks_ = 0;
  return PacedWork::job(
      [tools = seams_.tools, path = path_] {
        const auto start = steady_clock::now();
        Timed timed{tools->git(path, countLimit), {}};
        timed.cost = ceil<milliseconds>(steady_clock::now() - start);
        return timed;
      },
      [this](const Timed& timed) { take(timed); });
}

void GitModel::take(const Timed& timed) {
  work_.setPause(std::max<milliseconds>(seams_.pause, timed.cost * share));
  wait_ = std::max(looksAgain, static_cast<int>(ceil<seconds>(timed.cost * share).count()));
  const auto* reading = std::get_if<GitReading>(&timed.answer);
  isPartlyWatched_ = reading && reading->isPartlyWatched;
  facts_.setRows(reading ? gitFacts(reading->state) : std::vector<GitFact>());
  auto folders = reading ? reading->folders : std::vector<WatchedFolder>{{path_}};
  if (folders != followed_) {
    follow(std::move(folders));
    // Nobody has told of what changed since it was read.
    work_.ask();
  }
  if (replaced(face_, gitFace(QFile::decodeName(QByteArray::fromStdString(path_)), timed.answer))) Q_EMIT faceChanged();
}

void GitModel::follow(std::vector<WatchedFolder> folders) {
  followed_ = folders;
  seams_.watch.follow(std::move(folders), [this](std::size_t) { changed(); });
}

void GitModel::changed() {
  if (isSeen_) return work_.ask();
  isStale_ = true;
  follow({});
}

}  // namespace ambrel
