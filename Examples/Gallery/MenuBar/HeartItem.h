// A heart in the desktop's panel that beats.
#pragma once

#include "SharedCore/MenuBarManager/AnimatedStatusIcon.h"

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QQuickWindow>
#include <QtQmlIntegration>

namespace gallery {

// Main thread.
class HeartItem : public QObject
{
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(bool isShown READ isShown WRITE setShown NOTIFY changed)
    Q_PROPERTY(bool isBeating READ isBeating WRITE setBeating NOTIFY changed)
    Q_PROPERTY(double bpm READ bpm WRITE setBpm NOTIFY changed) // beats a minute, above 0

public:
    explicit HeartItem(QObject *parent = nullptr);
    ~HeartItem() override;

    [[nodiscard]] bool isShown() const { return item_ != nullptr; }
    void setShown(bool isShown);
    [[nodiscard]] bool isBeating() const { return isBeating_; }
    void setBeating(bool isBeating);
    [[nodiscard]] double bpm() const { return bpm_; }
    void setBpm(double bpm);

    // Shows the window in front with the focus: where programs place their windows, as near to the clicked
    // place of the panel as the screen lets it; elsewhere where the compositor puts it.
    Q_INVOKABLE void openPopover(QQuickWindow *window, const QPoint &place, const QString &token);
    Q_INVOKABLE void openWindow();
    Q_INVOKABLE [[nodiscard]] static bool placesWindows();

Q_SIGNALS:
    void changed();
    // In device pixels of the whole screen; 0, 0 where the panel does not tell.
    void clicked(const QPoint &place, const QString &activationToken);

private:
    void show();
    void play();

    const std::vector<platform::TemplateImage> frames_;
    sharedcore::AnimatedStatusIcon icon_;
    std::shared_ptr<platform::StatusItem> item_;
    bool isBeating_ = true;
    double bpm_ = 60;
};

} // namespace gallery
