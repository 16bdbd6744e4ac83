#pragma once
// What plays on this computer.

#include "app/base/QmlObjects.h"
#include "app/media/NowPlayingModel.h"

namespace ambrel {

class MediaArea : public Area {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::NowPlayingModel* nowPlaying READ nowPlaying CONSTANT FINAL)

 public:
  // What the seams refer to outlives it.
  explicit MediaArea(NowPlayingModel::Seams seams, QObject* parent = nullptr)
      : Area(QStringLiteral("Media"), parent), nowPlaying_(std::move(seams)) {
    keep({this, &nowPlaying_});
  }

  NowPlayingModel* nowPlaying() { return &nowPlaying_; }

  void widgetsChanged(const std::set<DockWidget>& onBar, bool areSeen, Instant /*now*/) override {
    nowPlaying_.setIsSeen(areSeen && onBar.contains(DockWidget::nowPlaying));
  }
  QVariantMap sample(DockWidget /*widget*/) override {
    const MediaPlayer player{.name = "Player",
                             .status = PlaybackStatus::playing,
                             .title = tr("Morning by the Sea").toStdString(),
                             .artist = tr("The Early Quartet").toStdString(),
                             .canPause = true,
                             .canGoNext = true,
                             .canGoPrevious = true};
    return {{QStringLiteral("face"), QVariant::fromValue(nowPlayingFace(true, &player))}};
  }
  void defaultsChanged(const std::set<std::string>& keys) override {
    if (keys.contains("nowPlayingConnected")) nowPlaying_.reload();
  }

 private:
  NowPlayingModel nowPlaying_;
};

}  // namespace ambrel
