// Reading and writing property lists: a typical 1 KB job file and a 10 MB document of job
// dictionaries, against expat's own raw parse of the same bytes (empty handlers) and Debian's
// libplist. The documents come from VORNIX_PLIST_BENCH_DIR (job.plist, large.plist), as
// scripts/bench-plist.sh writes them for all contenders; without it they are made here.

#include <benchmark/benchmark.h>
#include <expat.h>
#include <plist/plist.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>

#include "plist/XmlReader.hpp"
#include "plist/XmlWriter.hpp"

namespace {

using namespace vornix::plist;

// The same job as scripts/bench-plist.sh makes; its XML form is about 1 KB.
Value job(int number) {
    const std::string label = "com.vornix.job" + std::to_string(number);
    return Dictionary::fromEntries({
        {"Label", label},
        {"ProgramArguments", Array{"/usr/local/bin/vornix-agent", "--config", "/etc/vornix/" + label + ".conf"}},
        {"RunAtLoad", true},
        {"KeepAlive", number % 2 == 0},
        {"WorkingDirectory", "/var/lib/vornix/" + label},
        {"StandardOutPath", "/var/log/vornix/" + label + ".log"},
        {"EnvironmentVariables",
         Dictionary::fromEntries({{"PATH", "/usr/local/bin:/usr/bin:/bin"}, {"LANG", "en_US.UTF-8"}})},
        {"StartCalendarInterval",
         Dictionary::fromEntries({{"Hour", number % 24}, {"Minute", number % 60}, {"Weekday", number % 7 + 1}})},
        {"Nice", -5},
        {"ProcessType", "Background"},
    });
}

Value largeDocument() {
    Array jobs;
    for (int number = 0; number < 10'600; ++number) {
        jobs.push_back(job(number));
    }
    return jobs;
}

std::string document(const char* name, Value (*make)()) {
    if (const char* folder = std::getenv("VORNIX_PLIST_BENCH_DIR")) {
        std::ifstream file(std::string(folder) + "/" + name, std::ios::binary);
        if (!file) {
            throw std::runtime_error(std::string("cannot open ") + folder + "/" + name);
        }
        std::ostringstream bytes;
        bytes << file.rdbuf();
        return std::move(bytes).str();
    }
    return writeXml(make());
}

const std::string& jobXml() {
    static const std::string bytes = document("job.plist", [] { return job(7); });
    return bytes;
}

const std::string& largeXml() {
    static const std::string bytes = document("large.plist", largeDocument);
    return bytes;
}

void readOurs(benchmark::State& state, const std::string& bytes) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(readXml(bytes));
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes.size()));
}

void XMLCALL ignoreStart(void*, const XML_Char*, const XML_Char**) {}
void XMLCALL ignoreEnd(void*, const XML_Char*) {}
void XMLCALL ignoreText(void*, const XML_Char*, int) {}

void parseWithExpat(benchmark::State& state, const std::string& bytes) {
    for (auto _ : state) {
        XML_Parser parser = XML_ParserCreate(nullptr);
        XML_SetElementHandler(parser, ignoreStart, ignoreEnd);
        XML_SetCharacterDataHandler(parser, ignoreText);
        if (XML_Parse(parser, bytes.data(), static_cast<int>(bytes.size()), XML_TRUE) != XML_STATUS_OK) {
            state.SkipWithError("expat failed");
        }
        XML_ParserFree(parser);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes.size()));
}

void parseWithLibplist(benchmark::State& state, const std::string& bytes) {
    for (auto _ : state) {
        plist_t root = nullptr;
        plist_from_xml(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &root);
        if (root == nullptr) {
            state.SkipWithError("libplist failed");
        }
        plist_free(root);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes.size()));
}

void BM_ReadJob_Ours(benchmark::State& state) { readOurs(state, jobXml()); }
void BM_ReadJob_Libplist(benchmark::State& state) { parseWithLibplist(state, jobXml()); }
void BM_ReadJob_ExpatRaw(benchmark::State& state) { parseWithExpat(state, jobXml()); }

void BM_WriteJob_Ours(benchmark::State& state) {
    const Value value = readXml(jobXml());
    for (auto _ : state) {
        benchmark::DoNotOptimize(writeXml(value));
    }
}

void BM_WriteJob_Libplist(benchmark::State& state) {
    plist_t root = nullptr;
    plist_from_xml(jobXml().data(), static_cast<std::uint32_t>(jobXml().size()), &root);
    for (auto _ : state) {
        char* xml = nullptr;
        std::uint32_t length = 0;
        plist_to_xml(root, &xml, &length);
        benchmark::DoNotOptimize(xml);
        plist_to_xml_free(xml);
    }
    plist_free(root);
}

void BM_ReadLarge_Ours(benchmark::State& state) { readOurs(state, largeXml()); }
void BM_ReadLarge_Libplist(benchmark::State& state) { parseWithLibplist(state, largeXml()); }
void BM_ReadLarge_ExpatRaw(benchmark::State& state) { parseWithExpat(state, largeXml()); }

BENCHMARK(BM_ReadJob_Ours);
BENCHMARK(BM_ReadJob_Libplist);
BENCHMARK(BM_ReadJob_ExpatRaw);
BENCHMARK(BM_WriteJob_Ours);
BENCHMARK(BM_WriteJob_Libplist);
BENCHMARK(BM_ReadLarge_Ours)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ReadLarge_Libplist)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ReadLarge_ExpatRaw)->Unit(benchmark::kMillisecond);

}  // namespace
