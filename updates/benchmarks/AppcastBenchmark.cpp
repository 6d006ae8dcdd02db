#include <benchmark/benchmark.h>

#include <string>

#include "updates/AppcastParser.hpp"
#include "updates/UpdateSelection.hpp"

namespace {

std::string feedOf(int items) {
    std::string xml = R"(<?xml version="1.0" encoding="utf-8"?>
<rss version="2.0" xmlns:sparkle="http://www.andymatuschak.org/xml-namespaces/sparkle"><channel><title>Vornix OS</title>)";
    for (int i = 0; i < items; ++i) {
        const std::string version = "1." + std::to_string(i / 10) + "." + std::to_string(i % 10);
        xml += "<item><title>Version " + version + "</title><description><![CDATA[<ul><li>Fixes</li></ul>]]></description>"
               "<sparkle:version>" + version + "</sparkle:version><sparkle:shortVersionString>" + version +
               "</sparkle:shortVersionString><sparkle:releaseNotesLink>https://example.com/notes/" + version +
               "</sparkle:releaseNotesLink><sparkle:minimumSystemVersion>5.10</sparkle:minimumSystemVersion>"
               "<enclosure url=\"https://example.com/Vornix-" + version + ".zip\" length=\"1000\" type=\"application/octet-stream\"/></item>";
    }
    return xml + "</channel></rss>";
}

void parseAndSelect(benchmark::State& state) {
    const std::string xml = feedOf(static_cast<int>(state.range(0)));
    const auto running = *vornix::updates::Version::parse("1.0.0");
    const auto system = *vornix::updates::Version::parse("6.1");
    for (auto _ : state) {
        const auto appcast = vornix::updates::parseAppcast(xml);
        benchmark::DoNotOptimize(vornix::updates::selectUpdate(appcast, running, system));
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(xml.size()));
}
BENCHMARK(parseAndSelect)->Arg(10)->Arg(1000);

void compareVersions(benchmark::State& state) {
    const auto left = *vornix::updates::Version::parse("1.10.3b2");
    const auto right = *vornix::updates::Version::parse("1.10.3rc1");
    for (auto _ : state) {
        benchmark::DoNotOptimize(left < right);
    }
}
BENCHMARK(compareVersions);

}  // namespace
