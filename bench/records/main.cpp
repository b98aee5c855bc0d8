// Encoding and decoding of the data records beside the same fields in other formats, and beside two floors: a
// memcpy of the records' bytes, and the making of the records without their content.
//
// To encode is to go from plain values to the bytes that are sent, to decode from the bytes that came to
// every value, each read once. Writers keep their memory from one message to the next. So do the readers,
// but for two: the records and protobuf_new give out objects that the receiver can keep.
#include <android/log.h>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "bench/records/Codec.h"
#include "bench/support/Heap.h"
#include "bench/support/RatioReporter.h"

namespace accessory::bench {
namespace {

struct Subject {
    Message message;
    const char* name;
};

struct Format {
    const char* name;
    std::unique_ptr<Codec> (*codec)(Message message);
};

constexpr char kOurs[] = "records";
constexpr char kCopy[] = "memcpy";
constexpr char kEmpty[] = "empty_records";

constexpr Subject kSubjects[] = {{Message::kNowPlaying, "now_playing"},
                                 {Message::kRouteGuidance, "route_guidance"},
                                 {Message::kLibrary, "library_10000"}};
constexpr Format kFormats[] = {{kOurs, recordCodec},
                               {"protobuf_reused", protobufCodec},
                               {"protobuf_new", protobufNewCodec},
                               {"protobuf_arena", protobufArenaCodec},
                               {"capnproto", capnProtoCodec}};

/// Runs @p operation and tells how often it asked for memory each time.
/// @param bytes  size of the message.
template <typename Operation>
void measure(benchmark::State& state, size_t bytes, Operation operation) {
    const size_t before = allocations();
    for (auto _ : state)
        benchmark::DoNotOptimize(operation());
    const auto asked = static_cast<double>(allocations() - before);
    state.counters["allocations"] = benchmark::Counter(asked, benchmark::Counter::kAvgIterations);
    state.counters["bytes"] = static_cast<double>(bytes);
}

void encode(benchmark::State& state, const Format& format, Message message) {
    const auto codec = format.codec(message);
    measure(state, codec->encode(), [&] { return codec->encode(); });
}

void decode(benchmark::State& state, const Format& format, Message message) {
    const auto codec = format.codec(message);
    measure(state, codec->encode(), [&] { return codec->decode(); });
}

void copy(benchmark::State& state, Message message) {
    const std::vector<char> source(recordCodec(message)->encode());
    std::vector<char> target(source.size());
    measure(state, source.size(), [&] {
        std::memcpy(target.data(), source.data(), source.size());
        benchmark::ClobberMemory();
        return target.data();
    });
}

void makeEmpty(benchmark::State& state, Message message) {
    measure(state, 0, [&] { return makeEmptyRecords(message); });
}

using Operation = void (*)(benchmark::State& state, const Format& format, Message message);

void registerFormats(const std::string& what, Operation operation, Message message) {
    for (const Format& format : kFormats)
        benchmark::RegisterBenchmark((what + format.name).c_str(), operation, format, message);
    benchmark::RegisterBenchmark((what + kCopy).c_str(), copy, message);
}

void registerBenchmarks(const Subject& subject) {
    const std::string encoding = std::string("encode/") + subject.name + '/';
    const std::string decoding = std::string("decode/") + subject.name + '/';
    registerFormats(encoding, encode, subject.message);
    registerFormats(decoding, decode, subject.message);
    benchmark::RegisterBenchmark((decoding + kEmpty).c_str(), makeEmpty, subject.message);
}

/// Whether every format carries the same values; without that there is nothing to compare.
bool allFormatsAgree(const Subject& subject) {
    const uint64_t expected = recordCodec(subject.message)->decode();
    return std::all_of(std::begin(kFormats), std::end(kFormats), [&](const Format& format) {
        if (format.codec(subject.message)->decode() == expected) return true;
        std::fprintf(stderr, "%s: %s reads other values than the records do\n", subject.name, format.name);
        return false;
    });
}

/// Defaults that the command line can override: the load of a shared machine must hit all formats alike.
std::vector<char*> withDefaults(int argc, char** argv) {
    static char interleaving[] = "--benchmark_enable_random_interleaving=true";
    static char repetitions[] = "--benchmark_repetitions=9";
    static char time[] = "--benchmark_min_time=0.1";
    std::vector<char*> arguments = {argv[0], interleaving, repetitions, time};
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    return arguments;
}

int run(int argc, char** argv) {
    std::vector<char*> arguments = withDefaults(argc, argv);
    auto count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return EXIT_FAILURE;
    // The guidance records log every message at DEBUG, which programs in the field keep off.
    __android_log_set_minimum_priority(ANDROID_LOG_INFO);
    for (const Subject& subject : kSubjects) {
        if (!allFormatsAgree(subject)) return EXIT_FAILURE;
        registerBenchmarks(subject);
    }
    RatioReporter reporter("records",
                           {"memcpy", "protobuf_reused", "protobuf_new", "protobuf_arena", "capnproto"});
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return EXIT_SUCCESS;
}

}  // namespace
}  // namespace accessory::bench

int main(int argc, char** argv) { return accessory::bench::run(argc, argv); }
