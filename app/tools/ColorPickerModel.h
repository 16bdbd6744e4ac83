#pragma once
// The color picker: a loupe over the screen, or the desktop's own where programs may not read the screen.

#include <QColor>
#include <QtQml/qqmlregistration.h>
#include <memory>

#include "app/base/Face.h"
#include "app/tools/ColorLoupe.h"
#include "app/tools/ToolSeams.h"

namespace ambrel {

struct ColorPickerFace {
  Q_GADGET
  QML_VALUE_TYPE(colorPickerFace)
 public:
  FACE_FIELDS(bool, hasColor);
  FACE_FIELD(QColor, color, Qt::transparent);  // picked last, since the program began
  FACE_FIELDS(QString, text);                  // in the notation that is copied
  bool operator==(const ColorPickerFace&) const = default;
};

class ColorPickerModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::ColorPickerFace face READ face NOTIFY faceChanged FINAL)

 public:
  // The seams outlive it. The notation is that of the color converter.
  explicit ColorPickerModel(const ToolSeams& seams, QObject* parent = nullptr) : QObject(parent), seams_(seams) {}

  const ColorPickerFace& face() const { return face_; }
  Q_INVOKABLE void pick();
  // While a color is being picked; else null.
  ColorLoupe* loupe() { return loupe_.get(); }

 Q_SIGNALS:
  void faceChanged();
  // The loupe was opened or closed.
  void loupeChanged();

 private:
  void open(const QImage& picture);
  void take(const QColor& color);
  void close();
  QString notation(const QColor& color) const;
  void complain(const std::string& problem) const;

  const ToolSeams& seams_;
  ColorPickerFace face_;
  std::unique_ptr<ColorLoupe> loupe_;
};

}  // namespace ambrel
