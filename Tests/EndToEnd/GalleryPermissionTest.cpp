// The permissions on the gallery's page of input, with their buttons.

#include "Tests/EndToEnd/Gallery.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/FakeRemoteDesktopPortal.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <gmock/gmock.h>

using namespace testsupport;

namespace endtoend {

namespace {

using testing::Eq;
using Answer = FakeRemoteDesktopPortal::Answer;

// A desktop with a program for its settings, which posts through its portal alone.
class GalleryPermissionTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(desktop_.isOpen() && portal_.isOpen());
        installSettings();
        auto &environment = desktop_.environment();
        environment.insert(QStringLiteral("PATH"), desktop_.runtime().path(QStringLiteral("programs:")) +
                                                       environment.value(QStringLiteral("PATH")));
        environment.insert(QStringLiteral("XDG_CURRENT_DESKTOP"), QStringLiteral("GNOME"));
        environment.insert(QStringLiteral("STIRRA_INPUT_BACKEND"), QStringLiteral("portal"));
        gallery = std::make_unique<Gallery>(desktop_);
        ASSERT_TRUE(gallery->isUp());
        gallery->showPage("Input");
    }

    // It writes down the page that it is to show.
    void installSettings()
    {
        QDir(desktop_.runtime().path({})).mkpath(QStringLiteral("programs"));
        QFile program(desktop_.runtime().path(QStringLiteral("programs/gnome-control-center")));
        ASSERT_TRUE(program.open(QIODevice::WriteOnly));
        program.write("#!/bin/sh\necho \"$@\" >'" + record().toLocal8Bit() + "'\n");
        program.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    [[nodiscard]] QString record() const { return desktop_.runtime().path(QStringLiteral("settings")); }

    [[nodiscard]] bool opens(const char *button, const QByteArray &page)
    {
        gallery->click(button, "push button");
        QByteArray shown;
        const bool isShown = eventually([&] {
            QFile file(record());
            shown = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
            return shown.endsWith('\n');
        });
        QFile::remove(record());
        EXPECT_THAT(shown, Eq(page + '\n'));
        return isShown;
    }

private:
    int argumentCount_ = 0;
    QCoreApplication application_{argumentCount_, nullptr}; // the portal needs one

protected:
    mutable Desktop desktop_;
    FakeRemoteDesktopPortal portal_{desktop_.bus(), {.toQuestion = Answer::later}};
    std::unique_ptr<Gallery> gallery;
};

} // namespace

TEST_F(GalleryPermissionTest, WhatTheUserGrantsShowsWithoutAnotherClick)
{
    ASSERT_TRUE(gallery->comesToShow("Accessibility"));
    EXPECT_TRUE(gallery->comesToShow("not granted"));
    gallery->click("Ask: Accessibility", "push button");
    ASSERT_TRUE(eventually([this] { return portal_.questionCount() == 1; }));
    EXPECT_TRUE(gallery->shows(QStringLiteral("not granted")));
    portal_.answerQuestion(Answer::grant);
    EXPECT_TRUE(eventually([this] { return !gallery->shows(QStringLiteral("not granted")); }));
    portal_.closeSession();
    gallery->showPage("Card");
    gallery->showPage("Input");
    EXPECT_TRUE(gallery->comesToShow("not granted"));
}

TEST_F(GalleryPermissionTest, TheCalendarIsAskedForAndAnswersWhereThereIsNone)
{
    EXPECT_TRUE(gallery->comesToShow("not asked"));
    gallery->click("Ask: Calendar", "push button");
    EXPECT_TRUE(eventually([this] { return !gallery->shows(QStringLiteral("not asked")); }));
}

TEST_F(GalleryPermissionTest, EachHasItsPageOfTheSettings)
{
    EXPECT_TRUE(opens("Settings: Accessibility", "applications"));
    EXPECT_TRUE(opens("Settings: Input monitoring", "applications"));
    EXPECT_TRUE(opens("Settings: Microphone", "microphone"));
    EXPECT_TRUE(opens("Settings: Calendar", "online-accounts"));
    EXPECT_TRUE(opens("Settings: Full disk access", "applications"));
}

} // namespace endtoend
