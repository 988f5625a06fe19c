// The gallery's page of sensors, on machines that are made up.

#include "Tests/EndToEnd/Gallery.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/TemporaryFolder.h"
#include "Tests/Support/XScreenshot.h"
#include "Tests/Support/XWindows.h"

#include <sys/inotify.h>

#include <fstream>

using namespace testsupport;

namespace endtoend {

namespace {

using namespace std::chrono_literals;

constexpr auto lightFile = "light";
constexpr auto positionFile = "position";

class GallerySensorsTest : public GalleryTest
{
protected:
    void SetUp() override
    {
        std::filesystem::create_directories(controller());
        desktop.environment().insert(QStringLiteral("STIRRA_HARDWARE_ROOT"),
                                     QString::fromStdString(root_.path().string()));
        GalleryTest::SetUp();
        restart();
    }

    [[nodiscard]] std::filesystem::path controller() const
    {
        return root_.path() / "sys/devices/platform/applesmc.768";
    }
    // In one step, so that no reader finds half of it.
    void write(const char *file, const char *text) const
    {
        const auto draft = root_.path() / "draft";
        std::ofstream(draft) << text << '\n';
        std::filesystem::rename(draft, controller() / file);
    }

    // Whether something in the window is of that colour, more or less.
    [[nodiscard]] bool paints(const QColor &color) const
    {
        const auto picture = screenshot(desktop.x(), clientArea(desktop.x(), gallery->window()));
        for (int i = 0; i < picture.width() * picture.height(); ++i) {
            const auto pixel = picture.pixelColor(i % picture.width(), i / picture.width());
            if (pixel.hsvSaturation() > 120 && std::abs(pixel.hsvHue() - color.hsvHue()) < 8) {
                return true;
            }
        }
        return false;
    }

private:
    TemporaryFolder root_;
};

// Sees whenever a file is opened.
class OpenWatch
{
public:
    explicit OpenWatch(const std::filesystem::path &file)
    {
        inotify_add_watch(watch_, file.c_str(), IN_OPEN);
    }
    OpenWatch(const OpenWatch &) = delete;
    OpenWatch &operator=(const OpenWatch &) = delete;
    ~OpenWatch() { ::close(watch_); }

    // Whether it was since the last question.
    [[nodiscard]] bool wasOpened() const
    {
        std::array<char, 65536> events{};
        return read(watch_, events.data(), events.size()) > 0;
    }

private:
    const int watch_ = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
};

const QColor red(0xFF, 0x3B, 0x30);
const QColor green(0x34, 0xC7, 0x59);

} // namespace

TEST_F(GallerySensorsTest, SaysWhatTheMachineLacks)
{
    gallery->showPage("Sensors");
    EXPECT_TRUE(gallery->comesToShow("This machine has no light sensor that can be read."));
    EXPECT_TRUE(gallery->comesToShow("90° estimated"));
    EXPECT_TRUE(gallery->comesToShow("No hinge tells its angle, and no light sensor helps to guess it."));
    EXPECT_TRUE(gallery->comesToShow("This machine has no accelerometer that can be read."));
    EXPECT_FALSE(paints(red));
    EXPECT_FALSE(paints(green));
}

TEST_F(GallerySensorsTest, ShowsAndPlotsWhatTheSensorsSay)
{
    write(lightFile, "(51,51)");
    write(positionFile, "(256,-128,0)");
    gallery->showPage("Sensors");
    EXPECT_TRUE(gallery->comesToShow("20 %"));
    EXPECT_TRUE(gallery->comesToShow("27° estimated"));
    EXPECT_TRUE(gallery->comesToShow("No hinge tells its angle: it is guessed from the light."));
    EXPECT_TRUE(gallery->comesToShow("1.00  -0.50  0.00 g"));
    EXPECT_TRUE(eventually([this] { return paints(red) && paints(green); }));
    write(lightFile, "(255,255)");
    write(positionFile, "(-64,0,256)");
    EXPECT_TRUE(gallery->comesToShow("100 %"));
    EXPECT_TRUE(gallery->comesToShow("135° estimated"));
    EXPECT_TRUE(gallery->comesToShow("-0.25  0.00  1.00 g"));
}

TEST_F(GallerySensorsTest, ReadsNothingOnAnotherPage)
{
    write(lightFile, "(51,51)");
    const OpenWatch watch(controller() / lightFile);
    gallery->showPage("Sensors");
    ASSERT_TRUE(gallery->comesToShow("20 %"));
    EXPECT_TRUE(eventually([&] { return watch.wasOpened(); }));
    gallery->showPage("Badge");
    ASSERT_TRUE(gallery->comesToShow("StatusBadge"));
    EXPECT_TRUE(eventually([&] {
        letPass(500ms);
        return !watch.wasOpened();
    }));
    letPass(1s);
    EXPECT_FALSE(watch.wasOpened());
    gallery->showPage("Sensors");
    EXPECT_TRUE(eventually([&] { return watch.wasOpened(); }));
}

} // namespace endtoend
