// The floor of a start: a bare Qt Quick window with one text, drawn by the processor as the bar is.
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
      "import QtQuick\nWindow { width: 640; height: 80; visible: true; color: \"#11141A\"\n"
      "Text { anchors.centerIn: parent; text: \"10:42\"; color: \"white\"; font.pixelSize: 20 } }",
      QUrl(QStringLiteral("qrc:/floor_window.qml")));
  const std::unique_ptr<QObject> window(component.create());
  return window ? QGuiApplication::exec() : 1;
}
