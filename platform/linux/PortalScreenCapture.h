#pragma once
// The picture that the desktop portal takes, where programs may not read the screen themselves (Wayland).
// org.freedesktop.portal.Screenshot:
// https://flatpak.github.io/xdg-desktop-portal/docs/doc-org.freedesktop.portal.Screenshot.html

#include <QDBusConnection>
#include <QObject>

#include "platform/ScreenCapture.h"

namespace ambrel {

class PortalScreenCapture : public QObject, public ScreenCapture {
  Q_OBJECT

 public:
  // `otherwise` takes the picture where there is no portal; may be null.
  explicit PortalScreenCapture(const QDBusConnection& bus, std::function<ScreenPicture()> otherwise = nullptr)
      : bus_(bus), otherwise_(std::move(otherwise)) {}

  // All screens in one picture: the portal tells neither the pointer nor windows. Our own windows may be in it.
  void capture(std::function<void(ScreenPicture)> done) override;
  bool pickColor(std::function<void(PickedColor)> done) override;

 private Q_SLOTS:
  void answered(uint response, const QVariantMap& results);

 private:
  // What came of a request: the portal's results, or a problem. Neither when the user called it off.
  struct Answer {
    QVariantMap results = {};
    std::string problem = {};
    bool isCalledOff = false, isMissing = false;
  };
  // A new request abandons the one before.
  void ask(const char* method, QVariantMap options, std::string missing, std::function<void(Answer)> done);
  void finish(Answer answer);
  void stopListening();

  QDBusConnection bus_;
  const std::function<ScreenPicture()> otherwise_;
  std::function<void(Answer)> done_;
  QString request_;  // the object whose answer is awaited
  int turn_ = 0;
};

}  // namespace ambrel
