#pragma once
// What the tile and the panel of the players show.

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include "app/base/Face.h"
#include "core/media/MediaPlayer.h"

namespace ambrel {

struct PlayerRow {
  Q_GADGET
  QML_VALUE_TYPE(playerRow)
  Q_PROPERTY(QString playerId MEMBER id FINAL)

 public:
  QString id{};
  FACE_FIELDS(QString, name, detail);  // "VLC media player", "Playing, Song"
  FACE_FIELDS(bool, isPlaying, isShown);

  bool operator==(const PlayerRow&) const = default;
};
PlayerRow playerRow(const MediaPlayer& player, bool isShown);

struct NowPlayingFace {
  Q_GADGET
  QML_VALUE_TYPE(nowPlayingFace)
 public:
  FACE_FIELDS(bool, isConnected, hasPlayer, isPlaying);
  FACE_FIELDS(bool, canToggle, canGoNext, canGoPrevious, canSeek);
  FACE_FIELDS(QString, title, artist, album);  // the player's name where there is no title
  FACE_FIELDS(QString, player, status);        // "VLC media player", "Paused"
  FACE_FIELDS(QString, spoken);                // "Paused, Song, Artist"
  FACE_FIELDS(QString, length);                // "3:05"; empty where it is not known
  FACE_FIELDS(qreal, lengthSeconds);

  bool operator==(const NowPlayingFace&) const = default;
};
// `player`: null without one.
NowPlayingFace nowPlayingFace(bool isConnected, const MediaPlayer* player);

}  // namespace ambrel
