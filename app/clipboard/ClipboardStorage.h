#pragma once
// Access to the clipboard's folder off the main thread: one job at a time, in the order of the calls. Handlers run on
// the main thread.

#include <deque>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "app/base/Background.h"
#include "app/base/Presentation.h"
#include "core/clipboard/Capture.h"
#include "core/clipboard/ClipIndex.h"
#include "core/clipboard/LibraryChange.h"

namespace ambrel {

class ClipboardStorage {
 public:
  // `snapshot` gives the library when a save of it as a whole begins.
  ClipboardStorage(std::filesystem::path folder, Background background, DelayedStep later,
                   std::function<ClipboardLibrary()> snapshot);
  // Writes unsaved changes, as one library file without a journal.
  ~ClipboardStorage();
  ClipboardStorage(const ClipboardStorage&) = delete;
  ClipboardStorage& operator=(const ClipboardStorage&) = delete;

  struct Loaded {
    ClipboardLibrary library;  // empty when it could not be read; that is logged
    bool isReadOnly = false;   // another bar keeps this history
    ClipIndex index;
  };
  // Also removes pictures that the library does not name.
  void load(SearchFolding folding, std::function<void(Loaded)> done);

  // Saves the library soon; changes that arrive before the save starts are part of it. Without changes the whole
  // library is written. A failed save is retried after a while, at the next change and at the end. Nothing is saved
  // while the history is read-only.
  void save(std::vector<LibraryChange> changes);
  // Called when a save fails after one that succeeded; `reason` is the system's message.
  std::function<void(std::string reason)> onSaveFailed;
  // Whether the other bar has released the history; load it again then.
  void tryLock(std::function<void(bool)> done);

  // A picture as a PNG file of our own, converted if it is in another format; absent when it cannot be kept.
  void savePicture(Representation picture, std::function<void(std::optional<SavedPicture>)> done);
  // The bytes of a picture; absent when the file is missing.
  void readPicture(const std::string& name, std::function<void(std::optional<std::string>)> done);
  // Deletes pictures once the library that no longer names them is on disk. Pictures that are used again by then
  // stay.
  void removePictures(std::vector<std::string> names);
  std::function<std::set<std::string>()> picturesInUse;

  std::filesystem::path picturesFolder() const;

 private:
  struct Job {
    std::function<void()> work, done;
  };
  struct Shared;  // with the thread that works

  void enqueue(std::function<void()> work, std::function<void()> done);
  void next();
  void startSave();
  void saved(const std::optional<std::string>& failure, bool wasWhole);
  void retryLater();
  void startRemoval();
  bool isDirty() const { return needsWhole_ || !changes_.empty(); }
  bool isLibraryOnDisk() const { return !isDirty() && !hasFailed_; }

  std::filesystem::path folder_;
  Background background_;
  DelayedStep later_;
  std::function<ClipboardLibrary()> snapshot_;
  std::shared_ptr<Shared> shared_;
  std::deque<Job> jobs_;
  bool isWorking_ = false;
  bool isLoaded_ = false, isReadOnly_ = true;
  // What has changed since the last save began.
  std::vector<LibraryChange> changes_;
  bool needsWhole_ = false;
  bool hasFailed_ = false;  // the last save
  int retryGeneration_ = 0;
  std::shared_ptr<const bool> life_ = std::make_shared<const bool>(true);
  std::set<std::string> unused_;  // pictures to be removed
};

}  // namespace ambrel
