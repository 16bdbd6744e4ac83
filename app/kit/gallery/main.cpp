// Shows every component of the kit in every state, on screen or as a picture in a file.

#include <QCommandLineParser>
#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QSGRendererInterface>
#include <QTimer>
#include <memory>

#include "app/kit/Theme.h"

namespace {

void showScheme(QQuickView& view, const QString& scheme) {
  auto& theme = ambrel::themeOf(*view.engine());
  theme.setChoice(scheme == QLatin1String("light") ? ambrel::Theme::Choice::Light : ambrel::Theme::Choice::Dark);
  view.setColor(theme.panel());
}

}  // namespace

int main(int argc, char** argv) {
  QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
  for (int i = 1; i + 1 < argc; ++i)
    if (QByteArrayView(argv[i]) == "--scale") qputenv("QT_SCALE_FACTOR", argv[i + 1]);
  QGuiApplication app(argc, argv);

  QCommandLineParser parser;
  parser.setApplicationDescription(QStringLiteral("Shows the components of the kit."));
  parser.addHelpOption();
  const QCommandLineOption scheme(QStringLiteral("scheme"), QStringLiteral("dark or light."), QStringLiteral("NAME"),
                                  QStringLiteral("dark"));
  const QCommandLineOption page(QStringLiteral("page"), QStringLiteral("tiles or components."), QStringLiteral("NAME"),
                                QStringLiteral("components"));
  const QCommandLineOption scale(QStringLiteral("scale"), QStringLiteral("Device pixels for each logical one."),
                                 QStringLiteral("N"), QStringLiteral("1"));
  const QCommandLineOption textScale(QStringLiteral("text-scale"), QStringLiteral("Enlarges the type alone."),
                                     QStringLiteral("N"), QStringLiteral("1"));
  const QCommandLineOption shot(QStringLiteral("shot"), QStringLiteral("Writes a picture and ends."),
                                QStringLiteral("FILE"));
  parser.addOptions({scheme, page, scale, textScale, shot});
  parser.process(app);

  QQuickView view;
  view.engine()->addImportPath(QStringLiteral("qrc:/qt/qml"));
  const QString file =
      parser.value(page) == QLatin1String("tiles") ? QStringLiteral("TileGallery") : QStringLiteral("Gallery");
  view.setSource(QUrl(QStringLiteral("qrc:/qt/qml/Ambrel/Gallery/%1.qml").arg(file)));
  if (view.status() != QQuickView::Ready) return 1;
  ambrel::themeOf(*view.engine()).setTextScale(parser.value(textScale).toDouble());
  showScheme(view, parser.value(scheme));
  view.setTitle(QStringLiteral("Tilebay kit"));
  view.resize(view.rootObject()->size().toSize());
  if (!parser.isSet(shot)) {
    view.show();
    return QGuiApplication::exec();
  }
  view.show();
  // Fades of the first change of scheme take their time.
  QTimer::singleShot(400, &view, [&] {
    const bool isWritten = view.grabWindow().save(parser.value(shot));
    if (!isWritten) qWarning("cannot write %s", qPrintable(parser.value(shot)));
    QGuiApplication::exit(isWritten ? 0 : 1);
  });
  return QGuiApplication::exec();
}
