#pragma once
// A short curve, pixel by pixel: what ticks every few seconds costs so a quarter of what a path does.

#include <QImage>
#include <QList>
#include <QPointF>
#include <QRectF>

namespace ambrel {

// Lengths in pixels of the image, y downwards. Smooth at the edges; ends and corners of the line are round.
class CurveRaster {
 public:
  explicit CurveRaster(QSize size);

  // A line through the points, which go from left to right, and the ground below it down to the lower edge.
  void addRun(const QList<QPointF>& points, qreal lineWidth);
  void addDot(QPointF centre, qreal radius);
  // The line in `color`, the ground as much paler as `groundShare` (0 to 1) says, all else transparent.
  QImage image(const QColor& color, qreal groundShare) const;

 private:
  // Of a column of pixels: where the ground begins, and how much of the column's width it fills, 0 to 255.
  struct Ground {
    float level = 0;
    int width = 0;
  };
  void addSegment(QPointF from, QPointF to, float reach);
  void addGround(const QList<QPointF>& points);

  int width_, height_;
  QList<quint8> line_;  // how much of each pixel is covered, 0 to 255
  QList<Ground> ground_;
};

}  // namespace ambrel
