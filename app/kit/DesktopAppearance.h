#pragma once
// What the desktop asks of programs' looks: dark or light, whether things may move, and how large texts are.

#include <QGuiApplication>
#include <QObject>
#include <optional>

class QDBusVariant;

namespace ambrel {

// Asks the settings portal of the session bus and follows its changes. Until it has answered, and where there is
// none, a theme whose name says that it is dark decides, and else the palette that the platform gives its programs.
class DesktopAppearance : public QObject {
  Q_OBJECT

 public:
  // platform: as Qt names it. Under X11 the text scale comes as the dots per inch of the fonts, which Qt turns into the
  // scale of the whole window, so that the portal's must not count as well.
  explicit DesktopAppearance(const QString& platform = QGuiApplication::platformName(), QObject* parent = nullptr);

  bool isDark() const;
  bool reducesMotion() const { return reducesMotion_; }
  // What texts are to be multiplied by, as the desktop says it: any number.
  double textScale() const { return textScale_; }

  // As in "Adwaita-dark"; empty for none.
  void setThemeName(const QString& name);
  // One setting as the portal names it; other settings and values of another type are passed over.
  void take(const QString& group, const QString& key, const QVariant& value);

 Q_SIGNALS:
  void changed();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  Q_SLOT void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);
  void ask(const QString& group, const QString& key);

  std::optional<bool> asksForDark_;
  bool hasDarkTheme_ = false;
  bool reducesMotion_ = false;
  const bool isToldTextScale_;
  double textScale_ = 1;
};

}  // namespace ambrel
