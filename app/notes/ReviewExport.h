#pragma once
// A review as files for others: a PDF, or a picture for each capture. Off the main thread.

#include <QImage>
#include <QString>
#include <functional>
#include <vector>

#include "core/review.h"

namespace ambrel {

// What an export needs; the pictures are decoded one at a time.
struct ExportedReview {
  ScreenReview review;
  QString title;
  std::function<QImage(const UUID& page)> picture;
};

struct ExportResult {
  QStringList files;  // what was written, by full path
  QString problem;    // why it ended early, in one sentence; empty when all was written
};

// The capture with its marks, in its own pixels.
QImage annotated(const QImage& picture, const ReviewPage& page);

// "Screen Review.pdf": each capture begins a page and its numbered notes follow beneath, on further pages as needed.
ExportResult exportPDF(const ExportedReview& review, const QString& folder);
// "Screen Review 1.png", "Screen Review 2.png", ...: each capture is one image.
ExportResult exportPNG(const ExportedReview& review, const QString& folder);
// Both write each file whole or not at all, and overwrite none: "Screen Review (2).pdf" comes beside the first.

}  // namespace ambrel
