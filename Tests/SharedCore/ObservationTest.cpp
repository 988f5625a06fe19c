#include "SharedCore/Storage/ObservationRegistrar.h"

#include <gtest/gtest.h>

#include <string>

namespace sharedcore {

namespace {

// An observable pair of numbers.
class Pair
{
public:
    [[nodiscard]] int first() const { return read(0, first_); }
    [[nodiscard]] int second() const { return read(1, second_); }
    void setFirst(int value) { write(0, first_, value); }
    void setSecond(int value) { write(1, second_, value); }

    [[nodiscard]] Observation observe(std::size_t property, PropertyObserver observer) const
    {
        return registrar_.observe(property, std::move(observer));
    }

private:
    [[nodiscard]] int read(std::size_t property, int value) const
    {
        registrar_.access(property);
        return value;
    }

    void write(std::size_t property, int &place, int value)
    {
        registrar_.willSet(property);
        place = value;
        registrar_.didSet(property);
    }

    int first_ = 0;
    int second_ = 0;
    ObservationRegistrar registrar_;
};

TEST(Observation, TellsBeforeAndAfterEachChangeOfItsPropertyOnly)
{
    Pair pair;
    std::string told;
    const auto note = [&](char when) { told += when + std::to_string(pair.first()); };
    const auto observation = pair.observe(0, {[&] { note('<'); }, [&] { note('>'); }});
    pair.setFirst(1);
    pair.setSecond(9);
    pair.setFirst(2);
    EXPECT_EQ(told, "<0>1<1>2");
}

TEST(Observation, EndsWithItsHandle)
{
    Pair pair;
    int count = 0;
    auto observation = pair.observe(0, {[&] { ++count; }, {}});
    pair.setFirst(1);
    observation = pair.observe(1, {{}, [&] { count += 10; }});
    pair.setFirst(2);
    pair.setSecond(2);
    observation = {};
    pair.setSecond(3);
    EXPECT_EQ(count, 11);
}

TEST(Observation, BearsTheEndOfWhatItObserves)
{
    auto pair = std::make_unique<Pair>();
    const auto observation = pair->observe(0, {[] { FAIL(); }, {}});
    pair.reset();
}

TEST(Observation, BearsObserversThatEndEachOther)
{
    Pair pair;
    std::string told;
    Observation first;
    Observation second;
    first = pair.observe(0, {[&] {
                                 told += 'a';
                                 first = {};
                                 second = {};
                             },
                             {}});
    second = pair.observe(0, {[&] { told += 'b'; }, {}});
    const auto third = pair.observe(0, {[&] { told += 'c'; }, {}});
    pair.setFirst(1);
    pair.setFirst(2);
    EXPECT_EQ(told, "acc");
}

TEST(Observation, BearsAnObserverThatObserves)
{
    Pair pair;
    int count = 0;
    std::vector<Observation> others;
    const auto first = pair.observe(0, {[&] {
                                            others.push_back(pair.observe(0, {[&] { ++count; }, {}}));
                                        },
                                        {}});
    pair.setFirst(1);
    EXPECT_EQ(count, 0);
    pair.setFirst(2);
    EXPECT_EQ(count, 1);
}

TEST(ObservationTracking, CallsOnceBeforeTheFirstChangeOfWhatWasRead)
{
    Pair pair;
    std::string told;
    const int sum = withObservationTracking([&] { return pair.first() + pair.second(); },
                                            [&] { told += std::to_string(pair.second()); });
    EXPECT_EQ(sum, 0);
    pair.setSecond(7);
    pair.setFirst(8);
    pair.setSecond(9);
    EXPECT_EQ(told, "0");
}

TEST(ObservationTracking, IgnoresWhatWasNotRead)
{
    Pair pair;
    Pair other;
    int count = 0;
    withObservationTracking([&] { static_cast<void>(pair.first()); }, [&] { ++count; });
    static_cast<void>(pair.second());
    pair.setSecond(1);
    other.setFirst(1);
    EXPECT_EQ(count, 0);
    pair.setFirst(1);
    EXPECT_EQ(count, 1);
}

TEST(ObservationTracking, SeesAllObjectsThatWereRead)
{
    auto pair = std::make_unique<Pair>();
    Pair other;
    int count = 0;
    withObservationTracking([&] { return pair->first() + other.second(); }, [&] { ++count; });
    pair.reset();
    EXPECT_EQ(count, 0);
    other.setSecond(1);
    EXPECT_EQ(count, 1);
}

TEST(ObservationTracking, CanBeBegunAgainFromItsCall)
{
    Pair pair;
    int count = 0;
    std::function<void()> track = [&] {
        withObservationTracking([&] { static_cast<void>(pair.first()); },
                                [&] {
                                    ++count;
                                    track();
                                });
    };
    track();
    pair.setFirst(1);
    pair.setFirst(2);
    pair.setFirst(3);
    EXPECT_EQ(count, 3);
}

TEST(ObservationTracking, ShowsTheOuterOneWhatTheInnerOneReads)
{
    Pair pair;
    std::string told;
    withObservationTracking(
        [&] {
            static_cast<void>(pair.first());
            withObservationTracking([&] { static_cast<void>(pair.second()); }, [&] { told += 'i'; });
        },
        [&] { told += 'o'; });
    pair.setFirst(1);
    EXPECT_EQ(told, "o");
    pair.setSecond(1);
    EXPECT_EQ(told, "oi");

    told.clear();
    withObservationTracking(
        [&] { withObservationTracking([&] { static_cast<void>(pair.second()); }, [&] { told += 'i'; }); },
        [&] { told += 'o'; });
    pair.setSecond(2);
    EXPECT_EQ(told, "io");
}

TEST(ObservationTracking, EndsAlsoWhereTheCodeThrows)
{
    Pair pair;
    EXPECT_THROW(withObservationTracking([]() -> int { throw 1; }, [] { FAIL(); }), int);
    static_cast<void>(pair.first());
    pair.setFirst(1);
}

} // namespace

} // namespace sharedcore
