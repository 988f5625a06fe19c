#include "SharedCore/Storage/PersistentModel.h"

#include "SharedCore/Storage/ModelContext.h"

namespace sharedcore {

PersistentModel::PersistentModel(BackingData backing)
    : backing_(std::move(backing))
{}

PersistentModel::~PersistentModel()
{
    if (context_ != nullptr) {
        context_->forget(*this);
    }
}

void PersistentModel::write(std::size_t place, platform::ColumnValue value)
{
    registrar_.willSet(place);
    backing_.set(place, std::move(value));
    if (context_ != nullptr) {
        context_->noteChange(*this);
    }
    registrar_.didSet(place);
}

void PersistentModel::assign(std::size_t place, platform::ColumnValue value)
{
    registrar_.willSet(place);
    backing_.set(place, std::move(value));
    registrar_.didSet(place);
}

void PersistentModel::refresh(const std::vector<platform::ColumnValue> &stored)
{
    for (std::size_t place = 0; place < stored.size(); ++place) {
        if (backing_.stored(place) == stored[place]) {
            continue;
        }
        const bool isOwn = backing_.isChanged(place);
        backing_.setStored(place, stored[place]);
        if (!isOwn) {
            assign(place, stored[place]);
        }
    }
}

void PersistentModel::restore()
{
    for (std::size_t place = 0; place < backing_.values().size(); ++place) {
        if (backing_.isChanged(place)) {
            assign(place, backing_.stored(place));
        }
    }
}

} // namespace sharedcore
