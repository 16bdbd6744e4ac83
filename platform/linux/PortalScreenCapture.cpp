#include "platform/linux/PortalScreenCapture.h"

#include <QDBusArgument>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QFile>
#include <QUrl>
#include <algorithm>
#include <array>
#include <utility>

namespace ambrel {
namespace {

const auto service = QStringLiteral("org.freedesktop.portal.Desktop");
const auto requestInterface = QStringLiteral("org.freedesktop.portal.Request");
// Of the signal Response.
constexpr uint succeeded = 0, calledOff = 1;

}  // namespace

void PortalScreenCapture::capture(std::function<void(ScreenPicture)> done) {
  ask("Screenshot", {{QStringLiteral("interactive"), false}},
      "The desktop has no service that takes pictures of the screen.", [this, done = std::move(done)](Answer answer) {
        if (answer.isMissing && otherwise_) return done(otherwise_());
        ScreenPicture picture{.problem = std::move(answer.problem)};
        if (answer.isCalledOff || !picture.problem.empty()) return done(std::move(picture));
        const QUrl file(answer.results.value(QStringLiteral("uri")).toString());
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
  ask("PickColor", {}, "The desktop has no service that picks a color.", [done = std::move(done)](Answer answer) {
    if (answer.isCalledOff || !answer.problem.empty()) return done({.problem = std::move(answer.problem)});
    // Red, green and blue, each from 0 to 1.
    std::array<double, 3> channels{-1, -1, -1};
    const auto structure = answer.results.value(QStringLiteral("color")).value<QDBusArgument>();
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

void PortalScreenCapture::ask(const char* method, QVariantMap options, std::string missing,
                              std::function<void(Answer)> done) {
  if (!bus_.isConnected()) return done({.problem = std::move(missing), .isMissing = true});
  stopListening();
  done_ = std::move(done);
  const QString token = QStringLiteral("ambrel%1").arg(++turn_);
  // The object is known before the call, so that a quick answer is not missed.
  request_ = QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2")
                 .arg(bus_.baseService().mid(1).replace(QLatin1Char('.'), QLatin1Char('_')), token);
  bus_.connect(service, request_, requestInterface, QStringLiteral("Response"), this,
               SLOT(answered(uint, QVariantMap)));
  auto call =
      QDBusMessage::createMethodCall(service, QStringLiteral("/org/freedesktop/portal/desktop"),
                                     QStringLiteral("org.freedesktop.portal.Screenshot"), QString::fromLatin1(method));
  options.insert(QStringLiteral("handle_token"), token);
  call << QString() << options;
  auto* watcher = new QDBusPendingCallWatcher(bus_.asyncCall(call), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this,
          [this, watcher, turn = turn_, missing = std::move(missing)] {
            watcher->deleteLater();
            if (watcher->isError() && turn == turn_) finish({.problem = missing, .isMissing = true});
          });
}

void PortalScreenCapture::answered(uint response, const QVariantMap& results) {
  if (response == succeeded) return finish({.results = results});
  finish({.isCalledOff = response == calledOff});
}

void PortalScreenCapture::finish(Answer answer) {
  stopListening();
  if (const auto done = std::exchange(done_, nullptr)) done(std::move(answer));
}

void PortalScreenCapture::stopListening() {
  if (const QString request = std::exchange(request_, QString()); !request.isEmpty())
    bus_.disconnect(service, request, requestInterface, QStringLiteral("Response"), this,
                    SLOT(answered(uint, QVariantMap)));
}

}  // namespace ambrel
