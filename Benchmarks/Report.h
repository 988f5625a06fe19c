// The one table that the benchmarks print.
#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace benchmarks {

// A measurement that could not be made: a server that did not come up, a program that ended early. It ends
// its section of the table; the other sections go on.
class NotMeasured : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

// One line of the table, as it is printed.
struct Row
{
    std::string name;
    std::string stirra;
    std::string yardstick;
    std::string ratio;
    std::string limit;
    std::string result;
};

// A figure with its unit, "12.3 ms"; three significant digits, as many as a repetition gives again.
[[nodiscard]] std::string figure(double value, const std::string &unit);

// `stirra` may be at most `mostTimes` the yardstick.
[[nodiscard]] Row ratioRow(const std::string &name, double stirra, double yardstick, const std::string &unit,
                           double mostTimes);
// `stirra` may be at most `most`; the yardstick is for comparison, and may be empty.
[[nodiscard]] Row limitRow(const std::string &name, double stirra, double most, const std::string &unit,
                           const std::string &yardstick = {});
// `stirra` must be at least `least`.
[[nodiscard]] Row leastRow(const std::string &name, double stirra, double least, const std::string &unit,
                           const std::string &yardstick = {});
// For information.
[[nodiscard]] Row plainRow(const std::string &name, const std::string &stirra,
                           const std::string &yardstick = {});

class Report
{
public:
    // Only the section `wanted` is measured; all are where it is empty.
    explicit Report(std::string wanted)
        : wanted_(std::move(wanted))
    {}

    // Adds the rows that a section gives, and where it throws NotMeasured a row that says so.
    void add(const std::string &section, const std::function<std::vector<Row>()> &measure);

    [[nodiscard]] bool isComplete() const { return isComplete_; }

    // Writes the table to the standard output.
    void print() const;

private:
    std::string wanted_;
    std::vector<Row> rows_;
    bool isComplete_ = true;
};

} // namespace benchmarks
