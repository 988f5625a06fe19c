#include "Tests/Toolkit/ToolkitTest.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QTest>

namespace toolkit {

ToolkitTest::ToolkitTest()
{
    view.engine()->addImportPath(QStringLiteral("qrc:/qt/qml"));
    view.resize(200, 200);
}

QQuickItem &ToolkitTest::show(const char *description)
{
    QQmlComponent component(view.engine());
    component.setData(QByteArray("import QtQuick\nimport Toolkit\n") + description, QUrl());
    shown_.reset(qobject_cast<QQuickItem *>(component.create()));
    EXPECT_TRUE(shown_) << component.errorString().toStdString();
    shown_->setParentItem(view.contentItem());
    view.show();
    view.requestActivate();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&view));
    return *shown_;
}

QQuickItem &ToolkitTest::item(const char *name) const
{
    auto *found = shown_->findChild<QQuickItem *>(QString::fromLatin1(name));
    EXPECT_TRUE(found) << name;
    return found ? *found : *shown_;
}

void ToolkitTest::press(int key)
{
    QTest::keyClick(&view, static_cast<Qt::Key>(key));
}

void ToolkitTest::click(const QPoint &point)
{
    QTest::mouseClick(&view, Qt::LeftButton, {}, point);
}

} // namespace toolkit
