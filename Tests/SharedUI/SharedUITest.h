// A window with one view of the family in it, on a platform in the test's hands.
#pragma once

#include "Tests/Fakes/FakePlatform.h"
#include "Tests/Support/QtPrinting.h"

#include <QImage>
#include <QQuickItem>
#include <QQuickView>

#include <gmock/gmock.h>

#include <memory>

namespace sharedui {

class SharedUITest : public testing::Test
{
protected:
    SharedUITest();

    // Makes the view that the text describes (its imports are added), and shows it at the upper left of a
    // white window of 200 × 200 points.
    QQuickItem &show(const QByteArray &description);
    // The same without a window.
    QQuickItem &make(const QByteArray &description);
    void place();
    void setDark(bool isDark) { platform.appearance().set({isDark, {}, {}, {}}); }

    // The item below the shown one of that object name.
    [[nodiscard]] QQuickItem &item(const char *name) const;
    [[nodiscard]] QQuickItem &shown() const { return *shown_; }
    // The texts that are seen, by any name.
    [[nodiscard]] QList<QQuickItem *> shownTexts() const;
    // Empty where no text item is below the shown one.
    [[nodiscard]] QList<QQuickItem *> itemsOf(const char *className) const;

    [[nodiscard]] QImage picture() { return view.grabWindow(); }
    // The colour of the picture at a place in points.
    [[nodiscard]] QColor colorAt(const QImage &picture, double x, double y) const;

    fakes::FakePlatform platform;
    QQuickView view;
    int frames = 0; // that the window has shown

private:
    std::unique_ptr<QQuickItem> shown_;
};

} // namespace sharedui
