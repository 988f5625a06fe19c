// Permissions and links in the test's hands.
#pragma once

#include "Platform/LinkOpener.h"
#include "Platform/Permissions.h"

#include <string>
#include <utility>
#include <vector>

namespace fakes {

class FakePermissions final : public platform::Permissions
{
public:
    [[nodiscard]] bool isAccessibilityTrusted() override { return isTrusted; }
    void requestAccessibility() override { ++promptCount; }
    [[nodiscard]] platform::MicrophoneStatus microphoneStatus() override { return microphone; }
    void requestMicrophone(Answer answer) override { microphoneRequests.push_back(std::move(answer)); }
    void requestCalendar(Answer answer) override { calendarRequests.push_back(std::move(answer)); }

    bool isTrusted = false;
    int promptCount = 0;
    platform::MicrophoneStatus microphone = platform::MicrophoneStatus::notDetermined;
    std::vector<Answer> microphoneRequests;
    std::vector<Answer> calendarRequests;
};

class RecordingLinkOpener final : public platform::LinkOpener
{
public:
    void open(std::string_view link) override { links.emplace_back(link); }

    std::vector<std::string> links;
};

} // namespace fakes
