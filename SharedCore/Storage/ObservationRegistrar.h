// Who watches which property of an object.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <set>
#include <utility>

namespace sharedcore {

// Called around each change of a property. Either may be empty. They may read and write any object, and end
// observations, their own too.
struct PropertyObserver
{
    std::function<void()> before;
    std::function<void()> after;
};

class ObserverList;

// Goes on for as long as it and the observed object live.
class Observation
{
public:
    Observation() = default;
    Observation(const std::shared_ptr<ObserverList> &list, std::size_t property, PropertyObserver observer);
    Observation(Observation &&other) noexcept;
    Observation &operator=(Observation &&other) noexcept;
    Observation(const Observation &) = delete;
    Observation &operator=(const Observation &) = delete;
    ~Observation();

private:
    void end();

    std::weak_ptr<ObserverList> list_;
    std::weak_ptr<const PropertyObserver> observer_; // the list's; it may own this
};

// Belongs to one object, whose properties are known by their places. The thread of its object. Costs next to
// nothing as long as nobody watches.
class ObservationRegistrar
{
public:
    // The property was read: whoever tracks accesses on this thread watches it from now on.
    void access(std::size_t property) const;

    // Tells those who watch the property, in the order in which they began.
    void willSet(std::size_t property) const;
    void didSet(std::size_t property) const;

    [[nodiscard]] Observation observe(std::size_t property, PropertyObserver observer) const;

private:
    [[nodiscard]] const std::shared_ptr<ObserverList> &list() const;

    mutable std::shared_ptr<ObserverList> list_; // made for the first observer
};

// The reads of a piece of code on this thread, from construction to finish() or destruction. May be nested:
// what the inner one sees, the outer one sees as well.
class AccessTracking
{
public:
    AccessTracking();
    AccessTracking(const AccessTracking &) = delete;
    AccessTracking &operator=(const AccessTracking &) = delete;
    ~AccessTracking();

    // Ends the tracking. `onChange` is called once, before the first change of any property that was read.
    void finish(std::function<void()> onChange);

private:
    friend class ObservationRegistrar;

    using Access = std::pair<std::shared_ptr<ObserverList>, std::size_t>;

    static void note(const Access &access);
    void leave();

    AccessTracking *outer_;
    bool isRunning_ = true;
    std::set<Access> accesses_;
};

// Calls `apply` and gives what it gives. `onChange` is called once, on the thread of the write, before the
// first change of any property that `apply` has read of any observable object; whoever wants to hear of the
// next one tracks again.
template <class Apply>
decltype(auto) withObservationTracking(const Apply &apply, std::function<void()> onChange)
{
    struct Finish
    {
        AccessTracking tracking;
        std::function<void()> onChange;

        ~Finish() { tracking.finish(std::move(onChange)); }
    };
    const Finish finish{{}, std::move(onChange)};
    return apply();
}

} // namespace sharedcore
