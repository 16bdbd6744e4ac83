#pragma once
// The desktop's file manager.

#include <QUrl>
#include <string>

class QObject;

namespace ambrel {

// A path may contain any bytes, so it is percent-encoded.
QUrl fileURL(const std::string& path);

// Selects the item in its folder; without that D-Bus service, opens the folder. `context` outlives the answer, or there
// is none.
void showInFileManager(const QUrl& item, QObject& context);

}  // namespace ambrel
