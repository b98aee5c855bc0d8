// Writes a call of every operation, one word a line, as a file: WriteCorpus <folder>.
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "tools/rows/Operation.h"
#include "tools/rows/Values.h"

namespace {

using namespace accessory;

/// A value as people type it: bytes are their digits.
std::string wordOf(const Json::Value& value) {
    if (value.isObject() && value.isMember("hex")) return value["hex"].asString();
    return value.isString() ? value.asString() : tools::compactJson(value);
}

/// The operation, then its arguments: by their order, or by their names.
void write(std::ofstream& file, const tools::Interface& interface, const tools::Operation& operation,
           bool named) {
    file << interface.name << '.' << operation.name;
    const Json::Value arguments = tools::exampleArguments(operation);
    for (const tools::FieldDescription& field : operation.fields) {
        if (field.inReply) continue;
        const Json::Value& value = arguments[field.name];
        file << '\n' << (named ? field.name + '=' : "");
        file << wordOf(value);
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) return EXIT_FAILURE;
    const std::filesystem::path folder = argv[1];
    std::filesystem::create_directories(folder);
    int number = 0;
    for (const tools::Interface* interface : tools::allInterfaces()) {
        for (const auto& operation : interface->operations) {
            std::ofstream file(folder / std::to_string(number));
            write(file, *interface, *operation, number % 2 != 0);
            ++number;
        }
    }
    return EXIT_SUCCESS;
}
