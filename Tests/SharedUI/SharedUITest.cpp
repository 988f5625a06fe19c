#include "Tests/SharedUI/SharedUITest.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QTest>

namespace sharedui {

namespace {

void gatherTexts(const QQuickItem &item, QList<QQuickItem *> &texts)
{
    for (auto *child : item.childItems()) {
        if (child->inherits("QQuickText") && child->isVisible()) {
            texts.append(child);
        }
        gatherTexts(*child, texts);
    }
}

} // namespace

SharedUITest::SharedUITest()
{
    view.engine()->addImportPath(QStringLiteral("qrc:/qt/qml"));
    view.resize(200, 200);
    QObject::connect(&view, &QQuickWindow::frameSwapped, &view, [this] { ++frames; });
}

QQuickItem &SharedUITest::make(const QByteArray &description)
{
    QQmlComponent component(view.engine());
    component.setData(
        "import QtQuick\nimport QtQuick.Layouts\nimport SharedUI\nimport Toolkit\n" + description, QUrl());
    shown_.reset(qobject_cast<QQuickItem *>(component.create()));
    EXPECT_TRUE(shown_) << component.errorString().toStdString();
    return *shown_;
}

void SharedUITest::place()
{
    shown_->setParentItem(view.contentItem());
    view.show();
    view.requestActivate();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&view));
}

QQuickItem &SharedUITest::show(const QByteArray &description)
{
    make(description);
    place();
    return *shown_;
}

QQuickItem &SharedUITest::item(const char *name) const
{
    auto *found = shown_->findChild<QQuickItem *>(QString::fromLatin1(name));
    EXPECT_TRUE(found) << name;
    return found ? *found : *shown_;
}

QList<QQuickItem *> SharedUITest::itemsOf(const char *className) const
{
    auto items = shown_->findChildren<QQuickItem *>();
    items.removeIf([className](const QQuickItem *item) { return !item->inherits(className); });
    return items;
}

QList<QQuickItem *> SharedUITest::shownTexts() const
{
    QList<QQuickItem *> texts;
    gatherTexts(*shown_, texts);
    return texts;
}

QColor SharedUITest::colorAt(const QImage &picture, double x, double y) const
{
    const double scale = static_cast<double>(picture.width()) / view.width();
    return picture.pixelColor(static_cast<int>(x * scale), static_cast<int>(y * scale));
}

} // namespace sharedui
