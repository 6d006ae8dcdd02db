#include <benchmark/benchmark.h>

#include <string>

#include "engine/StandardMessageCodec.hpp"
#include "engine/StandardMethodCodec.hpp"

namespace {

using namespace vornix::engine;

// The call the engine sends whenever its sign-in state changes.
MethodCall authStateCall() {
    return {"auth_state", EncodableMap{{"signedIn", true},
                                       {"email", "someone@example.com"},
                                       {"appVersion", "1.4.2"},
                                       {"port", "50051"}}};
}

// A map of about 1 MB once encoded: string keys to small records of an integer, a string and a double.
EncodableValue megabyteMap() {
    EncodableMap map;
    std::size_t size = 0;
    for (int i = 0; size < (1u << 20); ++i) {
        EncodableMap record{{"id", i}, {"name", std::string(64, static_cast<char>('a' + i % 26))}, {"score", i * 0.25}};
        EncodableValue key("key-" + std::to_string(i));
        size += StandardMessageCodec::encodeMessage(key).size() + StandardMessageCodec::encodeMessage(record).size();
        map.set(std::move(key), std::move(record));
    }
    return map;
}

void encodeAuthStateCall(benchmark::State& state) {
    const MethodCall call = authStateCall();
    for (auto _ : state) {
        benchmark::DoNotOptimize(StandardMethodCodec::encodeMethodCall(call));
    }
}
BENCHMARK(encodeAuthStateCall);

void decodeAuthStateCall(benchmark::State& state) {
    const Bytes bytes = StandardMethodCodec::encodeMethodCall(authStateCall());
    for (auto _ : state) {
        benchmark::DoNotOptimize(StandardMethodCodec::decodeMethodCall(bytes));
    }
}
BENCHMARK(decodeAuthStateCall);

void encodeMegabyteMap(benchmark::State& state) {
    const EncodableValue map = megabyteMap();
    std::size_t bytes = 0;
    for (auto _ : state) {
        const Bytes encoded = StandardMessageCodec::encodeMessage(map);
        bytes = encoded.size();
        benchmark::DoNotOptimize(encoded.data());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes));
    state.counters["bytes"] = static_cast<double>(bytes);
}
BENCHMARK(encodeMegabyteMap)->Unit(benchmark::kMillisecond);

void decodeMegabyteMap(benchmark::State& state) {
    const Bytes bytes = StandardMessageCodec::encodeMessage(megabyteMap());
    for (auto _ : state) {
        benchmark::DoNotOptimize(StandardMessageCodec::decodeMessage(bytes));
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes.size()));
    state.counters["bytes"] = static_cast<double>(bytes.size());
}
BENCHMARK(decodeMegabyteMap)->Unit(benchmark::kMillisecond);

}  // namespace
