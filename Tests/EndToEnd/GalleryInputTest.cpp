// The gallery's page that reaches out of its window, into the session's input.

#include "Tests/EndToEnd/Gallery.h"
#include "Tests/Support/Eventually.h"

#include <X11/keysym.h>

#include <gmock/gmock.h>

using namespace testsupport;

namespace endtoend {

namespace {

const QString sample = QStringLiteral("Grüße, Γειά, 你好 👋🏽");

using GalleryInputTest = GalleryTest;

} // namespace

TEST_F(GalleryInputTest, SeesThePointerAndTheLastKeysWhileItListensAndKeepsNone)
{
    gallery->showPage("Input");
    gallery->click("Listen", "check box");
    EXPECT_TRUE(eventually([this] { return gallery->isChecked("Listen"); }));
    gallery->user().click({3, 5});
    EXPECT_TRUE(gallery->comesToShow("3, 5"));
    gallery->user().type("ab");
    EXPECT_TRUE(gallery->comesToShow("a b"));
    gallery->showPage("Card");
    gallery->showPage("Input");
    EXPECT_TRUE(gallery->comesToShow("Last keys"));
    EXPECT_FALSE(gallery->shows(QStringLiteral("a b")));
}

TEST_F(GalleryInputTest, TypesASampleIntoWhateverHasTheFocusThreeSecondsLater)
{
    gallery->showPage("Input");
    gallery->click("Type in 3 seconds", "push button");
    gallery->click("Sample", "text");
    ASSERT_TRUE(gallery->comesToHaveFocus("Sample"));
    gallery->user().press({XK_Control_L, XK_a});
    gallery->user().press({XK_BackSpace}); // so that the text is there only if it is typed
    EXPECT_TRUE(eventually([this] { return gallery->textOf("Sample") == sample; }));
}

} // namespace endtoend
