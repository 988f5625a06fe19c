// The doctor on real desktops of each kind: what it reports, and how it exits.

#include "Tests/Support/DesktopPortal.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/HeadlessMutter.h"
#include "Tests/Support/PortalBackend.h"
#include "Tests/Support/PrivateXvfb.h"
#include "Tests/Support/Wayland/PrivateSway.h"
#include "Tests/Support/Wayland/PrivateWeston.h"
#include "Tests/Support/Wayland/PrivateXwayland.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gmock/gmock.h>

using namespace testsupport;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace doctor {

namespace {

constexpr std::chrono::seconds patience(50);

class DoctorProgramTest : public testing::Test
{
protected:
    struct Outcome
    {
        std::optional<int> status;
        std::string output;
        std::string errors;
    };

    // Runs the program to its end; servers inside this process go on meanwhile.
    Outcome run(const QStringList &arguments = {})
    {
        auto environment = runtime.environment();
        environment.insert(QStringLiteral("STIRRA_INPUT_BACKEND"),
                           forcedWay); // in place of a compositor's own
        ChildProcess program(QStringLiteral(STIRRA_DOCTOR), arguments, environment);
        EXPECT_TRUE(eventually([&] { return !program.isRunning(); }, patience));
        return {program.exitStatus(), program.standardOutput().toStdString(),
                program.standardError().toStdString()};
    }

    // The report for scripts, which is as its schema says.
    QJsonObject report(int expectedStatus)
    {
        const auto outcome = run({QStringLiteral("--json")});
        EXPECT_EQ(outcome.status, expectedStatus);
        EXPECT_EQ(outcome.errors, "");
        const auto text = QByteArray::fromStdString(outcome.output);
        EXPECT_EQ(validationErrors(text), "") << outcome.output;
        return QJsonDocument::fromJson(text).object();
    }

    std::string validationErrors(const QByteArray &text)
    {
        const auto path = runtime.path(QStringLiteral("report.json"));
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
        file.close();
        ChildProcess validator(QStringLiteral("/usr/bin/jsonschema"),
                               {QStringLiteral("--instance"), path, QStringLiteral(STIRRA_DOCTOR_SCHEMA)},
                               runtime.environment());
        EXPECT_TRUE(validator.waitForExit().has_value());
        return validator.exitStatus() == 0
                   ? ""
                   : (validator.standardOutput() + validator.standardError() + "not valid").toStdString();
    }

    static std::vector<std::string> results(const QJsonObject &report)
    {
        std::vector<std::string> list;
        for (const auto &action : report.value(QStringLiteral("actions")).toArray()) {
            list.push_back(action.toObject().value(QStringLiteral("result")).toString().toStdString());
        }
        return list;
    }

    static std::vector<std::string> backends(const QJsonObject &report)
    {
        std::vector<std::string> list;
        for (const auto &backend : report.value(QStringLiteral("backends")).toArray()) {
            list.push_back(backend.toObject().value(QStringLiteral("name")).toString().toStdString());
        }
        return list;
    }

    static std::string field(const QJsonObject &report, const char *name)
    {
        return report.value(QLatin1String(name)).toString().toStdString();
    }

    static void expectConfirmed(const QJsonObject &report)
    {
        EXPECT_THAT(results(report), ElementsAre("reset confirmed", "reset confirmed", "reset confirmed"));
        EXPECT_TRUE(report.value(QStringLiteral("confirmed")).toBool());
    }

    PrivateRuntime runtime;
    PrivateBus bus{runtime};
    QString forcedWay; // empty forces none
};

class DoctorOnMutterTest : public DoctorProgramTest
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(mutter.isOpen());
        ASSERT_TRUE(PortalBackend::announce(runtime.path(QStringLiteral("portals")), runtime.environment()));
        backend.emplace(bus);
        ASSERT_TRUE(backend->isOpen());
        backend->onInput([this](const RemoteDesktopInput &input) { mutter.take(input); });
        portal.emplace(runtime, bus);
        ASSERT_TRUE(portal->isOpen());
    }

    HeadlessMutter mutter{runtime, bus};
    std::optional<PortalBackend> backend;
    std::optional<DesktopPortal> portal;
};

} // namespace

TEST_F(DoctorProgramTest, OnX11EveryActionIsConfirmed)
{
    const PrivateXvfb server(runtime);
    ASSERT_TRUE(server.isOpen());
    const auto found = report(0);
    EXPECT_EQ(field(found, "chosen"), "xtest");
    EXPECT_EQ(field(found, "idleClock"), "XScreenSaver");
    EXPECT_THAT(backends(found), ElementsAre("xtest", "uinput"));
    expectConfirmed(found);
}

