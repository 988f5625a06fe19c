#include "Benchmarks/Report.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <iostream>

namespace benchmarks {

namespace {

constexpr std::array columns{&Row::name,  &Row::stirra, &Row::yardstick,
                             &Row::ratio, &Row::limit,  &Row::result};

std::string number(double value)
{
    const int digits = value == 0 ? 0 : static_cast<int>(std::floor(std::log10(std::abs(value))));
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%.*f", std::clamp(2 - digits, 0, 4), value); // NOLINT
    return text.data();
}

std::string times(double ratio)
{
    return number(ratio) + " x";
}

std::string verdict(bool isWithin)
{
    return isWithin ? "pass" : "MISS";
}

// Characters, not bytes, of a text that has no combining ones.
std::size_t width(const std::string &text)
{
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

void printCell(const std::string &text, std::size_t columnWidth)
{
    std::cout << text << std::string(columnWidth - width(text) + 2, ' ');
}

} // namespace

std::string figure(double value, const std::string &unit)
{
    return number(value) + " " + unit;
}

Row ratioRow(const std::string &name, double stirra, double yardstick, const std::string &unit,
             double mostTimes)
{
    const double ratio = stirra / yardstick;
    return {name,         figure(stirra, unit),          figure(yardstick, unit),
            times(ratio), "at most " + times(mostTimes), verdict(ratio <= mostTimes)};
}

Row limitRow(const std::string &name, double stirra, double most, const std::string &unit,
             const std::string &yardstick)
{
    return {
        name, figure(stirra, unit), yardstick, "", "at most " + figure(most, unit), verdict(stirra <= most)};
}

Row leastRow(const std::string &name, double stirra, double least, const std::string &unit,
             const std::string &yardstick)
{
    return {name,
            figure(stirra, unit),
            yardstick,
            "",
            "at least " + figure(least, unit),
            verdict(stirra >= least)};
}

Row plainRow(const std::string &name, const std::string &stirra, const std::string &yardstick)
{
    return {name, stirra, yardstick, "", "", ""};
}

void Report::add(const std::string &section, const std::function<std::vector<Row>()> &measure)
{
    if (!wanted_.empty() && section != wanted_) {
        return;
    }
    std::cerr << section << " ...\n";
    try {
        const auto rows = measure();
        rows_.insert(rows_.end(), rows.begin(), rows.end());
    } catch (const NotMeasured &reason) {
        rows_.push_back({section, "", "", "", reason.what(), "NOT MEASURED"});
        isComplete_ = false;
    }
}

void Report::print() const
{
    std::vector<Row> lines{{"", "Stirra", "yardstick", "ratio", "limit", "result"}};
    lines.insert(lines.end(), rows_.begin(), rows_.end());
    const auto columnWidth = [&lines](std::string Row::*column) {
        return std::ranges::max(lines, {}, [column](const Row &row) { return width(row.*column); }).*column;
    };
    for (const auto &line : lines) {
        for (const auto column : columns) {
            printCell(line.*column, width(columnWidth(column)));
        }
        std::cout << '\n';
    }
    std::cout << std::flush;
}

} // namespace benchmarks
