#pragma once
// The clipboard's folder, worked on off the main thread: one job after the other, in the order in which they are asked
// for. Handlers run on the main thread.

#include <deque>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "app/base/Background.h"
#include "core/clipboard/Capture.h"
#include "core/clipboard/ClipIndex.h"

namespace ambrel {

class ClipboardStorage {
 public:
  // `snapshot` gives the library when a save of it begins.
  ClipboardStorage(std::filesystem::path folder, Background background, std::function<ClipboardLibrary()> snapshot);
  // Writes what has not been saved yet.
  ~ClipboardStorage();
  ClipboardStorage(const ClipboardStorage&) = delete;
  ClipboardStorage& operator=(const ClipboardStorage&) = delete;

  struct Loaded {
    ClipboardLibrary library;  // empty when it could not be read; that is logged
    ClipIndex index;
    std::unordered_map<std::string, PictureSize> pictureSizes;
  };
  // Pictures that the library does not name are removed on the way.
  void load(SearchFolding folding, std::function<void(Loaded)> done);

  // Saves the library soon; changes that come before the save begins go into the same one. Failures are logged.
  void save();

  // A picture as a PNG file of our own, converted if it is in another format; absent when it cannot be kept.
  struct SavedPicture {
    std::string name;
    PictureSize size;
  };
  void savePicture(Representation picture, std::function<void(std::optional<SavedPicture>)> done);
  // The bytes of a picture; absent when the file has gone.
  void readPicture(const std::string& name, std::function<void(std::optional<std::string>)> done);
  // Deletes pictures that the library does not name any more, as soon as that library is on the disk. Those that
  // are in use again by then stay.
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
  void startRemoval();
  bool isLibraryOnDisk() const { return !isDirty_ && wasSaved_; }

  std::filesystem::path folder_;
  Background background_;
  std::function<ClipboardLibrary()> snapshot_;
  std::shared_ptr<Shared> shared_;
  std::deque<Job> jobs_;
  bool isWorking_ = false;
  bool isDirty_ = false;          // the library has changed since the last save began
  bool wasSaved_ = true;          // the last save succeeded
  std::set<std::string> unused_;  // pictures to be removed
};

}  // namespace ambrel
