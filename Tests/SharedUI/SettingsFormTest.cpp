#include "Tests/SharedUI/SettingsFormTest.h"

#include "Tests/Support/QuickItems.h"

#include <QTest>

namespace sharedui {

namespace {

using testsupport::itemsFrom;

QString roleName(const QAccessibleInterface &interface)
{
    switch (interface.role()) {
    case QAccessible::Heading:
        return QStringLiteral("heading");
    case QAccessible::StaticText:
        return QStringLiteral("text");
    case QAccessible::CheckBox:
        return QStringLiteral("check box");
    case QAccessible::Grouping:
        return QStringLiteral("group");
    case QAccessible::RadioButton:
        return QStringLiteral("radio button");
    case QAccessible::PageTabList:
        return QStringLiteral("tabs");
    case QAccessible::PageTab:
        return QStringLiteral("tab");
    default:
        return {};
    }
}

void tell(const QAccessibleInterface &interface, QStringList &told)
{
    const auto state = interface.state();
    if (state.invisible) {
        return;
    }
    if (const auto role = roleName(interface); !role.isEmpty()) {
        const auto isOn = state.checked || state.selected;
        told.append(
            QStringLiteral("%1 %2%3")
                .arg(role, interface.text(QAccessible::Name), isOn ? QStringLiteral(" (on)") : QString())
                .trimmed());
    }
    for (int i = 0; i < interface.childCount(); ++i) {
        tell(*interface.child(i), told);
    }
}

} // namespace

SettingsFormTest::~SettingsFormTest()
{
    QAccessible::setActive(false);
}

QQuickItem &SettingsFormTest::showForm(int width)
{
    view.resize(width, 400);
    return show("SharedAppSettingsFormView { property int saves: 0; onPreferencesSaved: saves += 1; width: " +
                QByteArray::number(width) + " }");
}

QQuickItem &SettingsFormTest::button(const QString &name) const
{
    for (auto *candidate : itemsFrom(shown())) {
        if (candidate->property("isCheckable").isValid() && candidate->property("text") == name) {
            return *candidate;
        }
    }
    ADD_FAILURE() << "there is no button " << name.toStdString();
    return shown();
}

QAccessibleInterface &SettingsFormTest::accessible(const QString &name) const
{
    QAccessible::setActive(true);
    return *QAccessible::queryAccessibleInterface(&button(name));
}

QStringList SettingsFormTest::told()
{
    QAccessible::setActive(true);
    QStringList told;
    tell(*QAccessible::queryAccessibleInterface(&view), told);
    return told;
}

QList<QQuickItem *> SettingsFormTest::texts() const
{
    auto items = itemsFrom(shown());
    items.removeIf([](const auto *item) { return !item->inherits("QQuickText") || !item->isVisible(); });
    return items;
}

void SettingsFormTest::clickOn(const QQuickItem &target)
{
    const auto middle = target.mapToScene(QPointF(target.width() / 2, target.height() / 2));
    QTest::mouseClick(&view, Qt::LeftButton, {}, middle.toPoint());
}

void SettingsFormTest::press(int key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(&view, static_cast<Qt::Key>(key), modifiers);
}

QString SettingsFormTest::focused() const
{
    const auto *item = view.activeFocusItem();
    return item ? item->property("text").toString() : QString();
}

std::string SettingsFormTest::stored() const
{
    const auto found = storage.applicationDefaults().values.find("appPreferences");
    if (found == storage.applicationDefaults().values.end()) {
        return {};
    }
    const auto &bytes = std::get<platform::Data>(found->second);
    return {reinterpret_cast<const char *>(bytes.data()), bytes.size()};
}

void SettingsFormTest::store(const std::string &json) const
{
    const auto *bytes = reinterpret_cast<const std::byte *>(json.data());
    storage.applicationDefaults().values.insert_or_assign("appPreferences",
                                                          platform::Data(bytes, bytes + json.size()));
}

} // namespace sharedui
