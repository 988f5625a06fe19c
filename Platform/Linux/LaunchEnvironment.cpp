#include "Platform/Linux/LaunchEnvironment.h"

#include "Platform/Linux/TextDrawing.h"
#include "Platform/Linux/Wayland/WaylandWindow.h"
#include "Platform/Platform.h"

#include <QQuickWindow>

#include <fontconfig/fontconfig.h>

#include <pthread.h>
#include <sched.h>

#include <thread>

namespace platform {

namespace {

QString &storedLaunchToken()
{
    static QString token;
    return token;
}

std::jthread &fontConfigurationReader()
{
    static std::jthread reader;
    return reader;
}

void setDefault(const char *variable, const char *value)
{
    if (!qEnvironmentVariableIsSet(variable)) {
        qputenv(variable, value);
    }
}

void readLaunchToken()
{
    const auto wayland = qEnvironmentVariable("XDG_ACTIVATION_TOKEN");
    storedLaunchToken() = wayland.isEmpty() ? qEnvironmentVariable("DESKTOP_STARTUP_ID") : wayland;
}

// A window that changes a few words a second costs a third of the memory, and starts three times as fast,
// without OpenGL.
void drawInSoftware()
{
    if (qEnvironmentVariableIsSet("QT_QUICK_BACKEND") || qEnvironmentVariableIsSet("QSG_RHI_BACKEND")) {
        return;
    }
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    setDefault("QT_XCB_GL_INTEGRATION", "none");
    if (compositorDrawsWindowFrames()) {
        // To see whether it could draw one itself the toolkit loads all of OpenGL: 50 MB.
        setDefault("QT_WAYLAND_DISABLE_WINDOWDECORATION", "1");
    }
}

// Nothing is typed into the program's window. And on a compositor without a seat the toolkit's way to
// Wayland's input methods ends the process when the first text is laid out (Qt 6.4).
void useNoInputMethod()
{
    setDefault("QT_IM_MODULE", "none");
}

// Each repaint otherwise waits a moment for more, and for the server to have read the shared picture, or
// looks later whether the compositor has shown it: two more wake-ups for every tick of the clock, or one.
void drawWithoutWaiting()
{
    setDefault("QT_QPA_UPDATE_IDLE_TIME", "0");
    setDefault("QT_XCB_NO_MITSHM", "1");
    setDefault("QT_WAYLAND_FRAME_CALLBACK_TIMEOUT", "-1");
}

// The kernel of a virtual machine may let a new thread wait for its parent's processor while another is idle.
void moveOffThisProcessor(std::jthread &thread)
{
    cpu_set_t processors;
    const int current = sched_getcpu();
    if (current >= 0 && sched_getaffinity(0, sizeof processors, &processors) == 0 &&
        CPU_COUNT(&processors) > 1) {
        CPU_CLR(static_cast<std::size_t>(current), &processors);
        pthread_setaffinity_np(thread.native_handle(), sizeof processors, &processors);
    }
}

// Reading fontconfig's configuration is a tenth of the time to the first frame, and nothing else waits for it
// before the first text is laid out. It is the one thing that the program does beside its main thread.
void readFontConfigurationAside()
{
    fontConfigurationReader() = std::jthread([] { FcInit(); });
    moveOffThisProcessor(fontConfigurationReader());
}

} // namespace

QString launchToken()
{
    return storedLaunchToken();
}

void awaitFontConfiguration()
{
    if (auto &reader = fontConfigurationReader(); reader.joinable()) {
        reader.join();
    }
}

void prepareProcess()
{
    readLaunchToken();
    drawInSoftware();
    drawWithoutWaiting();
    useNoInputMethod();
    readFontConfigurationAside();
    drawStemsAsTheyAre();
}

} // namespace platform
