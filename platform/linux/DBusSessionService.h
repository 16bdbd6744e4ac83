#pragma once
// The session's one bar on D-Bus: service and interface "dev.qorvin.ambrel", object "/dev/qorvin/ambrel".

#include <QDBusConnection>
#include <QDBusContext>
#include <QObject>
#include <vector>

#include "platform/SessionService.h"

namespace ambrel {

// The methods as others call them; each is one wish.
class SessionServiceObject : public QObject, protected QDBusContext {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "dev.qorvin.ambrel")

 public:
  explicit SessionServiceObject(std::function<void(const Wish&)> receive) : receive_(std::move(receive)) {}

 public Q_SLOTS:
  void Reveal() { receive_(wish::Reveal{}); }
  void ToggleClipboard() { receive_(wish::ToggleClipboard{}); }
  void ToggleAgents() { receive_(wish::ToggleAgents{}); }
  void ToggleAssistant() { receive_(wish::ToggleAssistant{}); }
  void CaptureNotes() { receive_(wish::CaptureNotes{}); }
  void CopyPinned(int number);
  void Ask(const QString& text);
  void OpenDiskDoctor() { receive_(wish::OpenDiskDoctor{}); }
  void Settings() { receive_(wish::Settings{}); }
  void Customize() { receive_(wish::Customize{}); }
  void Quit() { receive_(wish::Quit{}); }

 private:
  std::function<void(const Wish&)> receive_;
};

class DBusSessionService : public QObject, public SessionService {
  Q_OBJECT

 public:
  explicit DBusSessionService(const QDBusConnection& bus);
  ~DBusSessionService() override;

  SessionRole start(const std::optional<Wish>& wish) override;
  void setWishHandler(std::function<void(const Wish&)> handler) override;

 private:
  void receive(const Wish& wish);
  bool handOver(const Wish& wish);

  QDBusConnection bus_;
  SessionServiceObject object_;
  bool isOwner_ = false;
  std::function<void(const Wish&)> handler_;
  std::vector<Wish> early_;  // came before there was a handler
};

}  // namespace ambrel
