#include "Benchmarks/Sections.h"
#include "Benchmarks/Statistics.h"
#include "Platform/StorageServices.h"
#include "SharedCore/Storage/AppPreferences.h"

#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

#include <chrono>
#include <cstdio>
#include <functional>

namespace benchmarks {

namespace {

using sharedcore::AppPreferences;

constexpr int saves = 500;
constexpr int loadRounds = 60;
constexpr int loadsPerRound = 200;
constexpr int fewKeys = 10;
constexpr int manyKeys = 100'000;
constexpr auto yardstickGroup = "appPreferences";

// Another record at each number, so that there is something to write.
AppPreferences preferences(int number)
{
    return {.launchAtLogin = number % 2 == 0,
            .keyboardShortcuts = {{"toggle", "Ctrl+T"}, {"number", std::to_string(number)}},
            .theme = AppPreferences::Theme::dark,
            .reduceMotion = true};
}

class Gateway final : public sharedcore::StorageManager
{
public:
    explicit Gateway(platform::StorageServices &services)
        : StorageManager(services)
    {}
};

void saveWith(QSettings &settings, const AppPreferences &record)
{
    QVariantMap shortcuts;
    for (const auto &[action, shortcut] : record.keyboardShortcuts) {
        shortcuts.insert(QString::fromStdString(action), QString::fromStdString(shortcut));
    }
    const auto theme = AppPreferences::rawValue(record.theme);
    settings.beginGroup(QString::fromLatin1(yardstickGroup));
    settings.setValue(QStringLiteral("launchAtLogin"), record.launchAtLogin);
    settings.setValue(QStringLiteral("showMenuBarIcon"), record.showMenuBarIcon);
    settings.setValue(QStringLiteral("keyboardShortcuts"), shortcuts);
    settings.setValue(QStringLiteral("theme"),
                      QString::fromUtf8(theme.data(), static_cast<int>(theme.size())));
    settings.setValue(QStringLiteral("reduceMotion"), record.reduceMotion);
    settings.setValue(QStringLiteral("reduceTransparency"), record.reduceTransparency);
    settings.endGroup();
    settings.sync();
}

AppPreferences loadWith(QSettings &settings)
{
    AppPreferences record;
    settings.beginGroup(QString::fromLatin1(yardstickGroup));
    record.launchAtLogin = settings.value(QStringLiteral("launchAtLogin")).toBool();
    record.showMenuBarIcon = settings.value(QStringLiteral("showMenuBarIcon")).toBool();
    const auto shortcuts = settings.value(QStringLiteral("keyboardShortcuts")).toMap();
    for (auto each = shortcuts.begin(); each != shortcuts.end(); ++each) {
        record.keyboardShortcuts[each.key().toStdString()] = each.value().toString().toStdString();
    }
    record.theme =
        AppPreferences::themeFromRawValue(settings.value(QStringLiteral("theme")).toString().toStdString())
            .value_or(AppPreferences::Theme::system);
    record.reduceMotion = settings.value(QStringLiteral("reduceMotion")).toBool();
    record.reduceTransparency = settings.value(QStringLiteral("reduceTransparency")).toBool();
    settings.endGroup();
    return record;
}

// Microseconds that the work takes.
double timeOf(const std::function<void()> &work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start).count();
}

void require(const AppPreferences &found, const AppPreferences &saved)
{
    if (found != saved) {
        throw NotMeasured("what was saved did not come back");
    }
}

// Both stores, in files beside one another.
class Stores
{
public:
    Stores() = default;
    Stores(const Stores &) = delete;
    Stores &operator=(const Stores &) = delete;
    ~Stores() { qputenv("XDG_DATA_HOME", previousFolder_); }

    [[nodiscard]] Gateway &gateway() const { return *gateway_; }
    [[nodiscard]] QString settingsFile() const { return folder_.filePath(QStringLiteral("settings.ini")); }
    [[nodiscard]] AppPreferences load() const { return loadWith(*gateway_); }
    [[nodiscard]] static AppPreferences loadWith(Gateway &gateway)
    {
        return gateway.get<AppPreferences>(AppPreferences::settingsKey).value_or(AppPreferences());
    }
    [[nodiscard]] platform::StorageServices &services() const { return *services_; }

