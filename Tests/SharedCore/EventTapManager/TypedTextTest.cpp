#include "Tests/SharedCore/EventTapManager/TypedTextTest.h"

#include "Tests/Support/Eventually.h"
#include "Tests/Support/XWindows.h"

#include <QFile>

#include <algorithm>

namespace sharedcore {

using testsupport::ChildProcess;
using testsupport::eventually;
using testsupport::xAnswer;
using testsupport::XClient;

namespace {

constexpr std::chrono::seconds startTime(30);
constexpr std::chrono::seconds typingTime(60);

// Whether keys go to the window or to one inside of it.
bool getsKeys(const XClient &x, xcb_window_t window)
{
    const auto focus = xAnswer(xcb_get_input_focus_reply, x.get(), xcb_get_input_focus(x.get()));
    auto place = focus ? focus->focus : xcb_window_t{XCB_WINDOW_NONE};
    while (place > XCB_INPUT_FOCUS_POINTER_ROOT && place != window) {
        const auto tree = xAnswer(xcb_query_tree_reply, x.get(), xcb_query_tree(x.get(), place));
        place = tree ? tree->parent : xcb_window_t{XCB_WINDOW_NONE};
    }
    return place == window;
}

bool takesFocus(const XClient &x, const QString &title)
{
    return eventually(
        [&] {
            const auto windows = testsupport::windowsTitled(x, title);
            if (windows.empty()) {
                return false;
            }
            if (testsupport::activeWindow(x) != windows.front()) {
                testsupport::activate(x, windows.front());
            }
            return getsKeys(x, windows.front());
        },
        startTime);
}

} // namespace

FocusedProgram::FocusedProgram(const XClient &x, const QString &title, const QString &program,
                               const QStringList &arguments, const QProcessEnvironment &environment)
    : process_(program, arguments, environment)
    , hasFocus_(takesFocus(x, title))
{}

QByteArray FocusedProgram::result()
{
    EXPECT_EQ(process_.waitForExit(startTime), 0);
    return process_.standardOutput();
}

void XTypingTest::SetUp()
{
    // Programs are to be alone with what they are sent: no input method, no accessibility bus.
    runtime_.environment().insert(QStringLiteral("GTK_IM_MODULE"), QStringLiteral("gtk-im-context-simple"));
    runtime_.environment().insert(QStringLiteral("NO_AT_BRIDGE"), QStringLiteral("1"));
    runtime_.environment().insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    runtime_.environment().insert(QStringLiteral("QT_IM_MODULE"), QStringLiteral("compose"));
    server_ = std::make_unique<testsupport::PrivateXvfb>(runtime_);
    ASSERT_TRUE(server_->isOpen());
    windowManager_ = std::make_unique<testsupport::WindowManager>(runtime_);
    ASSERT_TRUE(windowManager_->isOpen());
    x_ = std::make_unique<XClient>(server_->display());
    ASSERT_TRUE(x_->isOpen());
}

int XTypingTest::type(const QByteArray &text) const
{
    ChildProcess typing(QStringLiteral(TYPING_PROGRAM), {QString::fromUtf8(text)}, runtime_.environment());
    return typing.waitForExit(typingTime).value_or(-1);
}

std::unique_ptr<FocusedProgram> XTypingTest::openGtkEntry() const
{
    const QString title = QStringLiteral("Entry");
    return std::make_unique<FocusedProgram>(*x_, title, QStringLiteral("zenity"),
                                            QStringList{QStringLiteral("--entry"),
                                                        QStringLiteral("--text=Text"),
                                                        QStringLiteral("--title=") + title},
                                            runtime_.environment());
}

// What the toolkit does not free at its end is no matter here.
std::unique_ptr<FocusedProgram> XTypingTest::openQtField() const
{
    auto environment = runtime_.environment();
    environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
    return std::make_unique<FocusedProgram>(*x_, QStringLiteral("Text field"),
                                            QStringLiteral(TEXT_FIELD_PROGRAM), QStringList(), environment);
}

std::unique_ptr<FocusedProgram> XTypingTest::openTerminal()
{
    QFile::remove(runtime_.path(QStringLiteral("typed")));
    const QString title = QStringLiteral("Terminal");
    const auto script =
        QStringLiteral("stty raw -echo && cat > '%1'").arg(runtime_.path(QStringLiteral("typed")));
    auto terminal = std::make_unique<FocusedProgram>(
        *x_, title, QStringLiteral("xterm"),
        QStringList{QStringLiteral("-u8"), QStringLiteral("-fn"), QStringLiteral("fixed"),
                    QStringLiteral("-T"), title, QStringLiteral("-e"), QStringLiteral("sh"),
                    QStringLiteral("-c"), script},
        runtime_.environment());
    EXPECT_TRUE(
        eventually([this] { return QFile::exists(runtime_.path(QStringLiteral("typed"))); }, startTime));
    return terminal;
}

QByteArray XTypingTest::typedIntoTerminal() const
{
    QFile file(runtime_.path(QStringLiteral("typed")));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool XTypingTest::terminalComesToHave(const QByteArray &text) const
{
    return eventually([&] { return typedIntoTerminal().size() >= text.size(); });
}

// The server's own words through xkbcomp, for the core keyboard and for the others, and what programs without
// the keyboard extension see.
QByteArray XTypingTest::keymap() const
{
    QByteArray all;
    for (const auto *const keyboard : {"", "-i3", "-i5", "-i7"}) {
        QStringList arguments{QStringLiteral("-xkb"), server_->display(), QStringLiteral("-")};
        if (*keyboard != '\0') {
            arguments.prepend(QString::fromLatin1(keyboard));
        }
        ChildProcess xkbcomp(QStringLiteral("xkbcomp"), arguments, runtime_.environment());
        EXPECT_TRUE(xkbcomp.waitForExit().has_value());
        all += xkbcomp.standardOutput();
    }
    const auto *setup = xcb_get_setup(x_->get());
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
    const auto mapping = xAnswer(xcb_get_keyboard_mapping_reply, x_->get(),
                                 xcb_get_keyboard_mapping(x_->get(), setup->min_keycode, count));
    const auto size = mapping ? mapping->length * sizeof(xcb_keysym_t) : 0;
    all +=
        QByteArray(reinterpret_cast<const char *>(xcb_get_keyboard_mapping_keysyms(mapping.get())), // NOLINT
                   static_cast<qsizetype>(size));
    return all;
}

} // namespace sharedcore
