#include "tests/app/kit/Looks.h"

#include <QAccessible>
#include <QSet>
#include <algorithm>
#include <map>
#include <vector>

#include "app/kit/Palette.h"
#include "tests/app/kit/Scene.h"

namespace ambrel {
namespace {

QColor mostCommonColor(const QImage& image) {
  std::map<QRgb, int> counts;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) ++counts[image.pixel(x, y)];
  const auto most =
      std::max_element(counts.begin(), counts.end(), [](const auto& a, const auto& b) { return a.second < b.second; });
  return most == counts.end() ? QColor() : QColor(most->first);
}

bool isBlank(const QImage& image) {
  const QRgb ground = mostCommonColor(image).rgb();
  int others = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) others += (image.pixel(x, y) | 0xFF000000) != ground;
  return others <= 20;
}

QString described(const QQuickItem* text) {
  return QStringLiteral("\"%1\" in %2")
      .arg(text->property("text").toString(), QLatin1String(text->parentItem()->metaObject()->className()));
}

// What an item shows once its ancestors have cut it.
QRectF shownBox(const QQuickItem* item) {
  QRectF box = item->mapRectToScene(QRectF(0, 0, item->width(), item->height()));
  for (const QQuickItem* above = item->parentItem(); above; above = above->parentItem())
    if (above->clip()) box &= above->mapRectToScene(QRectF(0, 0, above->width(), above->height()));
  return box;
}

// What is drawn of an item: a text takes less than its box at times.
QRectF drawn(QQuickItem* item, QQuickItem* tile) {
  QRectF box(0, 0, item->width(), item->height());
  const QVariant width = item->property("contentWidth"), height = item->property("contentHeight");
  if (width.isValid()) {
    const int alignment = item->property("horizontalAlignment").toInt();
    const qreal spare = std::max(0.0, box.width() - width.toReal());
    const qreal left = alignment & Qt::AlignHCenter ? spare / 2 : alignment & Qt::AlignRight ? spare : 0;
    box = QRectF(left, 0, width.toReal(), std::min(box.height(), height.toReal()));
  }
  return item->mapRectToItem(tile, box);
}

struct Piece {
  QString what;
  QRectF box;
};

// The texts and the pictures of a tile.
std::vector<Piece> piecesOf(QQuickItem* tile) {
  std::vector<Piece> pieces;
  visitShown(tile, [&](QQuickItem* item) {
    const QString text = item->property("text").toString();
    const bool isText = (item->inherits("QQuickText") || item->inherits("ambrel::TickingText")) && !text.isEmpty();
    const bool isPicture = item->inherits("ambrel::Gauge") || item->inherits("ambrel::SparklineCurve");
    if (isText || isPicture)
      pieces.push_back({isText ? text : QLatin1String(item->metaObject()->className()), drawn(item, tile)});
  });
  return pieces;
}

bool isWithin(const QRectF& inner, const QRectF& outer) { return outer.adjusted(-0.5, -0.5, 0.5, 0.5).contains(inner); }

// The scene's picture once colours have eased and nothing moves any more.
QImage restingPicture(Scene& scene) {
  QImage image, before;
  int alike = 0;
  const bool rests = QTest::qWaitFor([&] {
    before = std::exchange(image, scene.grab());
    alike = image == before ? alike + 1 : 0;
    return alike == 12;
  });
  return rests ? image : QImage();
}

}  // namespace

void visitShown(QQuickItem* item, const std::function<void(QQuickItem*)>& look) {
  if (!item->isVisible() || item->opacity() < 1) return;
  look(item);
  for (QQuickItem* child : item->childItems()) visitShown(child, look);
}

QQuickItem* firstShown(QQuickItem* root, const std::function<bool(QQuickItem*)>& fits) {
  QQuickItem* found = nullptr;
  visitShown(root, [&](QQuickItem* item) {
    if (!found && fits(item)) found = item;
  });
  return found;
}

QQuickItem* labelled(QQuickItem* root, const QString& label) {
  return firstShown(root, [&](QQuickItem* item) { return item->property("label").toString() == label; });
}

bool click(QQuickItem* item, Qt::MouseButton button) {
  if (!item || !item->isEnabled()) return false;
  QTest::mouseClick(item->window(), button, {}, item->mapToScene({item->width() / 2, item->height() / 2}).toPoint());
  return true;
}

