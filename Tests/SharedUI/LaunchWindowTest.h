// A launch window controller of a test's own, with platform and storage in its hands.
#pragma once

#include "SharedCore/Storage/StorageManager.h"
#include "SharedUI/AppLaunchContainer/LaunchWindowController.h"
#include "Tests/Fakes/FakePlatform.h"
#include "Tests/Fakes/FakeStorage.h"
#include "Tests/Support/QtPrinting.h"

#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

#include <gmock/gmock.h>

namespace sharedui {

class OwnController final : public LaunchWindowController
{
public:
    explicit OwnController(sharedcore::StorageManager &storage)
        : LaunchWindowController(storage)
    {}
};

class LaunchWindowTest : public testing::Test
{
protected:
    // The builder of the controller's views, which counts its calls: the description is one QML object, with
    // QtQuick imported.
    [[nodiscard]] LaunchWindowController::RootBuilder builder(const QByteArray &description = "Item {}");
    // Presents the window of "Example" and gives it.
    QQuickWindow &present(QSize idealSize = LaunchWindowController::defaultSize,
                          const QByteArray &description = "Item {}");

    // The windows that the program has, shown or not.
    [[nodiscard]] static QList<QQuickWindow *> windows();
    [[nodiscard]] static QQuickItem *rootOf(const QQuickWindow &window);

    // What is stored for "Example"; nothing where nothing is.
    [[nodiscard]] std::optional<platform::PropertyValue> stored();
    void store(const platform::PropertyValue &value);

    fakes::FakePlatform platform;
    fakes::FakeStorage storage;
    int built = 0;

private:
    class OwnStorage final : public sharedcore::StorageManager
    {
    public:
        explicit OwnStorage(platform::StorageServices &services)
            : StorageManager(services)
        {}
    };

    OwnStorage manager_{storage};

protected:
    std::unique_ptr<OwnController> controller = std::make_unique<OwnController>(manager_);
};

// A stored frame, with a place or without one.
[[nodiscard]] platform::PropertyValue frameEntries(int x, int y, int width, int height);
[[nodiscard]] platform::PropertyValue sizeEntries(int width, int height);

} // namespace sharedui
