#pragma once
// Pictures of clips for QML: decoded off the main thread, latest request first; small ones are cached.

#include <QImage>
#include <QQuickAsyncImageProvider>
#include <QThreadPool>
#include <filesystem>
#include <memory>

namespace ambrel {

// How a picture is fitted into the requested size.
enum class PictureFit {
  card,   // exactly that size; larger pictures are cropped, smaller ones centred
  whole,  // the whole picture, scaled down if necessary
};

// Null when it cannot be read.
QImage pictureOf(const std::filesystem::path& path, QSize size, PictureFit fit);

// Serves "image://ambrel.clip/card/NAME" and "image://ambrel.clip/whole/NAME" at the size that the item asks for, in
// pixels of the screen.
class ClipPictures : public QQuickAsyncImageProvider {
 public:
  static constexpr const char* id = "ambrel.clip";
  // The limit of the cache.
  static constexpr int mostCachedBytes = 24 << 20;

  explicit ClipPictures(std::filesystem::path folder);
  ~ClipPictures() override;

  QQuickImageResponse* requestImageResponse(const QString& path, const QSize& size) override;
  // Whether nothing is being decoded.
  bool isIdle() { return pool_.waitForDone(0); }

 private:
  struct Shared;
  std::shared_ptr<Shared> shared_;
  QThreadPool pool_;
  int turn_ = 0;
};

}  // namespace ambrel
