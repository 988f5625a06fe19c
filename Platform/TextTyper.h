// The service that types text into the program that has the focus.
#pragma once

#include <QString>

#include <memory>
#include <stop_token>
#include <string_view>

namespace platform {

// The key of one character, whatever the keyboard has, goes down or comes up. `units` are all the UTF-16
// units of what a user takes for one character: an emoji or a letter with its marks has several. A newline
// ("\n", "\r" or both) is the Return key and a tab is the Tab key; other control characters are no keys.
struct CharacterEvent
{
    std::u16string_view units;
    bool isDown = false;
};

// Types one text. Lives on the thread that opened it.
class TextTyper
{
public:
    TextTyper() = default;
    TextTyper(const TextTyper &) = delete;
    TextTyper &operator=(const TextTyper &) = delete;
    virtual ~TextTyper() = default;

    // Hands the event over. A press takes effect together with its release, which names the same units: a key
    // that goes down comes up, whatever happens. Modifiers that the user holds change nothing of what is
    // typed, but where the desktop's portal is all that there is to type through: nobody tells what is held
    // there, and Control makes shortcuts of the text. False: the character cannot be typed here or there is
    // nobody to hand it to, and none of it arrives.
    virtual bool post(const CharacterEvent &event) = 0;

    // False once the way to the system is lost; nothing more can be typed.
    [[nodiscard]] virtual bool isOpen() const = 0;

    // Ends the text: waits until the program that has the focus has read what was typed, and gives back what
    // was borrowed of the keyboard. False: it has not read in time, or the way is lost, and some of the text
    // may not arrive. Nothing is posted after it. One that goes unfinished does the same.
    virtual bool finish() = 0;
};

// The ways to type that the running system has. Any thread.
class TypingServices
{
public:
    TypingServices() = default;
    TypingServices(const TypingServices &) = delete;
    TypingServices &operator=(const TypingServices &) = delete;
    virtual ~TypingServices() = default;

    // Prepares for a text, which is then posted in order. Nothing where the system has no way to type now;
    // `why`, one English sentence for trouble-shooting, then says so. From the moment on in which `stop` is
    // requested nobody waits for other programs or for windows of this one, here or in the typer: what these
    // have not read counts as unread.
    [[nodiscard]] virtual std::unique_ptr<TextTyper> open(std::u16string_view text, QString &why,
                                                          const std::stop_token &stop) = 0;

    // Whether what is typed now goes to a window of this program itself, which reads it in the event loop of
    // the main thread: somebody who types and waits must not hold that up. Main thread.
    [[nodiscard]] virtual bool typesIntoOwnWindow() const = 0;

    // The services that are installed; where none are, the operating system's.
    [[nodiscard]] static TypingServices &current();
};

// Makes `services` the current ones for as long as the installation lives; those before come back after it.
// REQUIRES: no other thread uses the current ones while this is made or goes.
class TypingInstallation
{
public:
    explicit TypingInstallation(TypingServices &services);
    TypingInstallation(const TypingInstallation &) = delete;
    TypingInstallation &operator=(const TypingInstallation &) = delete;
    ~TypingInstallation();

private:
    TypingServices *previous_;
};

// The services of the operating system.
[[nodiscard]] std::unique_ptr<TypingServices> makeNativeTyping();

} // namespace platform
