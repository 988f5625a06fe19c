// The colours and fonts of the desktop, under the names that views use.
#pragma once

#include <QColor>
#include <QFont>
#include <QObject>
#include <QString>
#include <QtQmlIntegration>

namespace toolkit {

// One for each QML engine; main thread. Every property follows the desktop live. The figures of the named
// colours are the published light and dark values of the palette that the family's design is drawn in; the
// accent and the fonts are the desktop's own, with blue and Inter where it names none.
class SystemStyle : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    Q_PROPERTY(bool isDark READ isDark NOTIFY changed)
    // What moves by itself, or for show, then stands still; what it leads to stays.
    Q_PROPERTY(bool reducesMotion READ reducesMotion NOTIFY changed)
    // The materials are opaque then.
    Q_PROPERTY(bool reducesTransparency READ reducesTransparency NOTIFY changed)

    Q_PROPERTY(QColor red READ red NOTIFY changed)
    Q_PROPERTY(QColor green READ green NOTIFY changed)
    Q_PROPERTY(QColor yellow READ yellow NOTIFY changed)
    Q_PROPERTY(QColor blue READ blue NOTIFY changed)
    Q_PROPERTY(QColor cyan READ cyan NOTIFY changed)
    Q_PROPERTY(QColor purple READ purple NOTIFY changed)
    Q_PROPERTY(QColor gray READ gray NOTIFY changed)
    Q_PROPERTY(QColor accent READ accent NOTIFY changed)

    Q_PROPERTY(QColor label READ label NOTIFY changed)
    Q_PROPERTY(QColor secondaryLabel READ secondaryLabel NOTIFY changed)
    Q_PROPERTY(QColor separator READ separator NOTIFY changed)
    Q_PROPERTY(QColor windowBackground READ windowBackground NOTIFY changed)

    // What controls are made of: the ground of a switch or of segments, the face that is raised above it, the
    // ground of text that can be edited, and the ground of what belongs together.
    Q_PROPERTY(QColor controlTrack READ controlTrack NOTIFY changed)
    Q_PROPERTY(QColor controlFace READ controlFace NOTIFY changed)
    Q_PROPERTY(QColor textBackground READ textBackground NOTIFY changed)
    Q_PROPERTY(QColor groupBackground READ groupBackground NOTIFY changed)

    // Translucent, unless transparency is reduced: laid over the window background they are what the
    // materials look like on a window without anything else behind them.
    Q_PROPERTY(QColor ultraThinMaterial READ ultraThinMaterial NOTIFY changed)
    Q_PROPERTY(QColor barMaterial READ barMaterial NOTIFY changed)

    Q_PROPERTY(QString fontFamily READ fontFamily NOTIFY changed)
    Q_PROPERTY(QString monospacedFamily READ monospacedFamily NOTIFY changed)

public:
    explicit SystemStyle(QObject *parent = nullptr);

    [[nodiscard]] bool isDark() const;
    [[nodiscard]] bool reducesMotion() const;
    [[nodiscard]] bool reducesTransparency() const;

    [[nodiscard]] QColor red() const;
    [[nodiscard]] QColor green() const;
    [[nodiscard]] QColor yellow() const;
    [[nodiscard]] QColor blue() const;
    [[nodiscard]] QColor cyan() const;
    [[nodiscard]] QColor purple() const;
    [[nodiscard]] QColor gray() const;
    [[nodiscard]] QColor accent() const;

    [[nodiscard]] QColor label() const;
    [[nodiscard]] QColor secondaryLabel() const;
    [[nodiscard]] QColor separator() const;
    [[nodiscard]] QColor windowBackground() const;
    [[nodiscard]] QColor controlTrack() const;
    [[nodiscard]] QColor controlFace() const;
    [[nodiscard]] QColor textBackground() const;
    [[nodiscard]] QColor groupBackground() const;
    [[nodiscard]] QColor ultraThinMaterial() const;
    [[nodiscard]] QColor barMaterial() const;

    // The desktop's font, and its fixed-pitch one, in a pixel size and a QFont::Weight. Without shaping where
    // a script is legible without it: the fonts' layout tables and their engine are a megabyte of memory, for
    // a kerning that nobody sees at these sizes.
    Q_INVOKABLE [[nodiscard]] QFont font(int pixelSize, int weight) const;
    Q_INVOKABLE [[nodiscard]] QFont monospacedFont(int pixelSize, int weight) const;

    [[nodiscard]] QString fontFamily() const;
    [[nodiscard]] QString monospacedFamily() const;

Q_SIGNALS:
    void changed();

private:
    [[nodiscard]] QColor choose(QRgb light, QRgb dark) const;
    [[nodiscard]] QColor material(const QColor &translucent) const;
};

} // namespace toolkit
