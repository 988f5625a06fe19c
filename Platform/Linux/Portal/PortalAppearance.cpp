#include "Platform/Linux/Portal/PortalAppearance.h"

#include "Platform/Linux/Portal/FontNames.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMetaType>
#include <QDBusReply>
#include <QDBusServiceWatcher>
#include <QEvent>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPalette>

#include <array>

namespace platform {

namespace {

constexpr auto service = "org.freedesktop.portal.Desktop";
constexpr auto portalPath = "/org/freedesktop/portal/desktop";
constexpr auto interface = "org.freedesktop.portal.Settings";

constexpr auto appearanceGroup = "org.freedesktop.appearance";
constexpr auto gnomeGroup = "org.gnome.desktop.interface";
constexpr auto kdeGroup = "org.kde.kdeglobals.General";

constexpr unsigned prefersDark = 1;
constexpr unsigned prefersLight = 2;
constexpr int firstAnswerTimeout = 100; // milliseconds
constexpr int defaultTimeout = -1;
constexpr int middleLightness = 128;

QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

QStringList appearanceGroups()
{
    return {text(appearanceGroup), text(gnomeGroup), text(kdeGroup)};
}

std::optional<QColor> accentColor(const QVariant &value)
{
    if (!value.canConvert<QDBusArgument>()) {
        return std::nullopt;
    }
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentSignature() != QLatin1String("(ddd)")) {
        return std::nullopt;
    }
    std::array<double, 3> parts{};
    argument.beginStructure();
    argument >> parts[0] >> parts[1] >> parts[2];
    argument.endStructure();
    // A part outside the range is how the portal says that the desktop has no accent colour.
    for (const double part : parts) {
        if (!(part >= 0 && part <= 1)) {
            return std::nullopt;
        }
    }
    return QColor::fromRgbF(static_cast<float>(parts[0]), static_cast<float>(parts[1]),
                            static_cast<float>(parts[2]));
}

bool isInstalledFamily(const QString &family)
{
    return QFontDatabase::hasFamily(family);
}

// A generic alias is what the toolkit says where the desktop names no font.
bool isGenericFamily(const QString &family)
{
    return family.isEmpty() || family.startsWith(QLatin1String("Sans"), Qt::CaseInsensitive) ||
           family.startsWith(QLatin1String("Monospace"), Qt::CaseInsensitive);
}

QString themeFamily(const QString &family)
{
    return isGenericFamily(family) ? QString() : family;
}

} // namespace

PortalAppearance::PortalAppearance(QObject *parent)
    : Appearance(parent)
{
    qDBusRegisterMetaType<Settings>();
    // Qt finds the type of a slot's parameter by name, and knows this one only after its first use.
    qRegisterMetaType<QDBusVariant>();
    qApp->installEventFilter(this);
    if (QDBusConnection::sessionBus().isConnected()) {
        followPortal();
        readAll(firstAnswerTimeout);
    }
    update();
}

PortalAppearance::~PortalAppearance() = default;

void PortalAppearance::followPortal()
{
    auto bus = QDBusConnection::sessionBus();
    bus.connect(text(service), text(portalPath), text(interface), text("SettingChanged"), this,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    auto *watcher =
        new QDBusServiceWatcher(text(service), bus, QDBusServiceWatcher::WatchForRegistration, this);
    connect(watcher, &QDBusServiceWatcher::serviceRegistered, this, [this] { readAll(defaultTimeout); });
}

void PortalAppearance::readAll(int timeoutMilliseconds)
{
    auto call =
        QDBusMessage::createMethodCall(text(service), text(portalPath), text(interface), text("ReadAll"));
    call << appearanceGroups();
    const auto pending = QDBusConnection::sessionBus().asyncCall(call, timeoutMilliseconds);
    pendingAnswer_ = std::make_unique<QDBusPendingCallWatcher>(pending);
    connect(pendingAnswer_.get(), &QDBusPendingCallWatcher::finished, this, &PortalAppearance::takeAnswer);
}

void PortalAppearance::awaitFirstAnswer()
{
    if (auto *answer = pendingAnswer_.get()) {
        answer->waitForFinished(); // which may have announced it already
        takeAnswer(answer);
    }
}

void PortalAppearance::takeAnswer(QDBusPendingCallWatcher *answer)
{
    if (answer != pendingAnswer_.get()) {
        return;
    }
    // This may be the answer's own signal: it must not be deleted before that returns.
    pendingAnswer_.release()->deleteLater(); // NOLINT(bugprone-unused-return-value)
    const QDBusReply<Settings> reply = answer->reply();
    if (reply.isValid()) {
        settings_ = reply.value();
        update();
    } else if (reply.error().type() == QDBusError::NoReply) {
        readAll(defaultTimeout); // a portal that is only starting; the appearance follows when it is ready
    }
}

void PortalAppearance::settingChanged(const QString &group, const QString &key, const QDBusVariant &value)
{
    if (appearanceGroups().contains(group)) {
        settings_[group][key] = value.variant();
        update();
    }
}

bool PortalAppearance::eventFilter(QObject *watched, QEvent *event)
{
    const auto type = event->type();
    if (watched == qApp &&
        (type == QEvent::ApplicationPaletteChange || type == QEvent::ApplicationFontChange)) {
        update();
    }
    return Appearance::eventFilter(watched, event);
}

QVariant PortalAppearance::setting(const char *group, const char *key) const
{
    const auto value = settings_.value(text(group)).value(text(key));
    return value.canConvert<QDBusVariant>() ? value.value<QDBusVariant>().variant() : value;
}

bool PortalAppearance::isDark() const
{
    const auto scheme = setting(appearanceGroup, "color-scheme").toUInt();
    if (scheme == prefersDark || scheme == prefersLight) {
        return scheme == prefersDark;
    }
    return QGuiApplication::palette().color(QPalette::Window).lightness() < middleLightness;
}

void PortalAppearance::update()
{
    const auto named = [this](const char *gnomeKey, const char *kdeKey) {
        const auto gnome = fontFamilyIn(setting(gnomeGroup, gnomeKey).toString(), isInstalledFamily);
        return gnome.isEmpty() ? fontFamilyIn(setting(kdeGroup, kdeKey).toString(), isInstalledFamily)
                               : gnome;
    };
    const auto orTheme = [](const QString &family, const QString &theme) {
        return family.isEmpty() ? themeFamily(theme) : family;
    };
    AppearanceValues values;
    values.isDark = isDark();
    values.accent = accentColor(setting(appearanceGroup, "accent-color"));
    values.fontFamily = orTheme(named("font-name", "font"), QGuiApplication::font().family());
    values.fixedFontFamily = named("monospace-font-name", "fixed");
    setValues(values);
}

} // namespace platform
