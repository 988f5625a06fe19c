#include "SharedCore/Storage/DailyActivity.h"

namespace sharedcore {

namespace {

enum Place : std::size_t { datePlace, mouseDistancePlace, keystrokesPlace, activeTimePlace };

} // namespace

DailyActivity::DailyActivity(foundation::Date date)
    : PersistentModel({entityName, initialValues(date)})
{}

DailyActivity::DailyActivity(BackingData backing)
    : PersistentModel(std::move(backing))
{}

foundation::Date DailyActivity::date() const
{
    return value<foundation::Date>(datePlace);
}

void DailyActivity::setDate(foundation::Date date)
{
    setValue(datePlace, date);
}

double DailyActivity::mouseDistance() const
{
    return value<double>(mouseDistancePlace);
}

void DailyActivity::setMouseDistance(double mouseDistance)
{
    setValue(mouseDistancePlace, mouseDistance);
}

std::int64_t DailyActivity::keystrokes() const
{
    return value<std::int64_t>(keystrokesPlace);
}

void DailyActivity::setKeystrokes(std::int64_t keystrokes)
{
    setValue(keystrokesPlace, keystrokes);
}

double DailyActivity::activeTime() const
{
    return value<double>(activeTimePlace);
}

void DailyActivity::setActiveTime(double activeTime)
{
    setValue(activeTimePlace, activeTime);
}

const std::array<PropertyMetadata<DailyActivity>, 4> &DailyActivity::schemaMetadata()
{
    using Day = DailyActivity;
    static const std::array<PropertyMetadata<Day>, 4> metadata{{
        {"date", &Day::date, &Day::setDate},
        {"mouseDistance", &Day::mouseDistance, &Day::setMouseDistance},
        {"keystrokes", &Day::keystrokes, &Day::setKeystrokes},
        {"activeTime", &Day::activeTime, &Day::setActiveTime},
    }};
    return metadata;
}

std::vector<platform::ColumnValue> DailyActivity::initialValues(foundation::Date date)
{
    return {toColumn(date), toColumn(0.0), toColumn(std::int64_t{0}), toColumn(0.0)};
}

} // namespace sharedcore
