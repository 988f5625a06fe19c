// A program's item in the desktop's panel.
#pragma once

#include "Platform/TemplateImage.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace platform {

// A click on the item. The place is in device pixels of the whole screen, 0, 0 where the panel does not tell;
// the token is the right to the focus that the click gives, and may be empty.
struct StatusClick
{
    int x = 0;
    int y = 0;
    std::string activationToken;
};

struct StatusMenuItem
{
    std::string title; // UTF-8, shown as it stands; empty: a separator
    std::function<void()> action;
    bool isEnabled = true;
    std::optional<bool> isChecked = {}; // nothing: the item has no check mark
};

// What is seen of an item. Main thread.
class StatusButton
{
public:
    StatusButton() = default;
    StatusButton(const StatusButton &) = delete;
    StatusButton &operator=(const StatusButton &) = delete;
    virtual ~StatusButton() = default;

    // Shown until the next one. The panel is told in one small message, and nobody where nobody looks.
    virtual void setImage(const TemplateImage &image) = 0;

    // Called for each click, later than the event that brings it. The handler may let go of the item.
    virtual void setClickHandler(std::function<void(const StatusClick &)> handler) = 0;
};

// Main thread. It is in the panel for as long as it lives; a panel that appears late or is started anew shows
// it again, also where the session's bus was started anew with it.
class StatusItem
{
public:
    StatusItem() = default;
    StatusItem(const StatusItem &) = delete;
    StatusItem &operator=(const StatusItem &) = delete;
    virtual ~StatusItem() = default;

    // Nothing where the item has no button to be seen; it lives as long as the item.
    [[nodiscard]] virtual StatusButton *button() = 0;

    // The menu that the panel opens at the user's wish (a right click); without items there is none. Where no
    // click handler is set, a click opens it too. An action may let go of the item.
    virtual void setMenu(std::vector<StatusMenuItem> items) = 0;
};

} // namespace platform
