// A program of the family whose view takes keys and draws nothing. It prints the view's sizes, and at each
// space how many there were and in which window. At "a" it becomes an accessory, at "p" it presents its
// window again.

#include "Platform/Platform.h"
#include "SharedUI/AppLaunchContainer/FamilyApplication.h"
#include "SharedUI/AppLaunchContainer/LaunchWindowController.h"

#include <QKeyEvent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

#include <cstdio>

namespace {

void present();

class KeyCounter final : public QQuickItem
{
public:
    KeyCounter() { setFocus(true); }

protected:
    void geometryChange(const QRectF &now, const QRectF &before) override
    {
        QQuickItem::geometryChange(now, before);
        std::printf("size %g x %g\n", now.width(), now.height());
        std::fflush(stdout);
    }

    void keyPressEvent(QKeyEvent *event) override
    {
        if (event->key() == Qt::Key_Space) {
            std::printf("space %d in %p\n", ++spaces_, static_cast<const void *>(window()));
            std::fflush(stdout);
        } else if (event->key() == Qt::Key_A) {
            platform::Platform::current().setActivationPolicy(platform::ActivationPolicy::accessory);
        } else if (event->key() == Qt::Key_P) {
            present();
        } else {
            event->ignore();
        }
    }

private:
    int spaces_ = 0;
};

void present()
{
    sharedui::LaunchWindowController::shared().present(
        QStringLiteral("Launch window"), {500, 600},
        [](QQmlEngine & /*engine*/) { return std::make_unique<KeyCounter>(); });
}

} // namespace

int main(int argc, char **argv)
{
    const platform::ApplicationNames names{QStringLiteral("launch-window-program"),
                                           QStringLiteral("Launch window"),
                                           QStringLiteral("org.stirra.LaunchWindowProgram")};
    return sharedui::runFamilyApplication(argc, argv, names, present);
}
