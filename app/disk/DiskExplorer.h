#pragma once
// The user's position in the size tree: the current folder, the path to it, and the hovered item.

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

// Colours of the chart's branches: the five largest have one each, the others and folded items share the sixth.
inline constexpr int sunburstColorCount = 6;
// A colour index for each child of the centre, in their order.
std::vector<int> sunburstColors(const DiskItem& center);

// An entry of the chart's legend or of the breadcrumb.
struct DiskPart {
  Q_GADGET
  QML_VALUE_TYPE(diskPart)
  Q_PROPERTY(QString partId MEMBER id FINAL)
  Q_PROPERTY(int colorRank MEMBER color FINAL)

 public:
  QString id;  // empty for a sum of several items
  FACE_FIELDS(QString, name, size);
  int color = 0;                // index of the chart's colours; negative if not read yet
  FACE_FIELDS(bool, isFolder);  // it can be entered
  FACE_FIELDS(bool, isHighlighted);
  friend bool operator==(const DiskPart&, const DiskPart&) = default;
};

// The folder that the chart shows, and the text in its centre about the hovered item or the folder.
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

  // Shows a tree from its root, which is named `title`.
  void show(DiskTree root, const QString& title);
  // During a scan: the finished top-level folders, their share of the circle, the total bytes so far, and the names
  // of the unfinished folders.
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

  // Null if the tree has no such node.
  const DiskItem* node(const QString& id) const;

  // Makes a folder the centre. False if it has no content.
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
  // Present during a scan.
  std::optional<std::int64_t> bytesSoFar_;
  GadgetListModel<DiskPart> path_, legend_;
  QString hoveredID_;
  DiskSpot spot_;
};

}  // namespace ambrel
