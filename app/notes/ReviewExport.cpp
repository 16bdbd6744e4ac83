#include "app/notes/ReviewExport.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>
#include <QTextLayout>
#include <algorithm>

#include "app/base/StoredValue.h"
#include "app/notes/MarkDrawing.h"

namespace ambrel {
namespace {

QString text(const char* source) { return QCoreApplication::translate("ReviewExport", source); }

// A pin on a picture of this size, in its pixels: as large as on the screen, and larger on large pictures.
double pinSize(const QSize& picture) { return std::max(28.0, std::min(picture.width(), picture.height()) / 36.0); }

// The first of "Screen Review", "Screen Review (2)", ... for which none of the files is there.
QString freeBase(const QString& folder, const std::function<QStringList(const QString&)>& filesOf) {
  const QString name = QStringLiteral("Screen Review");
  for (int turn = 1;; ++turn) {
    const QString base = turn == 1 ? name : QStringLiteral("%1 (%2)").arg(name).arg(turn);
    const QStringList files = filesOf(base);
    if (std::none_of(files.begin(), files.end(), [&](const QString& file) {
          const QFileInfo info(QDir(folder).filePath(file));
          return info.exists() || info.isSymLink();
        }))
      return base;
  }
}

// Says why the file could not be written; empty when it was.
QString write(const QString& path, const QByteArray& bytes) {
  QSaveFile file(path);
  if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit()) return {};
  return file.errorString();
}

// Points, as all lengths below.
constexpr double margin = 48, gap = 14, pinColumn = 30, numberSize = 18;

class PDFPages {
 public:
  PDFPages(QIODevice& device, const QString& title) : writer_(&device) {
    const bool isLetter = QLocale().measurementSystem() == QLocale::ImperialUSSystem;
    writer_.setPageSize(QPageSize(isLetter ? QPageSize::Letter : QPageSize::A4));
    writer_.setPageMargins({});
    writer_.setResolution(resolution);
    writer_.setTitle(title);
    writer_.setCreator(QStringLiteral("Tilebay"));
    size_ = QPageSize::size(isLetter ? QPageSize::Letter : QPageSize::A4, QPageSize::Point);
    isOpen_ = painter_.begin(&writer_);
    painter_.scale(resolution / 72.0, resolution / 72.0);
  }

  bool isOpen() const { return isOpen_; }
  bool end() { return painter_.end(); }

  void add(const ReviewPage& page, const QImage& picture, const QString& heading) {
    if (hasPage_) newPage();
    hasPage_ = true;
    top_ = margin;
    paragraph(heading, margin, font(15, QFont::DemiBold), Qt::black);
    top_ += gap / 2;
    if (!picture.isNull()) drawPicture(page, picture);
    if (page.pins.empty()) paragraph(text("No notes."), margin, font(11), QColor(0x55, 0x55, 0x55));
    for (std::size_t i = 0; i < page.pins.size(); ++i) note(page.pins[i], i);
  }

 private:
  static constexpr int resolution = 300;

  static QFont font(int pixels, QFont::Weight weight = QFont::Normal) {
    QFont font(QStringLiteral("Inter"));
    font.setPixelSize(pixels);
    font.setWeight(weight);
    return font;
  }
  double bottom() const { return size_.height() - margin; }
  void newPage() {
    writer_.newPage();
    top_ = margin;
  }

  // Not above two thirds of the page, so that the first notes are beneath it.
  void drawPicture(const ReviewPage& page, const QImage& picture) {
    const QSizeF room(size_.width() - 2 * margin, (size_.height() - 2 * margin) * 2 / 3);
    const QSizeF fit = QSizeF(picture.size()).scaled(room, Qt::KeepAspectRatio);
    const QRectF frame(margin + (room.width() - fit.width()) / 2, top_, fit.width(), fit.height());
    painter_.drawImage(frame, picture);
    painter_.setPen(QPen(QColor(0xC8, 0xC8, 0xC8), 0.5));
    painter_.setBrush(Qt::NoBrush);
    painter_.drawRect(frame);
    drawMarks(painter_, page, frame, numberSize);
    top_ += fit.height() + gap;
  }

