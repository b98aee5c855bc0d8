#include "tests/hostile/Turned.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <iterator>

#include "common/Buffer.h"

namespace accessory::test {

namespace {

constexpr size_t kWord = sizeof(uint32_t);

uint32_t wordAt(const Bytes& bytes, size_t place) {
    uint32_t word = 0;
    std::memcpy(&word, &bytes[place], kWord);
    return word;
}

Turned withWord(const Bytes& request, size_t place, uint32_t word) {
    Turned turned{std::to_string(word) + " at " + std::to_string(place), request};
    std::memcpy(&turned.bytes[place], &word, kWord);
    return turned;
}

void append(std::vector<Turned>* all, std::vector<Turned> more) {
    std::move(more.begin(), more.end(), std::back_inserter(*all));
}

}  // namespace

std::vector<Turned> cutAtEveryByte(const Bytes& request) {
    std::vector<Turned> all;
    for (size_t length = 0; length < request.size(); ++length)
        all.push_back({"cut at " + std::to_string(length), cut(request, length)});
    return all;
}

std::vector<Turned> withMoreBehind(const Bytes& request) {
    std::vector<Turned> all;
    for (const size_t more : {1, 3, 4, 64, 4096}) {
        for (const uint8_t filling : {0x00, 0x61, 0xff})
            all.push_back({std::to_string(more) + " bytes behind", parcel({request, Bytes(more, filling)})});
    }
    return all;
}

std::vector<Turned> withEveryWordReplaced(const Bytes& request) {
    std::vector<Turned> all;
    for (size_t place = 0; place + kWord <= request.size(); place += kWord) {
        const auto behind = static_cast<uint32_t>(request.size() - place - kWord);
        for (const uint32_t word : {0U, 1U, UINT_MAX, wordAt(request, place) + 1, behind, behind + 1,
                                    static_cast<uint32_t>(INT_MAX), static_cast<uint32_t>(INT_MIN),
                                    static_cast<uint32_t>(kMostTransactionBytes)})
            all.push_back(withWord(request, place, word));
    }
    return all;
}

std::vector<Turned> withStringsThatDoNotEnd(const Bytes& request) {
    std::vector<Turned> all;
    for (size_t place = 0; place < request.size(); place += kWord) {
        Turned turned{"letters from " + std::to_string(place), request};
        std::fill(turned.bytes.begin() + static_cast<std::ptrdiff_t>(place), turned.bytes.end(), 'a');
        all.push_back(std::move(turned));
    }
    return all;
}

std::vector<Turned> turnedInEveryWay(const Bytes& request) {
    std::vector<Turned> all = cutAtEveryByte(request);
    append(&all, withMoreBehind(request));
    append(&all, withEveryWordReplaced(request));
    append(&all, withStringsThatDoNotEnd(request));
    return all;
}

}  // namespace accessory::test
