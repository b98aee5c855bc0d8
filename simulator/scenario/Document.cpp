#include "simulator/scenario/Document.h"

#include <json/reader.h>

#include <algorithm>
#include <memory>
#include <sstream>

namespace accessory::simulator {

bool Document::parse(Json::Value* root) {
    Json::CharReaderBuilder builder;
    builder["allowComments"] = true;
    builder["rejectDupKeys"] = true;
    builder["failIfExtra"] = true;
    builder["allowTrailingCommas"] = false;
    const std::unique_ptr<Json::CharReader> reader(builder.newCharReader());
    std::string messages;
    try {
        if (reader->parse(mText.data(), mText.data() + mText.size(), root, &messages)) return true;
        addSyntaxProblems(messages);
    } catch (const Json::Exception&) {  // the one thing that the reader does not report
        addProblem(0, "", "the file is nested too deeply; expected a scenario, see --describe-scenario");
    }
    return false;
}

void Document::addProblem(std::ptrdiff_t offset, const std::string& path, const std::string& problem) {
    const auto end = mText.begin() + std::min(offset, static_cast<std::ptrdiff_t>(mText.size()));
    addAtLine(static_cast<size_t>(std::count(mText.begin(), end, '\n')) + 1,
              path.empty() ? problem : path + ": " + problem);
}

std::vector<std::string> Document::problems() const {
    std::vector<std::string> lines;
    for (const auto& [line, problem] : mProblems)
        lines.push_back(mName + ':' + std::to_string(line) + ": " + problem);
    return lines;
}

void Document::addAtLine(size_t line, const std::string& problem) { mProblems.emplace(line, problem); }

void Document::addSyntaxProblems(const std::string& messages) {
    std::istringstream lines(messages);
    size_t lineNumber = 1;
    for (std::string line; std::getline(lines, line);) {
        if (sscanf(line.c_str(), "* Line %zu,", &lineNumber) == 1) continue;
        const size_t start = line.find_first_not_of(' ');
        // "See Line 3, Column 5 for detail." goes with the message before it.
        if (start == std::string::npos || line.compare(start, 4, "See ") == 0) continue;
        addAtLine(lineNumber, line.substr(start));
    }
}

}  // namespace accessory::simulator
