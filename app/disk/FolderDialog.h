#pragma once
// The desktop's dialog for choosing a folder.

#include <functional>
#include <string>

class QPalette;
class QString;
class QWindow;

namespace ambrel {

// Opens over `parent` and returns at once; `chosen` is called only if a folder was chosen.
// `palette`: for Qt's own dialog, where the desktop has none.
void chooseFolder(QWindow* parent, const QString& title, const QString& start, const QPalette& palette,
                  std::function<void(const std::string& folder)> chosen);

}  // namespace ambrel
