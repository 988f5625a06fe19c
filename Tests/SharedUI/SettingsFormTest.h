// The settings form in a window, over storage in the test's hands.
#pragma once

#include "SharedCore/Storage/AppPreferences.h"
#include "Tests/SharedCore/StorageTest.h"
#include "Tests/SharedUI/SharedUITest.h"

#include <QAccessible>
#include <QTest>

namespace sharedui {

class SettingsFormTest : public SharedUITest
{
protected:
    // Clicks on the middle of the item of that object name, or of the button of that name below it.
    void click(const char *name) { clickOn(item(name)); }
    void clickOn(const QQuickItem &target)
    {
        const auto middle = target.mapRectToScene(target.boundingRect()).center();
        QTest::mouseClick(&view, Qt::LeftButton, {}, middle.toPoint());
    }

    // The switch's or segment's button below the item, by the text that assistive technology is told.
    [[nodiscard]] QQuickItem &button(const QString &text) const
    {
        for (auto *candidate : shown().findChildren<QQuickItem *>()) {
            if (candidate->inherits("QQuickFocusScope") && candidate->property("text") == text) {
                return *candidate;
            }
        }
        ADD_FAILURE() << "there is no button " << text.toStdString();
        return shown();
    }

    fakes::FakeStorage &storage = sharedcore::sharedStorage();
};

} // namespace sharedui
