#include "plist/KeyedCoding.hpp"

#include "plist/PropertyList.hpp"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace test {

using vornix::plist::KeyedDecoder;
using vornix::plist::KeyedEncoder;

enum class Weekday { monday = 1, sunday = 7 };
enum class Kind { standard, interactive };

struct Service {
    bool hideUntilCheckIn = false;
    bool resetAtClose = false;

    Service(bool hide, bool reset) : hideUntilCheckIn(hide), resetAtClose(reset) {}
    explicit Service(const KeyedDecoder& decoder)
        : hideUntilCheckIn(decoder.decode<bool>("HideUntilCheckIn")),
          resetAtClose(decoder.decode<bool>("ResetAtClose")) {}
    void encode(KeyedEncoder& encoder) const {
        encoder.encode("HideUntilCheckIn", hideUntilCheckIn);
        encoder.encode("ResetAtClose", resetAtClose);
    }
};

struct Calendar {
    std::optional<Weekday> weekday;
    std::optional<std::int64_t> day;

    Calendar() = default;
    explicit Calendar(const KeyedDecoder& decoder)
        : weekday(decoder.decodeIfPresent<Weekday>("Weekday")), day(decoder.decodeIfPresent<std::int64_t>("Day")) {}
    void encode(KeyedEncoder& encoder) const {
        encoder.encodeIfPresent("Weekday", weekday);
        encoder.encodeIfPresent("Day", day);
    }
};

struct Job {
    std::string label;
    std::optional<bool> runAtLoad;
    std::optional<std::string> program;
    std::optional<std::vector<std::string>> programArguments;
    std::optional<std::map<std::string, std::string>> environmentVariables;
    std::optional<std::int64_t> nice;
    std::shared_ptr<Calendar> startCalendarInterval;
    std::optional<std::map<std::string, std::shared_ptr<Service>>> machServices;
    std::optional<Kind> processType;

    explicit Job(std::string name) : label(std::move(name)) {}
    explicit Job(const KeyedDecoder& decoder)
        : label(decoder.decode<std::string>("Label")),
          runAtLoad(decoder.decodeIfPresent<bool>("RunAtLoad")),
          program(decoder.decodeIfPresent<std::string>("Program")),
          programArguments(decoder.decodeIfPresent<std::vector<std::string>>("ProgramArguments")),
          environmentVariables(decoder.decodeIfPresent<std::map<std::string, std::string>>("EnvironmentVariables")),
          nice(decoder.decodeIfPresent<std::int64_t>("Nice")),
          startCalendarInterval(decoder.decodeIfPresent<std::shared_ptr<Calendar>>("StartCalendarInterval")),
          machServices(decoder.decodeIfPresent<std::map<std::string, std::shared_ptr<Service>>>("MachServices")),
          processType(decoder.decodeIfPresent<Kind>("ProcessType")) {}
    void encode(KeyedEncoder& encoder) const {
        encoder.encode("Label", label);
        encoder.encodeIfPresent("RunAtLoad", runAtLoad);
        encoder.encodeIfPresent("Program", program);
        encoder.encodeIfPresent("ProgramArguments", programArguments);
        encoder.encodeIfPresent("EnvironmentVariables", environmentVariables);
        encoder.encodeIfPresent("Nice", nice);
        encoder.encodeIfPresent("StartCalendarInterval", startCalendarInterval);
        encoder.encodeIfPresent("MachServices", machServices);
        encoder.encodeIfPresent("ProcessType", processType);
    }
};

}  // namespace test

template <>
struct vornix::plist::RawValues<test::Weekday> {
    static constexpr std::pair<test::Weekday, std::int64_t> table[] = {{test::Weekday::monday, 1},
                                                                       {test::Weekday::sunday, 7}};
};

template <>
struct vornix::plist::RawValues<test::Kind> {
    static constexpr std::pair<test::Kind, std::string_view> table[] = {{test::Kind::standard, "Standard"},
                                                                        {test::Kind::interactive, "Interactive"}};
};

