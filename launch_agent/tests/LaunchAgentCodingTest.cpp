#include <gtest/gtest.h>

#include <functional>
#include <set>

#include "launch_agent/LaunchAgent.hpp"
#include "launch_agent/tests/CodingTestSupport.hpp"

namespace {

using namespace vornix::launch_agent;
using namespace vornix::launch_agent::testing;
using vornix::plist::Array;
using vornix::plist::CodingPath;
using vornix::plist::Dictionary;
using vornix::plist::Value;
using Kind = vornix::plist::DecodingError::Kind;
using Key = LaunchAgent::CodingKeys;
using Words = std::vector<std::string>;

// One optional member as the job file sees it: its key, a typical value, the value that is
// present but false, zero or empty, a value of the wrong type, and whether the record holds it.
struct OptionalMember {
    Key key;
    const char* text;
    Value typical;
    Value falsy;
    Value wrongType;
    std::function<bool(const LaunchAgent&)> isPresent;
};

Value array(std::vector<Value> items) { return Value(Array(std::move(items))); }

const std::vector<OptionalMember>& optionalMembers() {
    static const std::vector<OptionalMember> members{
        {Key::disabled, "Disabled", true, false, "yes", [](const LaunchAgent& a) { return a.disabled.has_value(); }},
        {Key::enableGlobbing, "EnableGlobbing", true, false, 1,
         [](const LaunchAgent& a) { return a.enableGlobbing.has_value(); }},
        {Key::program, "Program", "/bin/tool", "", true, [](const LaunchAgent& a) { return a.program.has_value(); }},
        {Key::programArguments, "ProgramArguments", array({"/bin/tool", "-v"}), array({}), "/bin/tool -v",
         [](const LaunchAgent& a) { return a.programArguments.has_value(); }},
        {Key::workingDirectory, "WorkingDirectory", "/tmp", "", 0,
         [](const LaunchAgent& a) { return a.workingDirectory.has_value(); }},
        {Key::standardInPath, "StandardInPath", "/dev/null", "", false,
         [](const LaunchAgent& a) { return a.standardInPath.has_value(); }},
        {Key::standardOutPath, "StandardOutPath", "/tmp/out.log", "", array({"/tmp/out.log"}),
         [](const LaunchAgent& a) { return a.standardOutPath.has_value(); }},
        {Key::standardErrorPath, "StandardErrorPath", "/tmp/err.log", "", Dictionary(),
         [](const LaunchAgent& a) { return a.standardErrorPath.has_value(); }},
        {Key::environmentVariables, "EnvironmentVariables", dictionary({{"PATH", "/bin"}}), Dictionary(),
         array({"PATH=/bin"}), [](const LaunchAgent& a) { return a.environmentVariables.has_value(); }},
        {Key::runAtLoad, "RunAtLoad", true, false, "true",
         [](const LaunchAgent& a) { return a.runAtLoad.has_value(); }},
        {Key::startInterval, "StartInterval", 300, 0, "300",
         [](const LaunchAgent& a) { return a.startInterval.has_value(); }},
        {Key::startCalendarInterval, "StartCalendarInterval", dictionary({{"Hour", 4}, {"Minute", 30}}), Dictionary(),
         "04:30", [](const LaunchAgent& a) { return a.startCalendarInterval != nullptr; }},
        {Key::startOnMount, "StartOnMount", true, false, 0,
         [](const LaunchAgent& a) { return a.startOnMount.has_value(); }},
        {Key::onDemand, "OnDemand", true, false, "no", [](const LaunchAgent& a) { return a.onDemand.has_value(); }},
        {Key::keepAlive, "KeepAlive", true, false, dictionary({{"SuccessfulExit", false}}),
         [](const LaunchAgent& a) { return a.keepAlive.has_value(); }},
        {Key::watchPaths, "WatchPaths", array({"/etc/hosts"}), array({}), "/etc/hosts",
         [](const LaunchAgent& a) { return a.watchPaths.has_value(); }},
        {Key::queueDirectories, "QueueDirectories", array({"/var/spool/in"}), array({}), 7,
         [](const LaunchAgent& a) { return a.queueDirectories.has_value(); }},
        {Key::umask, "Umask", 18, 0, "022", [](const LaunchAgent& a) { return a.umask.has_value(); }},
        {Key::sessionCreate, "SessionCreate", true, false, "true",
         [](const LaunchAgent& a) { return a.sessionCreate.has_value(); }},
        {Key::groupName, "GroupName", "staff", "", 20, [](const LaunchAgent& a) { return a.groupName.has_value(); }},
        {Key::userName, "UserName", "ada", "", 501, [](const LaunchAgent& a) { return a.userName.has_value(); }},
        {Key::initGroups, "InitGroups", true, false, "1",
         [](const LaunchAgent& a) { return a.initGroups.has_value(); }},
        {Key::rootDirectory, "RootDirectory", "/", "", false,
         [](const LaunchAgent& a) { return a.rootDirectory.has_value(); }},
        {Key::launchOnlyOnce, "LaunchOnlyOnce", true, false, 1,
         [](const LaunchAgent& a) { return a.launchOnlyOnce.has_value(); }},
        {Key::limitLoadToSessionType, "LimitLoadToSessionType", array({"Aqua"}), array({}), "Aqua",
         [](const LaunchAgent& a) { return a.limitLoadToSessionType.has_value(); }},
        {Key::limitLoadToHosts, "LimitLoadToHosts", array({"build-1"}), array({}), dictionary({{"build-1", true}}),
         [](const LaunchAgent& a) { return a.limitLoadToHosts.has_value(); }},
        {Key::limitLoadFromHosts, "LimitLoadFromHosts", array({"laptop"}), array({}), "laptop",
         [](const LaunchAgent& a) { return a.limitLoadFromHosts.has_value(); }},
        {Key::abandonProcessGroup, "AbandonProcessGroup", true, false, "false",
         [](const LaunchAgent& a) { return a.abandonProcessGroup.has_value(); }},
        {Key::enablePressuredExit, "EnablePressuredExit", true, false, 0,
         [](const LaunchAgent& a) { return a.enablePressuredExit.has_value(); }},
        {Key::enableTransactions, "EnableTransactions", true, false, "on",
         [](const LaunchAgent& a) { return a.enableTransactions.has_value(); }},
        {Key::exitTimeOut, "ExitTimeOut", 20, 0, 2.5, [](const LaunchAgent& a) { return a.exitTimeOut.has_value(); }},
        {Key::inetdCompatibility, "inetdCompatibility", dictionary({{"Wait", true}}), dictionary({{"Wait", false}}),
         true, [](const LaunchAgent& a) { return a.inetdCompatibility != nullptr; }},
        {Key::hardResourceLimits, "HardResourceLimits", dictionary({{"CPU", 60}, {"NumberOfFiles", 1024}}),
         Dictionary(), 60, [](const LaunchAgent& a) { return a.hardResourceLimits != nullptr; }},
        {Key::softResourceLimits, "SoftResourceLimits", dictionary({{"Stack", 8192}}), Dictionary(), array({8192}),
         [](const LaunchAgent& a) { return a.softResourceLimits != nullptr; }},
        {Key::timeOut, "TimeOut", 30, 0, "30s", [](const LaunchAgent& a) { return a.timeOut.has_value(); }},
        {Key::throttleInterval, "ThrottleInterval", 10, 0, true,
         [](const LaunchAgent& a) { return a.throttleInterval.has_value(); }},
        {Key::machServices, "MachServices",
         dictionary({{"com.example.port", dictionary({{"HideUntilCheckIn", true}, {"ResetAtClose", false}})}}),
         Dictionary(), array({"com.example.port"}), [](const LaunchAgent& a) { return a.machServices.has_value(); }},
        {Key::debug, "Debug", true, false, "true", [](const LaunchAgent& a) { return a.debug.has_value(); }},
        {Key::waitForDebugger, "WaitForDebugger", true, false, 1,
         [](const LaunchAgent& a) { return a.waitForDebugger.has_value(); }},
        {Key::legacyTimers, "LegacyTimers", true, false, "yes",
         [](const LaunchAgent& a) { return a.legacyTimers.has_value(); }},
        {Key::lowPriorityIO, "LowPriorityIO", true, false, 1,
         [](const LaunchAgent& a) { return a.lowPriorityIO.has_value(); }},
        {Key::lowPriorityBackgroundIO, "LowPriorityBackgroundIO", true, false, "true",
         [](const LaunchAgent& a) { return a.lowPriorityBackgroundIO.has_value(); }},
        {Key::nice, "Nice", 5, 0, "5", [](const LaunchAgent& a) { return a.nice.has_value(); }},
        {Key::processType, "ProcessType", "Background", "Standard", 1,
         [](const LaunchAgent& a) { return a.processType.has_value(); }},
    };
    return members;
}

Dictionary labelled(std::vector<Dictionary::Entry> entries) {
    entries.emplace_back("Label", "com.example.job");
    return dictionary(std::move(entries));
}

std::size_t countPresent(const LaunchAgent& agent) {
    std::size_t present = 0;
    for (const OptionalMember& member : optionalMembers()) {
        present += member.isPresent(agent) ? 1 : 0;
    }
    return present;
}

TEST(LaunchAgentCodingKeys, TheFortyFiveKeysInTableOrder) {
    const char* expected[] = {"Label",
                              "Disabled",
                              "EnableGlobbing",
                              "Program",
                              "ProgramArguments",
                              "WorkingDirectory",
                              "StandardInPath",
                              "StandardOutPath",
                              "StandardErrorPath",
                              "EnvironmentVariables",
                              "RunAtLoad",
                              "StartInterval",
                              "StartCalendarInterval",
                              "StartOnMount",
                              "OnDemand",
                              "KeepAlive",
                              "WatchPaths",
                              "QueueDirectories",
                              "Umask",
                              "SessionCreate",
                              "GroupName",
                              "UserName",
                              "InitGroups",
                              "RootDirectory",
                              "LaunchOnlyOnce",
                              "LimitLoadToSessionType",
                              "LimitLoadToHosts",
                              "LimitLoadFromHosts",
                              "AbandonProcessGroup",
                              "EnablePressuredExit",
                              "EnableTransactions",
                              "ExitTimeOut",
                              "inetdCompatibility",
                              "HardResourceLimits",
                              "SoftResourceLimits",
                              "TimeOut",
                              "ThrottleInterval",
                              "MachServices",
                              "Debug",
                              "WaitForDebugger",
                              "LegacyTimers",
                              "LowPriorityIO",
                              "LowPriorityBackgroundIO",
                              "Nice",
                              "ProcessType"};
    const auto& table = vornix::plist::RawValues<Key>::table;
    ASSERT_EQ(std::size(table), std::size(expected));
    for (std::size_t index = 0; index < std::size(table); ++index) {
        EXPECT_EQ(static_cast<std::size_t>(table[index].first), index);
        EXPECT_EQ(table[index].second, expected[index]);
    }
}

TEST(LaunchAgentCodingKeys, InetdAndTimeOutKeysKeepTheirForms) {
    EXPECT_EQ(codingKey(Key::inetdCompatibility), "inetdCompatibility");
    EXPECT_EQ(codingKey(Key::exitTimeOut), "ExitTimeOut");
    EXPECT_EQ(codingKey(Key::timeOut), "TimeOut");
}

TEST(LaunchAgentCodingKeys, TheMemberTableCoversEveryOptionalKey) {
    std::set<std::string> keys;
    for (const OptionalMember& member : optionalMembers()) {
        EXPECT_EQ(codingKey(member.key), member.text);
        keys.insert(member.text);
    }
    EXPECT_EQ(keys.size(), 44U);
    EXPECT_FALSE(keys.contains("Label"));
}

TEST(LaunchAgentEncoding, AOneWordProgramGivesProgramAndNoProgramArguments) {
    EXPECT_EQ(encoded(LaunchAgent("job", Words{"/bin/tool"})),
              dictionary({{"Label", "job"}, {"Program", "/bin/tool"}}));
}

TEST(LaunchAgentEncoding, ATwoWordListGivesProgramArgumentsWithBothWords) {
    EXPECT_EQ(encoded(LaunchAgent("job", Words{"/bin/tool", "-v"})),
              dictionary({{"Label", "job"}, {"ProgramArguments", array({"/bin/tool", "-v"})}}));
}

TEST(LaunchAgentEncoding, AnEmptyListGivesAnEmptyProgramArgumentsArray) {
    EXPECT_EQ(encoded(LaunchAgent("job", Words{})), dictionary({{"Label", "job"}, {"ProgramArguments", array({})}}));
}

TEST(LaunchAgentEncoding, AFreshRecordWithRunAtLoadIsExactlyThreeEntries) {
    LaunchAgent agent("com.vornix.os.launch", "/Applications/Vornix OS.app/Contents/MacOS/Vornix OS");
    agent.runAtLoad = true;
    EXPECT_EQ(encoded(agent), dictionary({{"Label", "com.vornix.os.launch"},
                                          {"Program", "/Applications/Vornix OS.app/Contents/MacOS/Vornix OS"},
                                          {"RunAtLoad", true}}));
}

TEST(LaunchAgentEncoding, UrlIsNeverWritten) {
    LaunchAgent agent("job", "/bin/tool");
    agent.url = "/Users/ada/Library/LaunchAgents/job.plist";
    EXPECT_EQ(encoded(agent), dictionary({{"Label", "job"}, {"Program", "/bin/tool"}}));
}

TEST(LaunchAgentEncoding, PresentFalseAndZeroAreWrittenAndAbsentOnesAreNot) {
    LaunchAgent agent("job", "/bin/tool");
    agent.disabled = false;
    agent.startInterval = 0;
    agent.nice = 0;
    agent.watchPaths = Words{};
    EXPECT_EQ(encoded(agent), dictionary({{"Label", "job"},
                                          {"Program", "/bin/tool"},
                                          {"Disabled", false},
                                          {"StartInterval", 0},
                                          {"Nice", 0},
                                          {"WatchPaths", array({})}}));
}

TEST(LaunchAgentEncoding, NestedRecordsAreWrittenAsDictionaries) {
    LaunchAgent agent("job", "/bin/tool");
    agent.startCalendarInterval = std::make_shared<StartCalendarInterval>(StartMonth::may, StartWeekday::sunday);
    agent.inetdCompatibility = std::make_shared<inetdCompatibility>(false);
    agent.hardResourceLimits = std::make_shared<ResourceLimits>();
    agent.softResourceLimits = std::make_shared<ResourceLimits>(std::nullopt, 0);
    agent.machServices = std::map<std::string, std::shared_ptr<MachService>>{
        {"com.example.port", std::make_shared<MachService>(false, true)}};
    agent.processType = ProcessType::interactive;
    EXPECT_EQ(encoded(agent),
              dictionary({{"Label", "job"},
                          {"Program", "/bin/tool"},
                          {"StartCalendarInterval", dictionary({{"Month", 5}, {"Weekday", 7}})},
                          {"inetdCompatibility", dictionary({{"Wait", false}})},
                          {"HardResourceLimits", Dictionary()},
                          {"SoftResourceLimits", dictionary({{"Core", 0}})},
                          {"MachServices", dictionary({{"com.example.port", dictionary({{"HideUntilCheckIn", false},
                                                                                        {"ResetAtClose", true}})}})},
                          {"ProcessType", "Interactive"}}));
}

TEST(LaunchAgentEncoding, AnUnencodableMemberFailsWithTheEncodersError) {
    LaunchAgent agent("job", "/bin/tool");
    agent.machServices = std::map<std::string, std::shared_ptr<MachService>>{{"com.example.port", nullptr}};
    EXPECT_EQ(encodingFailurePath(agent), (CodingPath{"MachServices", "com.example.port"}));
}

TEST(LaunchAgentEncoding, MembersAreVisitedInTableOrder) {
    LaunchAgent agent("job", "/bin/tool");
    agent.processType = static_cast<ProcessType>(99);
    EXPECT_EQ(encodingFailurePath(agent), CodingPath{"ProcessType"});
    agent.machServices = std::map<std::string, std::shared_ptr<MachService>>{{"port", nullptr}};
    EXPECT_EQ(encodingFailurePath(agent), (CodingPath{"MachServices", "port"}));
}

TEST(LaunchAgentDecoding, LabelOnlyLeavesEveryOtherMemberAbsent) {
    const auto agent = decoded<LaunchAgent>(labelled({}));
    EXPECT_EQ(agent->label, "com.example.job");
    EXPECT_EQ(agent->url, std::nullopt);
    EXPECT_EQ(countPresent(*agent), 0U);
    EXPECT_EQ(encoded(*agent), labelled({}));
}

TEST(LaunchAgentDecoding, AMissingLabelFailsEvenWhenAllOtherKeysAreValid) {
    std::vector<Dictionary::Entry> entries;
    for (const OptionalMember& member : optionalMembers()) {
        entries.emplace_back(member.text, member.typical);
    }
    const Dictionary allButLabel = dictionary(entries);
    EXPECT_EQ(decoded<LaunchAgent>(labelled(entries))->label, "com.example.job");
    CodingPath path;
    EXPECT_EQ(decodingFailure<LaunchAgent>(allButLabel, &path), Kind::keyNotFound);
    EXPECT_EQ(path, CodingPath{"Label"});
}

TEST(LaunchAgentDecoding, ALabelOfTheWrongTypeIsTypeMismatch) {
    CodingPath path;
    EXPECT_EQ(decodingFailure<LaunchAgent>(dictionary({{"Label", 42}}), &path), Kind::typeMismatch);
    EXPECT_EQ(path, CodingPath{"Label"});
}

TEST(LaunchAgentDecoding, NiceFiftyIsKeptAndAssigningFiftyAfterwardsStoresTwenty) {
    const auto agent = decoded<LaunchAgent>(labelled({{"Nice", 50}}));
    EXPECT_EQ(agent->nice, 50);
    EXPECT_EQ(encoded(*agent), labelled({{"Nice", 50}}));
    agent->nice = 50;
    EXPECT_EQ(agent->nice, 20);
}

TEST(LaunchAgentDecoding, ACapitalIInetdKeyIsUnknownAndIgnored) {
    const auto agent = decoded<LaunchAgent>(labelled({{"InetdCompatibility", dictionary({{"Wait", true}})}}));
    EXPECT_EQ(agent->inetdCompatibility, nullptr);
    EXPECT_EQ(encoded(*agent), labelled({}));
}

TEST(LaunchAgentDecoding, UnknownKeysAreIgnored) {
    const auto agent = decoded<LaunchAgent>(
        labelled({{"Sockets", dictionary({{"Listeners", Dictionary()}})}, {"label", "other"}, {"RunAtLoad", true}}));
    EXPECT_EQ(encoded(*agent), labelled({{"RunAtLoad", true}}));
}

TEST(LaunchAgentDecoding, TheFirstFailingKeyInTableOrderIsReported) {
    CodingPath path;
    EXPECT_EQ(decodingFailure<LaunchAgent>(labelled({{"ProcessType", "standard"}, {"Disabled", "yes"}}), &path),
              Kind::typeMismatch);
    EXPECT_EQ(path, CodingPath{"Disabled"});
    EXPECT_EQ(decodingFailure<LaunchAgent>(dictionary({{"Disabled", "yes"}}), &path), Kind::keyNotFound);
    EXPECT_EQ(path, CodingPath{"Label"});
}

TEST(LaunchAgentDecoding, AnUnknownProcessTypeIsDataCorrupted) {
    CodingPath path;
    EXPECT_EQ(decodingFailure<LaunchAgent>(labelled({{"ProcessType", "interactive"}}), &path), Kind::dataCorrupted);
    EXPECT_EQ(path, CodingPath{"ProcessType"});
    EXPECT_EQ(decoded<LaunchAgent>(labelled({{"ProcessType", "Interactive"}}))->processType, ProcessType::interactive);
}

TEST(LaunchAgentDecoding, AFailureInsideANestedRecordFailsTheWholeDecode) {
    CodingPath path;
    EXPECT_EQ(decodingFailure<LaunchAgent>(labelled({{"StartCalendarInterval", dictionary({{"Weekday", 0}})}}), &path),
              Kind::dataCorrupted);
    EXPECT_EQ(path, (CodingPath{"StartCalendarInterval", "Weekday"}));
    EXPECT_EQ(
        decodingFailure<LaunchAgent>(
            labelled({{"MachServices", dictionary({{"com.example.port", dictionary({{"ResetAtClose", true}})}})}}),
            &path),
        Kind::keyNotFound);
    EXPECT_EQ(path, (CodingPath{"MachServices", "com.example.port", "HideUntilCheckIn"}));
    EXPECT_EQ(decodingFailure<LaunchAgent>(labelled({{"inetdCompatibility", Dictionary()}}), &path), Kind::keyNotFound);
    EXPECT_EQ(path, (CodingPath{"inetdCompatibility", "Wait"}));
    EXPECT_EQ(decodingFailure<LaunchAgent>(labelled({{"ProgramArguments", array({"/bin/tool", 7})}}), &path),
              Kind::typeMismatch);
    EXPECT_EQ(path, (CodingPath{"ProgramArguments", "Index 1"}));
}

TEST(LaunchAgentDecoding, ValuesAreStoredAsReadWithoutRangeChecks) {
    const auto agent =
        decoded<LaunchAgent>(labelled({{"Nice", -100},
                                       {"Umask", -1},
                                       {"StartInterval", -5},
                                       {"StartCalendarInterval", dictionary({{"Day", 0}, {"Hour", 30}})}}));
    EXPECT_EQ(agent->nice, -100);
    EXPECT_EQ(agent->umask, -1);
    EXPECT_EQ(agent->startInterval, -5);
    EXPECT_EQ(agent->startCalendarInterval->day, 0);
    EXPECT_EQ(agent->startCalendarInterval->hour, 30);
}

TEST(LaunchAgentDecoding, DecodesEachMemberIntoItsOwnPlace) {
    const auto agent = decoded<LaunchAgent>(labelled({{"Program", "/bin/tool"},
                                                      {"ExitTimeOut", 7},
                                                      {"TimeOut", 8},
                                                      {"ThrottleInterval", 9},
                                                      {"WaitForDebugger", true},
                                                      {"Debug", false},
                                                      {"LimitLoadToHosts", array({"a"})},
                                                      {"LimitLoadFromHosts", array({"b"})},
                                                      {"StandardOutPath", "/out"},
                                                      {"StandardErrorPath", "/err"}}));
    EXPECT_EQ(agent->program, "/bin/tool");
    EXPECT_EQ(agent->exitTimeOut, 7);
    EXPECT_EQ(agent->timeOut, 8);
    EXPECT_EQ(agent->throttleInterval, 9);
    EXPECT_EQ(agent->waitForDebugger, true);
    EXPECT_EQ(agent->debug, false);
    EXPECT_EQ(agent->limitLoadToHosts, Words{"a"});
    EXPECT_EQ(agent->limitLoadFromHosts, Words{"b"});
    EXPECT_EQ(agent->standardOutPath, "/out");
    EXPECT_EQ(agent->standardErrorPath, "/err");
}

TEST(LaunchAgentRoundTrip, EveryKeyRoundTripsWithATypicalValue) {
    for (const OptionalMember& member : optionalMembers()) {
        const Dictionary entries = labelled({{member.text, member.typical}});
        const auto agent = decoded<LaunchAgent>(entries);
        EXPECT_TRUE(member.isPresent(*agent)) << member.text;
        EXPECT_EQ(countPresent(*agent), 1U) << member.text;
        EXPECT_EQ(encoded(*agent), entries) << member.text;
    }
}

TEST(LaunchAgentRoundTrip, EveryKeyRoundTripsWhenPresentButFalseZeroOrEmpty) {
    for (const OptionalMember& member : optionalMembers()) {
        const Dictionary entries = labelled({{member.text, member.falsy}});
        const auto agent = decoded<LaunchAgent>(entries);
        EXPECT_TRUE(member.isPresent(*agent)) << member.text;
        EXPECT_EQ(encoded(*agent), entries) << member.text;
    }
}

TEST(LaunchAgentRoundTrip, EveryKeyAtOnceRoundTrips) {
    std::vector<Dictionary::Entry> entries;
    for (const OptionalMember& member : optionalMembers()) {
        entries.emplace_back(member.text, member.typical);
    }
    const auto agent = decoded<LaunchAgent>(labelled(entries));
    EXPECT_EQ(countPresent(*agent), 44U);
    EXPECT_EQ(encoded(*agent), labelled(entries));
}

TEST(LaunchAgentRoundTrip, EveryAbsentKeyStaysAbsent) {
    for (const OptionalMember& absent : optionalMembers()) {
        std::vector<Dictionary::Entry> entries;
        for (const OptionalMember& member : optionalMembers()) {
            if (member.key != absent.key) {
                entries.emplace_back(member.text, member.typical);
            }
        }
        const auto agent = decoded<LaunchAgent>(labelled(entries));
        EXPECT_FALSE(absent.isPresent(*agent)) << absent.text;
        EXPECT_FALSE(encoded(*agent).contains(absent.text)) << absent.text;
    }
}

TEST(LaunchAgentDecoding, EveryMembersWrongTypeIsATypeMismatchNamingItsKey) {
    for (const OptionalMember& member : optionalMembers()) {
        CodingPath path;
        EXPECT_EQ(decodingFailure<LaunchAgent>(labelled({{member.text, member.wrongType}}), &path), Kind::typeMismatch)
            << member.text;
        EXPECT_EQ(path, CodingPath{member.text}) << member.text;
    }
}

}  // namespace
