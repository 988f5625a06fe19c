// Every component, drawn with and without OpenGL.

#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/PrivateRuntime.h"
#include "Tests/Support/PrivateXvfb.h"
#include "Tests/Support/QtPrinting.h"

#include <QDir>
#include <QImage>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <functional>
#include <map>
#include <numeric>

namespace sharedui {

namespace {

using namespace testsupport;

constexpr double mostPercent = 2;
constexpr int indistinct = 8; // levels of 255

bool isUnlike(QRgb left, QRgb right)
{
    return std::abs(qRed(left) - qRed(right)) > indistinct ||
           std::abs(qGreen(left) - qGreen(right)) > indistinct ||
           std::abs(qBlue(left) - qBlue(right)) > indistinct;
}

// How many pixels of two pictures of the same size are not the same to the eye.
double percentUnlike(const QImage &left, const QImage &right)
{
    const auto count = left.width() * left.height();
    const auto *one = reinterpret_cast<const QRgb *>(left.constBits());
    const auto *other = reinterpret_cast<const QRgb *>(right.constBits());
    return 100.0 * std::inner_product(one, one + count, other, 0, std::plus<>(), isUnlike) / count;
}

using Variables = std::map<const char *, const char *>;

// The pictures of all pages, drawn by one renderer.
class Pictures
{
public:
    Pictures(const PrivateRuntime &runtime, const Variables &variables)
    {
        auto environment = runtime.environment();
        environment.insert(QStringLiteral("LIBGL_ALWAYS_SOFTWARE"), QStringLiteral("1"));
        environment.insert(QStringLiteral("LSAN_OPTIONS"), QStringLiteral("detect_leaks=0")); // of Mesa
        environment.remove(QStringLiteral("FREETYPE_PROPERTIES"));
        for (const auto &[name, value] : variables) {
            environment.insert(QString::fromLatin1(name), QString::fromLatin1(value));
        }
        program_ = std::make_unique<ChildProcess>(QStringLiteral(PAGE_PICTURES_PROGRAM),
                                                  QStringList(folder_.path()), environment);
    }

    // Waits for the program's end. REQUIRES: before all others.
    [[nodiscard]] bool areDrawnBy(const QByteArray &renderer)
    {
        EXPECT_EQ(program_->waitForExit(std::chrono::seconds(240)), 0)
            << program_->standardError().toStdString();
        const auto renderers = program_->standardOutput().trimmed().split('\n');
        return renderers.size() == names().size() && renderers.count(renderer) == renderers.size();
    }
    [[nodiscard]] QStringList names() const
    {
        return QDir(folder_.path()).entryList(QDir::Files, QDir::Name);
    }
    [[nodiscard]] QImage operator[](const QString &name) const
    {
        return QImage(folder_.filePath(name)).convertToFormat(QImage::Format_RGB32);
    }

private:
    QTemporaryDir folder_;
    std::unique_ptr<ChildProcess> program_;
};

class RendererTest : public testing::Test
{
protected:
    PrivateRuntime runtime;
    PrivateXvfb server{runtime};
};

class RendererScaleTest : public RendererTest, public testing::WithParamInterface<const char *>
{};

TEST_P(RendererScaleTest, LooksTheSameWithAndWithoutOpenGL)
{
    ASSERT_TRUE(server.isOpen());
    Pictures software(runtime, {{"QT_SCALE_FACTOR", GetParam()}, {"QT_QUICK_BACKEND", "software"}});
    Pictures openGL(runtime, {{"QT_SCALE_FACTOR", GetParam()}, {"QSG_RHI_BACKEND", "opengl"}});
    ASSERT_TRUE(software.areDrawnBy("software"));
    ASSERT_TRUE(openGL.areDrawnBy("OpenGL"));

    ASSERT_EQ(software.names(), openGL.names());
    for (const auto &name : software.names()) {
        SCOPED_TRACE(name.toStdString());
        const auto one = software[name];
        const auto other = openGL[name];
        ASSERT_EQ(one.size(), other.size());
        EXPECT_LE(percentUnlike(one, other), mostPercent);
    }
    // A page in the other appearance is another picture, so that this is no comparison of empty ones.
    EXPECT_GT(percentUnlike(software[QStringLiteral("ModernCardView-light.png")],
                            openGL[QStringLiteral("ModernCardView-dark.png")]),
              90);
}

INSTANTIATE_TEST_SUITE_P(ScaleFactors, RendererScaleTest, testing::Values("1", "2"));

TEST_F(RendererTest, DrawsStemsAsTheUserWantsThem)
{
    ASSERT_TRUE(server.isOpen());
    Pictures usual(runtime, {});
    Pictures thick(runtime, {{"FREETYPE_PROPERTIES", "cff:no-stem-darkening=0"}});
    ASSERT_TRUE(usual.areDrawnBy("software"));
    ASSERT_TRUE(thick.areDrawnBy("software"));
    const auto badges = QStringLiteral("StatusBadge-dark.png");
    EXPECT_GT(percentUnlike(usual[badges], thick[badges]), mostPercent);
}

} // namespace

} // namespace sharedui
