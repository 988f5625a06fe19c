// A value that follows its target on a spring.
#pragma once

#include "Toolkit/SpringMotion.h"

#include <QAbstractAnimation>
#include <QQmlParserStatus>
#include <QtQmlIntegration>

namespace toolkit {

// `value` is `target` from the start, and springs to each new one, from where it is and as fast as it moves
// then. It runs in step with the frames, and not at all at rest. Main thread.
class Spring : public QAbstractAnimation, public QQmlParserStatus
{
    Q_OBJECT
    QML_ELEMENT
    Q_INTERFACES(QQmlParserStatus)

    Q_PROPERTY(qreal target READ target WRITE setTarget NOTIFY targetChanged)
    // Seconds that the spring takes for a swing without damping; above 0, anything else counts as 0.001.
    Q_PROPERTY(qreal response MEMBER response_ NOTIFY responseChanged)
    // The share of the damping at which it swings no more; 0.05 or more, less counts as that.
    Q_PROPERTY(qreal dampingFraction MEMBER dampingFraction_ NOTIFY dampingFractionChanged)
    Q_PROPERTY(qreal value READ value NOTIFY valueChanged)

public:
    using QAbstractAnimation::QAbstractAnimation;

    [[nodiscard]] qreal target() const { return target_; }
    void setTarget(qreal target);
    [[nodiscard]] qreal value() const { return value_; }

    // Unknown, as it rests when it is near enough.
    [[nodiscard]] int duration() const override { return -1; }
    void classBegin() override {}
    void componentComplete() override;

Q_SIGNALS:
    void targetChanged();
    void responseChanged();
    void dampingFractionChanged();
    void valueChanged();

protected:
    void updateCurrentTime(int milliseconds) override;

private:
    void spring(qreal velocity);
    void rest();
    void setValue(qreal value);

    qreal target_ = 0;
    qreal response_ = 0.5;
    qreal dampingFraction_ = 1;
    qreal value_ = 0;
    SpringMotion motion_;
    bool isComplete_ = false;
};

} // namespace toolkit
