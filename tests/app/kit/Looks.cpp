#include "tests/app/kit/Looks.h"

#include <algorithm>
#include <map>

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

}  // namespace

void visitShown(QQuickItem* item, const std::function<void(QQuickItem*)>& look) {
  if (!item->isVisible() || item->opacity() < 1) return;
  look(item);
  for (QQuickItem* child : item->childItems()) visitShown(child, look);
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

}  // namespace ambrel
