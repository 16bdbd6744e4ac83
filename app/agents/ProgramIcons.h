#pragma once
// The icons of installed programs, out of the desktop's icon theme.

#include <QQuickImageProvider>

namespace ambrel {

class ProgramIcons : public QQuickImageProvider {
 public:
  static constexpr const char* id = "program";

  ProgramIcons() : QQuickImageProvider(QQuickImageProvider::Image) {}

  // Where QML finds the picture; empty when the theme has none. `icon` as a desktop entry has it: a name or a path.
  static QString source(const QString& icon);

  QImage requestImage(const QString& path, QSize* size, const QSize& requestedSize) override;
};

}  // namespace ambrel
