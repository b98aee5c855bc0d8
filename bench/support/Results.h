// Results: every number that a program measured, for its tables, its JSON and the plots made of that.
#pragma once

#include <string>
#include <vector>

namespace accessory::bench {

/// One number and all that says what it is.
struct Result {
    std::string setting;    ///< "pinned", "unpinned", or empty where that does not matter
    std::string what;       ///< "16 B", "100 clients", ...
    std::string contender;  ///< whose number it is
    std::string measure;    ///< "p50", "p99", "ratio", ...
    std::string unit;       ///< "us", "1", ...
    double value = 0;
};

/// In the order in which they were measured.
using Results = std::vector<Result>;

/// Writes an array with one object a line, each with the program's @p subject. Nothing without a @p file;
/// ends the program when it cannot be written.
void writeJson(const std::string& file, const std::string& subject, const Results& results);

/// Prints the values of one setting and measure: a row for each contender, a column for each "what", both in
/// the order in which they first occur. A place without a value shows "-".
void printTable(const std::string& title, const Results& results, const std::string& setting,
                const std::string& measure, int decimals);

/// Prints one line a result, for numbers that make no table.
void printList(const Results& results);

}  // namespace accessory::bench
