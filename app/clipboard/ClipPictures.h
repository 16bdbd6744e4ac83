#pragma once
// The pictures of clips as QML shows them: decoded off the main thread, the latest wish first, and the small ones kept
// within bounds.

#include <QCache>
#include <QImage>
#include <QMutex>
#include <QQuickAsyncImageProvider>
#include <QThreadPool>
#include <atomic>
#include <filesystem>
#include <memory>

namespace ambrel {

// How a picture is brought to the size that is asked for.
enum class PictureFit {
  card,   // exactly that size; a larger picture is cut, a smaller one is centred
  whole,  // all of it, no larger than it is and than that size
};

// Null when it cannot be read.
QImage pictureOf(const std::filesystem::path& path, QSize size, PictureFit fit);

// Serves "image://ambrel.clip/card/NAME" and "image://ambrel.clip/whole/NAME" at the size that the item asks for, in
// pixels of the screen.
class ClipPictures : public QQuickAsyncImageProvider {
 public:
  static constexpr const char* id = "ambrel.clip";
  // Of the pictures that are kept for the next time they come into view.
  static constexpr int mostCachedBytes = 24 << 20;

  explicit ClipPictures(std::filesystem::path folder);
  ~ClipPictures() override;

  QQuickImageResponse* requestImageResponse(const QString& path, const QSize& size) override;

  // For tests: whether nothing is being decoded, how much is kept, and how often a file was decoded.
  bool isIdle() { return pool_.waitForDone(0); }
  int cachedBytes() const;
  int decodedCount() const;

 private:
  struct Shared;
  std::shared_ptr<Shared> shared_;
  QThreadPool pool_;
  int turn_ = 0;
};

}  // namespace ambrel