QImage pictureOf(const QImage& scene, const QQuickItem* item) {
  return scene.copy(shownBox(item).toAlignedRect().intersected(scene.rect()));
}

QStringList faultsOf(Scene& scene) { return faultsOf(scene.window(), scene.root()); }

QStringList faultsOf(QQuickWindow& window, QQuickItem* root) {
  QStringList faults;
  const QImage image = window.grabWindow();
  // To see what the tests saw.
  if (const QString folder = qEnvironmentVariable("AMBREL_SHOTS"); !folder.isEmpty()) {
    QString name = QLatin1String(QTest::currentDataTag());
    if (!name.isEmpty())
      image.save(folder + u'/' + name.replace(QLatin1String(", "), QLatin1String("-")) + QStringLiteral(".png"));
  }
  visitShown(root, [&](QQuickItem* item) {
    const QImage picture = pictureOf(image, item);
    if (!item->objectName().isEmpty() && isBlank(picture)) faults << item->objectName() + " is blank";
    if (!item->inherits("QQuickText") || item->property("text").toString().isEmpty()) return;
    if (item->property("contentWidth").toReal() > item->width() + 1 && !item->property("truncated").toBool())
      faults << described(item) + " is cut off";
    const bool isWhole = shownBox(item).height() >= item->height() - 1;
    if (picture.isNull() || !item->isEnabled() || !isWhole) return;
    const double contrast = contrastRatio(item->property("color").value<QColor>(), mostCommonColor(picture));
    if (contrast < 4.5) faults << described(item) + " has a contrast of " + QString::number(contrast);
  });
  return faults;
}

QStringList collisionsOf(QQuickItem* tile) {
  QStringList faults;
  const std::vector<Piece> pieces = piecesOf(tile);
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    if (!isWithin(pieces[i].box, QRectF(0, 0, tile->width(), tile->height())))
      faults << tile->objectName() + ": " + pieces[i].what + " leaves the tile";
    for (std::size_t j = i + 1; j < pieces.size(); ++j) {
      const auto& [first, second] = std::pair(pieces[i], pieces[j]);
      const QRectF common = first.box & second.box;
      const bool isAround = isWithin(second.box, first.box) || isWithin(first.box, second.box);
      // Lines of text are set tight: what their boxes share is empty.
      if (common.width() > 1 && common.height() > 3 && !isAround)
        faults << tile->objectName() + ": " + first.what + " and " + second.what + " collide";
    }
  }
  return faults;
}

QStringList faultsInBothSchemes(Scene& scene, const char* name) {
  QStringList faults;
  for (const bool isDark : {true, false}) {
    scene.theme().setChoice(isDark ? Theme::Choice::Dark : Theme::Choice::Light);
    const QImage picture = restingPicture(scene);
    if (picture.isNull()) faults << "it does not come to rest";
    if (const QString folder = qEnvironmentVariable("AMBREL_SHOTS"); !folder.isEmpty())
      picture.save(QStringLiteral("%1/%2-%3.png").arg(folder, QLatin1String(name), isDark ? "dark" : "light"));
    faults += faultsOf(scene);
  }
  return faults + scene.warnings().take();
}

QStringList namesByTab(Scene& scene) {
  QStringList names;
  QSet<QQuickItem*> seen;
  for (int i = 0; i < 200; ++i) {
    QTest::keyClick(&scene.window(), Qt::Key_Tab);
    QQuickItem* item = scene.window().activeFocusItem();
    if (!item || seen.contains(item)) break;
    seen.insert(item);
    const QString name = spokenName(item);
    names << (name.isEmpty() ? QStringLiteral("nameless %1").arg(QLatin1String(item->metaObject()->className()))
                             : name);
  }
  return names;
}

QStringList textsOf(QQuickItem* item) {
  QStringList texts;
  visitShown(item, [&](QQuickItem* each) {
    if (const QString text = each->property("text").toString(); !text.isEmpty()) texts << text;
  });
  return texts;
}

QString spokenName(QQuickItem* item) {
  QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(item);
  return interface ? interface->text(QAccessible::Name) : QString();
}

}  // namespace ambrel
