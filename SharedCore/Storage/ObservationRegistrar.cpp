#include "SharedCore/Storage/ObservationRegistrar.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace sharedcore {

// The observers of one object.
class ObserverList
{
public:
    void add(std::size_t property, std::shared_ptr<const PropertyObserver> observer)
    {
        entries_.push_back({property, std::move(observer)});
    }

    void remove(const std::shared_ptr<const PropertyObserver> &observer)
    {
        std::erase_if(entries_, [&observer](const Entry &entry) { return entry.observer == observer; });
    }

    // An observer that ends or begins while others are told is not told any more, or not yet.
    void tell(std::size_t property, std::function<void()> PropertyObserver::*call) const
    {
        for (const auto &entry : std::vector(entries_)) {
            const auto &function = (*entry.observer).*call;
            if (entry.property == property && function && has(entry.observer)) {
                function();
            }
        }
    }

private:
    struct Entry
    {
        std::size_t property;
        std::shared_ptr<const PropertyObserver> observer;
    };

    [[nodiscard]] bool has(const std::shared_ptr<const PropertyObserver> &observer) const
    {
        return std::ranges::find(entries_, observer, &Entry::observer) != entries_.end();
    }

    std::vector<Entry> entries_;
};

namespace {

thread_local AccessTracking *innermost = nullptr;

// Calls once, whichever of its observations is the first to be told.
class FirstChange
{
public:
    explicit FirstChange(std::function<void()> onChange)
        : onChange_(std::move(onChange))
    {}

    void keep(Observation observation) { observations_.push_back(std::move(observation)); }

    void tell()
    {
        observations_.clear();
        if (const auto onChange = std::exchange(onChange_, nullptr)) {
            onChange();
        }
    }

private:
    std::function<void()> onChange_;
    std::vector<Observation> observations_;
};

} // namespace

Observation::Observation(const std::shared_ptr<ObserverList> &list, std::size_t property,
                         PropertyObserver observer)
    : list_(list)
{
    const auto kept = std::make_shared<const PropertyObserver>(std::move(observer));
    observer_ = kept;
    list->add(property, kept);
}

Observation::Observation(Observation &&other) noexcept
    : list_(std::exchange(other.list_, {}))
    , observer_(std::exchange(other.observer_, {}))
{}

Observation &Observation::operator=(Observation &&other) noexcept
{
    if (this != &other) {
        end();
        list_ = std::exchange(other.list_, {});
        observer_ = std::exchange(other.observer_, {});
    }
    return *this;
}

Observation::~Observation()
{
    end();
}

void Observation::end()
{
    if (const auto list = list_.lock()) {
        list->remove(observer_.lock());
    }
}

void ObservationRegistrar::access(std::size_t property) const
{
    if (innermost != nullptr) {
        AccessTracking::note({list(), property});
    }
}

void ObservationRegistrar::willSet(std::size_t property) const
{
    if (const auto list = list_) { // which may go with its object
        list->tell(property, &PropertyObserver::before);
    }
}

void ObservationRegistrar::didSet(std::size_t property) const
{
    if (const auto list = list_) {
        list->tell(property, &PropertyObserver::after);
    }
}

Observation ObservationRegistrar::observe(std::size_t property, PropertyObserver observer) const
{
    return {list(), property, std::move(observer)};
}

const std::shared_ptr<ObserverList> &ObservationRegistrar::list() const
{
    if (!list_) {
        list_ = std::make_shared<ObserverList>();
    }
    return list_;
}

AccessTracking::AccessTracking()
    : outer_(std::exchange(innermost, this))
{}

AccessTracking::~AccessTracking()
{
    leave();
}

void AccessTracking::note(const Access &access)
{
    for (auto *tracking = innermost; tracking != nullptr; tracking = tracking->outer_) {
        tracking->accesses_.insert(access);
    }
}

void AccessTracking::finish(std::function<void()> onChange)
{
    leave();
    const auto change = std::make_shared<FirstChange>(std::move(onChange));
    for (const auto &[list, property] : std::exchange(accesses_, {})) {
        change->keep({list, property, {[change] { change->tell(); }, {}}});
    }
}

void AccessTracking::leave()
{
    if (std::exchange(isRunning_, false)) {
        innermost = outer_;
    }
}

} // namespace sharedcore
