// Writes the dissector: the tables of all transactions, then the parts that are the same whatever they say.
//
//   dissector_writer PART...        to the standard output
#include <cstdio>
#include <fstream>
#include <iostream>
#include <iterator>

#include "AppleiAP2/manager/ManagerRows.h"
#include "AppleiAP2/notifier/NotifierRows.h"
#include "tools/capture/Decode.h"
#include "tools/dissector/Layouts.h"

namespace accessory::dissector {

namespace {

Node resultNode(const int& /*result*/) { return word<int32_t>("result"); }
Node resultNode(const char* const& /*result*/) { return text("result"); }
Node resultNode(const android::String8& /*result*/) { return node("text8", "result"); }

template <typename Row>
std::string operation(const Row& row) {
    std::vector<Node> request;
    std::vector<Node> reply;
    const auto add = [&](const auto& field) {
        (wire::isInReply<decltype(field)> ? reply : request).push_back(layout(field));
    };
    std::apply([&add](const auto&... field) { (add(field), ...); }, row.fields);
    reply.push_back(resultNode(typename Row::Result()));
    return "  [" + std::to_string(row.code) + "]={name=" + quoted(row.name) +
           ",request=" + nodeList(request) + ",reply=" + nodeList(reply) + "},\n";
}

template <typename Rows>
void writeInterface(const char* name, const wire::Manners& manners, const android::String16& descriptor,
                    const Rows& rows) {
    std::cout << "interfaces[" << quoted(android::String8(descriptor).string()) << "]={name=" << quoted(name)
              << ",header=" << (manners.replyHasHeader ? "true" : "false") << ",operations={\n";
    std::apply([](const auto&... row) { ((std::cout << operation(row)), ...); }, rows);
    std::cout << "}}\n";
}

void writeTables() {
    std::cout
        << "-- Dissector of the accessory transactions in captures of BINDER_TRACE. Written from the rows.\n"
           "local tables = "
        << quoted(tools::tablesDigest()) << "\nlocal interfaces = {}\n";
    writeInterface("IAccessoryManager", wire::accessory_manager::kManners, IAccessoryManager::descriptor,
                   wire::accessory_manager::kRows);
    writeInterface("IAppleiAP2Manager", manager::kManners, IAppleiAP2Manager::descriptor, manager::kRows);
    writeInterface("IAppleiAP2ManagerNotifier", notifier::kManners, IAppleiAP2ManagerNotifier::descriptor,
                   notifier::kRows);
    writeInterface("IAppleUSBAudioManager", wire::usb_audio_manager::kManners,
                   IAppleUSBAudioManager::descriptor, wire::usb_audio_manager::kRows);
    writeInterface("IAppleUSBAudioManagerNotifier", wire::usb_audio_notifier::kManners,
                   IAppleUSBAudioManagerNotifier::descriptor, wire::usb_audio_notifier::kRows);
}

}  // namespace

}  // namespace accessory::dissector

int main(int argc, char** argv) {
    accessory::dissector::writeTables();
    for (int i = 1; i < argc; ++i) {
        std::ifstream part(argv[i]);
        if (!part) {
            fprintf(stderr, "dissector_writer: %s cannot be read\n", argv[i]);
            return 1;
        }
        std::cout << "\n" << part.rdbuf();
    }
    return std::cout.flush() ? 0 : 1;
}
