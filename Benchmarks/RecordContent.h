// What the measured records hold.
#pragma once

#include <string>

namespace benchmarks {

inline constexpr auto recordSource = "org.example.Editor";

// A line of text of some 80 bytes.
inline std::string recordContent(int number)
{
    return "a line of text, as long as lines are in a document that somebody copies from, " +
           std::to_string(number);
}

// Since the reference date; all different, and not in the order of the numbers. REQUIRES: fewer than 100,003.
inline double recordSeconds(int number)
{
    constexpr int prime = 100'003;
    return 8e8 + number * 7919 % prime; // less than 2^31
}

} // namespace benchmarks
