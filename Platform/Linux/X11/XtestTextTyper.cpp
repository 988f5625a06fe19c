#include "Platform/Linux/X11/XtestTextTyper.h"

#include "Platform/Linux/X11/HeldControl.h"
#include "Platform/Linux/X11/KeyReaders.h"
#include "Platform/Linux/X11/OwnPresses.h"
#include "Platform/Linux/X11/Xwayland.h"

#include <xcb/xtest.h>

#include <algorithm>
#include <utility>

namespace platform {

std::unique_ptr<TextTyper> XtestTextTyper::create(std::u16string_view text, QString &why,
                                                  std::stop_token stop)
{
    std::unique_ptr<XtestTextTyper> typer(new XtestTextTyper(text, std::move(stop)));
    auto obstacle = typer->open();
    if (!obstacle.isEmpty()) {
        why = std::move(obstacle);
        return nullptr;
    }
    return typer;
}

XtestTextTyper::XtestTextTyper(std::u16string_view text, std::stop_token stop)
    : symbols_(platform::typedSymbols(text))
    , stop_(std::move(stop))
{}

QString XtestTextTyper::open()
{
    if (!connection_.isOpen()) {
        return QStringLiteral("No X server answers.");
    }
    const auto *xtest = xcb_get_extension_data(connection_.get(), &xcb_test_id);
    if (!xtest || !xtest->present || !startKeyboardExtensions(connection_)) {
        return QStringLiteral("The X server lacks XTEST, XKEYBOARD or XInput 2.");
    }
    if (isXwayland(connection_)) {
        return QStringLiteral("The X server is Xwayland: what is typed there reaches X programs alone.");
    }
    if (!guard_.emplace().takesTurn(stop_)) {
        return QStringLiteral("Another program types.");
    }
    keys_.emplace(connection_);
    if (keys_->capacity() == 0) {
        return QStringLiteral("The keymap gives every key a meaning, so there is none to type with.");
    }
    guardedKeys_ = keys_->capacity();
    return guard_->start(keys_->originals())
               ? QString()
               : QStringLiteral("No process can be started to guard the keymap.");
}

XtestTextTyper::~XtestTextTyper()
{
    static_cast<void>(finish());
    if (guard_ && !hasLentKeys_) {
        guard_->letGo();
    }
}

bool XtestTextTyper::finish()
{
    if (hasLentKeys_ && connection_.isOpen()) {
        isRead_ = isRead_ && awaitKeyReaders(connection_, stop_);
        hasLentKeys_ = !putKeymapRight();
    }
    return isOpen();
}

// Whether it is known that the server has handled it: what is on its way to a server when the connection
// breaks may be lost.
bool XtestTextTyper::putKeymapRight()
{
    const bool isGivenBack = keys_->giveBack();
    connection_.sync();
    return isGivenBack && connection_.isOpen();
}

bool XtestTextTyper::post(const CharacterEvent &event)
{
    if (event.isDown) {
        pressed_ = event.units;
        return isOpen();
    }
    const auto symbols = platform::typedSymbols(event.units);
    if (std::exchange(pressed_, {}) != event.units || symbols.empty()) {
        return false;
    }
    letGoOfControl(connection_);
    leaveToOthers();
    const bool isTyped = std::ranges::all_of(symbols, [this](KeySymbol symbol) { return type(symbol); });
    connection_.flush();
    return isTyped && isOpen();
}

// What another program does to the keymap meanwhile.
void XtestTextTyper::leaveToOthers()
{
    keys_->noticeChanges();
    tellGuard();
}

void XtestTextTyper::tellGuard()
{
    if (std::exchange(guardedKeys_, keys_->capacity()) != keys_->capacity()) {
        guard_->change(keys_->originals());
    }
}

bool XtestTextTyper::type(KeySymbol symbol)
{
    if (!keys_->keyOf(symbol)) {
        isRead_ = typedSymbols_ == 0 || awaitKeyReaders(connection_, stop_);
        if (!isRead_) {
            return false;
        }
        hasLentKeys_ = true;
        keys_->lend(nextSymbols(symbol));
        tellGuard();
    }
    const auto key = keys_->keyOf(symbol);
    ++typedSymbols_;
    if (key) {
        postKey(*key);
    }
    return key.has_value();
}

// Those that come next in the text, as many as there are keys.
std::vector<KeySymbol> XtestTextTyper::nextSymbols(KeySymbol first) const
{
    std::vector next{first};
    for (auto i = typedSymbols_; i < symbols_.size() && next.size() < keys_->capacity(); ++i) {
        if (std::ranges::find(next, symbols_[i]) == next.end()) {
            next.push_back(symbols_[i]);
        }
    }
    return next;
}

void XtestTextTyper::postKey(xcb_keycode_t key)
{
    countOwnPress(key);
    for (const auto type : std::array<std::uint8_t, 2>{XCB_KEY_PRESS, XCB_KEY_RELEASE}) {
        xcb_test_fake_input(connection_.get(), type, key, XCB_CURRENT_TIME, connection_.rootWindow(), 0, 0,
                            0);
    }
}

} // namespace platform
