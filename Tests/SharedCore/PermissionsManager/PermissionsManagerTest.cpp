// Permissions, their requests and the links to the settings, above the seam.

#include "SharedCore/PermissionsManager/PermissionsManager.h"
#include "SharedCore/EventTapManager/EventTapManager.h"
#include "SharedCore/PermissionsManager/MainThreadAnswer.h"
#include "SharedCore/PermissionsManager/SettingsLink.h"
#include "Tests/Fakes/FakePermissions.h"

#include <QCoreApplication>

#include <gmock/gmock.h>

#include <thread>
#include <type_traits>

namespace sharedcore {

using platform::MicrophoneStatus;
using testing::ElementsAre;
using testing::IsEmpty;

static_assert(std::is_empty_v<PermissionsManager>);
static_assert(!std::is_default_constructible_v<PermissionsManager>);
static_assert(!std::is_destructible_v<PermissionsManager>);

class PermissionsManagerTest : public testing::Test
{
protected:
    // Of the requests for the microphone and the calendar, which answer in the same way.
    struct Request
    {
        void (PermissionsManager::*make)(PermissionsManager::Callback) const;
        std::vector<platform::Permissions::Answer> fakes::FakePermissions::*made;
    };
    static constexpr Request requests[] = {
        {&PermissionsManager::requestMicrophone, &fakes::FakePermissions::microphoneRequests},
        {&PermissionsManager::requestCalendar, &fakes::FakePermissions::calendarRequests},
    };

    // The system's handler of the request that is made now.
    platform::Permissions::Answer make(const Request &request)
    {
        (manager.*request.make)([this](bool isGranted) {
            answers.push_back(isGranted);
            threads.push_back(std::this_thread::get_id());
        });
        auto answer = std::move((permissions.*request.made).back());
        (permissions.*request.made).pop_back();
        return answer;
    }

    // The answers so far, once the main thread has handled what waits for it.
    const std::vector<bool> &answersOnTheMainThread()
    {
        QCoreApplication::processEvents();
        return answers;
    }

