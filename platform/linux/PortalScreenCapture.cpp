#include "platform/linux/PortalScreenCapture.h"

#include <QDBusError>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QFile>
#include <QUrl>
#include <utility>

namespace ambrel {
namespace {

const auto service = QStringLiteral("org.freedesktop.portal.Desktop");
const auto requestInterface = QStringLiteral("org.freedesktop.portal.Request");
// Of the signal Response.
constexpr uint succeeded = 0, calledOff = 1;

}  // namespace

void PortalScreenCapture::capture(std::function<void(ScreenPicture)> done) {
  if (!bus_.isConnected()) return done({.problem = "The desktop has no service that takes pictures of the screen."});
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
                                     QStringLiteral("org.freedesktop.portal.Screenshot"), QStringLiteral("Screenshot"));
  call << QString() << QVariantMap{{QStringLiteral("handle_token"), token}, {QStringLiteral("interactive"), false}};
  auto* watcher = new QDBusPendingCallWatcher(bus_.asyncCall(call), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, turn = turn_] {
    watcher->deleteLater();
    if (watcher->isError() && turn == turn_)
      finish({.problem = "The desktop has no service that takes pictures of the screen."});
  });
}

void PortalScreenCapture::answered(uint response, const QVariantMap& results) {
  if (response == calledOff) return finish({});
  const QUrl file(results.value(QStringLiteral("uri")).toString());
  ScreenPicture picture;
  if (response == succeeded && file.isLocalFile()) {
    picture.image = QImage(file.toLocalFile());
    // It was made for us alone, and a capture leaves nothing on the disk.
    QFile::remove(file.toLocalFile());
  }
  if (picture.image.isNull()) picture.problem = "The desktop gave no picture of the screen.";
  finish(std::move(picture));
}

void PortalScreenCapture::finish(ScreenPicture picture) {
  stopListening();
  if (const auto done = std::exchange(done_, nullptr)) done(std::move(picture));
}

void PortalScreenCapture::stopListening() {
  if (const QString request = std::exchange(request_, QString()); !request.isEmpty())
    bus_.disconnect(service, request, requestInterface, QStringLiteral("Response"), this,
                    SLOT(answered(uint, QVariantMap)));
}

}  // namespace ambrel
