#include "SharedCore/EventTapManager/EventTapManager.h"

#include "Platform/Trust.h"
#include "SharedCore/EventTapManager/KeyPress.h"
#include "SharedCore/EventTapManager/TextTyping.h"
#include "SharedCore/PermissionsManager/PermissionsManager.h"

#include <iostream>
#include <utility>

namespace sharedcore {

namespace {

using platform::maskOf;
using platform::ObservedEvent;
using platform::ObservedKind;

constexpr auto mouseMask = maskOf(ObservedKind::mouseMoved) | maskOf(ObservedKind::leftMouseDragged) |
                           maskOf(ObservedKind::rightMouseDragged);
constexpr auto keyMask = maskOf(ObservedKind::keyDown);

void printLine(const char *line)
{
    std::cout << line << std::endl;
}

// Says which it was.
bool start(platform::InputTap *tap, const char *success, const char *failure)
{
    if (tap) {
        tap->setEnabled(true);
    }
    printLine(tap ? success : failure);
    return tap != nullptr;
}

} // namespace

EventTapManager::~EventTapManager()
{
    stopAll();
}

bool EventTapManager::startMouseTracking(MouseCallback callback)
{
    if (!checkAccessibility()) {
        return false;
    }
    mouseCallback_ = std::make_shared<const MouseCallback>(std::move(callback));
    replace(mouseTap_, mouseMask, [this](const ObservedEvent &event) { observePointer(event); });
    return start(mouseTap_.get(), "✅ Mouse tracking started",
                 "❌ EventTap: Failed to create mouse tap. Check Accessibility permissions.");
}

bool EventTapManager::startKeyTracking(KeyCallback callback)
{
    if (!checkAccessibility()) {
        return false;
    }
    keyCallback_ = std::make_shared<const KeyCallback>(std::move(callback));
    replace(keyTap_, keyMask, [this](const ObservedEvent &event) { observeKey(event); });
    return start(keyTap_.get(), "✅ Key tracking started",
                 "❌ EventTap: Failed to create key tap. Check Input Monitoring permissions.");
}

bool EventTapManager::checkAccessibility() const
{
    return platform::isTrusted();
}

void EventTapManager::requestAccessibility()
{
    PermissionsManager::shared().requestAccessibility();
}

void EventTapManager::openAccessibilitySettings()
{
    PermissionsManager::shared().openAccessibilitySettings();
}

void EventTapManager::openInputMonitoringSettings()
{
    PermissionsManager::shared().openInputMonitoringSettings();
}

void EventTapManager::typeText(std::string_view text)
{
    static_cast<void>(sharedcore::typeText(text));
}

// A tap that is stopped never goes on, so nothing of it is kept: each has a connection or devices of its own.
void EventTapManager::stopAll()
{
    for (auto *tap : {&mouseTap_, &keyTap_}) {
        if (*tap) {
            (*tap)->setEnabled(false);
            tap->reset();
        }
    }
}

void EventTapManager::replace(std::unique_ptr<platform::InputTap> &tap, platform::EventMask mask,
                              platform::InputListener::Handler handler)
{
    if (tap) {
        earlierTaps_.push_back(std::move(tap));
    }
    tap = platform::InputListener::current().makeTap(mask, std::move(handler));
}

// The callback may replace itself, or destroy the manager.
void EventTapManager::observePointer(const ObservedEvent &event) const
{
    if (const auto callback = mouseCallback_; callback && *callback) {
        (*callback)(event.location);
    }
}

void EventTapManager::observeKey(const ObservedEvent &event) const
{
    const auto press = keyPressOf(event);
    if (const auto callback = keyCallback_; callback && *callback) {
        (*callback)(press.characters, press.keyCode, press.isDelete);
    }
}

} // namespace sharedcore
