#include "Platform/Linux/Permissions/LinuxPermissions.h"

#include "Platform/Linux/Permissions/CalendarRequest.h"
#include "Platform/Linux/Permissions/MicrophoneQuestions.h"
#include "Platform/Linux/Permissions/MicrophoneRequest.h"

#include <utility>

namespace platform {

LinuxPermissions::LinuxPermissions(PermissionSources sources)
    : sources_(std::move(sources))
{}

bool LinuxPermissions::isAccessibilityTrusted()
{
    return sources_.isTrusted();
}

void LinuxPermissions::requestAccessibility()
{
    if (!isAccessibilityTrusted()) {
        sources_.askForInput();
    }
}

MicrophoneStatus LinuxPermissions::microphoneStatus()
{
    const auto answerTo = [this](const QDBusMessage &question) {
        return sources_.bus.call(question, QDBus::Block, static_cast<int>(sources_.queryPatience.count()));
    };
    if (isSwitchedOff(answerTo(switchQuestion()))) {
        return MicrophoneStatus::restricted;
    }
    return sources_.sandbox ? storedStatus(answerTo(storeQuestion()), *sources_.sandbox)
                            : MicrophoneStatus::authorized;
}

void LinuxPermissions::requestMicrophone(Answer answer)
{
    (new MicrophoneRequest(sources_, std::move(answer)))->start();
}

void LinuxPermissions::requestCalendar(Answer answer)
{
    askForCalendar(sources_.bus, sources_.answerPatience, std::move(answer));
}

} // namespace platform
