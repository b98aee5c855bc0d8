#include "tools/accessoryctl/Output.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "tools/rows/Values.h"

namespace accessory::ctl {

namespace {

constexpr char kSchema[] = "accessoryctl/1";

std::string coloured(const char* code, const std::string& text) {
    static const bool wanted = [] {
        const char* const no = getenv("NO_COLOR");
        return isatty(STDOUT_FILENO) != 0 && (no == nullptr || *no == '\0');
    }();
    return wanted ? "\033[" + std::string(code) + "m" + text + "\033[0m" : text;
}

void put(FILE* stream, const std::string& text) {
    fwrite(text.data(), 1, text.size(), stream);
    fflush(stream);
}

}  // namespace

std::string jsonLine(const char* type, Json::Value object) {
    object["schema"] = kSchema;
    object["type"] = type;
    return tools::compactJson(object);
}

void print(const Options& options, const char* type, const Json::Value& object, const std::string& text) {
    put(stdout, options.json ? jsonLine(type, object) + "\n" : text);
}

void report(const Options& options, const Failure& failure) {
    Json::Value object = failure.details;
    object["message"] = failure.what();
    object["exit"] = failure.status;
    if (!failure.advice.empty()) object["try"] = failure.advice;
    if (options.json) return put(stdout, jsonLine("error", object) + "\n");
    const std::string message = failure.what();
    put(stderr, "accessoryctl: " + message + (message.back() == '?' ? "\n" : ".\n"));
    if (!failure.advice.empty()) put(stderr, "Type: " + failure.advice + "\n");
}

std::string bold(const std::string& text) { return coloured("1", text); }
std::string red(const std::string& text) { return coloured("31", text); }
std::string green(const std::string& text) { return coloured("32", text); }

}  // namespace accessory::ctl
