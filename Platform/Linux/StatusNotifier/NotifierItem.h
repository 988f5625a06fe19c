// org.kde.StatusNotifierItem on the session bus.
#pragma once

#include "Platform/Linux/StatusNotifier/NotifierPixmap.h"
#include "Platform/MenuBarServices.h"

#include <QDBusAbstractAdaptor>
#include <QDBusObjectPath>

namespace platform {

// Exported for the object it is made for. The pictures are computed when a panel reads them. Main thread.
class NotifierItem final : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierItem")

    Q_PROPERTY(QString Category READ category)
    Q_PROPERTY(QString Id READ id)
    Q_PROPERTY(QString Title READ title)
    Q_PROPERTY(QString Status READ status)
    Q_PROPERTY(int WindowId READ windowId)
    Q_PROPERTY(QString IconThemePath READ none)
    Q_PROPERTY(QDBusObjectPath Menu READ menu)
    Q_PROPERTY(bool ItemIsMenu READ isMenu)
    Q_PROPERTY(QString IconName READ none)
    Q_PROPERTY(platform::NotifierPixmaps IconPixmap READ iconPixmap)
    Q_PROPERTY(QString OverlayIconName READ none)
    Q_PROPERTY(platform::NotifierPixmaps OverlayIconPixmap READ noPixmap)
    Q_PROPERTY(QString AttentionIconName READ none)
    Q_PROPERTY(platform::NotifierPixmaps AttentionIconPixmap READ noPixmap)
    Q_PROPERTY(QString AttentionMovieName READ none)
    Q_PROPERTY(platform::NotifierToolTip ToolTip READ toolTip)

public:
    using ClickHandler = std::function<void(const StatusClick &)>;

    NotifierItem(const StatusItemIdentity &identity, QObject *exported);

    // Nobody is told of what is set here: that is what the signals are for.
    void setImage(const TemplateImage &image) { image_ = image; }
    void setInk(const QColor &ink) { ink_ = ink; }
    void setHasMenu(bool hasMenu) { hasMenu_ = hasMenu; }
    void setClickHandler(ClickHandler handler) { clickHandler_ = std::move(handler); }

    [[nodiscard]] const TemplateImage &image() const { return image_; }
    [[nodiscard]] QColor ink() const { return ink_; }
    [[nodiscard]] bool hasMenu() const { return hasMenu_; }

    [[nodiscard]] QString category() const { return QStringLiteral("ApplicationStatus"); }
    [[nodiscard]] QString id() const { return id_; }
    [[nodiscard]] QString title() const { return title_; }
    [[nodiscard]] QString status() const { return QStringLiteral("Active"); }
    [[nodiscard]] int windowId() const { return 0; }
    [[nodiscard]] QString none() const { return {}; }
    [[nodiscard]] QDBusObjectPath menu() const;
    // Whether a click opens the menu.
    [[nodiscard]] bool isMenu() const { return hasMenu_ && !clickHandler_; }
    [[nodiscard]] NotifierPixmaps iconPixmap() const { return pixmapsOf(image_, ink_); }
    [[nodiscard]] NotifierPixmaps noPixmap() const { return {}; }
    [[nodiscard]] NotifierToolTip toolTip() const { return {{}, {}, title_, {}}; }

public Q_SLOTS:
    // What the user did, at a place of the screen. Only the click has a meaning here: the menu is for the
    // panel to show. The handler is called from the event loop, so that it may do anything.
    void Activate(int x, int y);
    void ContextMenu(int /*x*/, int /*y*/) {}
    void SecondaryActivate(int /*x*/, int /*y*/) {}
    void Scroll(int /*delta*/, const QString & /*orientation*/) {}
    // Comes before the click that it belongs to.
    void ProvideXdgActivationToken(const QString &token) { token_ = token; }

Q_SIGNALS:
    void NewTitle();
    void NewIcon();
    void NewAttentionIcon();
    void NewOverlayIcon();
    void NewToolTip();
    void NewStatus(const QString &status);

private:
    QString id_;
    QString title_;
    TemplateImage image_;
    QColor ink_ = Qt::black;
    bool hasMenu_ = false;
    ClickHandler clickHandler_;
    QString token_;
};

} // namespace platform
