#include "app/clipboard/QuietClipboard.h"

#include <QClipboard>
#include <QGuiApplication>

namespace ambrel {

void keepCopiesFromTextFields() { QGuiApplication::clipboard()->blockSignals(true); }

}  // namespace ambrel
