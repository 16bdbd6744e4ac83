#pragma once
// One repository that the user has chosen, as it is now.

#include "app/base/GadgetListModel.h"
#include "app/base/PacedWork.h"
#include "app/developer/DeveloperFaces.h"
#include "core/base/UserDefaults.h"

namespace ambrel {

// It is read when something in it changes, while the tile can be seen. After a change out of sight it is not watched
// until the tile can be seen again.
class GitModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::GitFace face READ face NOTIFY faceChanged FINAL)
  Q_PROPERTY(ambrel::RowList* facts READ facts CONSTANT FINAL)

 public:
  static constexpr const char* chosenKey = "gitStatusFolder";
  static constexpr std::chrono::milliseconds countLimit{10'000};
  // A repository takes at most this part of a processor while its files change all the time.
  static constexpr int share = 10;
  // Where changes may be missed it is read again after so many ticks, or later if that takes long.
  static constexpr int looksAgain = 30;

  struct Seams {
    UserDefaults& defaults;
    FolderWatch& watch;
    std::shared_ptr<DeveloperTools> tools;
    Background background;                  // for work that may hang, as on a network disk
    std::chrono::milliseconds pause{1500};  // after each reading, at least
  };
  // What the seams refer to outlives it.
  explicit GitModel(Seams seams, QObject* parent = nullptr);

  const GitFace& face() const { return face_; }
  RowList* facts() { return &facts_; }
  void setSeen(bool isSeen);
  // For a dialog: what it chooses is for the profile that is active now.
  std::function<void(const std::string& path)> chooser();
  // The stored path may be another.
  void reload();
  // Every two seconds.
  void tick();

  Q_INVOKABLE void look() { work_.ask(); }

 Q_SIGNALS:
  void faceChanged();

 private:
  struct Timed {
    ToolAnswer<GitReading> answer;
    std::chrono::milliseconds cost;
  };
  PacedWork::Job reading();
  void take(const Timed& timed);
  // Every change of the state is told.
  bool tellsAll() const { return !isPartlyWatched_ && seams_.watch.tellsAll(); }
  void changed();
  void follow(std::vector<WatchedFolder> folders);

  Seams seams_;
  PacedWork work_;
  std::string path_;
  std::vector<WatchedFolder> followed_;
  bool isSeen_ = false, isStale_ = true, isPartlyWatched_ = false;
  int ticks_ = 0, wait_ = looksAgain;
  GitFace face_;
  GadgetListModel<GitFact, &GitFact::title> facts_;
};

}  // namespace ambrel
