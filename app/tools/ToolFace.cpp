#include "app/tools/ToolFace.h"

#include <QCoreApplication>

#include "app/base/StoredValue.h"
#include "core/base/LocalText.h"
#include "core/base/Text.h"

namespace ambrel {
namespace {

QString text(const char* source) { return QCoreApplication::translate("ToolFace", source); }

// The beginning of a text, and a note that says so.
std::pair<QString, QString> shown(const Calendar& calendar, std::string_view whole) {
  // A character of Qt is at most three bytes of UTF-8.
  const bool mayBeLong = whole.size() > static_cast<std::size_t>(mostShownText);
  QString all = toQString(mayBeLong ? whole.substr(0, 3 * static_cast<std::size_t>(mostShownText)) : whole);
  if (all.size() <= mostShownText && all.toUtf8().size() >= static_cast<qsizetype>(whole.size())) return {all, {}};
  all.truncate(mostShownText);
  if (all.back().isHighSurrogate()) all.chop(1);
  return {all, text("The beginning of %1").arg(toQString(fileSize(calendar, static_cast<std::int64_t>(whole.size()))))};
}

QImage pictureOf(const QrCode& code) {
  constexpr int quiet = 4;
  if (code.size == 0) return {};
  QImage picture(code.size + 2 * quiet, code.size + 2 * quiet, QImage::Format_Grayscale8);
  picture.fill(Qt::white);
  for (int i = 0; i < code.size * code.size; ++i)
    if (code.isDark[static_cast<std::size_t>(i)]) picture.scanLine(quiet + i / code.size)[quiet + i % code.size] = 0;
  return picture;
}

}  // namespace

ToolResult toolResult(const TextTool& tool, const ToolCall& call) {
  ToolResult result;
  ToolFace& face = result.face;
  // Nothing is wrong with a tool that has been given nothing.
  const bool hasWork = tool.input == ToolInput::none || !call.input.empty();
  if (hasWork) result.outcome = runTool(tool, call);
  const ToolGlance glance = glanceAt(tool, call, result.outcome);
  face.value = toQString(glance.value);
  face.detail = toQString(glance.detail);
  if (glance.swatch) {
    face.hasSwatch = true;
    face.swatch.setRgbF(static_cast<float>(glance.swatch->red), static_cast<float>(glance.swatch->green),
                        static_cast<float>(glance.swatch->blue), static_cast<float>(glance.swatch->alpha));
  }
  const Calendar& calendar = call.source.calendar;
  std::tie(face.input, face.inputNote) = shown(calendar, call.input);
  if (result.outcome.fault.empty() && !isValidUTF8(result.outcome.output))
    result.outcome = {{}, text("The decoded bytes are not text").toStdString()};
  face.fault = toQString(result.outcome.fault);
  face.hasOutput = hasWork && result.outcome.fault.empty();
  if (tool.widget == DockWidget::qrCode && face.hasOutput)
    face.picture = pictureOf(qrCode(call.choice, trimmed(call.input)));
  else
    std::tie(face.output, face.outputNote) = shown(calendar, result.outcome.output);
  return result;
}

}  // namespace ambrel
