#include "app/clipboard/ClipboardStorage.h"

#include <QBuffer>
#include <QImage>
#include <QImageReader>
#include <algorithm>
#include <atomic>
#include <iterator>
#include <mutex>
#include <utility>

#include "app/base/Heap.h"
#include "app/base/Log.h"
#include "core/base/Files.h"
#include "core/clipboard/ClipboardFolder.h"

namespace ambrel {
namespace {

// For pictures in other formats than PNG, at up to four bytes per pixel.
constexpr int mostDecodedMegabytes = 256;

// After a failed save: a full or missing disk may be back by then.
constexpr Seconds retryDelay{30};

// The decoder for a type. The format is never guessed from the data.
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

// The folder is used by one job at a time, and by the destructor, which may run during a job.
struct ClipboardStorage::Shared {
  explicit Shared(const std::filesystem::path& path) : folder(path) {}

  // Why it failed; absent when it is saved.
  using Failure = std::optional<std::string>;

  Failure save(const ClipboardLibrary& library, bool isLast = false) {
    return write(isLast, [&] { folder.save(library); });
  }
  Failure append(std::span<const LibraryChange> changes) {
    return write(false, [&] { folder.append(changes); });
  }
  Failure write(bool isLast, const std::function<void()>& work) {
    const std::scoped_lock lock(mutex);
    // A late job must not overwrite the last save.
    if (std::exchange(isClosed, isClosed || isLast)) return std::nullopt;
    Failure failure;
    try {
      work();
    } catch (const std::exception& error) {
      failure = error.what();
    }
    wantsWhole = folder.wantsWhole();
    isAtRest = folder.isAtRest();
    return failure;
  }

  // A failure to lock does not mean that another bar has the folder.
  bool tryLock() {
    const std::scoped_lock lock(mutex);
    try {
      return folder.lock();
    } catch (const std::exception& error) {
      logLine(std::string("cannot lock the clipboard library: ") + error.what());
      return true;
    }
  }

  Loaded load(SearchFolding folding) {
    Loaded loaded;
    loaded.isReadOnly = !tryLock();
    const std::scoped_lock lock(mutex);
    loaded.index = ClipIndex(folding);
    try {
      loaded.library = folder.load();
    } catch (const std::exception& error) {
      logLine(std::string("cannot read clipboard library: ") + error.what());
    }
    std::set<std::string> names;
    for (const ClipItem& item : loaded.library.items) {
      ClipFacts facts = factsOf(item, folding);
      if (item.imageFileName) {
        names.insert(*item.imageFileName);
        facts.pictureSize = sizeOf(folder.imagePath(*item.imageFileName));
      }
      loaded.index.put(item.id, std::move(facts));
    }
    if (!loaded.isReadOnly) folder.sweepOrphans(names);
    wantsWhole = folder.wantsWhole();
    isAtRest = folder.isAtRest();
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
  std::atomic<bool> wantsWhole = true, isAtRest = true;  // of the folder, as of the last job
};

ClipboardStorage::ClipboardStorage(std::filesystem::path folder, Background background, DelayedStep later,
                                   std::function<ClipboardLibrary()> snapshot)
    : folder_(std::move(folder)),
      background_(std::move(background)),
      later_(std::move(later)),
      snapshot_(std::move(snapshot)),
      shared_(std::make_shared<Shared>(folder_)) {
  QImageReader::setAllocationLimit(mostDecodedMegabytes);
}

ClipboardStorage::~ClipboardStorage() {
  if (!isLoaded_ || isReadOnly_ || (!isDirty() && !hasFailed_ && shared_->isAtRest)) return;
  if (const auto failure = shared_->save(snapshot_(), true)) logLine("cannot save clipboard library: " + *failure);
}

std::filesystem::path ClipboardStorage::picturesFolder() const { return shared_->folder.imagePath(""); }

void ClipboardStorage::enqueue(std::function<void()> work, std::function<void()> done) {
  jobs_.push_back({std::move(work), std::move(done)});
  next();
}

void ClipboardStorage::next() {
  if (isWorking_) return;
  if (jobs_.empty()) {
    if (isDirty())
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
        // The parsed document was several times as large as the library.
        returnFreedMemory();
      },
      [this, result, done = std::move(done)] {
        isLoaded_ = true;
        isReadOnly_ = result->isReadOnly;
        // A journal left by a crash is merged into the library.
        if (!shared_->isAtRest) needsWhole_ = !isReadOnly_;
        done(std::move(*result));
      });
}

void ClipboardStorage::tryLock(std::function<void(bool)> done) {
  auto isOurs = std::make_shared<bool>(false);
  enqueue([shared = shared_, isOurs] { *isOurs = shared->tryLock(); },
          [isOurs, done = std::move(done)] { done(*isOurs); });
}

void ClipboardStorage::save(std::vector<LibraryChange> changes) {
  if (isReadOnly_) return;
  if (changes.empty()) needsWhole_ = true;
  std::ranges::move(changes, std::back_inserter(changes_));
  next();
}

void ClipboardStorage::startSave() {
  const auto failure = std::make_shared<Shared::Failure>();
  const bool isWhole = std::exchange(needsWhole_, false) || hasFailed_ || shared_->wantsWhole;
  const auto changes = std::make_shared<const std::vector<LibraryChange>>(std::exchange(changes_, {}));
  if (isWhole) {
    const auto library = std::make_shared<const ClipboardLibrary>(snapshot_());
    enqueue([shared = shared_, library, failure] { *failure = shared->save(*library); },
            [this, failure] { saved(*failure, true); });
  } else {
    enqueue([shared = shared_, changes, failure] { *failure = shared->append(*changes); },
            [this, failure] { saved(*failure, false); });
  }
}

void ClipboardStorage::saved(const std::optional<std::string>& failure, bool wasWhole) {
  if (failure && !wasWhole) {
    // A failed append is part of the next full save.
    needsWhole_ = true;
    return;
  }
  const bool hadFailed = std::exchange(hasFailed_, failure.has_value());
  ++retryGeneration_;
  if (!failure) return;
  logLine("cannot save clipboard library: " + *failure);
  retryLater();
  if (!hadFailed && onSaveFailed) onSaveFailed(*failure);
}

void ClipboardStorage::retryLater() {
  later_(retryDelay, [this, life = std::weak_ptr(life_), generation = retryGeneration_] {
    if (life.expired() || generation != retryGeneration_) return;
    needsWhole_ = true;
    next();
  });
}

void ClipboardStorage::savePicture(Representation picture, std::function<void(std::optional<SavedPicture>)> done) {
  auto result = std::make_shared<std::optional<SavedPicture>>();
  auto source = std::make_shared<const Representation>(std::move(picture));
  enqueue([shared = shared_, source, result] { *result = shared->savePicture(*source); },
          [result, done = std::move(done)] { done(std::move(*result)); });
}

void ClipboardStorage::readPicture(const std::string& name, std::function<void(std::optional<std::string>)> done) {
  auto result = std::make_shared<std::optional<std::string>>();
  enqueue([path = shared_->folder.imagePath(name), result] { *result = readFile(path); },
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
