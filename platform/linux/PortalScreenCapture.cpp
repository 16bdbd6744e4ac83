#include "platform/linux/PortalScreenCapture.h"

#include <QDBusArgument>
#include <QFile>
#include <QUrl>
#include <algorithm>
#include <array>
#include <utility>

namespace ambrel {
namespace {

using Outcome = PortalRequest::Outcome;

const auto screenshotInterface = QStringLiteral("org.freedesktop.portal.Screenshot");
// The dialog belongs to no window of ours.
const QVariantList noParent{QString()};

}  // namespace

void PortalScreenCapture::capture(std::function<void(ScreenPicture)> done) {
  request_.ask(screenshotInterface, QStringLiteral("Screenshot"), noParent, {{QStringLiteral("interactive"), false}},
               [this, done = std::move(done)](Outcome outcome, const QVariantMap& results) {
                 if (outcome == Outcome::missing)
                   return done(otherwise_ ? otherwise_()
                                          : ScreenPicture{.problem = "The desktop has no service that takes pictures "
                                                                     "of the screen."});
                 ScreenPicture picture;
                 if (outcome == Outcome::calledOff) return done(std::move(picture));
                 const QUrl file(results.value(QStringLiteral("uri")).toString());
                 if (file.isLocalFile()) {
                   picture.image = QImage(file.toLocalFile());
                   // It was made for us alone, and a capture leaves nothing on the disk.
                   QFile::remove(file.toLocalFile());
                 }
                 if (picture.image.isNull()) picture.problem = "The desktop gave no picture of the screen.";
                 done(std::move(picture));
               });
}

bool PortalScreenCapture::pickColor(std::function<void(PickedColor)> done) {
  request_.ask(screenshotInterface, QStringLiteral("PickColor"), noParent, {},
               [done = std::move(done)](Outcome outcome, const QVariantMap& results) {
                 if (outcome == Outcome::missing)
                   return done({.problem = "The desktop has no service that picks a color."});
                 if (outcome == Outcome::calledOff) return done({});
                 // Red, green and blue, each from 0 to 1.
                 std::array<double, 3> channels{-1, -1, -1};
                 const auto structure = results.value(QStringLiteral("color")).value<QDBusArgument>();
                 if (structure.currentSignature() == QLatin1String("(ddd)")) {
                   structure.beginStructure();
                   for (double& channel : channels) structure >> channel;
                   structure.endStructure();
                 }
                 if (std::ranges::any_of(channels, [](double channel) { return !(channel >= 0 && channel <= 1); }))
                   return done({.problem = "The desktop gave no color."});
                 done({.color = QColor::fromRgbF(static_cast<float>(channels[0]), static_cast<float>(channels[1]),
                                                 static_cast<float>(channels[2]))});
               });
  return true;
}

}  // namespace ambrel
