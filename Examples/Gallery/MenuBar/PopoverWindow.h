// The window of a popover.
#pragma once

#include "Toolkit/SystemStyle.h"

#include <QQuickItem>
#include <QQuickWindow>
#include <QtQmlIntegration>

namespace gallery {

// Where programs place their windows it hangs on the panel's icon, as menus do: without a frame, in no list
// of windows, and with the pointer and the keyboard to itself. A click outside of it closes it, whatever is
// there. Elsewhere it is an ordinary small window, which closes when the user turns to another one. Escape
// closes it and the desktop's key for quitting quits the program, where no view takes them. Main thread.
class PopoverWindow : public QQuickWindow
{
    Q_OBJECT
    QML_ELEMENT

    // The view that it shows, which it is as large as, but for the room for the view's shadow.
    Q_PROPERTY(QQuickItem *content READ content WRITE setContent NOTIFY contentChanged)
    Q_PROPERTY(bool isHanging READ isHanging CONSTANT)
    // Whether what the content leaves free shows what is behind, and there is room around it for a shadow.
    Q_PROPERTY(bool hasShadow READ hasShadow NOTIFY hasShadowChanged)

public:
    PopoverWindow();

    [[nodiscard]] QQuickItem *content() const { return content_; }
    void setContent(QQuickItem *content);
    [[nodiscard]] bool isHanging() const { return isHanging_; }
    [[nodiscard]] bool hasShadow() const { return hasShadow_; }

    // Shows it in front with the focus, as near to the clicked place of the panel as the screen lets it
    // (popoverPlace()), or where the compositor puts it.
    Q_INVOKABLE void open(const QPoint &place, const QString &activationToken);

Q_SIGNALS:
    void contentChanged();
    void hasShadowChanged();

protected:
    bool event(QEvent *event) override;
    void exposeEvent(QExposeEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    [[nodiscard]] QMargins room() const;
    void fit();
    void setShadow(bool hasShadow);
    void takeInput(int quickTimes); // and from then on slowly, while it is open

    toolkit::SystemStyle style_;
    QQuickItem *content_ = nullptr;
    const bool isHanging_;
    bool hasShadow_ = false;
    bool hasInput_ = false;
    int openings_ = 0; // so far
    bool isPressedOutside_ = false;
};

} // namespace gallery
