// stirra-drawing PAGE SECONDS: shows one of the pages beside this file in a window of 1280 x 800 points, lets
// it settle for a second, and then counts for so many seconds. Prints how many frames the window showed, how
// long that took in seconds, and how much CPU time the process had, all threads together, and ends.

#include "Platform/Platform.h"

#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickView>
#include <QTimer>

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <iostream>

namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

double cpuTime()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

// What is counted from its beginning.
struct Count
{
    int frames = 0;
    Clock::time_point start = Clock::now();
    double cpuTimeBefore = cpuTime();

    void print() const
    {
        const std::chrono::duration<double> seconds = Clock::now() - start;
        std::cout << frames << ' ' << seconds.count() << ' ' << cpuTime() - cpuTimeBefore << std::endl;
    }
};

int show(const QString &page, double seconds)
{
    QQuickView view;
    view.engine()->addImportPath(QStringLiteral("qrc:/qt/qml"));
    view.setResizeMode(QQuickView::SizeRootObjectToView);
    view.setSource(QUrl(QStringLiteral("qrc:/") + page + QStringLiteral(".qml")));
    view.resize(1280, 800);
    view.show();
    Count count;
    QObject::connect(&view, &QQuickWindow::frameSwapped, &view, [&count] { ++count.frames; });
    QTimer::singleShot(1s, &view, [&count] { count = Count(); });
    QTimer::singleShot(
        1s + std::chrono::round<std::chrono::milliseconds>(std::chrono::duration<double>(seconds)), &view,
        [&count] {
            count.print();
            QGuiApplication::quit();
        });
    return view.status() == QQuickView::Ready ? QGuiApplication::exec() : EXIT_FAILURE;
}

} // namespace

int main(int argc, char **argv)
{
    platform::prepareProcess();
    const QGuiApplication application(argc, argv);
    const auto platform = platform::makeNativePlatform();
    const platform::PlatformInstallation installation(*platform);
    return argc == 3 ? show(QString::fromLocal8Bit(argv[1]), std::atof(argv[2])) : EXIT_FAILURE;
}
