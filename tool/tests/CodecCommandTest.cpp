#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tool/tests/ToolRun.hpp"

namespace {

using vornix::tool::testing::ToolRun;

ToolRun codec(std::vector<std::string> args, const std::string& input = "") {
    args.insert(args.begin(), "codec");
    return vornix::tool::testing::runToolWith(std::move(args), input);
}

std::string encode(const std::string& json) {
    const ToolRun run = codec({"encode"}, json);
    EXPECT_EQ(run.status, 0) << run.err;
    return run.out;
}

std::string decode(const std::string& hex) {
    const ToolRun run = codec({"decode", hex});
    EXPECT_EQ(run.status, 0) << run.err;
    return run.out;
}

TEST(CodecCommand, EncodeWritesTheHexOfEachTypedForm) {
    EXPECT_EQ(encode(R"({"null": null})"), "00\n");
    EXPECT_EQ(encode(R"({"bool": true})"), "01\n");
    EXPECT_EQ(encode(R"({"bool": false})"), "02\n");
    EXPECT_EQ(encode(R"({"int32": "5"})"), "0305000000\n");
    EXPECT_EQ(encode(R"({"int64": "5"})"), "0305000000\n");
    EXPECT_EQ(encode(R"({"int64": "-9223372036854775808"})"), "040000000000000080\n");
    EXPECT_EQ(encode(R"({"double": "0.5"})"), "0600000000000000000000000000e03f\n");
    EXPECT_EQ(encode(R"({"string": "hé"})"), "070368c3a9\n");
    EXPECT_EQ(encode(R"({"uint8list": "00FFa0"})"), "080300ffa0\n");
    EXPECT_EQ(encode(R"({"int32list": ["1", "-1"]})"), "0902000001000000ffffffff\n");
    EXPECT_EQ(encode(R"({"int64list": []})"), "0a00000000000000\n");
    EXPECT_EQ(encode(R"({"float32list": ["1"]})"), "0e0100000000803f\n");
    EXPECT_EQ(encode(R"({"float64list": ["1"]})"), "0b01000000000000000000000000f03f\n");
    EXPECT_EQ(encode(R"({"list": [{"int32": "1"}, {"string": "a"}]})"), "0c02030100000007016" "1\n");
    EXPECT_EQ(encode(R"({"map": [[{"string": "b"}, {"bool": true}], [{"string": "a"}, {"null": null}]]})"),
              "0d02070162010701610" "0\n");
}

TEST(CodecCommand, DecodeWritesTypedJson) {
    EXPECT_EQ(decode("00"), "{\"null\":null}\n");
    EXPECT_EQ(decode("03 ffffffff"), "{\"int32\":\"-1\"}\n");
    EXPECT_EQ(decode("04 0500000000000000"), "{\"int64\":\"5\"}\n");
    EXPECT_EQ(decode("08 02 0aff"), "{\"uint8list\":\"0aff\"}\n");
    EXPECT_EQ(decode("0d 01 07 01 61 0c 01 00"), "{\"map\":[[{\"string\":\"a\"},{\"list\":[{\"null\":null}]}]]}\n");
}

TEST(CodecCommand, DoublesAreTheShortestTextThatReadsBack) {
    EXPECT_EQ(decode(encode(R"({"double": "0.1"})")), "{\"double\":\"0.1\"}\n");
    EXPECT_EQ(decode(encode(R"({"double": "1e300"})")), "{\"double\":\"1e+300\"}\n");
    EXPECT_EQ(decode(encode(R"({"double": "-inf"})")), "{\"double\":\"-inf\"}\n");
    EXPECT_EQ(decode(encode(R"({"float32list": ["0.1", "nan"]})")), "{\"float32list\":[\"0.1\",\"nan\"]}\n");
}

TEST(CodecCommand, EncodeThenDecodeGivesBackTheDocument) {
    const std::string document =
        R"({"map":[[{"string":"signedIn"},{"bool":true}],[{"int64":"4294967296"},{"float64list":["2.5","-0"]}],)"
        R"([{"list":[]},{"int32list":["2147483647","-2147483648"]}],[{"null":null},{"int64list":["1","-9"]}]]})";
    EXPECT_EQ(decode(encode(document)), document + "\n");
}

TEST(CodecCommand, CallWritesTheHexOfTheMethodCall) {
    const ToolRun hello = codec({"call", "hello"});
    EXPECT_EQ(hello.status, 0);
    EXPECT_EQ(hello.out, "070568656c6c6f00\n");
    const ToolRun open = codec({"call", "open", R"({"map": [[{"string": "scheme"}, {"string": "x"}]]})"});
    EXPECT_EQ(open.out, "07046f70656e0d01070673636865" "6d65070178\n");
}

TEST(CodecCommand, DecodeCallWritesNameAndArgs) {
    const ToolRun run = codec({"decode-call", "07046f70656e 0d01 0706736368656d65 070178"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, R"({"args":{"map":[[{"string":"scheme"},{"string":"x"}]]},"name":"open"})" "\n");
}

TEST(CodecCommand, DecodeEnvelopeWritesSuccessErrorOrNotImplemented) {
    EXPECT_EQ(codec({"decode-envelope", "0001"}).out, R"({"success":{"bool":true}})" "\n");
    EXPECT_EQ(codec({"decode-envelope", "01 070145 07036d7367 00"}).out,
              R"({"error":{"code":"E","details":{"null":null},"message":"msg"}})" "\n");
    EXPECT_EQ(codec({"decode-envelope", "01 070145 00 0c00"}).out,
              R"({"error":{"code":"E","details":{"list":[]},"message":null}})" "\n");
    EXPECT_EQ(codec({"decode-envelope", ""}).out, R"({"notImplemented":null})" "\n");
}

void expectInputRefused(const ToolRun& run, const std::string& because) {
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err.rfind("vornix-tool codec: ", 0), 0u) << run.err;
    EXPECT_NE(run.err.find(because), std::string::npos) << run.err;
}

TEST(CodecCommand, BadTypedJsonIsRefusedSayingWhereAndWhy) {
    expectInputRefused(codec({"encode"}, "{"), "standard input is not JSON");
    expectInputRefused(codec({"encode"}, "5"), "at $: a value is an object with one member");
    expectInputRefused(codec({"encode"}, R"({"float": "1"})"), "unknown type \"float\"");
    expectInputRefused(codec({"encode"}, R"({"int32": 5})"), "at $.int32: numbers are written as JSON strings");
    expectInputRefused(codec({"encode"}, R"({"int32": "2147483648"})"), "\"2147483648\" is out of range");
    expectInputRefused(codec({"encode"}, R"({"int64": "12abc"})"), "\"12abc\" is not a decimal integer");
    expectInputRefused(codec({"encode"}, R"({"list": [{"int32": "1"}, {"bool": 1}]})"), "at $.list[1].bool");
    expectInputRefused(codec({"encode"}, R"({"map": [[{"null": null}]]})"), "at $.map[0]: a map entry is a pair");
    expectInputRefused(codec({"encode"}, R"({"uint8list": "abc"})"), "an odd number of hex digits");
    expectInputRefused(codec({"call", "x", "[]"}), "ARGS-JSON: at $");
}

TEST(CodecCommand, RealsBeyondTheirTypesRangeOrNotWhollyNumbersAreRefused) {
    expectInputRefused(codec({"encode"}, R"({"double": "1e400"})"), "\"1e400\" is out of range");
    expectInputRefused(codec({"encode"}, R"({"double": "1e-400"})"), "\"1e-400\" is out of range");
    expectInputRefused(codec({"encode"}, R"({"float32list": ["1e39"]})"), "\"1e39\" is out of range");
    // What leads the text decides, as with integers: a number beyond the range, then anything.
    expectInputRefused(codec({"encode"}, R"({"double": "1e400x"})"), "\"1e400x\" is out of range");
    expectInputRefused(codec({"encode"}, R"({"double": "1.5x"})"), "\"1.5x\" is not a number");
    expectInputRefused(codec({"encode"}, R"({"float64list": [" 1"]})"), "\" 1\" is not a number");
    expectInputRefused(codec({"encode"}, R"({"double": "+1"})"), "\"+1\" is not a number");
}

// Found by fuzz_tool_typed_json: nlohmann refuses such a number with out_of_range, not parse_error.
TEST(CodecCommand, NumberBeyondADoublesRangeIsRefusedAsNotJson) {
    expectInputRefused(codec({"encode"}, "2e425"), "standard input is not JSON: [json.exception.out_of_range.406]");
    expectInputRefused(codec({"call", "x", R"({"list": [1e999]})"}), "ARGS-JSON is not JSON");
}

TEST(CodecCommand, AbsurdlyDeepTypedJsonIsRefused) {
    std::string deep;
    for (int i = 0; i < 1000; ++i) deep += R"({"list":[)";
    deep += R"({"null":null})";
    for (int i = 0; i < 1000; ++i) deep += "]}";
    expectInputRefused(codec({"encode"}, deep), "nested deeper than");
}

TEST(CodecCommand, BadHexAndBadBytesAreRefused) {
    expectInputRefused(codec({"decode", "0g"}), "HEX: not a hex digit: 'g' at position 1");
    expectInputRefused(codec({"decode", "030"}), "HEX: an odd number of hex digits");
    expectInputRefused(codec({"decode", "0305"}), "not in the standard codec: truncated data");
    expectInputRefused(codec({"decode", "0500"}), "unknown type byte 5");
    expectInputRefused(codec({"decode-call", "0001"}), "name must be a string");
    expectInputRefused(codec({"decode-envelope", "0200"}), "must start with 0 or 1");
}

TEST(CodecCommand, BadUsageFailsWithStatusTwo) {
    for (const auto& args : std::vector<std::vector<std::string>>{{}, {"frob"}, {"decode"}, {"decode", "00", "00"}, {"call"}, {"encode", "x"}}) {
        const ToolRun run = codec(args);
        EXPECT_EQ(run.status, 2);
        EXPECT_NE(run.err.find("usage: vornix-tool codec"), std::string::npos) << run.err;
    }
}

TEST(CodecCommand, IsListedInTheHelp) {
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    const std::vector<std::string> args{"--help"};
    vornix::tool::runTool(args, in, out, err);
    EXPECT_NE(out.str().find("codec encode | decode HEX | call NAME [ARGS-JSON] | decode-call HEX | decode-envelope HEX"),
              std::string::npos);
}

}  // namespace