  void note(const ReviewPin& pin, std::size_t index) {
    const QString note = toQString(pin.text).trimmed();
    if (top_ + numberSize > bottom()) newPage();
    painter_.setRenderHint(QPainter::Antialiasing);
    drawPin(painter_, {margin + numberSize / 2, top_ + numberSize / 2}, index, numberSize);
    top_ += 2;
    paragraph(note.isEmpty() ? text("(no text)") : note, margin + pinColumn, font(11),
              note.isEmpty() ? QColor(0x77, 0x77, 0x77) : QColor(Qt::black));
    top_ += gap;
  }

  // Wraps at the right margin, also within a word that is too long, and goes on on the next page.
  void paragraph(const QString& words, double left, const QFont& font, const QColor& color) {
    QString lines = words;
    lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(QLatin1Char('\n'), QChar::LineSeparator);
    QTextLayout layout(lines, font, &writer_);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    // Lines are laid out in the device's units.
    const double unit = resolution / 72.0;
    layout.setFont(scaled(font, unit));
    layout.beginLayout();
    std::vector<QTextLine> all;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
      line.setLineWidth((size_.width() - margin - left) * unit);
      all.push_back(line);
    }
    layout.endLayout();
    painter_.save();
    painter_.scale(1 / unit, 1 / unit);
    painter_.setPen(color);
    for (const QTextLine& line : all) {
      const double height = line.height() * 1.2 / unit;
      if (top_ + height > bottom()) {
        painter_.restore();
        newPage();
        painter_.save();
        painter_.scale(1 / unit, 1 / unit);
        painter_.setPen(color);
      }
      line.draw(&painter_, QPointF(left * unit - line.x(), top_ * unit - line.y()));
      top_ += height;
    }
    painter_.restore();
  }

  static QFont scaled(QFont font, double by) {
    font.setPixelSize(qRound(font.pixelSize() * by));
    return font;
  }

  QPdfWriter writer_;
  QPainter painter_;
  QSizeF size_;
  double top_ = margin;
  bool isOpen_ = false, hasPage_ = false;
};

}  // namespace

QImage annotated(const QImage& picture, const ReviewPage& page) {
  QImage image = picture.convertToFormat(QImage::Format_RGB32);
  QPainter painter(&image);
  painter.setFont(QFont(QStringLiteral("Inter")));
  drawMarks(painter, page, image.rect(), pinSize(image.size()));
  return image;
}

ExportResult exportPDF(const ExportedReview& review, const QString& folder) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  {
    PDFPages pages(buffer, review.title);
    if (!pages.isOpen()) return {{}, text("The PDF could not be made.")};
    const auto& all = review.review.pages;
    for (std::size_t i = 0; i < all.size(); ++i) {
      const QString capture = text("Capture %1").arg(i + 1);
      pages.add(all[i], review.picture(all[i].id),
                i == 0 ? QStringLiteral("%1 · %2").arg(review.title, capture) : capture);
    }
    if (!pages.end()) return {{}, text("The PDF could not be made.")};
  }
  const auto file = [](const QString& base) { return QStringList(base + QStringLiteral(".pdf")); };
  const QString path = QDir(folder).filePath(file(freeBase(folder, file)).front());
  const QString problem = write(path, buffer.data());
  return problem.isEmpty() ? ExportResult{{path}, {}} : ExportResult{{}, problem};
}

ExportResult exportPNG(const ExportedReview& review, const QString& folder) {
  const auto& pages = review.review.pages;
  const auto files = [&pages](const QString& base) {
    QStringList names;
    for (std::size_t i = 1; i <= pages.size(); ++i) names << QStringLiteral("%1 %2.png").arg(base).arg(i);
    return names;
  };
  const QStringList names = files(freeBase(folder, files));
  ExportResult result;
  for (std::size_t i = 0; i < pages.size(); ++i) {
    const QString path = QDir(folder).filePath(names[static_cast<qsizetype>(i)]);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    const QImage picture = review.picture(pages[i].id);
    if (picture.isNull() || !annotated(picture, pages[i]).save(&buffer, "PNG")) {
      result.problem = text("A picture could not be made.");
      return result;
    }
    result.problem = write(path, buffer.data());
    if (!result.problem.isEmpty()) return result;
    result.files << path;
  }
  return result;
}

}  // namespace ambrel