namespace {

using namespace vornix::plist;
using test::Job;

Dictionary dict(std::vector<Dictionary::Entry> entries) { return Dictionary::fromEntries(std::move(entries)); }

Dictionary encoded(const Job& job) { return *encodeValue(job).get<Dictionary>(); }

Job decodeJob(Dictionary dictionary) { return decodeValue<Job>(Value(std::move(dictionary))); }

template <class Error>
Error decodeFailure(Dictionary dictionary) {
    try {
        decodeJob(std::move(dictionary));
    } catch (const Error& error) {
        return error;
    }
    ADD_FAILURE() << "the decode did not fail as expected";
    throw std::logic_error("no error");
}

TEST(KeyedEncoder, WritesOnlyTheRequiredKeyForAFreshRecord) {
    EXPECT_EQ(encoded(Job("com.example.job")), dict({{"Label", "com.example.job"}}));
}

TEST(KeyedEncoder, EncodeIfPresentWritesPresentFalseZeroAndEmpty) {
    Job job("x");
    job.runAtLoad = false;
    job.nice = 0;
    job.programArguments = std::vector<std::string>{};
    job.environmentVariables = std::map<std::string, std::string>{};
    EXPECT_EQ(encoded(job), dict({{"Label", "x"},
                                  {"RunAtLoad", false},
                                  {"Nice", 0},
                                  {"ProgramArguments", Array{}},
                                  {"EnvironmentVariables", Dictionary{}}}));
}

TEST(KeyedEncoder, NestedRecordsBecomeDictionaries) {
    Job job("x");
    job.startCalendarInterval = std::make_shared<test::Calendar>();
    job.startCalendarInterval->weekday = test::Weekday::sunday;
    job.machServices = std::map<std::string, std::shared_ptr<test::Service>>{
        {"com.example.service", std::make_shared<test::Service>(false, false)}};
    job.processType = test::Kind::interactive;
    EXPECT_EQ(encoded(job),
              dict({{"Label", "x"},
                    {"StartCalendarInterval", dict({{"Weekday", 7}})},
                    {"MachServices",
                     dict({{"com.example.service", dict({{"HideUntilCheckIn", false}, {"ResetAtClose", false}})}})},
                    {"ProcessType", "Interactive"}}));
}

TEST(KeyedEncoder, ANullSharedRecordIsAbsentForEncodeIfPresent) {
    Job job("x");
    job.startCalendarInterval = nullptr;
    EXPECT_FALSE(encoded(job).contains("StartCalendarInterval"));
}

TEST(KeyedEncoder, ANullRecordWhereOneIsRequiredIsAnEncodingErrorWithItsPath) {
    Job job("x");
    job.machServices = std::map<std::string, std::shared_ptr<test::Service>>{{"svc", nullptr}};
    try {
        encodeValue(job);
        FAIL() << "encoded a null record";
    } catch (const EncodingError& error) {
        EXPECT_EQ(error.pathText(), "MachServices/svc");
        EXPECT_EQ(std::string(error.what()), "invalidValue at MachServices/svc: a required record is null");
    }
}

TEST(KeyedEncoder, AnEnumerationValueOutsideItsTableIsAnEncodingError) {
    Job job("x");
    job.processType = static_cast<test::Kind>(9);
    EXPECT_THROW(encodeValue(job), EncodingError);
}

TEST(KeyedEncoder, TheSameKeyWrittenTwiceKeepsTheLastValue) {
    KeyedEncoder encoder;
    encoder.encode("A", std::int64_t{1});
    encoder.encode("A", std::int64_t{2});
    EXPECT_EQ(encoder.dictionary(), dict({{"A", 2}}));
}

TEST(KeyedDecoder, RoundTripsEveryMemberKind) {
    Job job("com.example.job");
    job.runAtLoad = true;
    job.program = "/usr/bin/true";
    job.programArguments = std::vector<std::string>{"a", "b"};
    job.environmentVariables = std::map<std::string, std::string>{{"PATH", "/bin"}};
    job.nice = -5;
    job.startCalendarInterval = std::make_shared<test::Calendar>();
    job.startCalendarInterval->day = 40;
    job.machServices = std::map<std::string, std::shared_ptr<test::Service>>{
        {"svc", std::make_shared<test::Service>(true, false)}};
    job.processType = test::Kind::standard;

    const Job back = decodeJob(encoded(job));
    EXPECT_EQ(back.label, job.label);
    EXPECT_EQ(back.runAtLoad, job.runAtLoad);
    EXPECT_EQ(back.program, job.program);
    EXPECT_EQ(back.programArguments, job.programArguments);
    EXPECT_EQ(back.environmentVariables, job.environmentVariables);
    EXPECT_EQ(back.nice, job.nice);
    ASSERT_NE(back.startCalendarInterval, nullptr);
    EXPECT_EQ(back.startCalendarInterval->day, 40);
    EXPECT_EQ(back.startCalendarInterval->weekday, std::nullopt);
    ASSERT_TRUE(back.machServices.has_value());
    EXPECT_TRUE(back.machServices->at("svc")->hideUntilCheckIn);
    EXPECT_FALSE(back.machServices->at("svc")->resetAtClose);
    EXPECT_EQ(back.processType, test::Kind::standard);
}

TEST(KeyedDecoder, MissingOptionalKeysLeaveMembersAbsentAndUnknownKeysAreIgnored) {
    const Job job = decodeJob(dict({{"Label", "x"}, {"SomethingElse", 3}}));
    EXPECT_EQ(job.label, "x");
    EXPECT_EQ(job.runAtLoad, std::nullopt);
    EXPECT_EQ(job.programArguments, std::nullopt);
    EXPECT_EQ(job.startCalendarInterval, nullptr);
    EXPECT_EQ(job.machServices, std::nullopt);
}

TEST(KeyedDecoder, AMissingRequiredKeyIsKeyNotFoundWithTheKeyAsPath) {
    const auto error = decodeFailure<KeyNotFound>(dict({{"RunAtLoad", true}}));
    EXPECT_EQ(error.kind(), DecodingError::Kind::keyNotFound);
    EXPECT_EQ(error.codingPath(), CodingPath{"Label"});
    EXPECT_EQ(std::string(error.what()), "keyNotFound at Label: no value for the required key \"Label\"");
}

TEST(KeyedDecoder, AMissingKeyInANestedRecordNamesThePathFromTheTop) {
    const auto error = decodeFailure<KeyNotFound>(
        dict({{"Label", "x"}, {"MachServices", dict({{"svc", dict({{"ResetAtClose", true}})}})}}));
    EXPECT_EQ(error.codingPath(), (CodingPath{"MachServices", "svc", "HideUntilCheckIn"}));
}

TEST(KeyedDecoder, ABooleanIsReadOnlyFromABoolean) {
    for (const Value& notBoolean : {Value(1), Value("true"), Value(1.0)}) {
        const auto error = decodeFailure<TypeMismatch>(dict({{"Label", "x"}, {"RunAtLoad", notBoolean}}));
        EXPECT_EQ(error.kind(), DecodingError::Kind::typeMismatch);
        EXPECT_EQ(error.pathText(), "RunAtLoad");
    }
}

TEST(KeyedDecoder, ARealReadAsAnIntegerIsATypeMismatch) {
    const auto error = decodeFailure<TypeMismatch>(dict({{"Label", "x"}, {"Nice", 5.0}}));
    EXPECT_EQ(error.description(), "expected integer but found real instead");
}

TEST(KeyedDecoder, TextReadAsAnIntegerIsATypeMismatch) {
    EXPECT_THROW(decodeJob(dict({{"Label", "x"}, {"Nice", "5"}})), TypeMismatch);
}

TEST(KeyedDecoder, ARealReadsAnIntegerItHoldsExactly) {
    EXPECT_EQ(decodeValue<double>(Value(std::int64_t{1} << 53)), 0x1p53);
    EXPECT_EQ(decodeValue<double>(Value(-3)), -3.0);
    EXPECT_THROW(decodeValue<double>(Value((std::int64_t{1} << 53) + 1)), TypeMismatch);
    EXPECT_THROW(decodeValue<double>(Value(INT64_MAX)), TypeMismatch);
    EXPECT_THROW(decodeValue<double>(Value(true)), TypeMismatch);
}

TEST(KeyedDecoder, ATypeMismatchInsideANestedRecordNamesBothKeys) {
    const auto error =
        decodeFailure<TypeMismatch>(dict({{"Label", "x"}, {"StartCalendarInterval", dict({{"Weekday", "7"}})}}));
    EXPECT_EQ(error.codingPath(), (CodingPath{"StartCalendarInterval", "Weekday"}));
    EXPECT_EQ(error.pathText(), "StartCalendarInterval/Weekday");
}

TEST(KeyedDecoder, AnArrayElementOfTheWrongKindNamesItsIndex) {
    const auto error = decodeFailure<TypeMismatch>(dict({{"Label", "x"}, {"ProgramArguments", Array{"a", 2}}}));
    EXPECT_EQ(error.pathText(), "ProgramArguments/Index 1");
}

TEST(KeyedDecoder, AMapValueOfTheWrongKindNamesItsKey) {
    const auto error =
        decodeFailure<TypeMismatch>(dict({{"Label", "x"}, {"EnvironmentVariables", dict({{"HOME", true}})}}));
    EXPECT_EQ(error.pathText(), "EnvironmentVariables/HOME");
}

TEST(KeyedDecoder, ANestedRecordThatIsNotADictionaryIsATypeMismatch) {
    const auto error = decodeFailure<TypeMismatch>(dict({{"Label", "x"}, {"StartCalendarInterval", Array{}}}));
    EXPECT_EQ(error.description(), "expected dict but found array instead");
}

TEST(KeyedDecoder, AnIntegerEnumerationDecodesItsCasesAndRejectsOtherValuesAsDataCorrupted) {
    const Job sunday = decodeJob(dict({{"Label", "x"}, {"StartCalendarInterval", dict({{"Weekday", 7}})}}));
    EXPECT_EQ(sunday.startCalendarInterval->weekday, test::Weekday::sunday);

    const auto error =
        decodeFailure<DataCorrupted>(dict({{"Label", "x"}, {"StartCalendarInterval", dict({{"Weekday", 0}})}}));
    EXPECT_EQ(error.kind(), DecodingError::Kind::dataCorrupted);
    EXPECT_EQ(error.pathText(), "StartCalendarInterval/Weekday");
    EXPECT_EQ(error.description(), "no case of the enumeration has the raw value 0");
}

TEST(KeyedDecoder, ATextEnumerationMatchesExactlyAndCaseSensitively) {
    EXPECT_EQ(decodeJob(dict({{"Label", "x"}, {"ProcessType", "Interactive"}})).processType,
              test::Kind::interactive);
    const auto error = decodeFailure<DataCorrupted>(dict({{"Label", "x"}, {"ProcessType", "interactive"}}));
    EXPECT_EQ(error.description(), "no case of the enumeration has the raw value \"interactive\"");
    EXPECT_THROW(decodeJob(dict({{"Label", "x"}, {"ProcessType", 1}})), TypeMismatch);
}

TEST(KeyedDecoder, TheNullMarkerIsAbsentForDecodeIfPresentAndValueNotFoundForDecode) {
    EXPECT_EQ(decodeJob(dict({{"Label", "x"}, {"Program", "$null"}})).program, std::nullopt);
    const auto error = decodeFailure<ValueNotFound>(dict({{"Label", "$null"}}));
    EXPECT_EQ(error.kind(), DecodingError::Kind::valueNotFound);
    EXPECT_EQ(error.pathText(), "Label");
    const auto inArray = decodeFailure<ValueNotFound>(dict({{"Label", "x"}, {"ProgramArguments", Array{"$null"}}}));
    EXPECT_EQ(inArray.pathText(), "ProgramArguments/Index 0");
}

TEST(KeyedDecoder, TheFirstFailingKeyInDecodingOrderIsReported) {
    const auto error = decodeFailure<DecodingError>(dict({{"RunAtLoad", "yes"}, {"Nice", "high"}}));
    EXPECT_EQ(error.kind(), DecodingError::Kind::keyNotFound);
}

TEST(DecodingError, KindNamesAreTheFourCodingErrorNames) {
    EXPECT_EQ(kindName(DecodingError::Kind::keyNotFound), "keyNotFound");
    EXPECT_EQ(kindName(DecodingError::Kind::typeMismatch), "typeMismatch");
    EXPECT_EQ(kindName(DecodingError::Kind::valueNotFound), "valueNotFound");
    EXPECT_EQ(kindName(DecodingError::Kind::dataCorrupted), "dataCorrupted");
}

TEST(DecodingError, AnErrorAtTheTopLevelHasNoPathInItsMessage) {
    const DataCorrupted error({}, "line 1, column 1: not a property list");
    EXPECT_EQ(error.pathText(), "");
    EXPECT_EQ(std::string(error.what()), "dataCorrupted: line 1, column 1: not a property list");
}

TEST(PropertyList, EncodeWritesARecordAsXmlBytesAndDecodeReadsThemBack) {
    Job job("com.example.job");
    job.program = "/usr/bin/true";
    job.runAtLoad = true;
    const std::string bytes = encode(job);
    EXPECT_EQ(bytes,
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" \"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
              "<plist version=\"1.0\">\n<dict>\n\t<key>Label</key>\n\t<string>com.example.job</string>\n"
              "\t<key>Program</key>\n\t<string>/usr/bin/true</string>\n\t<key>RunAtLoad</key>\n\t<true/>\n"
              "</dict>\n</plist>\n");
    const auto back = decode<std::shared_ptr<Job>>(bytes);
    EXPECT_EQ(back->label, "com.example.job");
    EXPECT_EQ(back->program, "/usr/bin/true");
    EXPECT_EQ(back->runAtLoad, true);
    EXPECT_EQ(decode<Value>(bytes), encodeValue(job));
}

TEST(PropertyList, DecodePassesEveryErrorKindToTheCaller) {
    EXPECT_THROW(decode<Job>("<plist><dict/>"), DataCorrupted);
    EXPECT_THROW(decode<Job>("<plist><dict/></plist>"), KeyNotFound);
    EXPECT_THROW(decode<Job>("<plist><array/></plist>"), TypeMismatch);
    EXPECT_THROW(decode<Job>("<plist><dict><key>Label</key><string>$null</string></dict></plist>"), ValueNotFound);
}

TEST(RawValues, GiveEachCaseItsRawValueAndBack) {
    EXPECT_EQ(rawValue(test::Weekday::sunday), 7);
    EXPECT_EQ(rawValue(test::Kind::interactive), "Interactive");
    EXPECT_EQ(fromRawValue<test::Weekday>(1), test::Weekday::monday);
    EXPECT_EQ(fromRawValue<test::Weekday>(3), std::nullopt);
    EXPECT_EQ(fromRawValue<test::Kind>("Standard"), test::Kind::standard);
}

}  // namespace
