#pragma once
// Where the user is in the size tree: the folder in the middle of the chart, the way to it, and what is pointed at.

#include <QObject>
#include <QtQml/qqmlregistration.h>
#include <optional>
#include <string>
#include <vector>

#include "app/base/Face.h"
#include "app/base/GadgetListModel.h"
#include "app/disk/DiskNode.h"
#include "core/base/Calendar.h"

namespace ambrel {

// Colours of the chart's branches: the five largest have one each, all others share the sixth, as what was folded does.
inline constexpr int sunburstColorCount = 6;
// For each child of the chart's middle, by its rank.
std::vector<int> sunburstColors(const DiskItem& center);

// A part of the disk by name and size: in the legend of the chart, or on the way down to a folder.
struct DiskPart {
  Q_GADGET
  Q_PROPERTY(QString partId MEMBER id FINAL)
  Q_PROPERTY(int colorRank MEMBER color FINAL)

 public:
  QString id;  // what is behind it; empty for what was put together
  FACE_FIELDS(QString, name, size);
  int color = 0;                // the chart's; negative for what has not been read yet
  FACE_FIELDS(bool, isFolder);  // it can be entered
  FACE_FIELDS(bool, isHighlighted);
  friend bool operator==(const DiskPart&, const DiskPart&) = default;
};

// What the chart shows, and what is written in its middle: of what is pointed at, else of the folder itself.
struct DiskSpot {
  Q_GADGET
  QML_VALUE_TYPE(diskSpot)
 public:
  FACE_FIELDS(ambrel::DiskNode, center);
  FACE_FIELDS(bool, canGoUp);
  FACE_FIELDS(QString, size, name);
  FACE_FIELDS(QString, description);  // one sentence for screen readers
  friend bool operator==(const DiskSpot&, const DiskSpot&) = default;
};

class DiskExplorer : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::DiskSpot spot READ spot NOTIFY spotChanged FINAL)
  Q_PROPERTY(ambrel::RowList* path READ path CONSTANT FINAL)
  Q_PROPERTY(ambrel::RowList* legend READ legend CONSTANT FINAL)
  Q_PROPERTY(QString hoveredID READ hoveredID WRITE setHoveredID NOTIFY hoveredChanged FINAL)

 public:
  explicit DiskExplorer(Calendar calendar, QObject* parent = nullptr);

  // `title` is shown as the root's name. Starts at the root again.
  void show(DiskTree root, const QString& title);
  // While the tree is still being read: the upper folders that are known, their share of the circle, the bytes that
  // were seen in all, and the upper folders that are still to come.
  struct Unfinished {
    DiskTree root;
    double share = 0;
    std::int64_t bytes = 0;
    std::vector<std::string> missing;
  };
  void showUnfinished(Unfinished state, const QString& title);
  void clear();

  const DiskTree& root() const { return root_; }
  const DiskSpot& spot() const { return spot_; }
  GadgetListModel<DiskPart>* path() { return &path_; }
  GadgetListModel<DiskPart>* legend() { return &legend_; }
  QString hoveredID() const { return hoveredID_; }
  void setHoveredID(const QString& id);

  // A node of the tree; null when there is none of that id.
  const DiskItem* node(const QString& id) const;

  // Drills into a folder, wherever it is. False when it has nothing to show.
  Q_INVOKABLE bool enter(const QString& id);
  Q_INVOKABLE void goUp();

 Q_SIGNALS:
  void spotChanged();
  void hoveredChanged();

 private:
  bool canGoUp() const { return center_.item && root_ && center_.item != root_; }
  void update();
  std::vector<DiskPart> wayDown() const;
  std::vector<DiskPart> parts() const;
  DiskSpot spotNow() const;
  DiskPart part(const DiskItem& item, int color) const;
  QString nameOf(const DiskItem& item) const;

  Calendar calendar_;
  DiskTree root_;
  QString title_;
  DiskNode center_;
  std::vector<std::string> missing_;
  // Present while the tree is still being read.
  std::optional<std::int64_t> bytesSoFar_;
  GadgetListModel<DiskPart> path_, legend_;
  QString hoveredID_;
  DiskSpot spot_;
};

}  // namespace ambrel
