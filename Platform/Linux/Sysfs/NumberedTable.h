// What is known to others by numbers.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <mutex>

namespace platform {

// Any thread.
template <class Content> class NumberedTable
{
public:
    // The number that the content has until it is removed; never 0.
    [[nodiscard]] std::uint32_t add(std::shared_ptr<Content> content)
    {
        const std::scoped_lock lock(mutex_);
        do {
            ++last_;
        } while (last_ == 0 || contents_.contains(last_));
        contents_.emplace(last_, std::move(content));
        return last_;
    }

    void remove(std::uint32_t number)
    {
        const std::scoped_lock lock(mutex_);
        contents_.erase(number);
    }

    // Nothing where there is none of that number.
    [[nodiscard]] std::shared_ptr<Content> find(std::uint32_t number) const
    {
        const std::scoped_lock lock(mutex_);
        const auto found = contents_.find(number);
        return found == contents_.end() ? nullptr : found->second;
    }

private:
    mutable std::mutex mutex_;
    std::uint32_t last_ = 0;
    std::map<std::uint32_t, std::shared_ptr<Content>> contents_;
};

} // namespace platform
