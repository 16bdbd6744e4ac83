#pragma once
// What the desktop asks of programs' looks: dark or light, and whether things may move.

#include <QObject>
#include <optional>

class QDBusVariant;

namespace ambrel {

// Asks the settings portal of the session bus and follows its changes. Until it has answered, and where there is
// none, a theme whose name says that it is dark decides, and else the palette that the platform gives its programs.
class DesktopAppearance : public QObject {
  Q_OBJECT

 public:
  explicit DesktopAppearance(QObject* parent = nullptr);

  bool isDark() const;
  bool reducesMotion() const { return reducesMotion_; }

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
};

}  // namespace ambrel