TEST_F(DoctorProgramTest, TheTextForPeopleSaysTheSameWithoutColoursInAFile)
{
    const PrivateXvfb server(runtime);
    ASSERT_TRUE(server.isOpen());
    const auto outcome = run();
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output, HasSubstr("✓ xtest         yes"));
    EXPECT_THAT(outcome.output, HasSubstr("✓ Scroll Pulse  reset confirmed"));
    EXPECT_THAT(outcome.output, Not(HasSubstr("\033")));
    EXPECT_EQ(outcome.errors, "");
}

TEST_F(DoctorProgramTest, OnSwayEveryActionIsConfirmed)
{
    const PrivateSway sway(runtime);
    ASSERT_TRUE(sway.isOpen());
    const auto found = report(0);
    EXPECT_EQ(field(found, "chosen"), "wlroots");
    EXPECT_EQ(field(found, "idleClock"), "org_kde_kwin_idle");
    EXPECT_THAT(backends(found), ElementsAre("wlroots", "portal", "uinput"));
    expectConfirmed(found);
}

TEST_F(DoctorOnMutterTest, EveryActionIsConfirmedAndTheUserIsAskedOnce)
{
    const auto found = report(0);
    EXPECT_EQ(field(found, "chosen"), "portal");
    EXPECT_EQ(field(found, "idleClock"), "org.gnome.Mutter.IdleMonitor");
    expectConfirmed(found);
    EXPECT_EQ(backend->questionCount(), 1);
}

TEST_F(DoctorOnMutterTest, ADenialIsReportedAndNotAskedAbout)
{
    backend->setAnswer(PortalBackend::Answer::refuse);
    const auto found = report(1);
    EXPECT_EQ(field(found, "chosen"), "");
    EXPECT_THAT(field(found, "reason"), HasSubstr("denied"));
    EXPECT_THAT(field(found, "remedy"), Not(IsEmpty()));
    EXPECT_THAT(results(found), Each(std::string("not confirmed")));
    EXPECT_EQ(backend->questionCount(), 1);
}

TEST_F(DoctorProgramTest, OnWestonItSaysThatNothingCanBePostedAndWhatHelps)
{
    const PrivateWeston weston(runtime);
    ASSERT_TRUE(weston.isOpen());
    const auto found = report(1);
    EXPECT_EQ(field(found, "chosen"), "");
    EXPECT_THAT(field(found, "remedy"), Not(IsEmpty()));
    EXPECT_THAT(results(found), Each(std::string("no idle clock here")));
    for (const auto &backend : found.value(QStringLiteral("backends")).toArray()) {
        EXPECT_FALSE(backend.toObject().value(QStringLiteral("works")).toBool(true));
        EXPECT_THAT(field(backend.toObject(), "remedy"), Not(IsEmpty()));
    }
    const auto outcome = run();
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.output, HasSubstr("zwlr_virtual_pointer_manager_v1"));
}

TEST_F(DoctorProgramTest, OfAnXwaylandItSaysThatXtestDoesNotReachTheSession)
{
    const PrivateWeston weston(runtime);
    ASSERT_TRUE(weston.isOpen());
    const PrivateXwayland xwayland(runtime);
    ASSERT_TRUE(xwayland.isOpen());
    EXPECT_THAT(backends(report(1)), Not(testing::Contains("xtest")));
    forcedWay = QStringLiteral("xtest");
    const auto forced = run();
    EXPECT_EQ(forced.status, 1);
    EXPECT_THAT(forced.output, HasSubstr("✗ xtest"));
    EXPECT_THAT(forced.output, HasSubstr("Xwayland"));
}

TEST_F(DoctorProgramTest, WithoutADisplayItSaysSo)
{
    runtime.environment().remove(QStringLiteral("DISPLAY"));
    runtime.environment().remove(QStringLiteral("WAYLAND_DISPLAY"));
    const auto found = report(1);
    EXPECT_EQ(field(found.value(QStringLiteral("session")).toObject(), "kind"), "none");
    EXPECT_FALSE(found.value(QStringLiteral("confirmed")).toBool(true));
}

TEST_F(DoctorProgramTest, HelpIsPrinted)
{
    const auto outcome = run({QStringLiteral("--help")});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output, HasSubstr("--json"));
    EXPECT_THAT(outcome.output, HasSubstr("Exit status"));
    EXPECT_EQ(outcome.errors, "");
}

TEST_F(DoctorProgramTest, WrongUsageIsTold)
{
    for (const auto *wrong : {"--yaml", "x11"}) {
        const auto outcome = run({QString::fromLatin1(wrong)});
        EXPECT_EQ(outcome.status, 2) << wrong;
        EXPECT_THAT(outcome.errors, HasSubstr("--help")) << wrong;
        EXPECT_EQ(outcome.output, "") << wrong;
    }
}

} // namespace doctor
