#pragma once
// The desktop's dialogs for choosing a folder or a file.

#include <functional>
#include <string>

class QPalette;
class QString;
class QWindow;

namespace ambrel {

// They open over `parent`, or by themselves without one, and return at once; `chosen` is called only if something was
// chosen. `palette`: for Qt's own dialog, where the desktop has none.
using Chosen = std::function<void(const std::string& path)>;
void chooseFolder(QWindow* parent, const QString& title, const QString& start, const QPalette& palette, Chosen chosen);
// `start`: the folder with the name to begin with. The user is asked before a file is replaced.
void chooseNewFile(QWindow* parent, const QString& title, const QString& start, const QPalette& palette, Chosen chosen);
void chooseFile(QWindow* parent, const QString& title, const QString& start, const QPalette& palette, Chosen chosen);

}  // namespace ambrel
