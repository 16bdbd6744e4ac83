#include "app/clipboard/ClipboardStorage.h"

#include <QBuffer>
#include <QImage>
#include <QImageReader>
#include <mutex>
#include <utility>

#include "app/base/Heap.h"
#include "app/base/Log.h"
#include "core/base/Files.h"
#include "core/clipboard/ClipboardFolder.h"

namespace ambrel {
namespace {

// Of a picture that comes in another format than PNG; its pixels may need four bytes each.
constexpr int mostDecodedMegabytes = 256;

// The decoder for a type; a picture is never taken for another format than its owner says.
const char* formatOf(std::string_view type) {
  if (type == "image/tiff") return "tiff";
  if (type == "image/bmp" || type == "image/x-bmp") return "bmp";
  if (type == "image/jpeg") return "jpeg";
  if (type == "image/webp") return "webp";
  return nullptr;
}

std::optional<std::string> asPNG(const Representation& picture) {
  if (picture.type == "image/png") return picture.bytes;
  const char* format = formatOf(picture.type);
  if (!format) return std::nullopt;
  QByteArray bytes = QByteArray::fromRawData(picture.bytes.data(), static_cast<qsizetype>(picture.bytes.size()));
  QBuffer source(&bytes);
  QImageReader reader(&source, format);
  reader.setAutoDetectImageFormat(false);
  reader.setAutoTransform(true);
  const QImage image = reader.read();
  if (image.isNull()) return std::nullopt;
  QByteArray png;
  QBuffer target(&png);
  target.open(QIODevice::WriteOnly);
  if (!image.save(&target, "PNG")) return std::nullopt;
  return png.toStdString();
}

std::optional<PictureSize> sizeOf(const std::filesystem::path& picture) {
  constexpr std::size_t head = 24;
  const auto bytes = readAt(openForReading(picture), 0, head);
  return bytes ? pngSize(*bytes) : std::nullopt;
}

}  // namespace

// The folder is used by one job at a time, and by the destructor, which may come while one is under way.
struct ClipboardStorage::Shared {
  explicit Shared(const std::filesystem::path& path) : folder(path) {}

  bool save(const ClipboardLibrary& library, bool isLast = false) {
    const std::scoped_lock lock(mutex);
    // An older library must not come after the last one.
    if (std::exchange(isClosed, isClosed || isLast)) return false;
    try {
      folder.save(library);
      return true;
    } catch (const std::exception& error) {
      logLine(std::string("cannot save clipboard library: ") + error.what());
      return false;
    }
  }

  Loaded load(SearchFolding folding) {
    const std::scoped_lock lock(mutex);
    Loaded loaded;
    loaded.index = ClipIndex(folding);
    try {
      loaded.library = folder.load();
    } catch (const std::exception& error) {
      logLine(std::string("cannot read clipboard library: ") + error.what());
    }
    std::set<std::string> names;
    for (const ClipItem& item : loaded.library.items) {
      loaded.index.of(item);
      if (!item.imageFileName) continue;
      names.insert(*item.imageFileName);
      if (const auto size = sizeOf(folder.imagePath(*item.imageFileName)))
        loaded.pictureSizes.emplace(*item.imageFileName, *size);
    }
    folder.sweepOrphans(names);
    return loaded;
  }

  std::optional<SavedPicture> savePicture(const Representation& picture) {
    const auto png = asPNG(picture);
    const auto size = png ? pngSize(*png) : std::nullopt;
    if (!size) return std::nullopt;
    const std::scoped_lock lock(mutex);
    try {
      return SavedPicture{folder.saveImage(*png), *size};
    } catch (const std::exception& error) {
      logLine(std::string("cannot save clipboard image: ") + error.what());
      return std::nullopt;
    }
  }

  std::mutex mutex;
  ClipboardFolder folder;
  bool isClosed = false;
};

ClipboardStorage::ClipboardStorage(std::filesystem::path folder, Background background,
                                   std::function<ClipboardLibrary()> snapshot)
    : folder_(std::move(folder)),
      background_(std::move(background)),
      snapshot_(std::move(snapshot)),
      shared_(std::make_shared<Shared>(folder_)) {
  QImageReader::setAllocationLimit(mostDecodedMegabytes);
}

ClipboardStorage::~ClipboardStorage() {
  if (isDirty_) shared_->save(snapshot_(), true);
}

std::filesystem::path ClipboardStorage::picturesFolder() const { return shared_->folder.imagePath(""); }

void ClipboardStorage::enqueue(std::function<void()> work, std::function<void()> done) {
  jobs_.push_back({std::move(work), std::move(done)});
  next();
}

void ClipboardStorage::next() {
  if (isWorking_) return;
  if (jobs_.empty()) {
    if (isDirty_)
      startSave();
    else if (!unused_.empty())
      startRemoval();
    return;
  }
  isWorking_ = true;
  Job job = std::move(jobs_.front());
  jobs_.pop_front();
  background_(std::move(job.work), [this, done = std::move(job.done)] {
    isWorking_ = false;
    if (done) done();
    next();
  });
}

void ClipboardStorage::load(SearchFolding folding, std::function<void(Loaded)> done) {
  auto result = std::make_shared<Loaded>();
  enqueue(
      [shared = shared_, folding, result] {
        *result = shared->load(folding);
        // The document's tree was several times as large as what is kept of it.
        returnFreedMemory();
      },
      [result, done = std::move(done)] { done(std::move(*result)); });
}

void ClipboardStorage::save() {
  isDirty_ = true;
  next();
}

void ClipboardStorage::startSave() {
  isDirty_ = false;
  auto library = std::make_shared<const ClipboardLibrary>(snapshot_());
  auto isSaved = std::make_shared<bool>(false);
  enqueue([shared = shared_, library, isSaved] { *isSaved = shared->save(*library); },
          [this, isSaved] { wasSaved_ = *isSaved; });
}

void ClipboardStorage::savePicture(Representation picture, std::function<void(std::optional<SavedPicture>)> done) {
  auto result = std::make_shared<std::optional<SavedPicture>>();
  auto source = std::make_shared<const Representation>(std::move(picture));
  enqueue([shared = shared_, source, result] { *result = shared->savePicture(*source); },
          [result, done = std::move(done)] { done(std::move(*result)); });
}

void ClipboardStorage::readPicture(const std::string& name, std::function<void(std::optional<std::string>)> done) {
  auto result = std::make_shared<std::optional<std::string>>();
  enqueue([path = shared_->folder.imagePath(name), result] { *result = readFile(path, CaptureLimits::picture * 4); },
          [result, done = std::move(done)] { done(std::move(*result)); });
}

void ClipboardStorage::removePictures(std::vector<std::string> names) {
  unused_.insert(std::make_move_iterator(names.begin()), std::make_move_iterator(names.end()));
  next();
}

void ClipboardStorage::startRemoval() {
  if (!isLibraryOnDisk()) return;
  std::set<std::string> names = std::exchange(unused_, {});
  for (const std::string& used : picturesInUse ? picturesInUse() : std::set<std::string>()) names.erase(used);
  if (names.empty()) return;
  auto list = std::make_shared<const std::vector<std::string>>(names.begin(), names.end());
  enqueue(
      [shared = shared_, list] {
        const std::scoped_lock lock(shared->mutex);
        shared->folder.removeImages(*list);
      },
      {});
}

}  // namespace ambrel
