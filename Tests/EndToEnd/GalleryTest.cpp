// A program of the family as its user has it: its pages, the preferences that it applies to itself, its
// window.

#include "Tests/EndToEnd/Gallery.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/XDamage.h"
#include "Tests/Support/XWindows.h"

#include <QDBusMessage>
#include <QFile>

#include <X11/keysym.h>

#include <gmock/gmock.h>

using namespace testsupport;

namespace endtoend {

namespace {

class GalleryWindowTest : public GalleryTest
{
protected:
    // Whether anything is painted in the window within a second.
    [[nodiscard]] bool paints()
    {
        XDamage damage(desktop.server().display(), gallery->window());
        return eventually([&] { return !damage.rects().empty(); }, std::chrono::seconds(1));
    }

    // As a launcher asks a running program to show itself.
    void activate()
    {
        auto call = QDBusMessage::createMethodCall(
            QStringLiteral("org.stirra.Gallery"), QStringLiteral("/org/stirra/Gallery"),
            QStringLiteral("org.freedesktop.Application"), QStringLiteral("Activate"));
        call << QVariantMap();
        EXPECT_EQ(desktop.bus().connect().call(call).type(), QDBusMessage::ReplyMessage);
    }

    void closeAndOpen()
    {
        close(desktop.x(), gallery->window());
        ASSERT_TRUE(eventually([this] { return gallery->windows().empty(); }));
        activate();
        ASSERT_TRUE(eventually([this] { return gallery->groundLightness() > 200; })); // which is a frame
    }
};

} // namespace

TEST_F(GalleryTest, HasAPageForEveryComponentWithItsFields)
{
    EXPECT_EQ(smallestSize(desktop.x(), gallery->window()), QSize(420, 560));
    for (const auto &[page, texts] :
         std::initializer_list<std::pair<const char *, std::vector<const char *>>>{
             {"Background", {"MeshGradientBackground", "Speed", "Warm"}},
             {"Button", {"AnimatedButton", "Get started", "Title", "Icon", "Clicked 0 times"}},
             {"Badge", {"StatusBadge", "Running", "Processing", "Text"}},
             {"Card",
              {"ModernCardView", "Corner radius", "Blur radius", "Opacity", "Shadow radius", "Border"}},
             {"Menu",
              {"MenuComponents", "Heart rate", "Beating", "Frames a second", "Show Gallery", "Ctrl+Q"}}}) {
        gallery->click(page, "page tab");
        for (const auto *text : texts) {
            EXPECT_TRUE(gallery->comesToShow(text)) << page << ' ' << text;
        }
    }
}

TEST_F(GalleryTest, ItsComponentsAnswerToThePointerAndItsFieldsToKeys)
{
    gallery->showPage("Button");
    gallery->click("Get started", "push button");
    ASSERT_TRUE(gallery->comesToShow("Clicked once"));
    gallery->click("Title", "text");
    EXPECT_TRUE(gallery->comesToHaveFocus("Title"));
    gallery->user().press({XK_Control_L, XK_a});
    gallery->user().type("go");
    EXPECT_TRUE(gallery->comesToShow("go"));
    gallery->user().press({XK_Tab});

    gallery->showPage("Card");
    gallery->click("Opacity", "slider");
    EXPECT_TRUE(gallery->comesToShow("0.50"));
    gallery->user().press({XK_Right});
    EXPECT_TRUE(gallery->comesToShow("0.55"));

    gallery->showPage("Button"); // as it was left
    EXPECT_TRUE(gallery->shows(QStringLiteral("Clicked once")));
    restart();
    EXPECT_TRUE(gallery->comesToShow("AnimatedButton")); // the page that was shown last
}

TEST_F(GalleryTest, AppliesTheThemeToItselfAtOnceAndAtItsNextStart)
{
    EXPECT_TRUE(eventually([this] { return gallery->groundLightness() > 200; }));
    gallery->click("Settings", "page tab");
    gallery->click("Dark", "radio button");
    EXPECT_TRUE(eventually([this] { return gallery->groundLightness() < 80; }));
    restart();
    EXPECT_TRUE(eventually([this] { return gallery->groundLightness() < 80; }));
    gallery->click("Settings", "page tab");
    EXPECT_TRUE(gallery->isChecked("Dark"));
    gallery->click("System", "radio button");
    EXPECT_TRUE(eventually([this] { return gallery->groundLightness() > 200; }));
}

TEST_F(GalleryWindowTest, StandsStillOnceItsUserWantsLessMotion)
{
    gallery->showPage("Background");
    ASSERT_TRUE(gallery->comesToShow("MeshGradientBackground"));
    EXPECT_TRUE(paints());
    gallery->click("Settings", "page tab");
    gallery->click("Reduce motion", "check box");
    gallery->showPage("Background");
    EXPECT_TRUE(eventually([this] { return !paints(); }));
}

TEST_F(GalleryTest, KeepsSettingsOfItsOwnBesideThoseOfTheFamily)
{
    gallery->click("Settings", "page tab");
    gallery->click("Chequered ground", "check box");
    gallery->click("Launch at login", "check box");
    EXPECT_TRUE(eventually([this] { return gallery->isChecked("Chequered ground"); }));
    EXPECT_TRUE(eventually([this] { return gallery->isChecked("Launch at login"); }));
    restart();
    gallery->click("Settings", "page tab");
    EXPECT_TRUE(gallery->isChecked("Chequered ground"));
    EXPECT_TRUE(gallery->isChecked("Launch at login"));
    EXPECT_FALSE(gallery->isChecked("Reduce motion"));
}

TEST_F(GalleryWindowTest, ItsClosedWindowComesBackAsItWas)
{
    gallery->showPage("Badge");
    ASSERT_TRUE(gallery->comesToShow("StatusBadge"));
    closeAndOpen();
    EXPECT_TRUE(gallery->comesToShow("StatusBadge"));
    EXPECT_TRUE(gallery->process().isRunning());
}

#ifdef MEMORY_CAN_BE_COUNTED

TEST_F(GalleryWindowTest, ItsMemoryStaysWhenItsWindowIsOpenedAndClosed200Times)
{
    const auto residentKilobytes = [this] {
        QFile file(QStringLiteral("/proc/%1/status").arg(gallery->process().pid()));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        const auto lines = file.readAll().split('\n');
        const auto found =
            std::ranges::find_if(lines, [](const QByteArray &line) { return line.startsWith("VmRSS:"); });
        return found == lines.end() ? 0 : found->mid(6).chopped(2).trimmed().toInt();
    };
    const auto closeAndOpenTimes = [this](int times) {
        for (int i = 0; i < times && !HasFatalFailure(); ++i) {
            closeAndOpen();
        }
    };
    closeAndOpenTimes(10); // whatever is made once has been made then
    const int before = residentKilobytes();
    closeAndOpenTimes(200);
    const int after = residentKilobytes();
    RecordProperty("grownByKilobytes", after - before);
    EXPECT_GT(before, 10'000);
    EXPECT_LT(after, before + 2 * 1024);
}

#endif

} // namespace endtoend
