// A program that claims to be the application, and says what it then is told.
//
// ApplicationLinkProgram bus|socket-path token [when]: claims at the given time of the steady clock, in
// milliseconds, so that several do it in the same instant. Prints "sole" and then a line for each request, or
// "second" and ends.

#include "Platform/Linux/Session/BusApplicationLink.h"
#include "Platform/Linux/Session/SocketApplicationLink.h"

#include <QGuiApplication>

#include <chrono>
#include <cstdio>
#include <memory>
#include <thread>

namespace {

std::unique_ptr<platform::ApplicationLink> linkOver(const QString &way, const QString &token)
{
    if (way == QLatin1String("bus")) {
        return std::make_unique<platform::BusApplicationLink>(QDBusConnection::sessionBus(), token);
    }
    return std::make_unique<platform::SocketApplicationLink>(way, token);
}

void say(const char *what, const QString &token = {})
{
    std::printf("%s%s\n", what, qPrintable(token));
    std::fflush(stdout);
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QGuiApplication::setDesktopFileName(QStringLiteral("org.stirra.Linked-Application"));
    const auto arguments = QCoreApplication::arguments();
    const auto link = linkOver(arguments.value(1), arguments.value(2));
    QObject::connect(link.get(), &platform::ApplicationLink::reopenRequested,
                     [](const QString &token) { say("reopen ", token); });
    QObject::connect(link.get(), &platform::ApplicationLink::quitRequested, [] { say("quit"); });
    std::this_thread::sleep_until(
        std::chrono::steady_clock::time_point(std::chrono::milliseconds(arguments.value(3).toLongLong())));
    if (!link->claim()) {
        say("second");
        return 0;
    }
    say("sole");
    return QCoreApplication::exec();
}
