#include "plist/TypedJson.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

#include "plist/DecodingError.hpp"
#include "plist/EncodingError.hpp"
#include "plist/tests/PrintValue.hpp"

namespace {

using namespace vornix::plist;

std::string failure(std::string_view text) {
    try {
        readTypedJson(text);
    } catch (const DataCorrupted& error) {
        return error.what();
    }
    ADD_FAILURE() << "read without error: " << text;
    return {};
}

TEST(TypedJson, EveryKindHasOneObjectNamingIt) {
    const Value value = Dictionary::fromEntries({{"b", Array{"s", std::int64_t{-5}, 0.5, true}},
                                                 {"a", Dictionary::fromEntries({{"d", Date{728395200}},
                                                                                {"x", Data{'h', 'i'}}})}});
    EXPECT_EQ(writeTypedJson(value),
              "{\n"
              "  \"dict\": {\n"
              "    \"a\": {\n"
              "      \"dict\": {\n"
              "        \"d\": {\n"
              "          \"date\": \"2024-01-31T12:00:00Z\"\n"
              "        },\n"
              "        \"x\": {\n"
              "          \"data\": \"aGk=\"\n"
              "        }\n"
              "      }\n"
              "    },\n"
              "    \"b\": {\n"
              "      \"array\": [\n"
              "        {\n"
              "          \"string\": \"s\"\n"
              "        },\n"
              "        {\n"
              "          \"integer\": \"-5\"\n"
              "        },\n"
              "        {\n"
              "          \"real\": \"0.5\"\n"
              "        },\n"
              "        {\n"
              "          \"bool\": true\n"
              "        }\n"
              "      ]\n"
              "    }\n"
              "  }\n"
              "}\n");
    EXPECT_EQ(readTypedJson(writeTypedJson(value)), value);
}

TEST(TypedJson, IntegersAreExactDecimalTextAcrossTheRange) {
    const Value extremes = Array{std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()};
    EXPECT_NE(writeTypedJson(extremes).find("\"-9223372036854775808\""), std::string::npos);
    EXPECT_EQ(readTypedJson(writeTypedJson(extremes)), extremes);
}

TEST(TypedJson, RealsAreTheShortestTextThatReadsBack) {
    EXPECT_EQ(writeTypedJson(0.1), "{\n  \"real\": \"0.1\"\n}\n");
    EXPECT_EQ(writeTypedJson(1.0), "{\n  \"real\": \"1\"\n}\n");
    for (const double real : {1.0 / 3, 1e300, -5e-324, std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(readTypedJson(writeTypedJson(real)), Value(real));
    }
}

TEST(TypedJson, ADateKeepsItsFractionOfASecond) {
    EXPECT_EQ(writeTypedJson(Date{0.5}), "{\n  \"date\": \"2001-01-01T00:00:00.5Z\"\n}\n");
    EXPECT_EQ(readTypedJson(writeTypedJson(Date{12.375})), Value(Date{12.375}));
}

TEST(TypedJson, NonAsciiTextStaysUtf8) {
    EXPECT_EQ(writeTypedJson("\u00e9\U0001F600"), "{\n  \"string\": \"\u00e9\U0001F600\"\n}\n");
}

TEST(TypedJson, TextThatIsNotJsonIsDataCorruptedWithItsPosition) {
    EXPECT_EQ(failure("{\"string\": }").rfind("dataCorrupted: not JSON: parse error at line 1, column 12", 0), 0u);
    EXPECT_NE(failure("").find("not JSON"), std::string::npos);
}

// Found by fuzz_plist_typed_json: nlohmann refuses such a number with out_of_range, not parse_error.
TEST(TypedJson, NumberBeyondADoublesRangeIsDataCorruptedNotJson) {
    EXPECT_EQ(failure("4444e444e44{\"bool\": 4444444444444;"),
              "dataCorrupted: not JSON: number overflow parsing '4444e444'");
    EXPECT_EQ(failure("{\"real\": -1e999}"), "dataCorrupted: not JSON: number overflow parsing '-1e999'");
}

TEST(TypedJson, JsonThatIsNotTheTypedFormNamesThePathOfTheFault) {
    EXPECT_EQ(failure("\"bare\""), "dataCorrupted: a value is not a JSON object with exactly one member naming its kind");
    EXPECT_EQ(failure("{\"string\": \"a\", \"bool\": true}"),
              "dataCorrupted: a value is not a JSON object with exactly one member naming its kind");
    EXPECT_EQ(failure("{\"text\": \"a\"}"),
              "dataCorrupted: \"text\" is not a kind (string, integer, real, bool, date, data, array, dict)");
    EXPECT_EQ(failure("{\"dict\": {\"Label\": {\"integer\": 5}}}"),
              "dataCorrupted at Label: the content of \"integer\" is not a JSON string");
    EXPECT_EQ(failure("{\"array\": [{\"bool\": true}, {\"integer\": \"5x\"}]}"),
              "dataCorrupted at Index 1: \"5x\" is not a 64-bit integer");
    EXPECT_EQ(failure("{\"integer\": \"9223372036854775808\"}"),
              "dataCorrupted: \"9223372036854775808\" is not a 64-bit integer");
    EXPECT_EQ(failure("{\"real\": \"fast\"}"), "dataCorrupted: \"fast\" is not a real");
    EXPECT_EQ(failure("{\"bool\": \"true\"}"), "dataCorrupted: the content of \"bool\" is not true or false");
    EXPECT_EQ(failure("{\"date\": \"yesterday\"}"),
              "dataCorrupted: \"yesterday\" is not a date of the form YYYY-MM-DDTHH:MM:SSZ");
    EXPECT_EQ(failure("{\"data\": \"!!\"}"), "dataCorrupted: the content of \"data\" is not base64");
    EXPECT_EQ(failure("{\"array\": {}}"), "dataCorrupted: the content of \"array\" is not a JSON array");
    EXPECT_EQ(failure("{\"dict\": []}"), "dataCorrupted: the content of \"dict\" is not a JSON object");
}

TEST(TypedJson, NestingIsBounded) {
    std::string deep;
    for (int level = 0; level < 600; ++level) deep += "{\"array\": [";
    deep += "{\"bool\": true}";
    for (int level = 0; level < 600; ++level) deep += "]}";
    EXPECT_NE(failure(deep).find("nested deeper than 512 levels"), std::string::npos);
}

TEST(TypedJson, ADateWithoutATextFormIsAnEncodingError) { EXPECT_THROW(writeTypedJson(Date{1e13}), EncodingError); }

}  // namespace
