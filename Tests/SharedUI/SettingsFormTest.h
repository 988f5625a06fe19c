// The settings form in a window, over storage in the test's hands.
#pragma once

#include "SharedCore/Storage/AppPreferences.h"
#include "Tests/SharedCore/StorageTest.h"
#include "Tests/SharedUI/SharedUITest.h"

#include <QAccessible>

namespace sharedui {

class SettingsFormTest : public SharedUITest
{
protected:
    ~SettingsFormTest() override;

    // The form alone in a window of that width, in points, or below the shown item.
    QQuickItem &showForm(int width = 420);

    // The switch, segment or tab that assistive technology is told by that name.
    [[nodiscard]] QQuickItem &button(const QString &name) const;
    [[nodiscard]] QAccessibleInterface &accessible(const QString &name) const;
    // What assistive technology is told of what is visible, in its order: "role name", with " (on)" behind it
    // where it is checked or selected.
    [[nodiscard]] QStringList told();
    // The texts that are seen, in the order of the items.
    [[nodiscard]] QList<QQuickItem *> texts() const;

    void click(const QString &name) { clickOn(button(name)); }
    void clickOn(const QQuickItem &target);
    void press(int key, Qt::KeyboardModifiers modifiers = {});
    [[nodiscard]] QString focused() const;

    [[nodiscard]] std::string stored() const;
    void store(const std::string &json) const;

    fakes::FakeStorage &storage = sharedcore::sharedStorage();
};

} // namespace sharedui
