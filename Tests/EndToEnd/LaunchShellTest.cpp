// The launch container of a program of the family, as the user clicks it and finds it again.

#include "Tests/EndToEnd/Desktop.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/XUser.h"
#include "Tests/Support/XWindows.h"

#include <gmock/gmock.h>

#include <csignal>

using namespace testsupport;

namespace endtoend {

namespace {

class LaunchShell
{
public:
    LaunchShell(Desktop &desktop, const QString &locale)
        : desktop_(desktop)
        , process_(QStringLiteral(LAUNCH_SHELL_PROGRAM), {}, environment(desktop, locale))
        , tree_(desktop.accessibility(), process_.pid())
    {}

    [[nodiscard]] AccessibleProgram &tree() { return tree_; }
    [[nodiscard]] bool comesToShow(const QString &name, const QString &role)
    {
        return eventually([&] { return tree_.find(name, role).has_value(); });
    }
    [[nodiscard]] bool isOn(const QString &name)
    {
        const auto found = tree_.find(name, QStringLiteral("check box"));
        return found && found->is(AccessibleState::checked);
    }

    // REQUIRES: it is shown.
    void click(const QString &name, const QString &role)
    {
        XUser(desktop_.x()).click(tree_.place(*tree_.find(name, role)).center());
    }
    void end()
    {
        process_.sendSignal(SIGTERM);
        EXPECT_EQ(process_.waitForExit(), 0);
        EXPECT_EQ(process_.standardError(), "");
    }

private:
    static QProcessEnvironment environment(Desktop &desktop, const QString &locale)
    {
        auto environment = desktop.environment();
        environment.remove(QStringLiteral("LANGUAGE"));
        environment.insert(QStringLiteral("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"), QStringLiteral("1"));
        environment.insert(QStringLiteral("LC_ALL"), locale);
        return environment;
    }

    Desktop &desktop_;
    ChildProcess process_;
    AccessibleProgram tree_;
};

} // namespace

TEST(LaunchShellTest, IsInTheUsersLanguageAndKeepsWhatTheUserPrefers)
{
    const auto tab = QStringLiteral("page tab");
    const auto checkBox = QStringLiteral("check box");
    Desktop desktop;
    ASSERT_TRUE(desktop.isOpen());
    {
        LaunchShell shell(desktop, QStringLiteral("de_DE.UTF-8"));
        ASSERT_TRUE(shell.comesToShow(QStringLiteral("Einstellungen"), tab));
        EXPECT_TRUE(shell.comesToShow(QStringLiteral("Settings"), QStringLiteral("heading"))); // the title
        shell.click(QStringLiteral("Einstellungen"), tab);
        ASSERT_TRUE(shell.comesToShow(QStringLiteral("Bewegung reduzieren"), checkBox));
        EXPECT_FALSE(shell.isOn(QStringLiteral("Bewegung reduzieren")));
        shell.click(QStringLiteral("Bewegung reduzieren"), checkBox);
        EXPECT_TRUE(eventually([&] { return shell.isOn(QStringLiteral("Bewegung reduzieren")); }));
        shell.end();
    }
    LaunchShell shell(desktop, QStringLiteral("en_US.UTF-8"));
    ASSERT_TRUE(shell.comesToShow(QStringLiteral("Settings"), tab));
    shell.click(QStringLiteral("Settings"), tab);
    ASSERT_TRUE(shell.comesToShow(QStringLiteral("Reduce motion"), checkBox));
    EXPECT_TRUE(shell.isOn(QStringLiteral("Reduce motion")));
    EXPECT_FALSE(shell.isOn(QStringLiteral("Reduce transparency")));
    shell.end();
}

} // namespace endtoend
