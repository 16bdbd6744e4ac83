// Fills a home folder with a long history of copies: ten thousand clips of every kind, two thousand of them pictures.
//
//   ClipHome HOME [CLIPS PICTURES]
//
// The pictures are of the sizes that people copy, screens of 3840 by 2160 among them. They are a few dozen drawings,
// each under many names: hard links keep the folder small, and what reads and decodes them cannot tell.

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QRandomGenerator>
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fmt/format.h>

#include "core/base/Files.h"
#include "core/clipboard/ClipboardFolder.h"

namespace ambrel {
namespace {

namespace fs = std::filesystem;

struct PictureKind {
  QSize size;
  bool isPhoto = false;
};
// What is copied most is listed more than once.
constexpr std::array pictureKinds{
    PictureKind{{3840, 2160}},       PictureKind{{1280, 800}},  PictureKind{{1920, 1080}},
    PictureKind{{640, 420}},         PictureKind{{2560, 1440}}, PictureKind{{1600, 1200}, true},
    PictureKind{{900, 1400}},        PictureKind{{320, 90}},    PictureKind{{3840, 2160}},
    PictureKind{{1920, 1080}},       PictureKind{{48, 48}},     PictureKind{{1200, 6000}},
    PictureKind{{1280, 800}},        PictureKind{{2400, 60}},   PictureKind{{800, 600}},
    PictureKind{{2000, 1500}, true},
};
constexpr int drawingsOfEach = 3;

// Windows with lines of text, as a screen shows them.
void drawScreen(QPainter& painter, QSize size, QRandomGenerator& random) {
  painter.fillRect(QRect({}, size), QColor::fromHsv(random.bounded(360), 90, 110));
  const int windows = std::max(1, size.width() / 700);
  for (int i = 0; i < windows; ++i) {
    const QRect frame(random.bounded(size.width() / 2), random.bounded(std::max(1, size.height() / 3)),
                      size.width() / 2, size.height() * 2 / 3);
    painter.fillRect(frame, i % 2 ? QColor(24, 28, 35) : QColor(250, 251, 253));
    painter.fillRect(QRect(frame.topLeft(), QSize(frame.width(), 28)), QColor::fromHsv(random.bounded(360), 120, 190));
    painter.setPen(i % 2 ? Qt::lightGray : Qt::darkGray);
    for (int y = frame.top() + 48; y < frame.bottom(); y += 18)
      painter.drawText(frame.left() + 12 + random.bounded(60), y,
                       QStringLiteral("line %1 of what a window holds, %2").arg(y).arg(random.generate()));
  }
}

void drawPhoto(QImage& image, QRandomGenerator& random) {
  const int tint = random.bounded(120);
  for (int y = 0; y < image.height(); ++y) {
    auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < image.width(); ++x) {
      const int grain = static_cast<int>(random.generate() & 7U);
      line[x] = qRgb(tint + x * 100 / image.width() + grain, y * 200 / image.height() + grain, 90 + grain);
    }
  }
}

void makeDrawing(const fs::path& path, PictureKind kind, quint32 seed) {
  QRandomGenerator random(seed);
  QImage image(kind.size, QImage::Format_RGB32);
  if (kind.isPhoto) {
    drawPhoto(image, random);
  } else {
    QPainter painter(&image);
    drawScreen(painter, kind.size, random);
  }
  if (!image.save(QString::fromStdString(path.string()), "PNG")) throw std::runtime_error("cannot write a picture");
}

std::string pictureName(int number) { return fmt::format("{:064x}.png", number + 1); }

void makePictures(const fs::path& folder, int count) {
  makeFolders(folder);
  constexpr int drawings = static_cast<int>(pictureKinds.size()) * drawingsOfEach;
  for (int i = 0; i < count; ++i) {
    const fs::path path = folder / pictureName(i);
    if (i < drawings)
      makeDrawing(path, pictureKinds[static_cast<std::size_t>(i) % pictureKinds.size()], static_cast<quint32>(i));
    else
      fs::create_hard_link(folder / pictureName(i % drawings), path);
  }
}

std::string wordsOf(int number) {
  constexpr std::array sentences{"Meeting moved to Thursday, room 4. Bring the printed plan and the two samples. ",
                                 "Schöne Grüße aus Zürich, à bientôt; das Treffen beginnt um zehn. ",
                                 "The tide tables for November are in the folder beside the charts. "};
  std::string text = fmt::format("Note {}: ", number);
  for (int i = number % 23 == 0 ? 40 : number % 6 + 1; i > 0; --i)
    text += sentences[static_cast<std::size_t>(number + i) % sentences.size()];
  return text;
}

ClipItem makeItem(int number, const fs::path& home, Instant now) {
  constexpr std::array programs{"org.example.editor", "org.example.browser", "org.example.mail"};
  ClipItem item{.id = UUID::random(),
                .kind = ClipKind::text,
                .text = {},
                .imageFileName = {},
                .sourceBundleID = programs[static_cast<std::size_t>(number) % programs.size()],
                .createdAt = advanced(now, Seconds(-170.0 * number - 20)),
                .isPinned = number % 400 == 7,
                .collectionIDs = {}};
  const int turn = number % 20;
  if (turn == 3) {
    item.text = fmt::format("for part in parts{}:\n  total += part.size\n  count += 1\nreturn total", number);
  } else if (turn == 5 || turn == 11) {
    item.kind = ClipKind::link;
    item.text = fmt::format("https://www.example.org/tides/{}/november?station={}", number, number * 7);
  } else if (turn == 8) {
    item.kind = ClipKind::color;
    item.text = fmt::format("#{:06X}", number * 7919 % 0x1000000);
  } else if (turn == 13) {
    item.kind = ClipKind::file;
    item.text = fmt::format("{0}/plan-{1}.pdf\n{0}/budget-{1}.ods", home.string(), number);
  } else if (number == 17) {
    // Older ones would be forgotten.
    item.text = fmt::format("ghp_{:036}", number);
  } else {
    item.text = wordsOf(number);
  }
  return item;
}

void fill(const fs::path& home, int clips, int pictures) {
  const auto now = std::chrono::floor<std::chrono::microseconds>(std::chrono::system_clock::now());
  const fs::path path = home / ".local/share/Ambrel/Clipboard";
  ClipboardLibrary library;
  for (int i = 0, shown = 0; i < clips; ++i) {
    ClipItem item = makeItem(i, home, now);
    // Spread evenly over the history.
    if (shown < static_cast<std::int64_t>(i + 1) * pictures / clips) {
      item.kind = ClipKind::image;
      item.text.reset();
      item.imageFileName = pictureName(shown++);
    }
    library.items.push_back(std::move(item));
  }
  ClipboardFolder folder(path);
  folder.save(library);
  makePictures(path / "Images", pictures);
}

}  // namespace
}  // namespace ambrel

int main(int count, char** words) {
  if (count != 2 && count != 4) {
    fmt::print(stderr, "usage: ClipHome HOME [CLIPS PICTURES]\n");
    return 2;
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(count, words);
  try {
    ambrel::fill(words[1], count == 4 ? std::max(1, std::atoi(words[2])) : 10'000,
                 count == 4 ? std::max(0, std::atoi(words[3])) : 2'000);
  } catch (const std::exception& error) {
    fmt::print(stderr, "ClipHome: {}\n", error.what());
    return 1;
  }
  return 0;
}
