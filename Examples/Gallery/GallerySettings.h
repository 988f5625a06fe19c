// The settings that the gallery has beside those of the family.
#pragma once

#include "SharedCore/Storage/AppSettings.h"

#include <QObject>
#include <QtQmlIntegration>

struct GalleryRecord
{
    std::string page = "card"; // that was shown last
    bool isChequered = false;  // the ground that components stand on
    bool isInMenuBar = false;  // the heart

    static constexpr std::string_view settingsKey = "gallery";
    static const GalleryRecord &defaultSettings()
    {
        static const GalleryRecord defaults;
        return defaults;
    }
    static GalleryRecord load() { return sharedcore::loadSettings<GalleryRecord>(); }
    void save() const { sharedcore::saveSettings(*this); }
    static constexpr auto fields()
    {
        return std::tuple{sharedcore::Field{"page", &GalleryRecord::page},
                          sharedcore::Field{"isChequered", &GalleryRecord::isChequered},
                          sharedcore::Field{"isInMenuBar", &GalleryRecord::isInMenuBar}};
    }
};

// The record as views see it; each change is stored at once. Main thread.
class GallerySettings : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    Q_PROPERTY(QString page READ page WRITE setPage NOTIFY changed)
    Q_PROPERTY(bool isInMenuBar READ isInMenuBar WRITE setInMenuBar NOTIFY changed)
    Q_PROPERTY(bool isChequered READ isChequered WRITE setChequered NOTIFY changed)

public:
    [[nodiscard]] QString page() const { return QString::fromStdString(record_.page); }
    void setPage(const QString &page) { store(&GalleryRecord::page, page.toStdString()); }
    [[nodiscard]] bool isChequered() const { return record_.isChequered; }
    void setChequered(bool isChequered) { store(&GalleryRecord::isChequered, isChequered); }
    [[nodiscard]] bool isInMenuBar() const { return record_.isInMenuBar; }
    void setInMenuBar(bool isInMenuBar) { store(&GalleryRecord::isInMenuBar, isInMenuBar); }

Q_SIGNALS:
    void changed();

private:
    template <class Value> void store(Value GalleryRecord::*field, Value value)
    {
        record_.*field = std::move(value);
        record_.save();
        Q_EMIT changed();
    }

    GalleryRecord record_ = GalleryRecord::load();
};
