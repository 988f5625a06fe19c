// A window with one component of the toolkit in it, on a platform in the test's hands.
#pragma once

#include "Tests/Fakes/FakePlatform.h"
#include "Tests/Support/QtPrinting.h"

#include <QImage>
#include <QQuickItem>
#include <QQuickView>

#include <gmock/gmock.h>

#include <memory>

namespace toolkit {

class ToolkitTest : public testing::Test
{
protected:
    ToolkitTest();

    // Makes the component that the text describes (its imports are added), and shows it in a window of 200 ×
    // 200 points with the keyboard's focus.
    QQuickItem &show(const char *description);

    // The item below the shown one of that object name.
    [[nodiscard]] QQuickItem &item(const char *name) const;
    [[nodiscard]] QQuickItem &shown() const { return *shown_; }
    void press(int key);
    void click(const QPoint &point);
    [[nodiscard]] QImage picture() { return view.grabWindow(); }

    fakes::FakePlatform platform;
    QQuickView view;

private:
    std::unique_ptr<QQuickItem> shown_;
};

} // namespace toolkit
