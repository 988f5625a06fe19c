// PagePictures FOLDER: draws every page of Pages/ in a window, light and dark, with the renderer that Qt's
// variables in the environment ask for, in software where they ask for none, and writes the pictures into the
// folder, AnimatedButton-light.png for instance. Prints which renderer it was, for each. All pictures are of
// the same moment: neither the platform's clock nor that of the animations moves by itself.

#include "Platform/Platform.h"
#include "Tests/Fakes/FakePlatform.h"
#include "Tests/Fakes/FakeStorage.h"
#include "Tests/Support/Eventually.h"
#include "Toolkit/SystemStyle.h"

#include <QAnimationDriver>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>

#include <cstdlib>
#include <iostream>

namespace {

constexpr int margin = 16; // points around each page
// Mesa takes its time under a sanitizer.
constexpr std::chrono::seconds patience(60);
constexpr qint64 moment = 600; // milliseconds after a page has appeared; well within a pulse

// The clock of all animations.
class StandingClock final : public QAnimationDriver
{
public:
    StandingClock() { install(); }

    [[nodiscard]] qint64 elapsed() const override { return elapsed_; }
    void moveBy(qint64 milliseconds)
    {
        elapsed_ += milliseconds;
        advance();
    }

private:
    qint64 elapsed_ = 0;
};

// A window with a page in it.
class PageWindow
{
public:
    explicit PageWindow(const QString &page)
    {
        view_.engine()->addImportPath(QStringLiteral("qrc:/qt/qml"));
        view_.setSource(QUrl(QStringLiteral("qrc") + page));
        view_.setColor(toolkit::SystemStyle().windowBackground());
    }

    // Null where there is no such page, or its window does not come up.
    [[nodiscard]] QImage picture(StandingClock &clock)
    {
        if (!view_.rootObject()) {
            return {};
        }
        view_.rootObject()->setPosition({margin, margin});
        view_.show();
        if (!testsupport::eventually([this] { return view_.isExposed() && isArranged(); }, patience)) {
            return {};
        }
        clock.moveBy(moment);
        QImage picture;
        const auto size = view_.size() * view_.effectiveDevicePixelRatio();
        const auto isOfThatSize = [&] { // which OpenGL may learn of a moment later
            picture = view_.grabWindow();
            return picture.size() == size;
        };
        return testsupport::eventually(isOfThatSize, patience) ? picture : QImage();
    }

    [[nodiscard]] const char *renderer() const
    {
        switch (view_.rendererInterface()->graphicsApi()) {
        case QSGRendererInterface::Software:
            return "software";
        case QSGRendererInterface::OpenGL:
            return "OpenGL";
        default:
            return "another";
        }
    }

private:
    // Stacks know their size when they have been shown.
    [[nodiscard]] bool isArranged()
    {
        auto &root = *view_.rootObject();
        const QSizeF size(root.implicitWidth(), root.implicitHeight());
        const auto windowSize = size.toSize() + QSize(2 * margin, 2 * margin);
        const bool isArranged = root.size() == size && view_.size() == windowSize;
        root.setSize(size);
        view_.resize(windowSize);
        return isArranged;
    }

    QQuickView view_;
};

bool writePictures(const QDir &folder)
{
    fakes::FakePlatform platform;
    fakes::FakeStorage storage;
    const platform::StorageInstallation installation(storage);
    StandingClock clock;
    const QDir pages(QStringLiteral(":/Pages"));
    for (const auto &page : pages.entryInfoList()) {
        for (const bool isDark : {false, true}) {
            platform.appearance().set({isDark, {}, {}, {}});
            PageWindow window(page.filePath());
            const auto name =
                page.baseName() + (isDark ? QStringLiteral("-dark.png") : QStringLiteral("-light.png"));
            if (!window.picture(clock).save(folder.filePath(name))) {
                std::cerr << "Not drawn: " << name.toStdString() << '\n';
                return false;
            }
            std::cout << window.renderer() << '\n';
        }
    }
    return true;
}

} // namespace

int main(int argc, char **argv)
{
    // The other one brings a clock of its own. Before prepareProcess(), which starts a reader of the
    // environment.
    qputenv("QSG_RENDER_LOOP", "basic");
    platform::prepareProcess();
    const QGuiApplication application(argc, argv);
    return argc == 2 && writePictures(QDir(QString::fromLocal8Bit(argv[1]))) ? EXIT_SUCCESS : EXIT_FAILURE;
}
