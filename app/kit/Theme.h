#pragma once
// What QML draws with: colours of the present scheme, type roles, sizes, radii and durations.

#include <QColor>
#include <QObject>
#include <QtQml/qqmlregistration.h>

#include "app/kit/Palette.h"
#include "app/kit/TextRole.h"
#include "app/kit/Tone.h"

class QJSEngine;
class QQmlEngine;

namespace ambrel {

class DesktopAppearance;

// One for each engine, made by it; the program reaches it through `themeOf`. All measures are logical pixels,
// all durations milliseconds.
class Theme : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON
  Q_PROPERTY(bool dark READ dark NOTIFY schemeChanged FINAL)
  Q_PROPERTY(bool reducedMotion READ reducedMotion NOTIFY motionChanged FINAL)
  Q_PROPERTY(qreal textScale READ textScale WRITE setTextScale NOTIFY textScaleChanged FINAL)

#define AMBREL_COLOR(NAME) Q_PROPERTY(QColor NAME READ NAME NOTIFY schemeChanged FINAL)
#define AMBREL_TONE(NAME) Q_PROPERTY(ambrel::Tone* NAME READ NAME CONSTANT FINAL)
#define AMBREL_ROLE(NAME) Q_PROPERTY(ambrel::TextRole* NAME READ NAME CONSTANT FINAL)
  AMBREL_COLORS(AMBREL_COLOR)
  AMBREL_TONES(AMBREL_TONE)
  AMBREL_TEXT_ROLES(AMBREL_ROLE)
#undef AMBREL_COLOR
#undef AMBREL_TONE
#undef AMBREL_ROLE
  Q_PROPERTY(QList<QColor> sunburst READ sunburst NOTIFY schemeChanged FINAL)

#define AMBREL_MEASURE(NAME, ...) Q_PROPERTY(int NAME MEMBER NAME CONSTANT FINAL)
#define AMBREL_TILE_SIZE(NAME, ...) Q_PROPERTY(int NAME READ NAME NOTIFY textScaleChanged FINAL)
  AMBREL_MEASURES(AMBREL_MEASURE)
  AMBREL_TILE_SIZES(AMBREL_TILE_SIZE)
#undef AMBREL_MEASURE
#undef AMBREL_TILE_SIZE

  Q_PROPERTY(int hoverDuration READ hoverDuration NOTIFY motionChanged FINAL)
  Q_PROPERTY(int pressDuration READ pressDuration NOTIFY motionChanged FINAL)
  Q_PROPERTY(int releaseDuration READ releaseDuration NOTIFY motionChanged FINAL)
  Q_PROPERTY(int openDuration READ openDuration NOTIFY motionChanged FINAL)
  Q_PROPERTY(int valueDuration READ valueDuration NOTIFY motionChanged FINAL)
  Q_PROPERTY(qreal travel READ travel NOTIFY motionChanged FINAL)
  Q_PROPERTY(qreal pressScale READ pressScale NOTIFY motionChanged FINAL)

 public:
  // Names are capitalised because QML asks for it.
  enum class Choice { System, Dark, Light };
  Q_ENUM(Choice)

  // Without a default for its parent, or the engine would use it instead of `create`.
  explicit Theme(QObject* parent);
  // What the engine calls for its one theme. It also gives the engine the pictures that the kit's items ask for.
  static Theme* create(QQmlEngine* engine, QJSEngine* scripts);

  // Follows the desktop from now on, as far as nothing is forced. It must outlive the theme.
  void follow(const DesktopAppearance& desktop);

  Choice choice() const { return choice_; }
  void setChoice(Choice choice);
  bool dark() const { return dark_; }
  // Fades take the place of movement: the desktop asks for it, or the user does.
  bool reducedMotion() const { return alwaysReducesMotion_ || desktopReducesMotion_; }
  bool alwaysReducesMotion() const { return alwaysReducesMotion_; }
  void setAlwaysReducesMotion(bool reduces);
  // Multiplies all type and the size of tiles; 1 to 2.
  qreal textScale() const { return textScale_; }
  void setTextScale(qreal scale);

  const Palette& palette() const { return palette_; }

  // The colour of a level: its own at 0, orange at 1, red beyond.
  Q_INVOKABLE ambrel::Tone* levelTone(int level, ambrel::Tone* own);
  // The colour of a gauge: its own below 75, orange up to 90, red beyond.
  Q_INVOKABLE ambrel::Tone* gaugeTone(qreal percent, ambrel::Tone* own);
  // `top` laid over the opaque `ground`: for lines, which must not let through what is below their ground.
  Q_INVOKABLE QColor over(const QColor& top, const QColor& ground) const { return laidOver(top, ground); }
  // The colour of a charge: red below 10, orange below 20, else green.
  Q_INVOKABLE ambrel::Tone* chargeTone(qreal percent);

#define AMBREL_COLOR(NAME) \
  QColor NAME() const { return palette_.NAME; }
#define AMBREL_TONE(NAME) \
  Tone* NAME() { return &tones_.NAME; }
#define AMBREL_ROLE(NAME) \
  TextRole* NAME() { return &roles_.NAME; }
  AMBREL_COLORS(AMBREL_COLOR)
  AMBREL_TONES(AMBREL_TONE)
  AMBREL_TEXT_ROLES(AMBREL_ROLE)
#undef AMBREL_COLOR
#undef AMBREL_TONE
#undef AMBREL_ROLE
  QList<QColor> sunburst() const { return palette_.sunburst; }

#define AMBREL_MEASURE(NAME, SIZE) static constexpr int NAME = SIZE;
#define AMBREL_TILE_SIZE(NAME, SIZE) \
  int NAME() const { return scaled(SIZE); }
  AMBREL_MEASURES(AMBREL_MEASURE)
  AMBREL_TILE_SIZES(AMBREL_TILE_SIZE)
#undef AMBREL_MEASURE
#undef AMBREL_TILE_SIZE

  int hoverDuration() const { return 120; }
  int pressDuration() const { return motion(80); }
  int releaseDuration() const { return 120; }
  int openDuration() const { return motion(200); }
  int valueDuration() const { return reducedMotion() ? 0 : 300; }
  // How far panels and toasts rise while they open, and how small a pressed thing becomes.
  qreal travel() const { return reducedMotion() ? 0 : 12; }
  qreal pressScale() const { return reducedMotion() ? 1 : 0.97; }

 Q_SIGNALS:
  void schemeChanged();
  void motionChanged();
  void textScaleChanged();

 private:
  int scaled(int size) const;
  int motion(int duration) const { return reducedMotion() ? 120 : duration; }
  void applyScheme();
  void applyPalette();
  void applyType();

  Palette palette_;
  struct Tones {
#define AMBREL_TONE(NAME) Tone NAME;
    AMBREL_TONES(AMBREL_TONE)
#undef AMBREL_TONE
  } tones_;
  struct Roles {
#define AMBREL_ROLE(NAME) TextRole NAME;
    AMBREL_TEXT_ROLES(AMBREL_ROLE)
#undef AMBREL_ROLE
  } roles_;
  Choice choice_ = Choice::System;
  qreal textScale_ = 1;
  bool dark_ = true;
  bool desktopIsDark_ = true;
  bool desktopReducesMotion_ = false;
  bool alwaysReducesMotion_ = false;
};

// The theme that `engine` draws with, also before any QML is loaded. The module Ambrel.Kit must be linked in and on
// the engine's import path.
Theme& themeOf(QQmlEngine& engine);

}  // namespace ambrel
