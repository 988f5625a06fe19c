// What the typer asks of a compositor when the program is at its limits.

#include "Platform/Linux/Wayland/WlrootsTextTyper.h"

#include "Tests/Platform/Wayland/WlrootsPosterTest.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/PrivateRuntime.h"
#include "Tests/Support/QtPrinting.h"
#include "Tests/Support/Wayland/WaylandStandIn.h"

#include <gmock/gmock.h>

#include <sys/resource.h>
#include <unistd.h>

namespace platform {

namespace {

using testing::ElementsAre;
using testing::NotNull;
using testsupport::eventually;

// No file can be opened as long as it lives; those that are open stay so.
class NoMoreFiles
{
public:
    NoMoreFiles()
    {
        getrlimit(RLIMIT_NOFILE, &before_);
        const int next = dup(STDIN_FILENO);
        close(next);
        const rlimit none{static_cast<rlim_t>(next), before_.rlim_max};
        EXPECT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
    }
    NoMoreFiles(const NoMoreFiles &) = delete;
    NoMoreFiles &operator=(const NoMoreFiles &) = delete;
    ~NoMoreFiles() { setrlimit(RLIMIT_NOFILE, &before_); }

private:
    rlimit before_{};
};

bool type(TextTyper &typer, std::u16string_view character)
{
    typer.post({character, true});
    return typer.post({character, false});
}

// More than one keymap has keys for.
std::u16string longAlphabet()
{
    std::u16string text;
    for (char16_t letter = 0x4e00; letter < 0x4e00 + 60; ++letter) {
        text += letter;
    }
    return text;
}

class WlrootsTextTyperTest : public testing::Test
{
protected:
    void SetUp() override
    {
        const testsupport::ScopedWaylandDisplay scope(display);
        EXPECT_TRUE(eventually([this] { return (typer = WlrootsTextTyper::create(text, why)) != nullptr; }));
        ASSERT_THAT(typer, NotNull()) << qPrintable(why);
    }

    // The keymaps and keys that the compositor has been sent once all of that has arrived.
    [[nodiscard]] QStringList sent()
    {
        EXPECT_TRUE(typer->finish());
        auto requests = compositor.requests();
        requests.removeIf([](const QString &request) { return !request.startsWith(QLatin1String("key")); });
        return requests;
    }

    testsupport::PrivateRuntime runtime;
    QString display = runtime.path(QStringLiteral("wayland"));
    testsupport::WaylandStandIn compositor{display};
    std::u16string text = longAlphabet();
    QString why;
    std::unique_ptr<TextTyper> typer;
};

} // namespace

TEST_F(WlrootsTextTyperTest, NoKeyIsSentBeforeTheFirstKeymap)
{
    {
        const NoMoreFiles limit;
        EXPECT_FALSE(type(*typer, text.substr(0, 1)));
    }
    EXPECT_TRUE(type(*typer, text.substr(0, 1)));
    EXPECT_THAT(sent(),
                ElementsAre(QStringLiteral("keymap"), QStringLiteral("key 2 1"), QStringLiteral("key 2 0")));
}

TEST_F(WlrootsTextTyperTest, AKeymapThatCouldNotBeSentIsNotTheKeyboards)
{
    const auto last = text.substr(text.size() - 1);
    EXPECT_TRUE(type(*typer, text.substr(0, 1)));
    // The compositor is in this process too, and needs a file for it.
    ASSERT_TRUE(eventually([this] { return compositor.requests().contains(QStringLiteral("keymap")); }));
    {
        const NoMoreFiles limit;
        EXPECT_FALSE(type(*typer, last));
        EXPECT_TRUE(type(*typer, text.substr(0, 1))) << "the keymap before is still the keyboard's";
    }
    EXPECT_TRUE(type(*typer, last));
    EXPECT_THAT(sent(),
                ElementsAre(QStringLiteral("keymap"), QStringLiteral("key 2 1"), QStringLiteral("key 2 0"),
                            QStringLiteral("key 2 1"), QStringLiteral("key 2 0"), QStringLiteral("keymap"),
                            QStringLiteral("key 2 1"), QStringLiteral("key 2 0")));
}

} // namespace platform
