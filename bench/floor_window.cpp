// The floor of a start: a bare Qt Quick window with one text, drawn by the processor as the bar is.
//
//   floor_window --ticking      with a text that changes every two seconds: what the toolkit itself costs at rest
#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>

int main(int argc, char** argv) {
  QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
  QGuiApplication application(argc, argv);
  QQmlEngine engine;
  QQmlComponent component(&engine);
  component.setData(
      "import QtQuick\nWindow { id: root; width: 640; height: 80; visible: true; color: \"#11141A\"\n"
      "property bool ticks; property int count\n"
      "Timer { interval: 2000; repeat: true; running: root.ticks; onTriggered: root.count += 1 }\n"
      "Text { anchors.centerIn: parent; text: \"10:4\" + (root.count % 10); color: \"white\"; font.pixelSize: 20 } }",
      QUrl(QStringLiteral("qrc:/floor_window.qml")));
  const std::unique_ptr<QObject> window(component.create());
  if (!window) return 1;
  window->setProperty("ticks", argc > 1 && QByteArrayView(argv[1]) == "--ticking");
  return QGuiApplication::exec();
}
