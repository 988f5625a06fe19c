#include "Platform/Linux/Wayland/WlrootsTextTyper.h"

#include "Platform/Linux/Wayland/VirtualKeymap.h"
#include "Platform/Linux/Wayland/WaylandTime.h"

#include <virtual-keyboard-unstable-v1-client-protocol.h>

#include <algorithm>
#include <utility>

namespace platform {

namespace {

constexpr std::chrono::milliseconds patience(1000);

QString silence()
{
    return QStringLiteral("No Wayland compositor answers.");
}

} // namespace

std::unique_ptr<TextTyper> WlrootsTextTyper::create(std::u16string_view text, QString &why)
{
    std::unique_ptr<WlrootsTextTyper> typer(new WlrootsTextTyper(text));
    auto obstacle = typer->open();
    if (!obstacle.isEmpty()) {
        why = std::move(obstacle);
        return nullptr;
    }
    return typer;
}

WlrootsTextTyper::WlrootsTextTyper(std::u16string_view text)
    : symbols_(typedSymbols(text))
{}

QString WlrootsTextTyper::open()
{
    if (!connection_.isOpen()) {
        return silence();
    }
    const auto deadline = WaylandConnection::Clock::now() + patience;
    globals_.emplace(connection_);
    if (!connection_.roundTrip(deadline)) {
        return silence();
    }
    auto seat = globals_->bind<wl_seat>(wl_seat_interface, SeatKeyboard::newestVersion);
    const auto keyboards =
        globals_->bind<zwp_virtual_keyboard_manager_v1>(zwp_virtual_keyboard_manager_v1_interface, 1);
    if (!seat || !keyboards) {
        return QStringLiteral("The compositor lets no program have a keyboard of its own.");
    }
    seat_.emplace(std::move(seat));
    // One for the seat's capabilities, one for the keymap that is asked for thereupon.
    if (!connection_.roundTrip(deadline) || !connection_.roundTrip(deadline)) {
        return silence();
    }
    usersKeymap_ = seat_->keymapText();
    keyboard_.reset(zwp_virtual_keyboard_manager_v1_create_virtual_keyboard(keyboards.get(), seat_->seat()));
    return {};
}

WlrootsTextTyper::~WlrootsTextTyper()
{
    static_cast<void>(finish());
}

bool WlrootsTextTyper::finish()
{
    if (std::exchange(typedCount_, 0) == 0 || !isOpen()) {
        return isOpen();
    }
    if (!usersKeymap_.isEmpty()) {
        static_cast<void>(sendKeymap(keyboard_.get(), usersKeymap_));
    }
    return connection_.roundTrip(WaylandConnection::Clock::now() + patience) && isOpen();
}

bool WlrootsTextTyper::post(const CharacterEvent &event)
{
    connection_.drain();
    if (event.isDown) {
        pressed_ = event.units;
        return isOpen();
    }
    const auto symbols = typedSymbols(event.units);
    if (std::exchange(pressed_, {}) != event.units || symbols.empty() || !isOpen()) {
        return false;
    }
    const bool isTyped = std::ranges::all_of(symbols, [this](KeySymbol symbol) { return type(symbol); });
    return connection_.flush() && isTyped;
}

bool WlrootsTextTyper::type(KeySymbol symbol)
{
    if ((!keymap_ || !keymap_->keyOf(symbol)) && !takeKeymapFor(symbol)) {
        return false;
    }
    ++typedCount_;
    for (const auto state : {WL_KEYBOARD_KEY_STATE_PRESSED, WL_KEYBOARD_KEY_STATE_RELEASED}) {
        zwp_virtual_keyboard_v1_key(keyboard_.get(), waylandTime(), *keymap_->keyOf(symbol), state);
    }
    return true;
}

// With the symbols that come next in the text. The compositor looks codes up in the keymap that it was sent
// last: one that could not be sent is not the keyboard's.
bool WlrootsTextTyper::takeKeymapFor(KeySymbol symbol)
{
    std::vector next{symbol};
    const auto first = std::min(typedCount_, symbols_.size());
    next.insert(next.end(), symbols_.begin() + static_cast<std::ptrdiff_t>(first), symbols_.end());
    TypingKeymap keymap(next);
    if (!sendKeymap(keyboard_.get(), keymap.text())) {
        return false;
    }
    keymap_ = std::move(keymap);
    zwp_virtual_keyboard_v1_modifiers(keyboard_.get(), 0, 0, 0, 0);
    return true;
}

} // namespace platform
