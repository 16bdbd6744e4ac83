#include "app/kit/Theme.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <algorithm>
#include <cmath>

#include "app/kit/DesktopAppearance.h"
#include "app/kit/ShadowPatch.h"

namespace ambrel {

Theme::Theme(QObject* parent) : QObject(parent), palette_(darkPalette()) {
  // What a call returns would otherwise belong to whoever called, and be deleted with the garbage.
  for (Tone* tone : {&neutral_, &orange_, &blue_, &green_, &red_, &teal_, &violet_, &yellow_})
    QQmlEngine::setObjectOwnership(tone, QQmlEngine::CppOwnership);
  applyPalette();
  applyType();
}

Theme* Theme::create(QQmlEngine* engine, QJSEngine*) {
  const auto provider = QString::fromLatin1(ShadowProvider::id);
  if (!engine->imageProvider(provider)) engine->addImageProvider(provider, new ShadowProvider);
  return new Theme(nullptr);
}

void Theme::follow(const DesktopAppearance& desktop) {
  const auto take = [this, &desktop] {
    desktopIsDark_ = desktop.isDark();
    applyScheme();
    if (desktopReducesMotion_ == desktop.reducesMotion()) return;
    desktopReducesMotion_ = desktop.reducesMotion();
    if (!alwaysReducesMotion_) Q_EMIT motionChanged();
  };
  connect(&desktop, &DesktopAppearance::changed, this, take);
  take();
}

void Theme::setChoice(Choice choice) {
  if (choice_ == choice) return;
  choice_ = choice;
  Q_EMIT choiceChanged();
  applyScheme();
}

void Theme::setAlwaysReducesMotion(bool reduces) {
  if (alwaysReducesMotion_ == reduces) return;
  alwaysReducesMotion_ = reduces;
  Q_EMIT motionChanged();
}

void Theme::setTextScale(qreal scale) {
  scale = std::isfinite(scale) ? std::clamp(scale, 0.8, 2.0) : 1.0;
  if (qFuzzyCompare(textScale_, scale)) return;
  textScale_ = scale;
  applyType();
  Q_EMIT textScaleChanged();
}

Tone* Theme::gaugeTone(qreal percent, Tone* own, qreal alarmAbove) {
  if (percent > alarmAbove) return &red_;
  return percent >= 75 ? &orange_ : own;
}

Tone* Theme::chargeTone(qreal percent) {
  if (percent < 10) return &red_;
  return percent < 20 ? &orange_ : &green_;
}

int Theme::scaled(int size) const { return qRound(size * textScale_); }

void Theme::applyScheme() {
  const bool dark = choice_ == Choice::System ? desktopIsDark_ : choice_ == Choice::Dark;
  if (dark_ == dark) return;
  dark_ = dark;
  palette_ = dark ? darkPalette() : lightPalette();
  applyPalette();
  Q_EMIT schemeChanged();
}

void Theme::applyPalette() {
  neutral_.set(palette_.neutral);
  orange_.set(palette_.orange);
  blue_.set(palette_.blue);
  green_.set(palette_.green);
  red_.set(palette_.red);
  teal_.set(palette_.teal);
  violet_.set(palette_.violet);
  yellow_.set(palette_.yellow);
}

void Theme::applyType() {
  const TypeScale scale = typeScale(textScale_);
  headline_.set(scale.headline);
  figure_.set(scale.figure);
  title_.set(scale.title);
  panelTitle_.set(scale.panelTitle);
  rowTitle_.set(scale.rowTitle);
  listName_.set(scale.listName);
  body_.set(scale.body);
  small_.set(scale.small);
  smallMedium_.set(scale.smallMedium);
  smallStrong_.set(scale.smallStrong);
  caption_.set(scale.caption);
  captionStrong_.set(scale.captionStrong);
  subLine_.set(scale.subLine);
  code_.set(scale.code);
  value_.set(scale.value);
  clock_.set(scale.clock);
  timer_.set(scale.timer);
  unit_.set(scale.unit);
  ringFigure_.set(scale.ringFigure);
}

Theme& themeOf(QQmlEngine& engine) {
  const auto typeId = [] { return qmlTypeId("Ambrel.Kit", 1, 0, "Theme"); };
  // A module's types are known only after the first import of it.
  if (typeId() < 0) QQmlComponent(&engine).setData("import QtQml\nimport Ambrel.Kit\nQtObject {}", {});
  auto* theme = engine.singletonInstance<Theme*>(typeId());
  if (!theme) qFatal("the module Ambrel.Kit cannot be imported");
  return *theme;
}

}  // namespace ambrel
