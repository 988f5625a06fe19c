// Keeps a window's frame from one run of the program to the next.
#pragma once

#include "SharedCore/Storage/StorageManager.h"
#include "SharedUI/AppLaunchContainer/SavedFrame.h"

#include <QObject>

#include <string>

class QWindow;

namespace sharedui {

// Watches the window and stores its frame in the application's defaults, as storedFrame() has it: half a
// second after it was last moved or resized, and at once when it closes or this object ends. What a window
// is while it is maximised, minimised or fills the screen is not its frame. Where no program is told its
// window's place the size alone is stored, and a place that was stored elsewhere stays.
//
// Main thread. REQUIRES: the window and the storage outlive it.
class FrameAutosave final : public QObject
{
public:
    // The name is the defaults' key.
    FrameAutosave(QWindow &window, const QString &name, sharedcore::StorageManager &storage);
    ~FrameAutosave() override;

    // Gives the window, before it is shown, the frame that was stored under the name, as far as it fits the
    // screens; else this size, in the middle of its screen. REQUIRES: the window has its minimum size.
    void restore(QSize idealSize);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void noteChange();
    void await();
    void awake();
    void save();
    [[nodiscard]] SavedFrame currentFrame() const;

    QWindow &window_;
    const std::string key_;
    sharedcore::StorageManager &storage_;
    std::optional<SavedFrame> stored_;
    bool isUnsaved_ = false;
    bool isWaiting_ = false;
    bool hasChangedWhileWaiting_ = false;
};

} // namespace sharedui
