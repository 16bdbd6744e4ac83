#include "app/tools/ColorPickerModel.h"

#include <QCursor>
#include <QGuiApplication>
#include <QPointer>

#include "app/base/Replaced.h"
#include "app/base/StoredValue.h"

namespace ambrel {

void ColorPickerModel::pick() {
  if (loupe_) return;
  const bool isDesktops = seams_.screen.pickColor([self = QPointer(this)](const PickedColor& picked) {
    if (!self) return;
    if (!picked.problem.empty()) return self->complain(picked.problem);
    if (picked.color) self->take(*picked.color);
  });
  if (isDesktops) return;
  seams_.screen.capture([self = QPointer(this)](const ScreenPicture& picture) {
    if (!self) return;
    if (!picture.image.isNull()) return self->open(picture.image);
    if (!picture.problem.empty()) self->complain(picture.problem);
  });
}

void ColorPickerModel::open(const QImage& picture) {
  if (loupe_) return;
  QScreen* screen = QGuiApplication::screenAt(QCursor::pos());
  if (!screen) screen = QGuiApplication::primaryScreen();
  loupe_ = std::make_unique<ColorLoupe>(picture, screen, [this](const QColor& color) { return notation(color); });
  connect(loupe_.get(), &ColorLoupe::picked, this, [this](const QColor& color) {
    close();
    take(color);
  });
  connect(loupe_.get(), &ColorLoupe::left, this, &ColorPickerModel::close);
  seams_.windowStyle.prepare(*loupe_, WindowRole::cover);
  seams_.windowStyle.place(*loupe_, screen->geometry());
  loupe_->show();
  loupe_->raise();
  seams_.windowStyle.activate(*loupe_);
  Q_EMIT loupeChanged();
}

// The loupe may be handling an event.
void ColorPickerModel::close() {
  if (!loupe_) return;
  loupe_->disconnect(this);
  loupe_->hide();
  loupe_.release()->deleteLater();
  Q_EMIT loupeChanged();
}

QString ColorPickerModel::notation(const QColor& color) const {
  const TextTool& converter = *textTool(DockWidget::colorConverter);
  const auto mode = seams_.defaults.integer("colorConverter.mode").value_or(0);
  const auto index = mode < 0 || mode >= static_cast<std::int64_t>(converter.choices.size()) ? 0 : mode;
  const ToolSource source{.random = {}, .now = seams_.now(), .calendar = seams_.calendar()};
  const std::string input = color.name().toStdString();
  return toQString(
      runTool(converter,
              {.choice = converter.choices[static_cast<std::size_t>(index)].id, .input = input, .source = source})
          .output);
}

void ColorPickerModel::take(const QColor& color) {
  if (replaced(face_, {.hasColor = true, .color = color, .text = notation(color)})) Q_EMIT faceChanged();
  seams_.shell.copyText(face_.text);
}

void ColorPickerModel::complain(const std::string& problem) const {
  seams_.shell.showToast(tr("No color"), toQString(problem), QStringLiteral("exclamationmark.triangle"));
}

}  // namespace ambrel