    int argumentCount = 1;
    std::string name = "test";
    char *arguments[2] = {name.data(), nullptr};
    QCoreApplication application{argumentCount, arguments};
    fakes::FakePermissions permissions;
    platform::PermissionsInstallation permissionsInstallation{permissions};
    fakes::RecordingLinkOpener opener;
    platform::LinkOpenerInstallation openerInstallation{opener};
    PermissionsManager &manager = PermissionsManager::shared();
    std::vector<bool> answers;
    std::vector<std::thread::id> threads;
};

TEST_F(PermissionsManagerTest, ThereIsOneInstance)
{
    EXPECT_EQ(&PermissionsManager::shared(), &manager);
}

TEST_F(PermissionsManagerTest, AccessibilityIsAskedAfreshAndShowsNoPrompt)
{
    EXPECT_FALSE(manager.isAccessibilityGranted());
    permissions.isTrusted = true;
    EXPECT_TRUE(manager.isAccessibilityGranted());
    permissions.isTrusted = false;
    EXPECT_FALSE(manager.isAccessibilityGranted());
    EXPECT_EQ(permissions.promptCount, 0);
}

TEST_F(PermissionsManagerTest, RequestingAccessibilityPromptsOncePerCall)
{
    static_assert(std::is_void_v<decltype(manager.requestAccessibility())>);
    manager.requestAccessibility();
    EXPECT_EQ(permissions.promptCount, 1);
    manager.requestAccessibility();
    EXPECT_EQ(permissions.promptCount, 2);
}

TEST_F(PermissionsManagerTest, OnlyTheAuthorizedMicrophoneIsGranted)
{
    for (const auto status :
         {MicrophoneStatus::notDetermined, MicrophoneStatus::restricted, MicrophoneStatus::denied}) {
        permissions.microphone = status;
        EXPECT_FALSE(manager.isMicrophoneGranted()) << static_cast<int>(status);
    }
    permissions.microphone = MicrophoneStatus::authorized;
    EXPECT_TRUE(manager.isMicrophoneGranted());
    EXPECT_EQ(static_cast<int>(MicrophoneStatus::authorized), 3);
    EXPECT_THAT(permissions.microphoneRequests, IsEmpty());
}

TEST_F(PermissionsManagerTest, RequestsTellWhatTheSystemSays)
{
    for (const auto &request : requests) {
        for (const bool isGranted : {true, false}) {
            answers.clear();
            const auto answer = make(request);
            EXPECT_THAT(answersOnTheMainThread(), IsEmpty());
            answer(isGranted);
            EXPECT_THAT(answersOnTheMainThread(), ElementsAre(isGranted));
        }
    }
}

TEST_F(PermissionsManagerTest, CallbacksComeLaterThanTheAnswer)
{
    for (const auto &request : requests) {
        answers.clear();
        make(request)(true);
        EXPECT_THAT(answers, IsEmpty());
        EXPECT_THAT(answersOnTheMainThread(), ElementsAre(true));
    }
}

TEST_F(PermissionsManagerTest, CallbacksComeOnTheMainThreadWhicheverAnswers)
{
    for (const auto &request : requests) {
        const auto answer = make(request);
        std::thread(answer, true).join();
        QCoreApplication::processEvents();
    }
    EXPECT_THAT(answers, ElementsAre(true, true));
    EXPECT_THAT(threads, ElementsAre(std::this_thread::get_id(), std::this_thread::get_id()));
}

TEST_F(PermissionsManagerTest, CallbacksComeOnceHoweverOftenTheSystemAnswers)
{
    for (const auto &request : requests) {
        answers.clear();
        {
            const auto answer = make(request);
            answer(true);
            answer(false);
            EXPECT_THAT(answersOnTheMainThread(), ElementsAre(true));
            answer(false);
        }
        EXPECT_THAT(answersOnTheMainThread(), ElementsAre(true));
    }
}

TEST_F(PermissionsManagerTest, ARequestThatTheSystemDropsIsDenied)
{
    for (const auto &request : requests) {
        answers.clear();
        make(request) = nullptr;
        EXPECT_THAT(answers, IsEmpty());
        EXPECT_THAT(answersOnTheMainThread(), ElementsAre(false));
    }
}

TEST_F(PermissionsManagerTest, ACallbackMayRequestAgain)
{
    const auto again = [this](bool /*isGranted*/) {
        manager.requestCalendar([this](bool isGranted) { answers.push_back(isGranted); });
        permissions.calendarRequests.back()(true);
    };
    manager.requestMicrophone(again);
    permissions.microphoneRequests.back()(true);
    QCoreApplication::processEvents();
    EXPECT_THAT(answersOnTheMainThread(), ElementsAre(true));
}

TEST_F(PermissionsManagerTest, NobodyNeedsToListen)
{
    manager.requestMicrophone({});
    permissions.microphoneRequests.back()(true);
    EXPECT_THAT(answersOnTheMainThread(), IsEmpty());
}

TEST_F(PermissionsManagerTest, SettingsOpenByThePrefixAndTheAnchorWithNothingBetweenOrAfter)
{
    const std::string prefix = "x-apple.systempreferences:com.apple.preference.security?";
    manager.openAccessibilitySettings();
    manager.openInputMonitoringSettings();
    manager.openMicrophoneSettings();
    manager.openCalendarSettings();
    manager.openFullDiskAccessSettings();
    EXPECT_THAT(opener.links, ElementsAre(prefix + "Privacy_Accessibility", prefix + "Privacy_ListenEvent",
                                          prefix + "Privacy_Microphone", prefix + "Privacy_Calendars",
                                          prefix + "Privacy_AllFiles"));
}

TEST_F(PermissionsManagerTest, ATapManagerAsksAndOpensTheSame)
{
    EventTapManager::requestAccessibility();
    EventTapManager::requestAccessibility();
    EXPECT_EQ(permissions.promptCount, 2);
    EventTapManager::openAccessibilitySettings();
    EventTapManager::openInputMonitoringSettings();
    manager.openAccessibilitySettings();
    manager.openInputMonitoringSettings();
    ASSERT_EQ(opener.links.size(), 4U);
    EXPECT_EQ(opener.links.at(0), opener.links.at(2));
    EXPECT_EQ(opener.links.at(1), opener.links.at(3));
}

TEST(SettingsLinkDeathTest, TextThatFormsNoUrlStopsTheProcess)
{
    EXPECT_DEATH(static_cast<void>(settingsLink("Privacy_%zz")),
                 "Fatal error: Unexpectedly found nil while unwrapping an Optional value");
}

TEST(MainThreadAnswerTest, AnAnswerAfterTheApplicationsEndGoesNowhere)
{
    int answerCount = 0;
    mainThreadAnswer([&answerCount](bool /*isGranted*/) { ++answerCount; })(true);
    EXPECT_EQ(answerCount, 0);
}

} // namespace sharedcore
