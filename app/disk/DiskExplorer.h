#pragma once
// Where the user is in the size tree: the folder in the middle of the chart, the way to it, and what is pointed at.

#include <QObject>
#include <QtQml/qqmlregistration.h>
#include <optional>
#include <string>
#include <vector>

#include "app/disk/DiskNode.h"
#include "app/disk/DiskPartListModel.h"
#include "core/base/Calendar.h"

namespace ambrel {

// Colours of the chart's branches: the five largest have one each, all others share the sixth, as what was folded does.
inline constexpr int sunburstColorCount = 6;
// For each child of the chart's middle, by its rank.
std::vector<int> sunburstColors(const DiskItem& center);

class DiskExplorer : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::DiskNode center READ center NOTIFY centerChanged)
  Q_PROPERTY(ambrel::DiskPartListModel* path READ path CONSTANT)
  Q_PROPERTY(ambrel::DiskPartListModel* legend READ legend CONSTANT)
  Q_PROPERTY(bool canGoUp READ canGoUp NOTIFY centerChanged)
  Q_PROPERTY(QString hoveredID READ hoveredID WRITE setHoveredID NOTIFY hoveredChanged)
  // Of what is pointed at, else of the middle.
  Q_PROPERTY(QString size READ size NOTIFY shownChanged)
  Q_PROPERTY(QString name READ name NOTIFY shownChanged)
  // One sentence for screen readers.
  Q_PROPERTY(QString description READ description NOTIFY shownChanged)

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
  DiskNode center() const { return center_; }
  DiskPartListModel* path() { return &path_; }
  DiskPartListModel* legend() { return &legend_; }
  bool canGoUp() const { return center_.item && root_ && center_.item != root_; }
  QString hoveredID() const { return hoveredID_; }
  void setHoveredID(const QString& id);
  QString size() const;
  QString name() const;
  QString description() const;

  // A node of the tree; null when there is none of that id.
  const DiskItem* node(const QString& id) const;

  // Drills into a folder, wherever it is. False when it has nothing to show.
  Q_INVOKABLE bool enter(const QString& id);
  Q_INVOKABLE void goUp();

 Q_SIGNALS:
  void centerChanged();
  void hoveredChanged();
  void shownChanged();

 private:
  void stand(const DiskItem& folder);
  void updatePath();
  void updateLegend();
  DiskPart part(const DiskItem& item, int color) const;
  QString nameOf(const DiskItem& item) const;
  const DiskItem* shown() const;

  Calendar calendar_;
  DiskTree root_;
  QString title_;
  DiskNode center_;
  std::vector<std::string> missing_;
  // Present while the tree is still being read.
  std::optional<std::int64_t> bytesSoFar_;
  DiskPartListModel path_, legend_;
  QString hoveredID_;
};

}  // namespace ambrel
