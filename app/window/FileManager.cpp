#include "app/window/FileManager.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>

#include "core/base/Text.h"

namespace ambrel {

QUrl fileURL(const std::string& path) {
  return QUrl::fromEncoded(QByteArray::fromStdString("file://" + percentEncodedPath(path)));
}

void showInFileManager(const QUrl& item, QObject& context) {
  auto message = QDBusMessage::createMethodCall(
      QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("/org/freedesktop/FileManager1"),
      QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
  message << QStringList(QString::fromLatin1(item.toEncoded())) << QString();
  auto* watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(message), &context);
  QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &context, [watcher, item] {
    watcher->deleteLater();
    if (watcher->isError()) QDesktopServices::openUrl(item.adjusted(QUrl::RemoveFilename));
  });
}

}  // namespace ambrel
