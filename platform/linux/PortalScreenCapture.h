#pragma once
// The picture that the desktop portal takes, where programs may not read the screen themselves (Wayland).
// org.freedesktop.portal.Screenshot:
// https://flatpak.github.io/xdg-desktop-portal/docs/doc-org.freedesktop.portal.Screenshot.html

#include "platform/ScreenCapture.h"
#include "platform/linux/PortalRequest.h"

namespace ambrel {

class PortalScreenCapture : public ScreenCapture {
 public:
  // `otherwise` takes the picture where there is no portal; may be null.
  explicit PortalScreenCapture(const QDBusConnection& bus, std::function<ScreenPicture()> otherwise = nullptr)
      : request_(bus), otherwise_(std::move(otherwise)) {}

  // All screens in one picture: the portal tells neither the pointer nor windows. Our own windows may be in it.
  void capture(std::function<void(ScreenPicture)> done) override;
  bool pickColor(std::function<void(PickedColor)> done) override;

 private:
  PortalRequest request_;
  const std::function<ScreenPicture()> otherwise_;
};

}  // namespace ambrel
