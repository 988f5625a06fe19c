// A background of four coloured blobs that drift, blurred, over black.
#pragma once

#include "Platform/Scheduler.h"
#include "SharedUI/MeshGradientPicture.h"
#include "Toolkit/SystemStyle.h"

#include <QColor>
#include <QList>
#include <QPointer>
#include <QQuickItem>
#include <QQuickWindow>
#include <QtQmlIntegration>

#include <memory>
#include <optional>

namespace sharedui {

// Fills a window behind other content, up to its edges. The picture depends on the fields, the size and the
// date alone: two of the same fields show the same at the same moment. It is drawn up to 60 times a second
// (every 0.016 s) while it is shown, and costs nothing while it is invisible, or its window is hidden or
// covered, or its speed is 0 or the user wants less motion, when it stands still. Drawn without shaders. Main
// thread.
class MeshGradientBackground : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT

    // The blobs' colours, in turn: of more than four only the first four are used. Purple, blue, cyan and
    // green of the system unless set. To draw without any colour is a fatal error.
    Q_PROPERTY(QList<QColor> colors READ colors WRITE setColors RESET resetColors NOTIFY colorsChanged)
    // What the animation's clock is multiplied by, 0.5 unless set. What is no number stands still as 0 does.
    Q_PROPERTY(double speed READ speed WRITE setSpeed NOTIFY speedChanged)

public:
    explicit MeshGradientBackground(QQuickItem *parent = nullptr);
    ~MeshGradientBackground() override;

    [[nodiscard]] QList<QColor> colors() const;
    void setColors(const QList<QColor> &colors);
    void resetColors();
    [[nodiscard]] double speed() const { return speed_; }
    void setSpeed(double speed);

Q_SIGNALS:
    void colorsChanged();
    void speedChanged();

protected:
    QSGNode *updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *data) override;
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData &value) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void watch(QQuickWindow *window);
    [[nodiscard]] bool isMoving() const;
    [[nodiscard]] double time() const;
    void updateClock();

    toolkit::SystemStyle style_;
    std::optional<QList<QColor>> colors_;
    double speed_ = 0.5;
    [[maybe_unused]] double phase_ = 0; // kept, and without any effect on the drawing, on purpose
    QPointer<QQuickWindow> watched_;
    MeshGradientPicture picture_;
    std::shared_ptr<platform::RepeatingTimer> clock_; // while it moves
};

} // namespace sharedui
