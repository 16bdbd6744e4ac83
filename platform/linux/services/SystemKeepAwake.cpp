#include "platform/linux/services/SystemKeepAwake.h"

#include <QDBusPendingCall>
#include <utility>

#include "platform/linux/services/ManagedObjects.h"

namespace ambrel {
namespace {

constexpr int patienceMilliseconds = 5000;
const QString program = QStringLiteral("Tilebay");
const QString reason = QStringLiteral("Keep Awake is on");

QDBusMessage loginCall() {
  return quietCall(QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
                   QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("Inhibit"),
                   {QStringLiteral("sleep:idle"), program, reason, QStringLiteral("block")});
}

QDBusMessage screenSaverCall(const QString& method, const QVariantList& arguments) {
  return quietCall(QStringLiteral("org.freedesktop.ScreenSaver"), QStringLiteral("/org/freedesktop/ScreenSaver"),
                   QStringLiteral("org.freedesktop.ScreenSaver"), method, arguments);
}

}  // namespace

SystemKeepAwake::SystemKeepAwake(const QDBusConnection& systemBus, const QDBusConnection& sessionBus,
                                 std::function<bool(bool)> holdScreens)
    : systemBus_(systemBus), sessionBus_(sessionBus), holdScreens_(std::move(holdScreens)) {}

SystemKeepAwake::~SystemKeepAwake() { release(); }

void SystemKeepAwake::take(std::function<void(bool)> done) {
  if (done) waiting_.push_back(std::move(done));
  if (openQuestions_ > 0) return;
  ++generation_;
  if (!isHeld()) ask();
  if (openQuestions_ > 0) return;
  QMetaObject::invokeMethod(
      this,
      [this] {
        if (openQuestions_ == 0) finish();
      },
      Qt::QueuedConnection);
}

void SystemKeepAwake::ask() {
  holdsScreens_ = holdScreens_ && holdScreens_(true);
  const auto answered = [this, generation = generation_](const QDBusMessage& answer) { granted(generation, answer); };
  if (systemBus_.isConnected()) {
    ++openQuestions_;
    callLater(systemBus_, this, loginCall(), patienceMilliseconds, answered);
  }
  if (sessionBus_.isConnected()) {
    ++openQuestions_;
    callLater(sessionBus_, this, screenSaverCall(QStringLiteral("Inhibit"), {program, reason}), patienceMilliseconds,
              answered);
  }
}

void SystemKeepAwake::granted(uint generation, const QDBusMessage& answer) {
  const bool isWanted = generation == generation_;
  if (isReply(answer) && answer.signature() == QLatin1String("u")) {
    const uint cookie = answer.arguments().constFirst().toUInt();
    if (isWanted)
      cookie_ = cookie;
    else
      sessionBus_.asyncCall(screenSaverCall(QStringLiteral("UnInhibit"), {cookie}));
  }
  // An inhibitor that comes too late is closed together with its answer.
  if (isReply(answer) && isWanted && answer.signature() == QLatin1String("h"))
    inhibitor_ = qvariant_cast<QDBusUnixFileDescriptor>(answer.arguments().constFirst());
  if (isWanted && --openQuestions_ == 0) finish();
}

void SystemKeepAwake::finish() {
  for (auto& done : std::exchange(waiting_, {})) done(isHeld());
}

void SystemKeepAwake::release() {
  ++generation_;
  openQuestions_ = 0;
  inhibitor_ = QDBusUnixFileDescriptor();
  if (std::exchange(holdsScreens_, false)) holdScreens_(false);
  if (cookie_) sessionBus_.asyncCall(screenSaverCall(QStringLiteral("UnInhibit"), {*cookie_}));
  cookie_.reset();
  if (!waiting_.empty()) QMetaObject::invokeMethod(this, &SystemKeepAwake::finish, Qt::QueuedConnection);
}

}  // namespace ambrel
