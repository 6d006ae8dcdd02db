#include "plist/XmlWriter.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

#include "plist/EncodingError.hpp"
#include "plist/XmlReader.hpp"
#include "plist/tests/PrintValue.hpp"

namespace {

using namespace vornix::plist;

constexpr std::string_view header =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" \"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
    "<plist version=\"1.0\">\n";

std::string document(std::string_view body) { return std::string(header) + std::string(body) + "</plist>\n"; }

std::string encodingFailure(const Value& value) {
    try {
        writeXml(value);
    } catch (const EncodingError& error) {
        return error.what();
    }
    ADD_FAILURE() << "written without error";
    return {};
}

TEST(XmlWriter, AJobDictionaryIsWrittenAsThePlatformWritesIt) {
    const Value job = Dictionary::fromEntries({{"Label", "com.vornix.os.launch"},
                                               {"ProgramArguments", Array{"/usr/bin/open", "-a", "Vornix OS"}},
                                               {"RunAtLoad", true}});
    EXPECT_EQ(writeXml(job), document("<dict>\n"
                                      "\t<key>Label</key>\n"
                                      "\t<string>com.vornix.os.launch</string>\n"
                                      "\t<key>ProgramArguments</key>\n"
                                      "\t<array>\n"
                                      "\t\t<string>/usr/bin/open</string>\n"
                                      "\t\t<string>-a</string>\n"
                                      "\t\t<string>Vornix OS</string>\n"
                                      "\t</array>\n"
                                      "\t<key>RunAtLoad</key>\n"
                                      "\t<true/>\n"
                                      "</dict>\n"));
}

TEST(XmlWriter, KeysAreWrittenInByteOrder) {
    Dictionary dictionary;
    dictionary.set("b", 1);
    dictionary.set("\xC3\xA9", 2);
    dictionary.set("B", 3);
    dictionary.set("a", 4);
    const std::string xml = writeXml(dictionary);
    EXPECT_LT(xml.find("<key>B</key>"), xml.find("<key>a</key>"));
    EXPECT_LT(xml.find("<key>a</key>"), xml.find("<key>b</key>"));
    EXPECT_LT(xml.find("<key>b</key>"), xml.find("<key>\xC3\xA9</key>"));
}

TEST(XmlWriter, EmptyContainersAreSelfClosingAndTheEmptyStringIsNot) {
    EXPECT_EQ(writeXml(Array{Array{}, Dictionary{}, ""}),
              document("<array>\n\t<array/>\n\t<dict/>\n\t<string></string>\n</array>\n"));
}

TEST(XmlWriter, BooleansAreEmptyElements) {
    EXPECT_EQ(writeXml(Array{true, false}), document("<array>\n\t<true/>\n\t<false/>\n</array>\n"));
}

TEST(XmlWriter, EscapesAmpersandLessThanAndGreaterThanOnly) {
    EXPECT_EQ(writeXml("a&b<c>d\"e'f"), document("<string>a&amp;b&lt;c&gt;d\"e'f</string>\n"));
    EXPECT_EQ(writeXml(Dictionary::fromEntries({{"<&>", 1}})),
              document("<dict>\n\t<key>&lt;&amp;&gt;</key>\n\t<integer>1</integer>\n</dict>\n"));
}

TEST(XmlWriter, NonAsciiTextIsWrittenAsUtf8) {
    EXPECT_EQ(writeXml("\u00e9\u4e2d\U0001F600"), document("<string>\u00e9\u4e2d\U0001F600</string>\n"));
}

TEST(XmlWriter, TabsAndLineFeedsAreKeptAndACarriageReturnIsAReference) {
    EXPECT_EQ(writeXml("a\tb\nc\rd"), document("<string>a\tb\nc&#13;d</string>\n"));
    EXPECT_EQ(readXml(writeXml("a\r\nb")), Value("a\r\nb"));
}

TEST(XmlWriter, AControlCharacterIsAnEncodingErrorWithItsPath) {
    EXPECT_EQ(encodingFailure(Dictionary::fromEntries({{"Env", Array{"ok", std::string("a\x01", 2)}}})),
              "invalidValue at Env/Index 1: the string holds the control character U+0001");
    EXPECT_EQ(encodingFailure(std::string("\0", 1)), "invalidValue: the string holds the control character U+0000");
}

TEST(XmlWriter, TextThatIsNotUtf8IsAnEncodingError) {
    for (const char* bad : {"caf\xE9", "\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xE2\x82", "\xEF\xBF\xBE",
                            "\xEF\xBF\xBF"}) {
        EXPECT_NE(encodingFailure(bad).find("not UTF-8"), std::string::npos) << bad;
    }
    EXPECT_NE(encodingFailure(Dictionary::fromEntries({{"\xFF", 1}})).find("invalidValue at \xFF:"), std::string::npos);
}

TEST(XmlWriter, IntegersAcrossTheWholeRange) {
    EXPECT_EQ(writeXml(Array{0, -1, std::numeric_limits<std::int64_t>::max(), std::numeric_limits<std::int64_t>::min()}),
              document("<array>\n\t<integer>0</integer>\n\t<integer>-1</integer>\n"
                       "\t<integer>9223372036854775807</integer>\n\t<integer>-9223372036854775808</integer>\n</array>\n"));
}

TEST(XmlWriter, RealsAreWrittenAsPlistlibWritesThem) {
    EXPECT_EQ(writeXml(1.0), document("<real>1.0</real>\n"));
    EXPECT_EQ(writeXml(0.5), document("<real>0.5</real>\n"));
    EXPECT_EQ(writeXml(-0.0), document("<real>-0.0</real>\n"));
    EXPECT_EQ(writeXml(1e16), document("<real>1e+16</real>\n"));
    EXPECT_EQ(writeXml(1e15), document("<real>1000000000000000.0</real>\n"));
    EXPECT_EQ(writeXml(1e-5), document("<real>1e-05</real>\n"));
    EXPECT_EQ(writeXml(std::numeric_limits<double>::infinity()), document("<real>inf</real>\n"));
    EXPECT_EQ(writeXml(std::numeric_limits<double>::quiet_NaN()), document("<real>nan</real>\n"));
}

TEST(XmlWriter, DatesAreWrittenInWholeSecondsRoundedDown) {
    EXPECT_EQ(writeXml(Date{728395200.75}), document("<date>2024-01-31T12:00:00Z</date>\n"));
    EXPECT_EQ(writeXml(Date{-0.5}), document("<date>2000-12-31T23:59:59Z</date>\n"));
}

TEST(XmlWriter, ADateOutsideFourDigitYearsIsAnEncodingError) {
    EXPECT_EQ(encodingFailure(Date{1e12}), "invalidValue: the date lies outside the years 0000 to 9999");
    EXPECT_EQ(encodingFailure(Date{std::numeric_limits<double>::quiet_NaN()}),
              "invalidValue: the date lies outside the years 0000 to 9999");
}

TEST(XmlWriter, DataIsBase64InLinesThatNarrowWithDepth) {
    const Data bytes(100, 'x');
    const std::string top = writeXml(bytes);
    EXPECT_EQ(top, document("<data>\n"
                            "eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4\n"
                            "eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eA==\n"
                            "</data>\n"));
    const std::string nested = writeXml(Array{bytes});
    // One tab of depth takes eight columns from the 76-column lines.
    const std::size_t firstLine = nested.find("<data>\n\t") + 8;
    EXPECT_EQ(nested.find('\n', firstLine) - firstLine, 68u);
}

TEST(XmlWriter, DataLinesNeverNarrowBelowSixteenCharacters) {
    Value value = Data(13, 'x');
    for (int level = 0; level < 12; ++level) {
        value = Array{value};
    }
    const std::string xml = writeXml(value);
    const std::string tabs(12, '\t');
    EXPECT_NE(xml.find(tabs + "eHh4eHh4eHh4eHh4\n" + tabs + "eA==\n"), std::string::npos) << xml;
}

TEST(XmlWriter, EmptyDataHasNoLines) { EXPECT_EQ(writeXml(Array{Data{}}), document("<array>\n\t<data>\n\t</data>\n</array>\n")); }

TEST(XmlWriter, WritingIsDeterministicAndReadsBack) {
    const Value value = Dictionary::fromEntries(
        {{"z", Array{1, 2.5, "x"}}, {"a", Dictionary::fromEntries({{"k", Data{1, 2, 3}}, {"d", Date{86400}}})}});
    const std::string once = writeXml(value);
    EXPECT_EQ(writeXml(value), once);
    EXPECT_EQ(readXml(once), value);
}

}  // namespace
