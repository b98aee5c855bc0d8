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
#include <memory>
#include <string>
#include <vector>

#include "bench/records/Codec.h"
#include "bench/records/RatioReporter.h"
#include "bench/support/Heap.h"
#include "bench/support/Options.h"
#include "bench/support/Progress.h"

namespace accessory::bench {
namespace {

struct Subject {
    Message message;
    const char* name;
};

constexpr char kCopy[] = "memcpy";
constexpr char kEmpty[] = "empty_records";

constexpr Subject kSubjects[] = {{Message::kNowPlaying, "now_playing"},
                                 {Message::kRouteGuidance, "route_guidance"},
                                 {Message::kLibrary, "library_10000"}};

std::vector<Format>& formats() {
    static std::vector<Format> all;
    return all;
}

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

const Format& ours() { return formats().front(); }

void encode(benchmark::State& state, const Format& format, Message message) {
    const auto codec = format.codec(message);
    measure(state, codec->encode(), [&] { return codec->encode(); });
}

void decode(benchmark::State& state, const Format& format, Message message) {
    const auto codec = format.codec(message);
    measure(state, codec->encode(), [&] { return codec->decode(); });
}

void copy(benchmark::State& state, Message message) {
    const std::vector<char> source(ours().codec(message)->encode());
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

void registerFormats(const Options& options, const std::string& what, Operation operation, Message message) {
    for (const Format& format : formats()) {
        if (format.place != 0 && !options.wants(format.name)) continue;
        benchmark::RegisterBenchmark((what + format.name).c_str(), operation, format, message);
    }
    benchmark::RegisterBenchmark((what + kCopy).c_str(), copy, message);
}

void registerBenchmarks(const Options& options, const Subject& subject) {
    const std::string encoding = std::string("encode/") + subject.name + '/';
    const std::string decoding = std::string("decode/") + subject.name + '/';
    registerFormats(options, encoding, encode, subject.message);
    registerFormats(options, decoding, decode, subject.message);
    benchmark::RegisterBenchmark((decoding + kEmpty).c_str(), makeEmpty, subject.message);
}

/// Whether every format carries the same values; without that there is nothing to compare.
bool allFormatsAgree(const Subject& subject) {
    const uint64_t expected = ours().codec(subject.message)->decode();
    return std::all_of(formats().begin(), formats().end(), [&](const Format& format) {
        if (format.codec(subject.message)->decode() == expected) return true;
        std::fprintf(stderr, "%s: %s reads other values than the records do\n", subject.name, format.name);
        return false;
    });
}

/// Google Benchmark's own options, whose texts it keeps. Its interleaving lets the load of a shared machine
/// hit all formats alike.
void initialize(const Options& options) {
    static std::vector<std::string> texts = {"bench_records", "--benchmark_enable_random_interleaving=true"};
    texts.emplace_back(
        options.pick("--benchmark_repetitions=9", "--benchmark_repetitions=5", "--benchmark_repetitions=1"));
    texts.emplace_back(options.pick("--benchmark_min_time=0.03", "--benchmark_min_time=0.01",
                                    "--benchmark_min_time=0.0001"));
    std::vector<char*> arguments;
    arguments.reserve(texts.size());
    for (std::string& text : texts)
        arguments.push_back(text.data());
    auto count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
}

int run(const Options& options) {
    std::sort(formats().begin(), formats().end(),
              [](const Format& a, const Format& b) { return a.place < b.place; });
    initialize(options);
    // The guidance records log every message at DEBUG, which programs in the field keep off.
    __android_log_set_minimum_priority(ANDROID_LOG_INFO);
    for (const Subject& subject : kSubjects) {
        progress(std::string("records: do all formats agree on ") + subject.name + '?');
        if (!allFormatsAgree(subject)) return EXIT_FAILURE;
        registerBenchmarks(options, subject);
    }
    progress("records: measuring everything in random turns");
    RatioReporter reporter(kRecords);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    writeJson(options.json, "records", reporter.results());
    return EXIT_SUCCESS;
}

}  // namespace

FormatRegistration::FormatRegistration(const Format& format) { formats().push_back(format); }

}  // namespace accessory::bench

int main(int argc, char** argv) { return accessory::bench::run(accessory::bench::parseOptions(argc, argv)); }
