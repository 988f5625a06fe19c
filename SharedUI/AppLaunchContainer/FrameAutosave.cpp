#include "SharedUI/AppLaunchContainer/FrameAutosave.h"

#include "Platform/Platform.h"
#include "Toolkit/WindowGeometry.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPointer>
#include <QScreen>
#include <QWindow>

namespace sharedui {

namespace {

constexpr platform::Seconds quiet(0.5);
constexpr Qt::WindowStates otherThanNormal = Qt::WindowMaximized | Qt::WindowMinimized | Qt::WindowFullScreen;

QList<QRect> availableAreas()
{
    QList<QRect> areas;
    for (const auto *screen : QGuiApplication::screens()) {
        areas.append(screen->availableGeometry());
    }
    return areas;
}

} // namespace

FrameAutosave::FrameAutosave(QWindow &window, const QString &name, sharedcore::StorageManager &storage)
    : window_(window)
    , key_(name.toStdString())
    , storage_(storage)
    , stored_(frameFrom(storage.get(key_)))
{
    window.installEventFilter(this);
    for (const auto change :
         {&QWindow::xChanged, &QWindow::yChanged, &QWindow::widthChanged, &QWindow::heightChanged}) {
        connect(&window, change, this, &FrameAutosave::noteChange);
    }
    connect(&window, &QWindow::windowStateChanged, this, &FrameAutosave::noteChange);
}

FrameAutosave::~FrameAutosave()
{
    save();
}

void FrameAutosave::restore(QSize idealSize)
{
    window_.setGeometry(stored_ ? restoredGeometry(*stored_, availableAreas(), window_.minimumSize())
                                : toolkit::centredGeometry(window_.screen()->availableGeometry(), idealSize,
                                                           window_.minimumSize()));
}

bool FrameAutosave::eventFilter(QObject * /*watched*/, QEvent *event)
{
    if (event->type() == QEvent::Close) {
        save();
    }
    return false;
}

// What is told before the window is shown is the program's own doing.
void FrameAutosave::noteChange()
{
    if (!window_.isVisible()) {
        return;
    }
    isUnsaved_ = true;
    hasChangedWhileWaiting_ = true;
    if (!isWaiting_) {
        await();
    }
}

void FrameAutosave::await()
{
    isWaiting_ = true;
    hasChangedWhileWaiting_ = false;
    platform::Platform::current().scheduler().after(quiet, [self = QPointer(this)] {
        if (self) {
            self->awake();
        }
    });
}

void FrameAutosave::awake()
{
    isWaiting_ = false;
    if (hasChangedWhileWaiting_) {
        await();
    } else {
        save();
    }
}

void FrameAutosave::save()
{
    if (!isUnsaved_ || !window_.isVisible() || window_.windowStates() & otherThanNormal) {
        return;
    }
    isUnsaved_ = false;
    const auto frame = currentFrame();
    if (frame != stored_) {
        stored_ = frame;
        storage_.set(storedFrame(frame), key_);
    }
}

SavedFrame FrameAutosave::currentFrame() const
{
    if (platform::Platform::current().placesWindows()) {
        return {window_.position(), window_.size()};
    }
    return {stored_ ? stored_->position : std::nullopt, window_.size()};
}

} // namespace sharedui
