// Document: a scenario's text, and what is wrong with it, line by line.
#pragma once

#include <json/value.h>

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace accessory::simulator {

class Document {
  public:
    /// @param name how messages call the text, usually its file.
    Document(std::string name, std::string text) : mName(std::move(name)), mText(std::move(text)) {}

    /// Reads the text as JSON with comments. What is wrong with it becomes problems.
    /// @return whether nothing is.
    bool parse(Json::Value* root);

    /// @param offset of a byte of the text. @param path of the field, e.g. "devices[0].name".
    void addProblem(std::ptrdiff_t offset, const std::string& path, const std::string& problem);

    bool good() const { return mProblems.empty(); }
    /// "file:line: field: what is wrong", in the order of the lines.
    std::vector<std::string> problems() const;

  private:
    void addAtLine(size_t line, const std::string& problem);
    /// Takes what the JSON reader says apart: "* Line 3, Column 5", then an indented message.
    void addSyntaxProblems(const std::string& messages);

    const std::string mName;
    const std::string mText;
    std::multimap<size_t, std::string> mProblems;  ///< by line
};

}  // namespace accessory::simulator
