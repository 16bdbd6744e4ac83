#pragma once
// The desktop's dialog for choosing a folder.

#include <functional>
#include <string>

class QPalette;
class QString;
class QWindow;

namespace ambrel {

// Comes up before `parent` and returns at once; `chosen` is called when a folder was chosen, and not otherwise.
// `palette`: for desktops whose own dialog is not at hand.
void chooseFolder(QWindow* parent, const QString& title, const QString& start, const QPalette& palette,
                  std::function<void(const std::string& folder)> chosen);

}  // namespace ambrel
