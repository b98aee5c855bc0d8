#include <accessory/testing/Transaction.h>
#include <binder/Parcel.h>

#include <cstring>
#include <iomanip>
#include <ostream>
#include <sstream>

namespace accessory::testkit {
namespace {

std::string inHexadecimal(const Bytes& bytes) {
    std::ostringstream text;
    text << std::hex << std::setfill('0');
    for (const uint32_t word : wordsOf(bytes))
        text << ' ' << std::setw(8) << word;
    return bytes.empty() ? " nothing" : text.str();
}

}  // namespace

Bytes bytesOf(const android::Parcel& parcel) {
    return Bytes(parcel.data(), parcel.data() + parcel.dataSize());
}

Words wordsOf(const Bytes& bytes) {
    Words words((bytes.size() + 3) / 4);
    if (!bytes.empty()) std::memcpy(words.data(), bytes.data(), bytes.size());
    return words;
}

Bytes bytesOf(const Words& words) {
    Bytes bytes(words.size() * sizeof(uint32_t));
    if (!words.empty()) std::memcpy(bytes.data(), words.data(), bytes.size());
    return bytes;
}

void PrintTo(const Transaction& transaction, std::ostream* out) {
    *out << "code " << transaction.code << ", flags " << transaction.flags << ", request"
         << inHexadecimal(transaction.request) << "; status " << transaction.status << ", reply"
         << inHexadecimal(transaction.reply);
}

}  // namespace accessory::testkit
