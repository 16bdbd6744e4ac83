#include "app/media/MediaFaces.h"

#include "app/base/StoredValue.h"

namespace ambrel {
namespace {

QString statusText(PlaybackStatus status) {
  switch (status) {
    case PlaybackStatus::stopped:
      return QObject::tr("Stopped");
    case PlaybackStatus::paused:
      return QObject::tr("Paused");
    case PlaybackStatus::playing:
      return QObject::tr("Playing");
  }
  return {};
}

}  // namespace

PlayerRow playerRow(const MediaPlayer& player, bool isShown) {
  PlayerRow row;
  row.id = toQString(player.id);
  row.name = toQString(player.name);
  row.detail = statusText(player.status);
  if (!player.title.empty()) row.detail += QStringLiteral(", ") + toQString(player.title);
  row.isPlaying = player.status == PlaybackStatus::playing;
  row.isShown = isShown;
  return row;
}

NowPlayingFace nowPlayingFace(bool isConnected, const MediaPlayer* player) {
  NowPlayingFace face;
  face.isConnected = isConnected;
  if (!isConnected || !player) return face;
  face.hasPlayer = true;
  face.isPlaying = player->status == PlaybackStatus::playing;
  face.canToggle = canToggle(*player);
  face.canGoNext = player->canGoNext;
  face.canGoPrevious = player->canGoPrevious;
  face.canSeek = player->canSeek;
  face.player = toQString(player->name);
  face.title = player->title.empty() ? face.player : toQString(player->title);
  face.artist = toQString(player->artist);
  face.album = toQString(player->album);
  face.status = statusText(player->status);
  face.spoken = face.status + QStringLiteral(", ") + face.title;
  if (!face.artist.isEmpty()) face.spoken += QStringLiteral(", ") + face.artist;
  if (player->length) {
    face.length = toQString(playTime(*player->length));
    face.lengthSeconds = player->length->count();
  }
  return face;
}

}  // namespace ambrel
