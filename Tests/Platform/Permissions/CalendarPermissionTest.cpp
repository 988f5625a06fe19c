// The request for the calendar, with services that answer, refuse, are silent or die.

#include "Tests/Platform/Permissions/PermissionsTest.h"

#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QFile>

#include <optional>

namespace platform {

using testing::SizeIs;
using testsupport::eventually;
using testsupport::sessionBus;

namespace {

using Interfaces = QMap<QString, QVariantMap>;
using Objects = QMap<QDBusObjectPath, Interfaces>;

constexpr auto calendar = &LinuxPermissions::requestCalendar;
constexpr auto method = "GetManagedObjects";

} // namespace

class CalendarPermissionTest : public PermissionsTest
{
protected:
    CalendarPermissionTest()
    {
        qDBusRegisterMetaType<Interfaces>();
        qDBusRegisterMetaType<Objects>();
    }

    std::optional<Service> service{std::in_place, sessionBus(), calendarName};
};

TEST_F(CalendarPermissionTest, AServiceThatListsItsSourcesGrants)
{
    const QDBusObjectPath path(QStringLiteral("/org/gnome/evolution/dataserver/SourceManager/Source"));
    service->answer(method, {QVariant::fromValue(Objects{{path, {}}})});
    EXPECT_TRUE(answers(calendar, true));
    service->answer(method, {QVariant::fromValue(Objects())});
    EXPECT_TRUE(answers(calendar, true));
    EXPECT_THAT(service->calls(method), SizeIs(2)); // a new question for each request
}

TEST_F(CalendarPermissionTest, AnErrorIsDroppedAndDenies)
{
    for (const char *error : {"org.freedesktop.DBus.Error.AccessDenied", "org.freedesktop.DBus.Error.Failed",
                              "org.freedesktop.DBus.Error.UnknownMethod"}) {
        service->refuse(method, error);
        EXPECT_TRUE(answers(calendar, false)) << error;
    }
}

TEST_F(CalendarPermissionTest, AnAnswerThatIsNoListDenies)
{
    service->answer(method, QVariantList{true});
    EXPECT_TRUE(answers(calendar, false));
    service->answer(method, QVariantList());
    EXPECT_TRUE(answers(calendar, false));
}

TEST_F(CalendarPermissionTest, AServiceThatNeverAnswersDenies)
{
    sources.answerPatience = std::chrono::milliseconds(100);
    service->ignore(method);
    EXPECT_TRUE(answers(calendar, false));
}

TEST_F(CalendarPermissionTest, AServiceThatDiesBeforeItAnswersDenies)
{
    service->ignore(method);
    make(calendar);
    ASSERT_TRUE(eventually([this] { return service->calls(method).size() == 1; }));
    service.reset();
    EXPECT_TRUE(isAnswered(false));
}

TEST_F(CalendarPermissionTest, WithoutTheServiceOrABusItIsDenied)
{
    service.reset();
    EXPECT_TRUE(answers(calendar, false));
    use(QDBusConnection(QStringLiteral("to nowhere")));
    EXPECT_TRUE(answers(calendar, false));
}

TEST_F(CalendarPermissionTest, ABusThatDiesBeforeTheAnswerDenies)
{
    testsupport::PrivateRuntime runtime;
    testsupport::PrivateBus bus(runtime);
    Service other(bus, calendarName);
    other.ignore(method);
    use(bus.connect());
    make(calendar);
    ASSERT_TRUE(eventually([&other] { return other.calls(method).size() == 1; }));
    bus.process().end();
    EXPECT_TRUE(isAnswered(false));
}

TEST_F(CalendarPermissionTest, AServiceThatIsInstalledAndDoesNotStartDenies)
{
    testsupport::PrivateRuntime runtime;
    QFile file(runtime.path(QStringLiteral("calendar.service")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray("[D-BUS Service]\nName=") + calendarName + "\nExec=/bin/false\n");
    file.close();
    const testsupport::PrivateBus bus(runtime, {runtime.path({})});
    ASSERT_TRUE(bus.isOpen());
    use(bus.connect());
    EXPECT_TRUE(answers(calendar, false));
}

} // namespace platform
