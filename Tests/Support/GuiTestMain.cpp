// The entry of test programs that show windows, on Qt's off-screen display and in the software scene graph.

#include <QGuiApplication>
#include <QQuickWindow>

#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    testing::InitGoogleTest(&argc, argv);
    const QGuiApplication application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
