// A program as assistive technology finds it: its tree of accessible objects.
#pragma once

#include <QDBusConnection>
#include <QRect>
#include <QString>
#include <QStringList>

#include <sys/types.h>

#include <optional>
#include <vector>

namespace testsupport {

// Bit numbers of AT-SPI's states.
enum class AccessibleState { checked = 4, focusable = 11, focused = 12, showing = 25, checkable = 41 };

// What one object said of itself at one moment, and the way back to it.
struct Accessible
{
    QString service; // on the accessibility bus
    QString path;
    QString name;
    QString role; // AT-SPI's English name: "push button", "label", "frame"
    quint64 states = 0;
    QStringList actions;

    [[nodiscard]] bool is(AccessibleState state) const
    {
        return ((states >> static_cast<unsigned>(state)) & 1U) != 0;
    }
};

// Asks over the accessibility bus, waiting for each answer. One thread.
class AccessibleProgram
{
public:
    // The program with this process id on the accessibility bus; it may not be there yet.
    AccessibleProgram(QDBusConnection accessibilityBus, pid_t pid);

    // Everything that the program shows, its windows first and each before what it holds; empty where the
    // program has not come to the bus.
    [[nodiscard]] std::vector<Accessible> everything();
    // The first showing object of this name, and of this role where one is given.
    [[nodiscard]] std::optional<Accessible> find(const QString &name, const QString &role = {});
    // The names of all showing objects that have one.
    [[nodiscard]] QStringList texts();
    // The name of the object that has the keyboard's focus; empty where none has.
    [[nodiscard]] QString focused();

    // Waits for a button of this name and does its press action; false where there is none in the end.
    [[nodiscard]] bool press(const QString &button);
    // What a text that can be edited holds.
    [[nodiscard]] QString text(const Accessible &object) const;
    // Where the object is on the screen.
    [[nodiscard]] QRect place(const Accessible &object) const;

private:
    [[nodiscard]] bool findProgram();
    [[nodiscard]] Accessible describe(const QString &service, const QString &path) const;
    void collect(const QString &service, const QString &path, std::vector<Accessible> &list) const;

    QDBusConnection bus_;
    pid_t pid_;
    QString service_;
};

} // namespace testsupport
