#include "Tests/App/MainWindowTest.h"

#include <QTest>

#include <algorithm>

namespace stirra {

namespace {

void collect(QQuickItem &item, QList<QQuickItem *> &list)
{
    list.append(&item);
    for (auto *child : item.childItems()) {
        collect(*child, list);
    }
}

QList<QQuickItem *> itemsBelow(QQuickItem &item)
{
    QList<QQuickItem *> list;
    collect(item, list);
    return list;
}

bool isText(const QQuickItem &item)
{
    return item.inherits("QQuickText");
}

} // namespace

MainWindowTest::MainWindowTest()
{
    delegate.applicationDidFinishLaunching();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window()));
    window().requestActivate();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
}

StirraEngine &MainWindowTest::engine() const
{
    return *window().rootObject()->property("engine").value<StirraEngine *>();
}

QList<QQuickItem *> MainWindowTest::items(const char *name) const
{
    auto list = itemsBelow(*window().rootObject());
    list.removeIf([name](const QQuickItem *item) { return item->objectName() != QLatin1String(name); });
    return list;
}

QQuickItem &MainWindowTest::item(const char *name) const
{
    const auto list = items(name);
    EXPECT_EQ(list.size(), 1) << name;
    return list.isEmpty() ? *window().rootObject() : *list.first();
}

QRectF MainWindowTest::frame(const QQuickItem &item)
{
    return item.mapRectToScene(item.boundingRect());
}

QStringList MainWindowTest::texts(const char *name) const
{
    auto list = itemsBelow(item(name));
    list.removeIf([](const QQuickItem *item) { return !isText(*item) || !item->isVisible(); });
    std::ranges::stable_sort(list, {}, [](const QQuickItem *item) { return frame(*item).y(); });
    QStringList texts;
    for (const auto *text : list) {
        texts.append(text->property("text").toString());
    }
    return texts;
}

QQuickItem &MainWindowTest::textItem(const char *name, const QString &text) const
{
    for (auto *below : itemsBelow(item(name))) {
        if (isText(*below) && below->property("text").toString() == text) {
            return *below;
        }
    }
    ADD_FAILURE() << name << " shows no " << text.toStdString();
    return item(name);
}

void MainWindowTest::click(const char *name)
{
    QTest::mouseClick(&window(), Qt::LeftButton, {}, frame(name).center().toPoint());
}

void MainWindowTest::press(int key)
{
    QTest::keyClick(&window(), static_cast<Qt::Key>(key));
}

void MainWindowTest::advanceSeconds(double seconds)
{
    platform.scheduler().advance(platform::Seconds(seconds));
}

QImage MainWindowTest::picture()
{
    return window().grabWindow();
}

} // namespace stirra
