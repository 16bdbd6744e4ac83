#pragma once
// What the tile and the panel of a text tool show.

#include <QColor>
#include <QImage>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include "app/base/Face.h"
#include "core/tools.h"

namespace ambrel {

// How much of a text a panel shows, in characters of Qt: laying out more would block the window.
constexpr qsizetype mostShownText = 20000;

struct ToolFace {
  Q_GADGET
  QML_VALUE_TYPE(toolFace)
 public:
  FACE_FIELDS(QString, value, detail);  // of the tile
  FACE_FIELD(QColor, swatch, Qt::transparent);
  FACE_FIELDS(bool, hasSwatch);
  FACE_FIELDS(QString, input, output);          // their beginnings, where they are long
  FACE_FIELDS(QString, inputNote, outputNote);  // "The beginning of 10.2 MB"; empty where all is shown
  FACE_FIELDS(QString, fault);
  FACE_FIELDS(bool, isWorking);
  FACE_FIELDS(bool, hasOutput);
  QImage picture{};  // one pixel a module, with the quiet zone; for ToolPicture

  bool operator==(const ToolFace&) const = default;
};

// The whole result of one run.
struct ToolResult {
  ToolOutcome outcome;
  ToolFace face;
};
// Slow for a long input: it may run on any thread.
ToolResult toolResult(const TextTool& tool, const ToolCall& call);

}  // namespace ambrel
