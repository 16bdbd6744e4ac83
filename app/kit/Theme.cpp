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
#define AMBREL_KEEP(NAME) QQmlEngine::setObjectOwnership(&tones_.NAME, QQmlEngine::CppOwnership);
  AMBREL_TONES(AMBREL_KEEP)
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
    setTextScale(desktop.textScale());
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
  applyScheme();
}

void Theme::setAlwaysReducesMotion(bool reduces) {
  if (alwaysReducesMotion_ == reduces) return;
  alwaysReducesMotion_ = reduces;
  Q_EMIT motionChanged();
}

void Theme::setTextScale(qreal scale) {
  scale = std::isfinite(scale) ? std::clamp(scale, 1.0, 2.0) : 1.0;
  if (qFuzzyCompare(textScale_, scale)) return;
  textScale_ = scale;
  applyType();
  Q_EMIT textScaleChanged();
}

Tone* Theme::levelTone(int level, Tone* own) { return level == 0 ? own : level == 1 ? &tones_.orange : &tones_.red; }

Tone* Theme::gaugeTone(qreal percent, Tone* own) { return levelTone(percent > 90 ? 2 : percent >= 75 ? 1 : 0, own); }

Tone* Theme::chargeTone(qreal percent) { return levelTone(percent < 10 ? 2 : percent < 20 ? 1 : 0, &tones_.green); }

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
#define AMBREL_SET(NAME) tones_.NAME.set(palette_.NAME);
  AMBREL_TONES(AMBREL_SET)
}

void Theme::applyType() {
  const TypeScale scale = typeScale(textScale_);
#define AMBREL_SIZE(NAME) roles_.NAME.set(scale.NAME);
  AMBREL_TEXT_ROLES(AMBREL_SIZE)
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
