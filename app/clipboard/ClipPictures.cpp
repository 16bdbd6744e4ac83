#include "app/clipboard/ClipPictures.h"

#include <QCache>
#include <QFile>
#include <QImageReader>
#include <QMutex>
#include <QPainter>
#include <QQuickImageResponse>
#include <atomic>

#include "core/clipboard/ClipboardFolder.h"

namespace ambrel {
namespace {

constexpr int threads = 2;
constexpr int largestSide = 4096;

QRect centred(QSize inner, QSize outer) {
  return {QPoint((outer.width() - inner.width()) / 2, (outer.height() - inner.height()) / 2), inner};
}

}  // namespace

QImage pictureOf(const std::filesystem::path& path, QSize size, PictureFit fit) {
  QFile file(QFile::decodeName(path.c_str()));
  if (!file.open(QIODevice::ReadOnly)) return {};
  QImageReader reader(&file, "png");
  reader.setAutoDetectImageFormat(false);
  const QSize natural = reader.size();
  size = size.boundedTo({largestSide, largestSide});
  if (natural.isEmpty() || size.isEmpty()) return {};
  const bool isSmall = natural.width() <= size.width() && natural.height() <= size.height();
  if (fit == PictureFit::whole) {
    if (!isSmall) reader.setScaledSize(natural.scaled(size, Qt::KeepAspectRatio).expandedTo({1, 1}));
    return reader.read();
  }
  // Large pictures are scaled while they are decoded: a screenshot takes 32 MB, a card 60 KB.
  const bool isLarge = natural.width() > size.width() && natural.height() > size.height();
  if (isLarge) reader.setScaledSize(natural.scaled(size, Qt::KeepAspectRatioByExpanding));
  const QImage whole = reader.read();
  if (whole.isNull()) return {};
  QImage card(size, QImage::Format_ARGB32_Premultiplied);
  card.fill(Qt::transparent);
  QPainter painter(&card);
  if (isSmall || isLarge) {
    painter.drawImage(centred(whole.size(), size).topLeft(), whole);
  } else {
    // Long and narrow pictures are scaled up only until they fill the card's shorter side.
    const QSize cut = size.scaled(natural, Qt::KeepAspectRatio).expandedTo({1, 1}).boundedTo(natural);
    const QImage part = whole.copy(centred(cut, natural));
    painter.drawImage(0, 0, part.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
  }
  return card;
}

struct ClipPictures::Shared {
  explicit Shared(std::filesystem::path path) : folder(std::move(path)), cache(mostCachedBytes) {}

  QImage cached(const QString& key) {
    const QMutexLocker lock(&mutex);
    const QImage* image = cache.object(key);
    return image ? *image : QImage();
  }
  void keep(const QString& key, const QImage& image) {
    const QMutexLocker lock(&mutex);
    cache.insert(key, new QImage(image), static_cast<int>(image.sizeInBytes()));
  }

  const std::filesystem::path folder;
  QMutex mutex;
  QCache<QString, QImage> cache;
};

namespace {

class Response : public QQuickImageResponse {
 public:
  QQuickTextureFactory* textureFactory() const override {
    return image.isNull() ? nullptr : QQuickTextureFactory::textureFactoryForImage(image);
  }
  QString errorString() const override { return image.isNull() ? QStringLiteral("no picture") : QString(); }
  // The item left the view before the decoding started.
  void cancel() override { isCancelled = true; }

  QImage image;
  std::atomic<bool> isCancelled = false;
};

}  // namespace

ClipPictures::ClipPictures(std::filesystem::path folder) : shared_(std::make_shared<Shared>(std::move(folder))) {
  pool_.setMaxThreadCount(threads);
  pool_.setThreadPriority(QThread::LowPriority);
}

ClipPictures::~ClipPictures() {
  pool_.clear();
  pool_.waitForDone();
}

QQuickImageResponse* ClipPictures::requestImageResponse(const QString& path, const QSize& size) {
  auto* response = new Response;
  const QString name = path.section(u'/', 1);
  const PictureFit fit = path.startsWith(QLatin1String("card/")) ? PictureFit::card : PictureFit::whole;
  const QString key = QStringLiteral("%1@%2x%3").arg(name).arg(size.width()).arg(size.height());
  pool_.start(
      [response, shared = shared_, name, key, size, fit] {
        if (!response->isCancelled && isImageName(name.toStdString())) {
          if (fit == PictureFit::card) response->image = shared->cached(key);
          if (response->image.isNull()) {
            response->image = pictureOf(shared->folder / name.toStdString(), size, fit);
            if (fit == PictureFit::card && !response->image.isNull()) shared->keep(key, response->image);
          }
        }
        // The engine owns the response from here on.
        Q_EMIT response->finished();
      },
      // The latest request is what is in view.
      ++turn_);
  return response;
}

}  // namespace ambrel