    // Adds keys until there are so many beside the record's.
    void fill(int keys)
    {
        QSettings settings(settingsFile(), QSettings::IniFormat);
        for (; keys_ < keys; ++keys_) {
            const auto key = "other " + std::to_string(keys_);
            gateway_->set(platform::PropertyValue("value of " + key), key);
            settings.setValue(QString::fromStdString(key), QString::fromStdString("value of " + key));
        }
    }

private:
    const QByteArray previousFolder_ = qgetenv("XDG_DATA_HOME");
    QTemporaryDir folder_;
    const bool isPlaced_ = qputenv("XDG_DATA_HOME", QFile::encodeName(folder_.path()));
    std::unique_ptr<platform::StorageServices> services_ = platform::makeNativeStorage();
    std::unique_ptr<Gateway> gateway_ = std::make_unique<Gateway>(*services_);
    int keys_ = 0;
};

Row saveRow(Stores &stores)
{
    QSettings settings(stores.settingsFile(), QSettings::IniFormat);
    std::vector<double> ours;
    std::vector<double> theirs;
    for (int number = 0; number < saves; ++number) {
        const auto record = preferences(number);
        ours.push_back(timeOf([&] { stores.gateway().set(record, AppPreferences::settingsKey); }));
        theirs.push_back(timeOf([&] { saveWith(settings, record); }));
    }
    require(stores.load(), preferences(saves - 1));
    require(loadWith(settings), preferences(saves - 1));
    return ratioRow("durable save of the preferences", median(ours), median(theirs), "us", 1);
}

double loadTime(const std::function<AppPreferences()> &load)
{
    require(load(), preferences(saves - 1));
    std::vector<double> times;
    for (int round = 0; round < loadRounds; ++round) {
        const double time = timeOf([&load] {
            for (int count = 0; count < loadsPerRound; ++count) {
                static_cast<void>(load());
            }
        });
        times.push_back(time / loadsPerRound);
    }
    return median(times);
}

// Of a load after each save by another program.
double loadTimeAfter(const std::function<void(const AppPreferences &)> &saveElsewhere,
                     const std::function<AppPreferences()> &load)
{
    std::vector<double> times;
    for (int number = 0; number < saves; ++number) {
        const auto record = preferences(number);
        saveElsewhere(record);
        AppPreferences found;
        times.push_back(timeOf([&] { found = load(); }));
        require(found, record);
    }
    return median(times);
}

// Of an object that is kept, as ours is, and that looks for what other programs have saved, as ours does.
double yardstickLoadTime(const QString &file)
{
    QSettings settings(file, QSettings::IniFormat);
    return loadTime([&settings] {
        settings.sync();
        return loadWith(settings);
    });
}

AppPreferences loadFrom(const QString &settingsFile)
{
    QSettings settings(settingsFile, QSettings::IniFormat);
    return loadWith(settings);
}

// Objects of one process share what they have read, so the file is written elsewhere and put in place, as the
// yardstick itself does it.
void saveElsewhere(const QString &settingsFile, const AppPreferences &record)
{
    const auto elsewhere = settingsFile + QStringLiteral(".elsewhere");
    QFile::remove(elsewhere);
    QFile::copy(settingsFile, elsewhere);
    {
        QSettings settings(elsewhere, QSettings::IniFormat);
        saveWith(settings, record);
    }
    std::rename(QFile::encodeName(elsewhere).constData(), QFile::encodeName(settingsFile).constData());
}

double loadTimeAfterAnother(const Stores &stores)
{
    Gateway other(stores.services());
    return loadTimeAfter(
        [&other](const AppPreferences &record) { other.set(record, AppPreferences::settingsKey); },
        [&stores] { return stores.load(); });
}

double yardstickTimeAfterAnother(const QString &file)
{
    return loadTimeAfter([&file](const AppPreferences &record) { saveElsewhere(file, record); },
                         [&file] { return loadFrom(file); });
}

double firstLoadTime(const Stores &stores)
{
    return loadTimeAfter(
        [&stores](const AppPreferences &record) {
            stores.gateway().set(record, AppPreferences::settingsKey);
        },
        [&stores] {
            Gateway fresh(stores.services());
            return Stores::loadWith(fresh);
        });
}

} // namespace

std::vector<Row> storageRows()
{
    Stores stores;
    const auto file = stores.settingsFile();
    std::vector<Row> rows{saveRow(stores)};
    stores.fill(fewKeys);
    rows.push_back(ratioRow("load of the preferences", loadTime([&stores] { return stores.load(); }),
                            yardstickLoadTime(file), "us", 0.2));
    const double withFewKeys = loadTimeAfterAnother(stores);
    const double theirs = yardstickTimeAfterAnother(file);
    rows.push_back(
        plainRow("  after another program has saved", figure(withFewKeys, "us"), figure(theirs, "us")));
    const double firstWithFewKeys = firstLoadTime(stores);
    rows.push_back(
        plainRow("  with the file opened for it", figure(firstWithFewKeys, "us"), figure(theirs, "us")));
    stores.fill(manyKeys);
    rows.push_back(ratioRow("load after another's save, 100,000 other keys beside 10",
                            loadTimeAfterAnother(stores), withFewKeys, "us", 1.25));
    rows.push_back(
        ratioRow("  with the file opened for it", firstLoadTime(stores), firstWithFewKeys, "us", 1.25));
    return rows;
}

} // namespace benchmarks
