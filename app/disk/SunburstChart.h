#pragma once
// The size tree of a folder as three rings around a centre, with pointer and keyboard navigation.

#include <QColor>
#include <QList>
#include <QQuickPaintedItem>
#include <vector>

#include "app/disk/DiskNode.h"
#include "core/disk/Sunburst.h"

class QPainterPath;

namespace ambrel {

// The chart does not keep what is highlighted: it emits `hovered`, and the owner sets `highlightedID`.
// Left and Right go round a ring, Up and Down outwards and inwards, Return drills in, Backspace goes up, Space asks.
class SunburstChart : public QQuickPaintedItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(ambrel::DiskNode center READ center WRITE setCenter NOTIFY centerChanged FINAL)
  Q_PROPERTY(QString highlightedID READ highlightedID WRITE setHighlightedID NOTIFY highlightedChanged FINAL)
  Q_PROPERTY(QList<QColor> colors MEMBER colors_ NOTIFY styleChanged FINAL)
  Q_PROPERTY(QColor ground MEMBER ground_ NOTIFY styleChanged FINAL)
  Q_PROPERTY(QColor ink MEMBER ink_ NOTIFY styleChanged FINAL)
  // The part that has not been read yet.
  Q_PROPERTY(QColor trackColor MEMBER trackColor_ NOTIFY styleChanged FINAL)
  // The space for text in the centre.
  Q_PROPERTY(qreal holeDiameter READ holeDiameter NOTIFY holeChanged FINAL)

 public:
  explicit SunburstChart(QQuickItem* parent = nullptr);

  DiskNode center() const { return center_; }
  void setCenter(const DiskNode& center);
  QString highlightedID() const { return highlightedID_; }
  void setHighlightedID(const QString& id);
  qreal holeDiameter() const;

  const std::vector<SunburstSegment>& segments() const { return segments_; }
  // The middle of a segment's arc.
  QPointF middleOf(const SunburstSegment& segment) const;
  // The id of the segment at a point; "" if there is none.
  QString idAt(QPointF point) const;

  void paint(QPainter* painter) override;

 Q_SIGNALS:
  void centerChanged();
  void highlightedChanged();
  void styleChanged();
  void holeChanged();
  void hovered(const QString& id);
  // A folder or a file was clicked, or Return was pressed on it.
  void entered(const QString& id);
  void upAsked();
  void asked(const QString& id);

 protected:
  void hoverEnterEvent(QHoverEvent* event) override;
  void hoverMoveEvent(QHoverEvent* event) override;
  void hoverLeaveEvent(QHoverEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;

 private:
  const SunburstSegment* segmentOf(const QString& id) const;
  const SunburstSegment* segmentUnder(QPointF point) const;
  bool isInHole(QPointF point) const;
  void walk(SunburstStep step);
  void pointAt(QPointF point);
  qreal scale() const;
  qreal innerRadius(int ring) const;
  qreal outerRadius(int ring) const;
  QPainterPath outline(const SunburstSegment& segment) const;
  QColor colorOf(const SunburstSegment& segment) const;

  DiskNode center_;
  std::vector<SunburstSegment> segments_;
  std::vector<int> branchColors_;
  QString highlightedID_;
  QString pressedID_;
  bool isHolePressed_ = false;
  QList<QColor> colors_;
  QColor ground_, ink_, trackColor_;
};

}  // namespace ambrel
