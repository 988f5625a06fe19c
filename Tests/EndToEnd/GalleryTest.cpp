// A program of the family as its user has it: its pages, the preferences that it applies to itself, its
// window.

#include "Tests/EndToEnd/Desktop.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/XDamage.h"
#include "Tests/Support/XScreenshot.h"
#include "Tests/Support/XUser.h"
#include "Tests/Support/XWindows.h"

#include <QDBusMessage>
#include <QFile>

#include <X11/keysym.h>

#include <gmock/gmock.h>

using namespace testsupport;
using testing::IsEmpty;

namespace endtoend {

namespace {

const QString title = QStringLiteral("Gallery");
const QString sample = QStringLiteral("Grüße, Γειά, 你好 👋🏽");

QProcessEnvironment withAccessibility(QProcessEnvironment environment)
{
    environment.insert(QStringLiteral("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"), QStringLiteral("1"));
    return environment;
}

// The gallery on a desktop, and the hands of its user.
class Gallery
{
public:
    explicit Gallery(Desktop &desktop)
        : desktop_(desktop)
        , process_(QStringLiteral(GALLERY_PROGRAM), {}, withAccessibility(desktop.environment()))
        , tree_(desktop.accessibility(), process_.pid())
        , user_(desktop.x())
    {}

    [[nodiscard]] ChildProcess &process() { return process_; }
    [[nodiscard]] const XUser &user() const { return user_; }

    [[nodiscard]] std::vector<xcb_window_t> windows() const { return windowsTitled(desktop_.x(), title); }
    [[nodiscard]] xcb_window_t window() const { return windows().empty() ? 0 : windows().front(); }

    [[nodiscard]] bool isUp()
    {
        return eventually([this] {
            return windows().size() == 1 && isViewable(desktop_.x(), window()) &&
                   shows(QStringLiteral("Control"));
        });
    }

    [[nodiscard]] bool shows(const QString &text) { return tree_.find(text).has_value(); }
    [[nodiscard]] bool comesToShow(const char *text)
    {
        return eventually([&] { return shows(QString::fromLatin1(text)); });
    }
    [[nodiscard]] bool comesToHaveFocus(const char *name)
    {
        return eventually([&] { return tree_.focused() == QString::fromLatin1(name); });
    }
    // What the text field of that name holds.
    [[nodiscard]] QString textOf(const char *name)
    {
        const auto found = tree_.find(QString::fromLatin1(name), QStringLiteral("text"));
        return found ? tree_.text(*found) : QString();
    }
    [[nodiscard]] bool isChecked(const char *text)
    {
        const auto found = tree_.find(QString::fromLatin1(text));
        return found && found->is(AccessibleState::checked);
    }

    // Where the control of that name is, once it stands still.
    [[nodiscard]] QRect place(const char *name, const char *role)
    {
        QRect last;
        EXPECT_TRUE(eventually([&] {
            const auto found = tree_.find(QString::fromLatin1(name), QString::fromLatin1(role));
            const auto place = found ? tree_.place(*found) : QRect();
            return !place.isEmpty() && std::exchange(last, place) == place;
        })) << name;
        return last;
    }

    void click(const char *name, const char *role) { user_.click(place(name, role).center()); }
    // From the page that is shown, or from the other tab.
    void showPage(const char *page)
    {
        click("Control", "page tab");
        click(page, "page tab");
    }

    [[nodiscard]] QImage picture() const
    {
        return screenshot(desktop_.x(), clientArea(desktop_.x(), window()));
    }
    [[nodiscard]] int groundLightness() const
    {
        const auto image = picture();
        return image.isNull() ? -1 : image.pixelColor(4, image.height() - 5).lightness();
    }

private:
    Desktop &desktop_;
    ChildProcess process_;
    AccessibleProgram tree_;
    XUser user_;
};

} // namespace

class GalleryTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(desktop.isOpen());
        ASSERT_TRUE(gallery->isUp());
    }

    void restart()
    {
        gallery.reset();
        gallery = std::make_unique<Gallery>(desktop);
        ASSERT_TRUE(gallery->isUp());
    }

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

    Desktop desktop;
    std::unique_ptr<Gallery> gallery = std::make_unique<Gallery>(desktop);
};

TEST_F(GalleryTest, HasAPageForEveryComponentWithItsFields)
{
    EXPECT_EQ(smallestSize(desktop.x(), gallery->window()), QSize(420, 560));
    for (const auto &[page, texts] :
         std::initializer_list<std::pair<const char *, std::vector<const char *>>>{
             {"Background", {"MeshGradientBackground", "Speed", "Warm"}},
             {"Button", {"AnimatedButton", "Get started", "Title", "Icon", "Clicked 0 times"}},
             {"Badge", {"StatusBadge", "Running", "Processing", "Text"}},
             {"Card",
              {"ModernCardView", "Corner radius", "Blur radius", "Opacity", "Shadow radius", "Border"}}}) {
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

TEST_F(GalleryTest, StandsStillOnceItsUserWantsLessMotion)
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
    restart();
    gallery->click("Settings", "page tab");
    EXPECT_TRUE(gallery->isChecked("Chequered ground"));
    EXPECT_TRUE(gallery->isChecked("Launch at login"));
    EXPECT_FALSE(gallery->isChecked("Reduce motion"));
}

TEST_F(GalleryTest, SeesThePointerAndTheLastKeysWhileItListensAndKeepsNone)
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

TEST_F(GalleryTest, TypesASampleIntoWhateverHasTheFocusThreeSecondsLater)
{
    gallery->showPage("Input");
    gallery->click("Type in 3 seconds", "push button");
    gallery->click("Sample", "text");
    gallery->user().press({XK_Control_L, XK_a});
    EXPECT_TRUE(gallery->comesToShow("Types in 1 s"));
    gallery->user().press({XK_BackSpace}); // so that the text is there only if it is typed
    EXPECT_TRUE(eventually([this] { return gallery->textOf("Sample") == sample; }));
}

TEST_F(GalleryTest, ItsClosedWindowComesBackAsItWas)
{
    gallery->showPage("Badge");
    ASSERT_TRUE(gallery->comesToShow("StatusBadge"));
    closeAndOpen();
    EXPECT_TRUE(gallery->comesToShow("StatusBadge"));
    EXPECT_TRUE(gallery->process().isRunning());
}

#ifdef MEMORY_CAN_BE_COUNTED

TEST_F(GalleryTest, ItsMemoryStaysWhenItsWindowIsOpenedAndClosed200Times)
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
