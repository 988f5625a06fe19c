#include "Tests/Support/AccessibleProgram.h"

#include "Tests/Support/Eventually.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusVariant>

#include <algorithm>
#include <utility>

namespace testsupport {

namespace {

constexpr auto accessibleInterface = "org.a11y.atspi.Accessible";
constexpr auto actionInterface = "org.a11y.atspi.Action";
constexpr auto componentInterface = "org.a11y.atspi.Component";
constexpr auto textInterface = "org.a11y.atspi.Text";
constexpr auto rootPath = "/org/a11y/atspi/accessible/root";
constexpr auto registry = "org.a11y.atspi.Registry";
constexpr int answerTimeout = 2000; // milliseconds

struct Reference
{
    QString service;
    QString path;
};

struct ActionText
{
    QString name;
    QString description;
    QString keyBinding;
};

const QDBusArgument &operator>>(const QDBusArgument &argument, Reference &reference)
{
    QDBusObjectPath path;
    argument.beginStructure();
    argument >> reference.service >> path;
    argument.endStructure();
    reference.path = path.path();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, ActionText &action)
{
    argument.beginStructure();
    argument >> action.name >> action.description >> action.keyBinding;
    argument.endStructure();
    return argument;
}

template <class Element> std::vector<Element> arrayIn(const QVariant &answer)
{
    std::vector<Element> elements;
    if (answer.canConvert<QDBusArgument>()) {
        const auto argument = answer.value<QDBusArgument>();
        argument.beginArray();
        while (!argument.atEnd()) {
            argument >> elements.emplace_back();
        }
        argument.endArray();
    }
    return elements;
}

// The first value of the answer; an invalid one where the call failed.
QVariant ask(const QDBusConnection &bus, const QString &service, const QString &path, const char *interface,
             const char *method, const QVariantList &arguments = {})
{
    auto call = QDBusMessage::createMethodCall(service, path, QString::fromLatin1(interface),
                                               QString::fromLatin1(method));
    call.setArguments(arguments);
    const auto answer = bus.call(call, QDBus::Block, answerTimeout);
    return answer.type() == QDBusMessage::ReplyMessage ? answer.arguments().value(0) : QVariant();
}

pid_t processOf(const QDBusConnection &bus, const QString &service)
{
    const auto dbus = QStringLiteral("org.freedesktop.DBus");
    return static_cast<pid_t>(ask(bus, dbus, QStringLiteral("/org/freedesktop/DBus"), "org.freedesktop.DBus",
                                  "GetConnectionUnixProcessID", {service})
                                  .toUInt());
}

QStringList actionNames(const QVariant &answer)
{
    QStringList names;
    for (const auto &action : arrayIn<ActionText>(answer)) {
        names.append(action.name);
    }
    return names;
}

quint64 stateBits(const QVariant &answer)
{
    const auto words = arrayIn<uint>(answer);
    return words.size() == 2 ? (quint64{words[1]} << 32U | words[0]) : 0;
}

} // namespace

AccessibleProgram::AccessibleProgram(QDBusConnection accessibilityBus, pid_t pid)
    : bus_(std::move(accessibilityBus))
    , pid_(pid)
{}

bool AccessibleProgram::findProgram()
{
    const auto programs =
        arrayIn<Reference>(ask(bus_, QString::fromLatin1(registry), QString::fromLatin1(rootPath),
                               accessibleInterface, "GetChildren"));
    const auto found = std::ranges::find_if(
        programs, [this](const Reference &program) { return processOf(bus_, program.service) == pid_; });
    if (found != programs.end()) {
        service_ = found->service;
    }
    return !service_.isEmpty();
}

Accessible AccessibleProgram::describe(const QString &service, const QString &path) const
{
    const auto name = ask(bus_, service, path, "org.freedesktop.DBus.Properties", "Get",
                          {QString::fromLatin1(accessibleInterface), QStringLiteral("Name")});
    return {service,
            path,
            name.value<QDBusVariant>().variant().toString(),
            ask(bus_, service, path, accessibleInterface, "GetRoleName").toString(),
            stateBits(ask(bus_, service, path, accessibleInterface, "GetState")),
            actionNames(ask(bus_, service, path, actionInterface, "GetActions"))};
}

void AccessibleProgram::collect(const QString &service, const QString &path,
                                std::vector<Accessible> &list) const
{
    const auto children = arrayIn<Reference>(ask(bus_, service, path, accessibleInterface, "GetChildren"));
    for (const auto &child : children) {
        list.push_back(describe(child.service, child.path));
        collect(child.service, child.path, list);
    }
}

std::vector<Accessible> AccessibleProgram::everything()
{
    std::vector<Accessible> list;
    if (!service_.isEmpty() || findProgram()) {
        collect(service_, QString::fromLatin1(rootPath), list);
    }
    return list;
}

std::optional<Accessible> AccessibleProgram::find(const QString &name, const QString &role)
{
    const auto list = everything();
    const auto found = std::ranges::find_if(list, [&](const Accessible &object) {
        return object.name == name && (role.isEmpty() || object.role == role) &&
               object.is(AccessibleState::showing);
    });
    return found == list.end() ? std::nullopt : std::optional(*found);
}

QStringList AccessibleProgram::texts()
{
    QStringList names;
    for (const auto &object : everything()) {
        if (!object.name.isEmpty() && object.is(AccessibleState::showing)) {
            names.append(object.name);
        }
    }
    return names;
}

QString AccessibleProgram::focused()
{
    // A window that holds the focused object may call itself focused too: the innermost comes last.
    const auto list = everything();
    const auto found = std::find_if(list.rbegin(), list.rend(), [](const Accessible &object) {
        return object.is(AccessibleState::focused);
    });
    return found == list.rend() ? QString() : found->name;
}

bool AccessibleProgram::press(const QString &button)
{
    std::optional<Accessible> found;
    const bool isThere = eventually([&] {
        found = find(button, QStringLiteral("push button"));
        return found.has_value();
    });
    const auto action = isThere ? found->actions.indexOf(QStringLiteral("Press")) : -1;
    return action >= 0 &&
           ask(bus_, found->service, found->path, actionInterface, "DoAction", {static_cast<int>(action)})
               .toBool();
}

QString AccessibleProgram::text(const Accessible &object) const
{
    return ask(bus_, object.service, object.path, textInterface, "GetText", {0, -1}).toString();
}

QRect AccessibleProgram::place(const Accessible &object) const
{
    constexpr uint onScreen = 0;
    const auto answer = ask(bus_, object.service, object.path, componentInterface, "GetExtents", {onScreen});
    if (!answer.canConvert<QDBusArgument>()) {
        return {};
    }
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    const auto argument = answer.value<QDBusArgument>();
    argument.beginStructure();
    argument >> x >> y >> width >> height;
    argument.endStructure();
    return {x, y, width, height};
}

} // namespace testsupport
