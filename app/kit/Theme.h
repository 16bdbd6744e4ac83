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
  Q_PROPERTY(Choice choice READ choice WRITE setChoice NOTIFY choiceChanged FINAL)
  Q_PROPERTY(bool dark READ dark NOTIFY schemeChanged FINAL)
  Q_PROPERTY(bool reducedMotion READ reducedMotion NOTIFY motionChanged FINAL)
  Q_PROPERTY(bool alwaysReducesMotion READ alwaysReducesMotion WRITE setAlwaysReducesMotion NOTIFY motionChanged FINAL)
  Q_PROPERTY(qreal textScale READ textScale WRITE setTextScale NOTIFY textScaleChanged FINAL)

  Q_PROPERTY(QColor bar READ bar NOTIFY schemeChanged FINAL)
  Q_PROPERTY(QColor barLine READ barLine NOTIFY schemeChanged FINAL)
  Q_PROPERTY(QColor tile READ tile NOTIFY schemeChanged FINAL)
  Q_PROPERTY(QColor tileHover READ tileHover NOTIFY schemeChanged FINAL)
  Q_PROPERTY(QColor tilePressed READ tilePressed NOTIFY schemeChanged FINAL)
  Q_PROPERTY(QColor panel READ panel NOTIFY schemeChanged FINAL)
  Q_PROPERTY(QColor card READ card NOTIFY schemeChanged FINAL)
  Q_PROPERTY(QColor cardHover READ cardHover NOTIFY schemeChanged FINAL)
  Q_PROPERTY(QColor field READ field NOTIFY schemeChanged FINAL)
  Q_PROPERTY(QColor greySoft READ greySoft NOTIFY schemeChanged FINAL)
  Q_PROPERTY(QColor line READ line NOTIFY schemeChanged FINAL)
  Q_PROPERTY(QColor lineStrong READ lineStrong NOTIFY schemeChanged FINAL)
  Q_PROPERTY(QColor track READ track NOTIFY schemeChanged FINAL)
  Q_PROPERTY(QColor chatMine READ chatMine NOTIFY schemeChanged FINAL)
  Q_PROPERTY(QColor accent READ accent NOTIFY schemeChanged FINAL)
  Q_PROPERTY(QColor accentHover READ accentHover NOTIFY schemeChanged FINAL)
  Q_PROPERTY(QColor accentPressed READ accentPressed NOTIFY schemeChanged FINAL)
  Q_PROPERTY(QColor onAccent READ onAccent NOTIFY schemeChanged FINAL)
  Q_PROPERTY(QColor ink READ ink NOTIFY schemeChanged FINAL)
  Q_PROPERTY(QColor ink2 READ ink2 NOTIFY schemeChanged FINAL)
  Q_PROPERTY(QColor ink3 READ ink3 NOTIFY schemeChanged FINAL)
  Q_PROPERTY(QColor weatherSun READ weatherSun NOTIFY schemeChanged FINAL)
  Q_PROPERTY(QColor weatherCloud READ weatherCloud NOTIFY schemeChanged FINAL)
  Q_PROPERTY(ambrel::Tone* neutral READ neutral CONSTANT FINAL)
  Q_PROPERTY(ambrel::Tone* orange READ orange CONSTANT FINAL)
  Q_PROPERTY(ambrel::Tone* blue READ blue CONSTANT FINAL)
  Q_PROPERTY(ambrel::Tone* green READ green CONSTANT FINAL)
  Q_PROPERTY(ambrel::Tone* red READ red CONSTANT FINAL)
  Q_PROPERTY(ambrel::Tone* teal READ teal CONSTANT FINAL)
  Q_PROPERTY(ambrel::Tone* violet READ violet CONSTANT FINAL)
  Q_PROPERTY(ambrel::Tone* yellow READ yellow CONSTANT FINAL)
  Q_PROPERTY(QList<QColor> sunburst READ sunburst NOTIFY schemeChanged FINAL)
  Q_PROPERTY(QList<QColor> pins READ pins NOTIFY schemeChanged FINAL)
  Q_PROPERTY(ambrel::TextRole* headline READ headline CONSTANT FINAL)
  Q_PROPERTY(ambrel::TextRole* figure READ figure CONSTANT FINAL)
  Q_PROPERTY(ambrel::TextRole* title READ title CONSTANT FINAL)
  Q_PROPERTY(ambrel::TextRole* panelTitle READ panelTitle CONSTANT FINAL)
  Q_PROPERTY(ambrel::TextRole* rowTitle READ rowTitle CONSTANT FINAL)
  Q_PROPERTY(ambrel::TextRole* listName READ listName CONSTANT FINAL)
  Q_PROPERTY(ambrel::TextRole* body READ body CONSTANT FINAL)
  Q_PROPERTY(ambrel::TextRole* small READ small CONSTANT FINAL)
  Q_PROPERTY(ambrel::TextRole* smallMedium READ smallMedium CONSTANT FINAL)
  Q_PROPERTY(ambrel::TextRole* smallStrong READ smallStrong CONSTANT FINAL)
  Q_PROPERTY(ambrel::TextRole* caption READ caption CONSTANT FINAL)
  Q_PROPERTY(ambrel::TextRole* captionStrong READ captionStrong CONSTANT FINAL)
  Q_PROPERTY(ambrel::TextRole* subLine READ subLine CONSTANT FINAL)
  Q_PROPERTY(ambrel::TextRole* code READ code CONSTANT FINAL)
  Q_PROPERTY(ambrel::TextRole* value READ value CONSTANT FINAL)
  Q_PROPERTY(ambrel::TextRole* clock READ clock CONSTANT FINAL)
  Q_PROPERTY(ambrel::TextRole* timer READ timer CONSTANT FINAL)
  Q_PROPERTY(ambrel::TextRole* unit READ unit CONSTANT FINAL)
  Q_PROPERTY(ambrel::TextRole* ringFigure READ ringFigure CONSTANT FINAL)

  Q_PROPERTY(int space1 MEMBER space1 CONSTANT FINAL)
  Q_PROPERTY(int space2 MEMBER space2 CONSTANT FINAL)
  Q_PROPERTY(int space3 MEMBER space3 CONSTANT FINAL)
  Q_PROPERTY(int space4 MEMBER space4 CONSTANT FINAL)
  Q_PROPERTY(int space5 MEMBER space5 CONSTANT FINAL)
  Q_PROPERTY(int space6 MEMBER space6 CONSTANT FINAL)
  Q_PROPERTY(int radiusBar MEMBER radiusBar CONSTANT FINAL)
  Q_PROPERTY(int radiusPanel MEMBER radiusPanel CONSTANT FINAL)
  Q_PROPERTY(int radiusTile MEMBER radiusTile CONSTANT FINAL)
  Q_PROPERTY(int radiusCard MEMBER radiusCard CONSTANT FINAL)
  Q_PROPERTY(int radiusButton MEMBER radiusButton CONSTANT FINAL)
  Q_PROPERTY(int radiusSmall MEMBER radiusSmall CONSTANT FINAL)
  Q_PROPERTY(int radiusHighlight MEMBER radiusHighlight CONSTANT FINAL)
  Q_PROPERTY(int radiusCheck MEMBER radiusCheck CONSTANT FINAL)
  Q_PROPERTY(int tileHeight READ tileHeight NOTIFY textScaleChanged FINAL)
  Q_PROPERTY(int tileSmall READ tileSmall NOTIFY textScaleChanged FINAL)
  Q_PROPERTY(int tileMedium READ tileMedium NOTIFY textScaleChanged FINAL)
  Q_PROPERTY(int tileLarge READ tileLarge NOTIFY textScaleChanged FINAL)
  Q_PROPERTY(int tileExtraLarge READ tileExtraLarge NOTIFY textScaleChanged FINAL)

  Q_PROPERTY(int hoverDuration READ hoverDuration NOTIFY motionChanged FINAL)
  Q_PROPERTY(int pressDuration READ pressDuration NOTIFY motionChanged FINAL)
  Q_PROPERTY(int releaseDuration READ releaseDuration NOTIFY motionChanged FINAL)
  Q_PROPERTY(int openDuration READ openDuration NOTIFY motionChanged FINAL)
  Q_PROPERTY(int closeDuration READ closeDuration NOTIFY motionChanged FINAL)
  Q_PROPERTY(int shelfOpenDuration READ shelfOpenDuration NOTIFY motionChanged FINAL)
  Q_PROPERTY(int shelfCloseDuration READ shelfCloseDuration NOTIFY motionChanged FINAL)
  Q_PROPERTY(int valueDuration READ valueDuration NOTIFY motionChanged FINAL)
  Q_PROPERTY(int toastStay MEMBER toastStay CONSTANT FINAL)
  Q_PROPERTY(int tipDelay MEMBER tipDelay CONSTANT FINAL)
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
  // Multiplies all type and the size of tiles; 0.8 to 2. A desktop's own text scale needs no help from here: it
  // arrives as the dots per inch of the fonts, which Qt turns into the scale of the whole window.
  qreal textScale() const { return textScale_; }
  void setTextScale(qreal scale);

  const Palette& palette() const { return palette_; }

  // The colour of a gauge: its own below 75, orange up to `alarmAbove`, red beyond.
  Q_INVOKABLE ambrel::Tone* gaugeTone(qreal percent, ambrel::Tone* own, qreal alarmAbove = 90);
  // `top` laid over the opaque `ground`: for lines, which must not let through what is below their ground.
  Q_INVOKABLE QColor over(const QColor& top, const QColor& ground) const { return laidOver(top, ground); }
  // The colour of a charge: red below 10, orange below 20, else green.
  Q_INVOKABLE ambrel::Tone* chargeTone(qreal percent);

  QColor bar() const { return palette_.bar; }
  QColor barLine() const { return palette_.barLine; }
  QColor tile() const { return palette_.tile; }
  QColor tileHover() const { return palette_.tileHover; }
  QColor tilePressed() const { return palette_.tilePressed; }
  QColor panel() const { return palette_.panel; }
  QColor card() const { return palette_.card; }
  QColor cardHover() const { return palette_.cardHover; }
  QColor field() const { return palette_.field; }
  QColor greySoft() const { return palette_.greySoft; }
  QColor line() const { return palette_.line; }
  QColor lineStrong() const { return palette_.lineStrong; }
  QColor track() const { return palette_.track; }
  QColor chatMine() const { return palette_.chatMine; }
  QColor accent() const { return palette_.accent; }
  QColor accentHover() const { return palette_.accentHover; }
  QColor accentPressed() const { return palette_.accentPressed; }
  QColor onAccent() const { return palette_.onAccent; }
  QColor ink() const { return palette_.ink; }
  QColor ink2() const { return palette_.ink2; }
  QColor ink3() const { return palette_.ink3; }
  QColor weatherSun() const { return palette_.weatherSun; }
  QColor weatherCloud() const { return palette_.weatherCloud; }
  Tone* neutral() { return &neutral_; }
  Tone* orange() { return &orange_; }
  Tone* blue() { return &blue_; }
  Tone* green() { return &green_; }
  Tone* red() { return &red_; }
  Tone* teal() { return &teal_; }
  Tone* violet() { return &violet_; }
  Tone* yellow() { return &yellow_; }
  QList<QColor> sunburst() const { return palette_.sunburst; }
  QList<QColor> pins() const { return palette_.pins; }
  TextRole* headline() { return &headline_; }
  TextRole* figure() { return &figure_; }
  TextRole* title() { return &title_; }
  TextRole* panelTitle() { return &panelTitle_; }
  TextRole* rowTitle() { return &rowTitle_; }
  TextRole* listName() { return &listName_; }
  TextRole* body() { return &body_; }
  TextRole* small() { return &small_; }
  TextRole* smallMedium() { return &smallMedium_; }
  TextRole* smallStrong() { return &smallStrong_; }
  TextRole* caption() { return &caption_; }
  TextRole* captionStrong() { return &captionStrong_; }
  TextRole* subLine() { return &subLine_; }
  TextRole* code() { return &code_; }
  TextRole* value() { return &value_; }
  TextRole* clock() { return &clock_; }
  TextRole* timer() { return &timer_; }
  TextRole* unit() { return &unit_; }
  TextRole* ringFigure() { return &ringFigure_; }

  int tileHeight() const { return scaled(64); }
  int tileSmall() const { return scaled(64); }
  int tileMedium() const { return scaled(112); }
  int tileLarge() const { return scaled(176); }
  int tileExtraLarge() const { return scaled(240); }

  int hoverDuration() const { return 120; }
  int pressDuration() const { return motion(80); }
  int releaseDuration() const { return 120; }
  int openDuration() const { return motion(200); }
  int closeDuration() const { return 120; }
  int shelfOpenDuration() const { return motion(220); }
  int shelfCloseDuration() const { return motion(140); }
  int valueDuration() const { return reducedMotion() ? 0 : 300; }
  // How far panels and toasts rise while they open, and how small a pressed thing becomes.
  qreal travel() const { return reducedMotion() ? 0 : 12; }
  qreal pressScale() const { return reducedMotion() ? 1 : 0.97; }
  static constexpr int radiusBar = 20, radiusPanel = 16, radiusTile = 14, radiusCard = 12, radiusButton = 10;
  static constexpr int radiusSmall = 8, radiusHighlight = 6, radiusCheck = 5;

 Q_SIGNALS:
  void choiceChanged();
  void schemeChanged();
  void motionChanged();
  void textScaleChanged();

 private:
  static constexpr int space1 = 4, space2 = 8, space3 = 12, space4 = 16, space5 = 20, space6 = 24;
  static constexpr int toastStay = 6000, tipDelay = 600;

  int scaled(int size) const;
  int motion(int duration) const { return reducedMotion() ? 120 : duration; }
  void applyScheme();
  void applyPalette();
  void applyType();

  Palette palette_;
  Tone neutral_, orange_, blue_, green_, red_, teal_, violet_, yellow_;
  TextRole headline_, figure_, title_, panelTitle_, rowTitle_, listName_, body_, small_, smallMedium_, smallStrong_;
  TextRole caption_, captionStrong_, subLine_, code_, value_, clock_, timer_, unit_, ringFigure_;
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
