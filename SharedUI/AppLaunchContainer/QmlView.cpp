#include "SharedUI/AppLaunchContainer/QmlView.h"

#include <QQmlComponent>
#include <QQuickItem>

#include <cstdio>

namespace sharedui {

namespace {

void report(const QByteArray &module, const QByteArray &type, const QString &reason)
{
    std::fprintf(stderr, "%s.%s: %s\n", module.constData(), type.constData(), qUtf8Printable(reason));
}

std::unique_ptr<QQuickItem> makeView(QQmlEngine &engine, const QByteArray &module, const QByteArray &type)
{
    QQmlComponent component(&engine);
    component.setData("import " + module + '\n' + type + " {}\n", QUrl());
    std::unique_ptr<QObject> made(component.create());
    if (!made) {
        report(module, type, component.errorString().trimmed());
        return nullptr;
    }
    auto *view = qobject_cast<QQuickItem *>(made.get());
    if (!view) {
        report(module, type, QStringLiteral("is no view"));
        return nullptr;
    }
    static_cast<void>(made.release());
    return std::unique_ptr<QQuickItem>(view);
}

} // namespace

LaunchWindowController::RootBuilder qmlView(const QByteArray &module, const QByteArray &type)
{
    return [=](QQmlEngine &engine) { return makeView(engine, module, type); };
}

} // namespace sharedui
