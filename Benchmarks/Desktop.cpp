#include "Benchmarks/Desktop.h"

#include "Benchmarks/Report.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/XWindows.h"

#include <QFileInfo>

#include <xcb/xtest.h>

#include <array>

namespace benchmarks {

namespace {

// Where this program is. Asked without an application object, which the first desktop comes before.
QString programFolder()
{
    return QFileInfo(QStringLiteral("/proc/self/exe")).symLinkTarget().section(QLatin1Char('/'), 0, -2);
}

void require(bool condition, const char *what)
{
    if (!condition) {
        throw NotMeasured(what);
    }
}

// What may tell why a program did not do what it should.
std::string lastWordsOf(testsupport::ChildProcess &process)
{
    const auto status = process.exitStatus();
    const auto state = status ? ", ended with " + std::to_string(*status) : std::string(", still running");
    return state + "; " + process.standardError().right(200).simplified().toStdString();
}

xcb_keycode_t keyCodeOf(const testsupport::XClient &x, xcb_keysym_t key)
{
    const auto *setup = xcb_get_setup(x.get());
    const auto first = setup->min_keycode;
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - first + 1);
    const auto mapping = testsupport::xAnswer(xcb_get_keyboard_mapping_reply, x.get(),
                                              xcb_get_keyboard_mapping(x.get(), first, count));
    require(mapping != nullptr, "no keyboard mapping");
    const auto *symbols = xcb_get_keyboard_mapping_keysyms(mapping.get());
    for (int i = 0; i < count; ++i) {
        if (symbols[i * mapping->keysyms_per_keycode] == key) {
            return static_cast<xcb_keycode_t>(first + i);
        }
    }
    throw NotMeasured("no key for the symbol");
}

} // namespace

Desktop::Desktop(Windows windows)
    : display_(runtime_)
    , bus_(runtime_)
    , client_(display_.display())
{
    require(display_.isOpen() && client_.isOpen(), "no private X server");
    require(bus_.isOpen(), "no private session bus");
    if (windows == Windows::managed) {
        windowManager_ = std::make_unique<testsupport::WindowManager>(runtime_);
        require(windowManager_->isOpen(), "no window manager");
    }
}

std::unique_ptr<testsupport::ChildProcess> Desktop::start(const QString &program,
                                                          const QStringList &arguments,
                                                          const QProcessEnvironment &environment) const
{
    const auto path =
        program.contains(QLatin1Char('/')) ? program : programFolder() + QLatin1Char('/') + program;
    return std::make_unique<testsupport::ChildProcess>(path, arguments, environment);
}

std::unique_ptr<testsupport::ChildProcess> Desktop::open(const QString &program) const
{
    auto process = start(program);
    if (!testsupport::eventually([this] { return !testsupport::managedWindows(client_).empty(); })) {
        throw NotMeasured(program.toStdString() + " shows no window" + lastWordsOf(*process));
    }
    return process;
}

xcb_window_t Desktop::window() const
{
    const auto windows = testsupport::managedWindows(client_);
    require(windows.size() == 1, "not one window on the screen");
    return windows.front();
}

void Desktop::closeWindow() const
{
    testsupport::close(client_, window());
    require(testsupport::eventually([this] { return testsupport::managedWindows(client_).empty(); }),
            "the window does not close");
}

void Desktop::type(xcb_keysym_t key) const
{
    const auto code = keyCodeOf(client_, key);
    for (const auto event : std::array<std::uint8_t, 2>{XCB_KEY_PRESS, XCB_KEY_RELEASE}) {
        xcb_test_fake_input(client_.get(), event, code, XCB_CURRENT_TIME, client_.root(), 0, 0, 0);
    }
    client_.sync();
}

} // namespace benchmarks
