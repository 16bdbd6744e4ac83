#include "app/media/NowPlayingModel.h"

#include <QFile>
#include <QFileInfo>

#include "app/base/QmlObjects.h"
#include "app/base/Replaced.h"
#include "app/base/StoredValue.h"
#include "app/web/SmallPicture.h"

namespace ambrel {
namespace {

constexpr const char* key = "nowPlayingConnected";
constexpr int mostCoverPixels = 4096;

// A player may name any path: only a plain file is opened, for a pipe would wait for its writer.
QByteArray coverFile(const QString& path) {
  if (!QFileInfo(path).isFile()) return {};
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.read(NowPlayingModel::mostCoverBytes) : QByteArray();
}

}  // namespace

NowPlayingModel::NowPlayingModel(Seams seams, QObject* parent) : SeenModel(parent), seams_(std::move(seams)) {
  keep({&rows_});
  seconds_.setInterval(1000);
  connect(&seconds_, &QTimer::timeout, this, &NowPlayingModel::askPosition);
  reload();
}

void NowPlayingModel::reload() {
  isConnected_ = seams_.defaults.boolean(key).value_or(false);
  neededChanged();
}

void NowPlayingModel::setConnected(bool isConnected) {
  store(seams_.defaults, key, isConnected);
  reload();
}

void NowPlayingModel::neededChanged() {
  const bool isWanted = isConnected_ && isNeeded();
  seams_.players.setChangeHandler(isWanted ? [this] { show(); } : std::function<void()>());
  if (!isOpen()) seconds_.stop();
  // What was shown stays while nobody looks.
  if (isWanted || !isConnected_) show();
}

void NowPlayingModel::show() {
  const auto players = isConnected_ ? seams_.players.players() : std::vector<MediaPlayer>();
  const MediaPlayer* shown = shownPlayer(players, chosen_, shown_);
  if (shown && shown->id != chosen_) chosen_.clear();
  const MediaPlayer before = std::exchange(player_, shown ? *shown : MediaPlayer());
  shown_ = player_.id;
  std::vector<PlayerRow> rows;
  for (const MediaPlayer& player : players) rows.push_back(playerRow(player, &player == shown));
  rows_.setRows(rows);
  if (replaced(face_, nowPlayingFace(isConnected_, shown))) Q_EMIT faceChanged();
  lookForCover(player_.cover);
  if (before.id != player_.id || before.track != player_.track || before.title != player_.title) setPosition({});
  const bool moves = isOpen() && face_.isPlaying;
  if (!moves) seconds_.stop();
  if (moves && !seconds_.isActive()) seconds_.start();
  if (isOpen() && face_.hasPlayer) askPosition();
}

void NowPlayingModel::choose(const QString& playerId) {
  chosen_ = playerId.toStdString();
  show();
}

void NowPlayingModel::tell(PlayerCommand command) {
  if (face_.hasPlayer) seams_.players.command(player_.id, command);
}

void NowPlayingModel::seek(qreal seconds) {
  if (!face_.canSeek) return;
  seams_.players.seek(player_.id, player_.track, Seconds(seconds));
  setPosition(Seconds(seconds));
}

void NowPlayingModel::askPosition() {
  seams_.players.askPosition(player_.id, [this, id = player_.id, track = player_.track](std::optional<Seconds> told) {
    if (id == player_.id && track == player_.track) setPosition(told);
  });
}

void NowPlayingModel::setPosition(std::optional<Seconds> position) {
  if (replaced(position_, position)) Q_EMIT positionChanged();
}

QString NowPlayingModel::positionText() const { return position_ ? toQString(playTime(*position_)) : QString(); }

void NowPlayingModel::lookForCover(const std::string& address) {
  if (!replaced(coverAddress_, address)) return;
  const int turn = ++coverTurn_;
  if (hasCover()) {
    cover_ = {};
    Q_EMIT coverChanged();
  }
  if (address.empty()) return;
  const QUrl url(toQString(address));
  if (url.isLocalFile()) return takeCover([path = url.toLocalFile()] { return coverFile(path); });
  seams_.fetcher.get(url, {.bytes = mostCoverBytes}, this, [this, turn](const Download& answer) {
    if (turn == coverTurn_ && answer.body) takeCover([body = *answer.body] { return body; });
  });
}

void NowPlayingModel::takeCover(std::function<QByteArray()> read) {
  auto picture = std::make_shared<QImage>();
  seams_.background([picture, read = std::move(read)] { *picture = smallPicture(read(), coverSide, mostCoverPixels); },
                    [this, picture, turn = coverTurn_] {
                      if (turn != coverTurn_ || picture->isNull()) return;
                      cover_ = *picture;
                      Q_EMIT coverChanged();
                    });
}

}  // namespace ambrel
