#pragma once
// What plays on this computer, and its controls.

#include <QImage>
#include <QTimer>

#include "app/base/Area.h"
#include "app/base/Background.h"
#include "app/base/GadgetListModel.h"
#include "app/base/SeenModel.h"
#include "app/media/MediaFaces.h"
#include "app/web/Fetcher.h"
#include "core/base/UserDefaults.h"
#include "platform/MediaPlayers.h"

namespace ambrel {

// The players are asked only while it is needed.
class NowPlayingModel : public ambrel::SeenModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::NowPlayingFace face READ face NOTIFY faceChanged FINAL)
  Q_PROPERTY(ambrel::RowList* players READ players CONSTANT FINAL)
  // Null without one.
  Q_PROPERTY(QImage cover READ cover NOTIFY coverChanged FINAL)
  Q_PROPERTY(bool hasCover READ hasCover NOTIFY coverChanged FINAL)
  // Of what plays, while the panel is open; below nothing where the player does not tell.
  Q_PROPERTY(qreal position READ position NOTIFY positionChanged FINAL)
  Q_PROPERTY(QString positionText READ positionText NOTIFY positionChanged FINAL)

 public:
  // Of a cover's side, in pixels.
  static constexpr int coverSide = 256;
  static constexpr qint64 mostCoverBytes = 8 << 20;

  struct Seams {
    MediaPlayers& players;
    UserDefaults& defaults;
    Fetcher& fetcher;
    Background background;  // for work that may hang, as on a network disk
  };
  // What the seams refer to outlives it.
  explicit NowPlayingModel(Seams seams, QObject* parent = nullptr);

  const NowPlayingFace& face() const { return face_; }
  RowList* players() { return &rows_; }
  const QImage& cover() const { return cover_; }
  bool hasCover() const { return !cover_.isNull(); }
  qreal position() const { return position_ ? position_->count() : -1; }
  QString positionText() const;

  // The user lets the tile see what plays, or no longer.
  Q_INVOKABLE void setConnected(bool isConnected);
  // The stored choice may be another.
  void reload();

  // What is shown, until it ends.
  Q_INVOKABLE void choose(const QString& playerId);
  Q_INVOKABLE void toggle() { tell(PlayerCommand::playPause); }
  Q_INVOKABLE void next() { tell(PlayerCommand::next); }
  Q_INVOKABLE void previous() { tell(PlayerCommand::previous); }
  Q_INVOKABLE void raise() { tell(PlayerCommand::raise); }
  Q_INVOKABLE void seek(qreal seconds);

 Q_SIGNALS:
  void faceChanged();
  void coverChanged();
  void positionChanged();

 private:
  void neededChanged() override;
  void show();
  void tell(PlayerCommand command);
  void askPosition();
  void setPosition(std::optional<Seconds> position);
  void lookForCover(const std::string& address);
  void takeCover(std::function<QByteArray()> read);

  Seams seams_;
  bool isConnected_ = false;
  std::string chosen_, shown_;
  MediaPlayer player_;  // the one that is shown
  std::optional<Seconds> position_;
  std::string coverAddress_;
  int coverTurn_ = 0;
  QImage cover_;
  QTimer seconds_;
  NowPlayingFace face_;
  GadgetListModel<PlayerRow> rows_;
};

}  // namespace ambrel
