// Realistic job files, hand-written in fixtures/: each is read as a LaunchAgent, written back
// as XML and read again; what we write must be the dictionary we expect (the file itself, less
// the keys the record does not know), both to our own reader and to Python's plistlib.

#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "launch_agent/LaunchAgent.hpp"
#include "launch_agent/tests/JobFiles.hpp"
#include "plist/PropertyList.hpp"

namespace {

using namespace vornix::launch_agent;
using namespace vornix::launch_agent::testing;
using vornix::plist::Dictionary;
namespace plist = vornix::plist;

struct JobFile {
    const char* name;
    // The file holding the dictionary we must write; the job file itself when it has no unknown keys.
    const char* expected;
};

const std::vector<JobFile> jobFiles{
    {"service_keep_alive.plist", "service_keep_alive.plist"},
    {"calendar_interval.plist", "calendar_interval.plist"},
    {"calendar_monthly.plist", "calendar_monthly.plist"},
    {"mach_services.plist", "mach_services.plist"},
    {"environment_variables.plist", "environment_variables.plist"},
    {"resource_limits.plist", "resource_limits.plist"},
    {"inetd_compatibility.plist", "inetd_compatibility.plist"},
    {"watch_paths.plist", "watch_paths.plist"},
    {"standard_paths.plist", "standard_paths.plist"},
    {"process_type.plist", "process_type.plist"},
    {"start_at_login.plist", "start_at_login.plist"},
    {"unknown_keys.plist", "unknown_keys.expected.plist"},
    {"every_key.plist", "every_key.plist"},
    {"every_key.binary.plist", "every_key.plist"},
};

std::shared_ptr<LaunchAgent> readAgent(const std::string& bytes) {
    return plist::decode<std::shared_ptr<LaunchAgent>>(bytes);
}

Dictionary dictionaryIn(const std::string& bytes) { return *plist::readPropertyList(bytes).get<Dictionary>(); }

struct Child {
    int status;
    std::string output;
};

Child run(const std::string& command) {
    Child child{-1, {}};
    FILE* pipe = ::popen((command + " 2>&1").c_str(), "r");
    if (pipe == nullptr) {
        return child;
    }
    char buffer[4096];
    while (const std::size_t count = std::fread(buffer, 1, sizeof buffer, pipe)) {
        child.output.append(buffer, count);
    }
    child.status = ::pclose(pipe);
    return child;
}

TEST(JobFileFixtures, DecodeEncodeDecodeGivesTheSameRecord) {
    for (const JobFile& job : jobFiles) {
        const auto first = readAgent(fileBytes(fixtureFolder() / job.name));
        const std::string written = plist::encode(*first);
        const auto second = readAgent(written);
        EXPECT_EQ(plist::encodeValue(*second), plist::encodeValue(*first)) << job.name;
        EXPECT_EQ(plist::encode(*second), written) << job.name;
    }
}

TEST(JobFileFixtures, WhatWeWriteIsTheExpectedDictionary) {
    for (const JobFile& job : jobFiles) {
        const auto agent = readAgent(fileBytes(fixtureFolder() / job.name));
        EXPECT_EQ(dictionaryIn(plist::encode(*agent)), dictionaryIn(fileBytes(fixtureFolder() / job.expected)))
            << job.name;
    }
}

TEST(JobFileFixtures, UnknownKeysAreDropped) {
    const std::string original = fileBytes(fixtureFolder() / "unknown_keys.plist");
    const Dictionary written = dictionaryIn(plist::encode(*readAgent(original)));
    for (const char* unknown :
         {"AssociatedBundleIdentifiers", "InetdCompatibility", "label", "Sockets", "POSIXSpawnType"}) {
        EXPECT_TRUE(dictionaryIn(original).contains(unknown)) << unknown;
        EXPECT_FALSE(written.contains(unknown)) << unknown;
    }
    const Dictionary& calendar = *written.find("StartCalendarInterval")->get<Dictionary>();
    EXPECT_FALSE(calendar.contains("Second"));
    const Dictionary& limits = *written.find("HardResourceLimits")->get<Dictionary>();
    EXPECT_FALSE(limits.contains("Cpu"));
}

TEST(JobFileFixtures, TheBinaryAndXmlFormsReadToTheSameRecord) {
    const auto fromXml = readAgent(fileBytes(fixtureFolder() / "every_key.plist"));
    const auto fromBinary = readAgent(fileBytes(fixtureFolder() / "every_key.binary.plist"));
    EXPECT_EQ(plist::encode(*fromBinary), plist::encode(*fromXml));
}

TEST(JobFileFixtures, TheApplicationsOwnJobReadsAsBuilt) {
    const auto agent = readAgent(fileBytes(fixtureFolder() / "start_at_login.plist"));
    LaunchAgent built("com.vornix.os.launch", "/usr/bin/open", "/Applications/Vornix OS.app");
    built.runAtLoad = true;
    EXPECT_EQ(plist::encode(*agent), plist::encode(built));
}

TEST(JobFileFixtures, PythonsPlistlibReadsEveryFileWeWriteToTheExpectedDictionary) {
    const TemporaryFolder folder;
    const auto script = fixtureFolder().parent_path() / "plist_equal.py";
    for (const JobFile& job : jobFiles) {
        const auto written = folder.path() / (std::string("written-") + job.name);
        writeFile(written, plist::encode(*readAgent(fileBytes(fixtureFolder() / job.name))));
        const Child check = run("python3 '" + script.string() + "' '" + (fixtureFolder() / job.expected).string() +
                                "' '" + written.string() + "'");
        EXPECT_EQ(check.status, 0) << job.name << "\n" << check.output;
    }
}

TEST(JobFileFixtures, TheComparisonScriptTellsTypesApart) {
    // plistlib's True equals 1: the check must still see a boolean written as an integer.
    const TemporaryFolder folder;
    const auto script = fixtureFolder().parent_path() / "plist_equal.py";
    const auto integer = folder.path() / "integer.plist";
    const auto boolean = folder.path() / "boolean.plist";
    writeFile(integer, plist::writeXml(Dictionary::fromEntries({{"RunAtLoad", 1}})));
    writeFile(boolean, plist::writeXml(Dictionary::fromEntries({{"RunAtLoad", true}})));
    EXPECT_NE(run("python3 '" + script.string() + "' '" + integer.string() + "' '" + boolean.string() + "'").status, 0);
    EXPECT_EQ(run("python3 '" + script.string() + "' '" + boolean.string() + "' '" + boolean.string() + "'").status, 0);
}

}  // namespace
