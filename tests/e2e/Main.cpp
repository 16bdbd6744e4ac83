#include <QGuiApplication>
#include <cstdio>
#include <gtest/gtest.h>

#include "platform/linux/DBusSessionService.h"
#include "platform/linux/SessionBus.h"

namespace {

// The test program plays the second start of the bar: "--second-start" and the bar's own arguments.
int secondStart(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  const std::vector<std::string> arguments(argv + 2, argv + argc);
  ambrel::DBusSessionService service(ambrel::openSessionBus());
  constexpr const char* said[] = {"owner", "handedOver", "notAnswered", "alone"};
  std::puts(said[static_cast<std::size_t>(service.start(ambrel::parseCommandLine(arguments).wish))]);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc > 1 && std::string_view(argv[1]) == "--second-start") return secondStart(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  const QGuiApplication application(argc, argv);
  QGuiApplication::setQuitOnLastWindowClosed(false);
  return RUN_ALL_TESTS();
}
