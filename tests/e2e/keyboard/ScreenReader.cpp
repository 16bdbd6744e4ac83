#include "tests/e2e/keyboard/ScreenReader.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingCall>
#include <QDBusVariant>

#include "tests/e2e/Desktop.h"

namespace ambrel {
namespace {

// An item of a program: the program's name on the bus, and a path.
using Reference = std::pair<QString, QDBusObjectPath>;
// Who wants to hear of an event, and of which.
using Listener = std::pair<QString, QString>;

constexpr const char* rootPath = "/org/a11y/atspi/accessible/root";
constexpr const char* accessible = "org.a11y.atspi.Accessible";
constexpr unsigned activeState = 1, visibleState = 30;

bool has(const std::vector<unsigned>& states, unsigned state) {
  return state / 32 < states.size() && (states[state / 32] >> (state % 32) & 1);
}

}  // namespace

ScreenReader::ScreenReader() {
  qDBusRegisterMetaType<Reference>();
  qDBusRegisterMetaType<QList<Reference>>();
  qDBusRegisterMetaType<Listener>();
  qDBusRegisterMetaType<QList<Listener>>();
  auto bus = QDBusConnection::sessionBus();
  isReady_ = bus.registerVirtualObject(QStringLiteral("/org/a11y"), this, QDBusConnection::SubPath) &&
             bus.connect(QString(), QString(), QStringLiteral("org.a11y.atspi.Event.Focus"), QStringLiteral("Focus"),
                         this, SLOT(focused(QDBusMessage))) &&
             bus.registerService(QStringLiteral("org.a11y.atspi.Registry")) &&
             bus.registerService(QStringLiteral("org.a11y.Bus"));
}

QString ScreenReader::introspect(const QString&) const { return {}; }

bool ScreenReader::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
  const auto reply = [&](const QVariant& value) { return connection.send(message.createReply(value)); };
  const QString member = message.member();
  if (member == QLatin1String("GetAddress")) return reply(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"));
  if (member == QLatin1String("Get")) return reply(QVariant::fromValue(QDBusVariant(true)));  // IsEnabled
  if (member == QLatin1String("Embed")) {
    program_ = message.service();
    return reply(QVariant::fromValue(Reference{connection.baseService(), QDBusObjectPath(QLatin1String(rootPath))}));
  }
  if (member == QLatin1String("GetRegisteredEvents"))
    return reply(QVariant::fromValue(QList<Listener>{{connection.baseService(), QStringLiteral("focus:")}}));
  if (member == QLatin1String("NotifyListenersSync")) {
    const auto event = message.arguments().value(0).value<QDBusArgument>();
    unsigned type = 0;
    event.beginStructure();
    event >> type;
    ++(type == 0 ? presses_ : releases_);
    return reply(false);  // the key is for the program
  }
  return false;
}

void ScreenReader::focused(const QDBusMessage& message) {
  if (message.service() != program_) return;
  focus_ = message.path();
  ++focusChanges_;
}

QDBusMessage ScreenReader::ask(const QString& path, const char* interface, const char* method,
                               const QVariantList& arguments) const {
  asked_.insert(path);
  auto message = QDBusMessage::createMethodCall(program_, path, QLatin1String(interface), QLatin1String(method));
  message.setArguments(arguments);
  // Not by QDBus::BlockWithGui: it waits for ever when the answer is there before its event loop.
  const QDBusPendingCall call = QDBusConnection::sessionBus().asyncCall(message, 5000);
  waitFor([&] { return call.isFinished(); });
  QCoreApplication::processEvents();  // what the program said before it answered
  return call.reply();
}

QVariant ScreenReader::property(const QString& path, const char* name) const {
  const QDBusMessage answer =
      ask(path, "org.freedesktop.DBus.Properties", "Get", {QLatin1String(accessible), QLatin1String(name)});
  return answer.arguments().value(0).value<QDBusVariant>().variant();
}

std::vector<unsigned> ScreenReader::state(const QString& path) const {
  std::vector<unsigned> states;
  const auto list = ask(path, accessible, "GetState", {}).arguments().value(0);
  if (!list.canConvert<QDBusArgument>()) return states;
  const auto argument = list.value<QDBusArgument>();
  argument.beginArray();
  while (!argument.atEnd()) {
    unsigned part = 0;
    argument >> part;
    states.push_back(part);
  }
  return states;
}

ScreenReader::Item ScreenReader::item(const QString& path) const {
  Item item{.path = path,
            .name = property(path, "Name").toString(),
            .description = property(path, "Description").toString(),
            .role = ask(path, accessible, "GetRole", {}).arguments().value(0).toUInt(),
            .place = {}};
  const auto extents = ask(path, "org.a11y.atspi.Component", "GetExtents", {0u}).arguments().value(0);
  if (!extents.canConvert<QDBusArgument>()) return item;
  const auto argument = extents.value<QDBusArgument>();
  int x = 0, y = 0, width = 0, height = 0;
  argument.beginStructure();
  argument >> x >> y >> width >> height;
  item.place = {x, y, width, height};
  return item;
}

std::vector<QString> ScreenReader::children(const QString& path) const {
  std::vector<QString> found;
  const auto list = ask(path, accessible, "GetChildren", {}).arguments().value(0);
  if (list.canConvert<QDBusArgument>())
    for (const Reference& child : qdbus_cast<QList<Reference>>(list)) found.push_back(child.second.path());
  return found;
}

std::vector<ScreenReader::Window> ScreenReader::windows() const {
  std::vector<Window> found;
  for (const QString& path : children(QLatin1String(rootPath))) {
    const auto states = state(path);
    found.push_back({path, has(states, visibleState), has(states, activeState)});
  }
  return found;
}

bool ScreenReader::isAnswer(const QByteArray& line) const {
  const QByteArray start = "qt.accessibility.atspi: Could not find accessible on path: \"";
  return line.startsWith(start) && asked_.contains(QString::fromUtf8(line.mid(start.size()).chopped(1)));
}

void ScreenReader::settle() const {
  // A key is handled in the turn after the one that hears our answer to its announcement.
  for (int turn = 0; turn < 3; ++turn) ask(QLatin1String(rootPath), accessible, "GetRole", {});
}

}  // namespace ambrel
