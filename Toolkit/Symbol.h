// A symbol by its system name.
#pragma once

#include <QColor>
#include <QFont>
#include <QQuickItem>
#include <QtQmlIntegration>

namespace toolkit {

// Draws the symbol `name` to go with text of `size`, in one colour, sharp at every scale factor and without
// OpenGL. An unknown name draws nothing. One that is scaled or turned is better `smooth`; the others are left
// as sharp as they are drawn. Main thread.
class Symbol : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT

    // A system symbol name, such as "eye.fill"; those known are listed in
    // Platform/Symbols/symbols.cmake.
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)
    // The pixel size of the text that the symbol belongs to; its own side is 1.2 times that.
    Q_PROPERTY(qreal size READ size WRITE setSymbolSize NOTIFY sizeChanged)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)
    // Of the text, as in QFont: from Medium on the strokes are drawn heavier, and more so from DemiBold on.
    Q_PROPERTY(int weight READ weight WRITE setWeight NOTIFY weightChanged)

public:
    explicit Symbol(QQuickItem *parent = nullptr);

    [[nodiscard]] QString name() const { return name_; }
    void setName(const QString &name);
    [[nodiscard]] qreal size() const { return size_; }
    void setSymbolSize(qreal size);
    [[nodiscard]] QColor color() const { return color_; }
    void setColor(const QColor &color);
    [[nodiscard]] int weight() const { return weight_; }
    void setWeight(int weight);

Q_SIGNALS:
    void nameChanged();
    void sizeChanged();
    void colorChanged();
    void weightChanged();

protected:
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *data) override;
    void itemChange(ItemChange change, const ItemChangeData &value) override;

private:
    void redraw();
    void followWindow(QQuickWindow *window);
    // How far the item's origin is from a corner of device pixels, in points; nothing for a smooth one.
    [[nodiscard]] QPointF offGrid() const;
    [[nodiscard]] QRectF pictureRect(const QSize &pixels) const;

    QString name_;
    qreal size_ = 13;
    QColor color_ = Qt::black;
    int weight_ = QFont::Normal;
    QPointF offGrid_; // as it is drawn
    QMetaObject::Connection frames_;
    bool isOutdated_ = true;
};

// The symbol as a picture of `side` × `side` device pixels; null for an unknown name. Any thread.
[[nodiscard]] QImage symbolImage(const QString &name, int side, const QColor &color, int weight);

} // namespace toolkit
