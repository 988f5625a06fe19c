// The main window, as the delegate builds it, on a platform in the test's hands.
#pragma once

#include "App/AppDelegate.h"
#include "App/StirraEngine.h"
#include "Tests/Fakes/FakePlatform.h"
#include "Tests/Support/QtPrinting.h"

#include <QImage>
#include <QQuickItem>
#include <QQuickView>
#include <QStringList>

#include <gmock/gmock.h>

namespace stirra {

class MainWindowTest : public testing::Test
{
protected:
    MainWindowTest();

    [[nodiscard]] QQuickView &window() const { return *delegate.mainWindow(); }
    [[nodiscard]] StirraEngine &engine() const;

    // The only item of that object name; fails the test where there is none.
    [[nodiscard]] QQuickItem &item(const char *name) const;
    [[nodiscard]] QList<QQuickItem *> items(const char *name) const;
    // Where the item stands in the window.
    [[nodiscard]] QRectF frame(const char *name) const { return frame(item(name)); }
    [[nodiscard]] static QRectF frame(const QQuickItem &item);

    // The texts that are visible below an item, from top to bottom.
    [[nodiscard]] QStringList texts(const char *name) const;
    // The first text item below `name` that shows `text`.
    [[nodiscard]] QQuickItem &textItem(const char *name, const QString &text) const;

    // Real events, at the middle of the item and for the key.
    void click(const char *name);
    void press(int key);

    void advanceSeconds(double seconds);
    // Lets layouts settle, and gives the picture that they make.
    QImage picture();

    fakes::FakePlatform platform;
    AppDelegate delegate;
};

} // namespace stirra
