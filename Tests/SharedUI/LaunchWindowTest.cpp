#include "Tests/SharedUI/LaunchWindowTest.h"

#include <QGuiApplication>
#include <QQmlComponent>

namespace sharedui {

namespace {

constexpr auto key = "Example.mainWindow";

} // namespace

LaunchWindowController::RootBuilder LaunchWindowTest::builder(const QByteArray &description)
{
    return [this, description](QQmlEngine &engine) {
        ++built;
        QQmlComponent component(&engine);
        component.setData("import QtQuick\n" + description, QUrl());
        auto *item = qobject_cast<QQuickItem *>(component.create());
        EXPECT_TRUE(item) << component.errorString().toStdString();
        return std::unique_ptr<QQuickItem>(item);
    };
}

QQuickWindow &LaunchWindowTest::present(QSize idealSize, const QByteArray &description)
{
    controller->present(QStringLiteral("Example"), idealSize, builder(description));
    return *windows().first();
}

QList<QQuickWindow *> LaunchWindowTest::windows()
{
    QList<QQuickWindow *> found;
    for (auto *window : QGuiApplication::topLevelWindows()) {
        found.append(qobject_cast<QQuickWindow *>(window));
    }
    return found;
}

QQuickItem *LaunchWindowTest::rootOf(const QQuickWindow &window)
{
    return window.contentItem()->childItems().value(0);
}

std::optional<platform::PropertyValue> LaunchWindowTest::stored()
{
    return storage.openApplicationDefaults()->value(key);
}

void LaunchWindowTest::store(const platform::PropertyValue &value)
{
    ASSERT_TRUE(storage.openApplicationDefaults()->setValue(key, value));
}

platform::PropertyValue frameEntries(int x, int y, int width, int height)
{
    return platform::PropertyDictionary{{"x", std::int64_t{x}},
                                        {"y", std::int64_t{y}},
                                        {"width", std::int64_t{width}},
                                        {"height", std::int64_t{height}}};
}

platform::PropertyValue sizeEntries(int width, int height)
{
    return platform::PropertyDictionary{{"width", std::int64_t{width}}, {"height", std::int64_t{height}}};
}

} // namespace sharedui
