// The heart in the desktop's panel.
#pragma once

#include "SharedCore/MenuBarManager/AnimatedStatusIcon.h"

#include <QObject>
#include <QPoint>
#include <QtQmlIntegration>

namespace gallery {

// One for the whole program: whatever shows its rate, or sets it, means this one. Main thread.
class Heart : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    Q_PROPERTY(bool isShown READ isShown WRITE setShown NOTIFY changed)
    Q_PROPERTY(bool isBeating READ isBeating WRITE setBeating NOTIFY changed)
    Q_PROPERTY(double bpm READ bpm WRITE setBpm NOTIFY changed) // beats a minute, above 0

public:
    explicit Heart(QObject *parent = nullptr);
    ~Heart() override;

    [[nodiscard]] bool isShown() const { return item_ != nullptr; }
    void setShown(bool isShown);
    [[nodiscard]] bool isBeating() const { return isBeating_; }
    void setBeating(bool isBeating);
    [[nodiscard]] double bpm() const { return bpm_; }
    void setBpm(double bpm);

Q_SIGNALS:
    void changed();
    // In device pixels of the whole screen; 0, 0 where the panel does not tell.
    void clicked(const QPoint &place, const QString &activationToken);
    // The user wants the gallery's own window.
    void galleryWanted();

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
