#include "Tests/Toolkit/ToolkitTest.h"

#include "Tests/Support/QuickItems.h"

#include <QAccessible>

#include <algorithm>

namespace toolkit {

namespace {

using testsupport::itemsFrom;

// A picker, and the buttons of its segments from left to right.
class SegmentedPickerTest : public ToolkitTest
{
protected:
    QQuickItem &showPicker(const char *fields = "")
    {
        const auto text =
            QByteArray("SegmentedPicker { width: 200; title: 'Size'; selection: 2; property var tags: [];"
                       "options: [{text: 'S', tag: 1}, {text: 'M', tag: 2}, {text: 'XXL', tag: 'huge'}];"
                       "onPicked: tag => { tags.push(tag); selection = tag } ") +
            fields + "}";
        return show(text.constData());
    }

    [[nodiscard]] QList<QQuickItem *> segments() const
    {
        auto items = itemsFrom(item("segments"));
        items.removeIf([](const auto *candidate) { return !candidate->property("isCurrent").isValid(); });
        std::ranges::sort(items, {}, [](const auto *segment) { return segment->x(); });
        return items;
    }

    [[nodiscard]] QString raised() const
    {
        QString texts;
        for (const auto *segment : segments()) {
            texts += segment->findChild<QQuickItem *>(QStringLiteral("raised"))->isVisible()
                         ? segment->property("text").toString()
                         : QString();
        }
        return texts;
    }

    [[nodiscard]] QString focused() const
    {
        const auto *focus = view.activeFocusItem();
        return focus ? focus->property("text").toString() : QString();
    }

    void clickOn(const QQuickItem &segment)
    {
        click(segment.mapToScene(QPointF(segment.width() / 2, segment.height() / 2)).toPoint());
    }

    static QVariantList tags(const QQuickItem &shown) { return shown.property("tags").toList(); }
};

TEST_F(SegmentedPickerTest, HasSegmentsOfEqualWidthsThatHoldTheirTexts)
{
    const auto &shown = showPicker();
    const auto all = segments();
    ASSERT_EQ(all.size(), 3);
    double right = 0;
    for (const auto *segment : all) {
        EXPECT_EQ(segment->width(), all.at(0)->width());
        EXPECT_EQ(segment->x(), right);
        EXPECT_GE(segment->width(), segment->property("contentWidth").toDouble() + 8);
        right = segment->x() + segment->width();
    }
    const auto &bar = item("segments");
    EXPECT_EQ(bar.mapToItem(&shown, {bar.width(), 0}).x(), 200);
}

TEST_F(SegmentedPickerTest, CutsItsTextsWhereThereIsNoRoom)
{
    show("Item { SegmentBar { objectName: 'segments'; width: 80; segments: [{text: 'Very long'}, {text: "
         "'b'}] } }");
    QStringList cut;
    for (auto *segment : segments()) {
        EXPECT_EQ(segment->width(), 40);
        for (const auto *part : itemsFrom(*segment)) {
            if (part->property("truncated").toBool()) {
                EXPECT_LE(part->width(), 40 - 8);
                cut.append(part->property("text").toString());
            }
        }
    }
    EXPECT_THAT(cut, testing::ElementsAre(QStringLiteral("Very long")));
}

TEST_F(SegmentedPickerTest, PicksTheTagOfTheSegmentThatIsClicked)
{
    const auto &shown = showPicker();
    EXPECT_EQ(raised(), QStringLiteral("M"));
    clickOn(*segments().at(2));
    EXPECT_EQ(raised(), QStringLiteral("XXL"));
    clickOn(*segments().at(0));
    EXPECT_EQ(raised(), QStringLiteral("S"));
    clickOn(*segments().at(0));
    EXPECT_EQ(tags(shown), QVariantList({QStringLiteral("huge"), 1}));
}

TEST_F(SegmentedPickerTest, IsOneStopOfTheKeyboardAndItsArrowsPick)
{
    const auto &shown = showPicker();
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), QStringLiteral("M"));
    press(Qt::Key_Right);
    EXPECT_EQ(focused(), QStringLiteral("XXL"));
    press(Qt::Key_Right); // there is no further one
    press(Qt::Key_Left);
    press(Qt::Key_Left);
    press(Qt::Key_Left);
    EXPECT_EQ(focused(), QStringLiteral("S"));
    EXPECT_EQ(raised(), QStringLiteral("S"));
    EXPECT_EQ(tags(shown), QVariantList({QStringLiteral("huge"), 2, 1}));
    int stops = 0;
    for (const auto *segment : segments()) {
        stops += segment->activeFocusOnTab() ? 1 : 0;
    }
    EXPECT_EQ(stops, 1);
}

TEST_F(SegmentedPickerTest, IsReachedWhereNothingIsChosen)
{
    const auto &shown = showPicker("Component.onCompleted: selection = 'none'");
    EXPECT_EQ(raised(), QString());
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), QStringLiteral("S"));
    press(Qt::Key_Space);
    EXPECT_EQ(raised(), QStringLiteral("S"));
    EXPECT_EQ(tags(shown), QVariantList{1});
}

TEST_F(SegmentedPickerTest, ShowsWhatItsOwnerSays)
{
    auto &shown = showPicker();
    shown.setProperty("selection", QStringLiteral("huge"));
    EXPECT_EQ(raised(), QStringLiteral("XXL"));
    EXPECT_TRUE(tags(shown).isEmpty());
}

TEST_F(SegmentedPickerTest, IsMirroredForWritingFromTheRight)
{
    showPicker("LayoutMirroring.enabled: true; LayoutMirroring.childrenInherit: true");
    EXPECT_EQ(segments().at(0)->property("text").toString(), QStringLiteral("XXL"));
    press(Qt::Key_Tab);
    press(Qt::Key_Left);
    EXPECT_EQ(raised(), QStringLiteral("XXL"));
    press(Qt::Key_Right);
    EXPECT_EQ(raised(), QStringLiteral("M"));
}

TEST_F(SegmentedPickerTest, IsAGroupOfRadioButtonsToAssistiveTechnology)
{
    const auto &shown = showPicker();
    QAccessible::setActive(true);
    auto *group = QAccessible::queryAccessibleInterface(&item("segments"));
    ASSERT_TRUE(group);
    EXPECT_EQ(group->role(), QAccessible::Grouping);
    EXPECT_EQ(group->text(QAccessible::Name), QStringLiteral("Size"));
    ASSERT_EQ(group->childCount(), 3);
    auto *last = group->child(2);
    EXPECT_EQ(last->role(), QAccessible::RadioButton);
    EXPECT_EQ(last->text(QAccessible::Name), QStringLiteral("XXL"));
    EXPECT_TRUE(group->child(1)->state().checked);
    EXPECT_FALSE(last->state().checked);
    EXPECT_TRUE(last->state().checkable);
    last->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(last->state().checked);
    EXPECT_FALSE(group->child(1)->state().checked);
    group->child(0)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(tags(shown), QVariantList({QStringLiteral("huge"), 1}));
    QAccessible::setActive(false);
}

} // namespace

} // namespace toolkit
