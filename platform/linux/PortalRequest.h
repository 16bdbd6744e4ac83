#pragma once
// A question to the desktop portal, which may have to ask the user.
// https://flatpak.github.io/xdg-desktop-portal/docs/doc-org.freedesktop.portal.Request.html

#include <QDBusConnection>
#include <QObject>
#include <QVariantMap>
#include <functional>

namespace ambrel {

inline constexpr char portalService[] = "org.freedesktop.portal.Desktop";
inline constexpr char portalPath[] = "/org/freedesktop/portal/desktop";

class PortalRequest : public QObject {
  Q_OBJECT

 public:
  enum class Outcome {
    answered,
    calledOff,  // by the user
    failed,     // the portal could not do it
    missing,    // no portal, or one that does not know the question
  };
  using Done = std::function<void(Outcome outcome, const QVariantMap& results)>;

  explicit PortalRequest(const QDBusConnection& bus) : bus_(bus) {}

  // The portal's methods take their options last. There is no deadline: a user may think for minutes. A new question
  // abandons the one before, whose `done` never runs.
  void ask(const QString& interface, const QString& method, const QVariantList& arguments, QVariantMap options,
           Done done);
  void abandon();

 private Q_SLOTS:
  void answered(uint response, const QVariantMap& results);

 private:
  void finish(Outcome outcome, const QVariantMap& results = {});

  QDBusConnection bus_;
  Done done_;
  QString object_;  // whose answer is awaited
  int turn_ = 0;
};

}  // namespace ambrel
