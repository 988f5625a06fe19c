#include "Examples/Gallery/Input/InputProbe.h"

#include "Platform/Platform.h"
#include "SharedCore/PermissionsManager/PermissionsManager.h"

#include <QPointer>

#include <utility>

namespace gallery {

namespace {

using sharedcore::EventTapManager;
using sharedcore::PermissionsManager;

constexpr qsizetype shownKeys = 8;
constexpr int secondsBeforeTyping = 3;

QString keyText(const std::string &characters, std::uint16_t code, bool isDelete)
{
    const auto text = QString::fromStdString(characters);
    if (isDelete) {
        return QStringLiteral("delete");
    }
    return text.isEmpty() || !text.front().isPrint() ? QStringLiteral("#%1").arg(code) : text;
}

} // namespace

InputProbe::~InputProbe()
{
    if (typing_.joinable()) {
        typing_.join();
    }
}

bool InputProbe::isTrusted()
{
    return PermissionsManager::shared().isAccessibilityGranted();
}

bool InputProbe::isMicrophoneGranted()
{
    return PermissionsManager::shared().isMicrophoneGranted();
}

void InputProbe::refresh()
{
    Q_EMIT trustChanged();
    Q_EMIT permissionsChanged();
}

void InputProbe::requestTrust()
{
    PermissionsManager::shared().requestAccessibility();
}

void InputProbe::requestMicrophone()
{
    PermissionsManager::shared().requestMicrophone([self = QPointer(this)](bool /*isGranted*/) {
        if (self) {
            self->refresh();
        }
    });
}

void InputProbe::requestCalendar()
{
    PermissionsManager::shared().requestCalendar([self = QPointer(this)](bool isGranted) {
        if (self) {
            self->calendar_ = isGranted ? QStringLiteral("granted") : QStringLiteral("not granted");
            self->refresh();
        }
    });
}

void InputProbe::openAccessibilitySettings()
{
    PermissionsManager::shared().openAccessibilitySettings();
}

void InputProbe::openInputMonitoringSettings()
{
    PermissionsManager::shared().openInputMonitoringSettings();
}

void InputProbe::openMicrophoneSettings()
{
    PermissionsManager::shared().openMicrophoneSettings();
}

void InputProbe::openCalendarSettings()
{
    PermissionsManager::shared().openCalendarSettings();
}

void InputProbe::openFullDiskAccessSettings()
{
    PermissionsManager::shared().openFullDiskAccessSettings();
}

void InputProbe::setListening(bool isListening)
{
    if (isListening == this->isListening()) {
        return;
    }
    taps_.reset();
    keys_.clear();
    if (isListening) {
        listen();
    }
    Q_EMIT observed();
    Q_EMIT listeningChanged();
}

void InputProbe::listen()
{
    auto taps = std::make_unique<EventTapManager>();
    const bool seesPointer = taps->startMouseTracking([this](platform::PointerLocation location) {
        pointer_ = {location.x, location.y};
        Q_EMIT observed();
    });
    const bool seesKeys =
        taps->startKeyTracking([this](const std::string &characters, std::uint16_t code, bool isDelete) {
            noteKey(characters, code, isDelete);
        });
    if (seesPointer || seesKeys) {
        taps_ = std::move(taps);
    }
}

void InputProbe::noteKey(const std::string &characters, std::uint16_t code, bool isDelete)
{
    if (keys_.size() == shownKeys) {
        keys_.removeFirst();
    }
    keys_.append(keyText(characters, code, isDelete));
    Q_EMIT observed();
}

void InputProbe::typeLater(const QString &text)
{
    if (secondsToTyping_ == 0) {
        countDown(text, secondsBeforeTyping);
    }
}

void InputProbe::countDown(const QString &text, int seconds)
{
    secondsToTyping_ = seconds;
    Q_EMIT typingChanged();
    if (seconds == 0) {
        type(text);
        return;
    }
    platform::Platform::current().scheduler().after(platform::Seconds(1),
                                                    [self = QPointer(this), text, seconds] {
                                                        if (self) {
                                                            self->countDown(text, seconds - 1);
                                                        }
                                                    });
}

void InputProbe::type(const QString &text)
{
    if (typing_.joinable()) {
        typing_.join(); // typed long ago
    }
    typing_ = std::thread([text = text.toStdString()] { EventTapManager::typeText(text); });
}

} // namespace gallery
