#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickWindow>

int main(int argc, char **argv)
{
    // The same drawing system as Stirra's: software, and no OpenGL library loaded.
    qputenv("QT_XCB_GL_INTEGRATION", "none");
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    const QGuiApplication application(argc, argv);
    const QQmlApplicationEngine engine(QUrl(QStringLiteral("qrc:/qt/qml/EmptyWindow/Main.qml")));
    return QGuiApplication::exec();
}
