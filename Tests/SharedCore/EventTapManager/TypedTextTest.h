// What the tests of typed text have in common: programs of a desktop that show or print what reaches them.
#pragma once

#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/PrivateRuntime.h"
#include "Tests/Support/PrivateXvfb.h"
#include "Tests/Support/WindowManager.h"
#include "Tests/Support/XClient.h"

#include <gmock/gmock.h>

#include <memory>

namespace sharedcore {

// A character of each kind: several alphabets, one that is written from right to left, letters with marks of
// their own and combined ones, emoji of one and of several code points, a flag.
inline constexpr auto manyAlphabets = "Größe, Straße! Ελλάδα Щука 漢字 مرحبا e\u0301 {~} \"Q\" "
                                      "👍🏽 👩‍👩‍👧‍👦 🇩🇪.";

// A program with its window, which has the focus.
class FocusedProgram
{
public:
    FocusedProgram(const testsupport::XClient &x, const QString &title, const QString &program,
                   const QStringList &arguments, const QProcessEnvironment &environment);

    [[nodiscard]] bool hasFocus() const { return hasFocus_; }
    [[nodiscard]] testsupport::ChildProcess &process() { return process_; }
    // What it printed when it ended of itself.
    [[nodiscard]] QByteArray result();

private:
    testsupport::ChildProcess process_;
    bool hasFocus_ = false;
};

// A private display with a window manager.
class XTypingTest : public testing::Test
{
protected:
    void SetUp() override;

    // Types with a program of its own; its exit status.
    [[nodiscard]] int type(const QByteArray &text) const;

    // Programs with a text field that print the text when Return is pressed in it.
    [[nodiscard]] std::unique_ptr<FocusedProgram> openGtkEntry() const;
    [[nodiscard]] std::unique_ptr<FocusedProgram> openQtField() const;
    // A terminal in which a program writes what is typed to a file, each character at once.
    [[nodiscard]] std::unique_ptr<FocusedProgram> openTerminal();
    [[nodiscard]] QByteArray typedIntoTerminal() const;
    [[nodiscard]] bool terminalComesToHave(const QByteArray &text) const;

    // All that can be asked of the display's keymap and of that of each of its keyboards.
    [[nodiscard]] QByteArray keymap() const;

    testsupport::PrivateRuntime runtime_;
    std::unique_ptr<testsupport::PrivateXvfb> server_;
    std::unique_ptr<testsupport::WindowManager> windowManager_;
    std::unique_ptr<testsupport::XClient> x_;
};

} // namespace sharedcore
