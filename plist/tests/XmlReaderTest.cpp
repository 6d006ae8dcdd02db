#include "plist/XmlReader.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

#include "plist/DecodingError.hpp"
#include "plist/PropertyList.hpp"
#include "plist/tests/PrintValue.hpp"

namespace {

using namespace vornix::plist;

constexpr std::string_view prologue =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" \"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n";

std::string document(std::string_view body) {
    return std::string(prologue) + "<plist version=\"1.0\">\n" + std::string(body) + "\n</plist>\n";
}

Value readBody(std::string_view body) { return readXml(document(body)); }

// The description of the DataCorrupted error that reading `bytes` raises.
std::string failure(const std::string& bytes) {
    try {
        readXml(bytes);
    } catch (const DataCorrupted& error) {
        EXPECT_EQ(error.kind(), DecodingError::Kind::dataCorrupted);
        EXPECT_TRUE(error.codingPath().empty());
        return error.description();
    }
    ADD_FAILURE() << "read without error: " << bytes;
    return {};
}

std::string bodyFailure(std::string_view body) { return failure(document(body)); }

bool contains(const std::string& text, std::string_view part) { return text.find(part) != std::string::npos; }

TEST(XmlReader, ReadsEveryElementKind) {
    const Value value = readBody(
        "<dict>\n"
        "\t<key>array</key><array><string>a</string><integer>1</integer></array>\n"
        "\t<key>data</key><data>aGVsbG8=</data>\n"
        "\t<key>date</key><date>2001-01-01T00:01:00Z</date>\n"
        "\t<key>false</key><false/>\n"
        "\t<key>integer</key><integer>-42</integer>\n"
        "\t<key>real</key><real>0.5</real>\n"
        "\t<key>string</key><string>text</string>\n"
        "\t<key>true</key><true/>\n"
        "</dict>");
    EXPECT_EQ(value, Value(Dictionary::fromEntries({
                         {"array", Array{"a", 1}},
                         {"data", Data{'h', 'e', 'l', 'l', 'o'}},
                         {"date", Date{60}},
                         {"false", false},
                         {"integer", -42},
                         {"real", 0.5},
                         {"string", "text"},
                         {"true", true},
                     })));
}

TEST(XmlReader, AnEmptyStringElementIsTheEmptyString) {
    EXPECT_EQ(readBody("<string/>"), Value(""));
    EXPECT_EQ(readBody("<string></string>"), Value(""));
}

TEST(XmlReader, EmptyContainersInBothForms) {
    EXPECT_EQ(readBody("<array/>"), Value(Array{}));
    EXPECT_EQ(readBody("<array></array>"), Value(Array{}));
    EXPECT_EQ(readBody("<dict/>"), Value(Dictionary{}));
    EXPECT_EQ(readBody("<dict>\n</dict>"), Value(Dictionary{}));
}

TEST(XmlReader, WhiteSpaceAndCommentsBetweenElementsAreIgnored) {
    EXPECT_EQ(readBody("<!-- a job -->\n<array>\n\t<!-- first -->\n\t<true/>  \r\n\t<false/>\n</array><!-- end -->"),
              Value(Array{true, false}));
}

TEST(XmlReader, WhiteSpaceInsideAStringIsKept) { EXPECT_EQ(readBody("<string>  a \t b  </string>"), Value("  a \t b  ")); }

TEST(XmlReader, CdataSectionsAreText) {
    EXPECT_EQ(readBody("<string>x<![CDATA[a<b&c]]>y</string>"), Value("xa<b&cy"));
}

TEST(XmlReader, CharacterReferencesDecimalAndHexadecimal) {
    EXPECT_EQ(readBody("<string>&#60;&#x3C;&#x3c;&#233;&#x1F600;</string>"), Value("<<<\u00e9\U0001F600"));
}

TEST(XmlReader, ThePredefinedEntities) {
    EXPECT_EQ(readBody("<string>&amp;&lt;&gt;&quot;&apos;</string>"), Value("&<>\"'"));
}

TEST(XmlReader, KeysUnescapeLikeStrings) {
    EXPECT_EQ(readBody("<dict><key>a&amp;b&#x3C;</key><true/></dict>"), Value(Dictionary::fromEntries({{"a&b<", true}})));
}

TEST(XmlReader, CrlfLineEndsBecomeLineFeeds) {
    const std::string crlf = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<plist version=\"1.0\">\r\n"
                             "<array>\r\n\t<string>a\r\nb\rc</string>\r\n</array>\r\n</plist>\r\n";
    EXPECT_EQ(readXml(crlf), Value(Array{"a\nb\nc"}));
}

TEST(XmlReader, AUtf8ByteOrderMarkIsAccepted) {
    EXPECT_EQ(readXml("\xEF\xBB\xBF" + document("<string>\xC3\xA9</string>")), Value("\u00e9"));
}

TEST(XmlReader, AUtf16DocumentWithAByteOrderMarkIsRead) {
    const std::string ascii = "<plist version=\"1.0\"><string>hi</string></plist>";
    std::string utf16 = "\xFF\xFE";
    for (const char character : ascii) {
        utf16 += character;
        utf16 += '\0';
    }
    EXPECT_EQ(readXml(utf16), Value("hi"));
}

TEST(XmlReader, TheDoctypeIsIgnoredAndNeverLoaded) {
    const std::string local =
        "<?xml version=\"1.0\"?>\n<!DOCTYPE plist SYSTEM \"file:///nonexistent/PropertyList.dtd\">\n"
        "<plist><integer>1</integer></plist>";
    EXPECT_EQ(readXml(local), Value(1));
}

TEST(XmlReader, ThePlistWrapperMayBeLeftOut) { EXPECT_EQ(readXml("<array><integer>3</integer></array>"), Value(Array{3})); }

TEST(XmlReader, TheLastOfARepeatedKeyWins) {
    EXPECT_EQ(readBody("<dict><key>b</key><integer>1</integer><key>a</key><integer>2</integer>"
                       "<key>b</key><integer>3</integer></dict>"),
              Value(Dictionary::fromEntries({{"a", 2}, {"b", 3}})));
}

TEST(XmlReader, IntegersDecimalWithAnOptionalSignOrHexadecimal) {
    EXPECT_EQ(readBody("<integer>42</integer>"), Value(42));
    EXPECT_EQ(readBody("<integer>+42</integer>"), Value(42));
    EXPECT_EQ(readBody("<integer>-42</integer>"), Value(-42));
    EXPECT_EQ(readBody("<integer>007</integer>"), Value(7));
    EXPECT_EQ(readBody("<integer> 5\n</integer>"), Value(5));
    EXPECT_EQ(readBody("<integer>0x1F</integer>"), Value(31));
    EXPECT_EQ(readBody("<integer>0X1f</integer>"), Value(31));
    EXPECT_EQ(readBody("<integer>-0x10</integer>"), Value(-16));
    EXPECT_EQ(readBody("<integer>9223372036854775807</integer>"), Value(std::numeric_limits<std::int64_t>::max()));
    EXPECT_EQ(readBody("<integer>-9223372036854775808</integer>"), Value(std::numeric_limits<std::int64_t>::min()));
    EXPECT_EQ(readBody("<integer>0x7FFFFFFFFFFFFFFF</integer>"), Value(std::numeric_limits<std::int64_t>::max()));
}

TEST(XmlReader, AnIntegerBeyond64BitsIsAnErrorNotAWrap) {
    EXPECT_TRUE(contains(bodyFailure("<integer>9223372036854775808</integer>"), "does not fit in 64 bits"));
    EXPECT_TRUE(contains(bodyFailure("<integer>-9223372036854775809</integer>"), "does not fit in 64 bits"));
    EXPECT_TRUE(contains(bodyFailure("<integer>18446744073709551616</integer>"), "does not fit in 64 bits"));
    EXPECT_TRUE(contains(bodyFailure("<integer>0x8000000000000000</integer>"), "does not fit in 64 bits"));
}

TEST(XmlReader, IntegerJunkIsAnErrorNotZero) {
    for (const char* junk : {"", " ", "abc", "5abc", "1_000", "0o17", "1.0", "1e3", "0x", "0xG", "--5", "+-5", "- 5",
                             "0b101", "\xD9\xA3"}) {
        EXPECT_TRUE(contains(bodyFailure("<integer>" + std::string(junk) + "</integer>"), "is not an integer"))
            << junk;
    }
}

TEST(XmlReader, RealsInDecimalAndScientificFormsAndTheSpecialValues) {
    EXPECT_EQ(readBody("<real>0.5</real>"), Value(0.5));
    EXPECT_EQ(readBody("<real>-1e10</real>"), Value(-1e10));
    EXPECT_EQ(readBody("<real>+1.5E3</real>"), Value(1500.0));
    EXPECT_EQ(readBody("<real>7</real>"), Value(7.0));
    EXPECT_EQ(readBody("<real> 2.5 </real>"), Value(2.5));
    EXPECT_EQ(readBody("<real>inf</real>"), Value(std::numeric_limits<double>::infinity()));
    EXPECT_EQ(readBody("<real>-infinity</real>"), Value(-std::numeric_limits<double>::infinity()));
    EXPECT_TRUE(std::isnan(*readBody("<real>nan</real>").get<double>()));
}

TEST(XmlReader, RealJunkIsAnError) {
    for (const char* junk : {"", "abc", "1,5", "1e", "0x10", "--1", "1.5.2", "1e999"}) {
        EXPECT_TRUE(contains(bodyFailure("<real>" + std::string(junk) + "</real>"), "is not a real")) << junk;
    }
}

TEST(XmlReader, DatesAreUtcInWholeSeconds) {
    EXPECT_EQ(readBody("<date>2001-01-01T00:00:00Z</date>"), Value(Date{0}));
    EXPECT_EQ(readBody("<date>2000-12-31T23:59:59Z</date>"), Value(Date{-1}));
    EXPECT_EQ(readBody("<date>2024-01-31T12:00:00Z</date>"), Value(Date{728395200}));
}

TEST(XmlReader, MalformedOrImpossibleDatesAreErrors) {
    for (const char* junk : {"2024-02-30T00:00:00Z", "2023-02-29T00:00:00Z", "2024-01-31T24:00:00Z",
                             "2024-01-31T12:60:00Z", "2024-01-31T12:00:60Z", "2024-13-01T00:00:00Z",
                             "2024-01-31T12:00:00", "2024-01-31 12:00:00Z", "2024-01-31T12:00:00.5Z", "24-01-31",
                             ""}) {
        EXPECT_TRUE(contains(bodyFailure("<date>" + std::string(junk) + "</date>"), "is not a date")) << junk;
    }
}

TEST(XmlReader, DataIsBase64WithWhiteSpaceAnywhere) {
    EXPECT_EQ(readBody("<data>\n\taGVs\n\tbG8=\n</data>"), Value(Data{'h', 'e', 'l', 'l', 'o'}));
    EXPECT_EQ(readBody("<data></data>"), Value(Data{}));
    EXPECT_EQ(readBody("<data>aGVsbG8</data>"), Value(Data{'h', 'e', 'l', 'l', 'o'}));
}

TEST(XmlReader, DataThatIsNotBase64IsAnError) {
    for (const char* junk : {"aGVs!G8=", "a", "aGVsbG8=x", "aG===", "a=GV"}) {
        EXPECT_TRUE(contains(bodyFailure("<data>" + std::string(junk) + "</data>"), "not base64")) << junk;
    }
}

TEST(XmlReader, ErrorsGiveTheLineAndColumn) {
    EXPECT_EQ(failure("<plist>\n<array>\n  <bogus/>\n</array>\n</plist>"), "line 3, column 3: unknown element <bogus>");
}

TEST(XmlReader, ATruncatedDocumentIsAnErrorAtEveryLength) {
    const std::string whole = document("<dict><key>a</key><array><string>x</string><integer>1</integer></array></dict>");
    const std::size_t complete = whole.rfind("</plist>") + std::string_view("</plist>").size();
    for (std::size_t length = 0; length < complete; ++length) {
        EXPECT_THROW(readXml(whole.substr(0, length)), DataCorrupted) << length;
    }
    EXPECT_NO_THROW(readXml(whole.substr(0, complete)));
}

TEST(XmlReader, TextThatIsNotXmlIsAnError) {
    EXPECT_TRUE(contains(failure("hello"), "line 1, column 1: syntax error"));
    EXPECT_TRUE(contains(failure(""), "no element found"));
    EXPECT_TRUE(contains(failure("{\"dict\": {}}"), "line 1, column 1: not well-formed"));
}

TEST(XmlReader, BytesThatAreNotUtf8AreAnEncodingError) {
    EXPECT_TRUE(contains(failure(document("<string>caf\xE9</string>")), "not well-formed"));
    EXPECT_TRUE(contains(failure("<?xml version=\"1.0\" encoding=\"SHIFT-JIS\"?><plist/>"), "encoding"));
}

TEST(XmlReader, TwoTopLevelValuesAreAnError) {
    EXPECT_TRUE(contains(bodyFailure("<string>a</string><string>b</string>"), "<plist> holds more than one value"));
    EXPECT_TRUE(contains(failure("<string>a</string><string>b</string>"), "junk after document element"));
}

TEST(XmlReader, AnEmptyPlistIsAnError) {
    EXPECT_TRUE(contains(failure("<plist version=\"1.0\"></plist>"), "<plist> holds no value"));
    EXPECT_TRUE(contains(failure("<plist/>"), "<plist> holds no value"));
}

TEST(XmlReader, UnclosedTagsAreAnError) {
    EXPECT_TRUE(contains(failure(std::string(prologue) + "<plist><array><string>a</string></plist>"), "mismatched tag"));
    EXPECT_TRUE(contains(failure("<plist><dict><key>a</key><string>b</string></dict>"), "no element found"));
}

TEST(XmlReader, AKeyWithoutAValueIsAnError) {
    EXPECT_TRUE(contains(bodyFailure("<dict><key>a</key></dict>"), "the key \"a\" has no value"));
    EXPECT_TRUE(contains(bodyFailure("<dict><key>a</key><key>b</key><true/></dict>"), "the key \"a\" has no value"));
}

TEST(XmlReader, AValueWithoutAKeyInADictionaryIsAnError) {
    EXPECT_TRUE(contains(bodyFailure("<dict><string>a</string></dict>"), "without a <key> before it"));
    EXPECT_TRUE(contains(bodyFailure("<dict><key>a</key><true/><false/></dict>"), "without a <key> before it"));
}

TEST(XmlReader, AKeyOutsideADictionaryIsAnError) {
    EXPECT_TRUE(contains(bodyFailure("<array><key>a</key></array>"), "<key> outside a dictionary"));
    EXPECT_TRUE(contains(bodyFailure("<key>a</key>"), "<key> outside a dictionary"));
}

TEST(XmlReader, AnUnknownElementIsAnError) { EXPECT_TRUE(contains(bodyFailure("<set/>"), "unknown element <set>")); }

TEST(XmlReader, ANestedPlistIsAnError) {
    EXPECT_TRUE(contains(bodyFailure("<array><plist/></array>"), "<plist> inside a value"));
}

TEST(XmlReader, AnElementInsideALeafIsAnError) {
    EXPECT_TRUE(contains(bodyFailure("<string>a<true/></string>"), "element <true> inside <string>"));
}

TEST(XmlReader, TextBetweenElementsIsAnError) {
    EXPECT_TRUE(contains(bodyFailure("<array>word<true/></array>"), "text between elements"));
    EXPECT_TRUE(contains(bodyFailure("<true>yes</true>"), "text inside <true/>"));
}

TEST(XmlReader, ADocumentThatDeclaresEntitiesIsRejected) {
    const std::string laughs =
        "<?xml version=\"1.0\"?>\n<!DOCTYPE plist [\n"
        " <!ENTITY lol \"lol\">\n"
        " <!ENTITY lol1 \"&lol;&lol;&lol;&lol;&lol;&lol;&lol;&lol;&lol;&lol;\">\n"
        " <!ENTITY lol2 \"&lol1;&lol1;&lol1;&lol1;&lol1;&lol1;&lol1;&lol1;&lol1;&lol1;\">\n"
        " <!ENTITY lol3 \"&lol2;&lol2;&lol2;&lol2;&lol2;&lol2;&lol2;&lol2;&lol2;&lol2;\">\n"
        "]>\n<plist><string>&lol3;</string></plist>";
    EXPECT_TRUE(contains(failure(laughs), "line 3, column 15: the document declares the entity \"lol\""));
}

TEST(XmlReader, AnExternalEntityIsNeverLoaded) {
    const std::string external = "<?xml version=\"1.0\"?>\n<!DOCTYPE plist [ <!ENTITY secret SYSTEM \"/etc/passwd\"> ]>\n"
                                 "<plist><string>&secret;</string></plist>";
    EXPECT_TRUE(contains(failure(external), "declares the entity \"secret\""));
    const std::string parameter = "<?xml version=\"1.0\"?>\n<!DOCTYPE plist [ <!ENTITY % p SYSTEM \"/etc/passwd\"> %p; ]>\n"
                                  "<plist><true/></plist>";
    EXPECT_TRUE(contains(failure(parameter), "declares the entity \"p\""));
}

TEST(XmlReader, AnUndeclaredEntityIsAnErrorEvenWithAnExternalDtd) {
    EXPECT_TRUE(contains(bodyFailure("<string>&nbsp;</string>"), "undefined entity \"nbsp\""));
    EXPECT_TRUE(contains(failure("<plist><string>&nbsp;</string></plist>"), "undefined entity"));
}

std::string nestedArrays(int depth) {
    std::string text;
    for (int level = 0; level < depth; ++level) text += "<array>";
    for (int level = 0; level < depth; ++level) text += "</array>";
    return text;
}

TEST(XmlReader, NestingIsBoundedAt512Levels) {
    EXPECT_NO_THROW(readXml(nestedArrays(512)));
    EXPECT_NO_THROW(readXml("<plist>" + nestedArrays(512) + "</plist>"));
    EXPECT_TRUE(contains(failure(nestedArrays(513)), "nested deeper than 512 levels"));
    EXPECT_TRUE(contains(failure("<plist>" + nestedArrays(513) + "</plist>"), "nested deeper than 512 levels"));
}

TEST(PropertyList, TellsBinaryFromXmlByTheFirstBytes) {
    EXPECT_EQ(readPropertyList(document("<true/>")), Value(true));
    EXPECT_THROW(readPropertyList("bplist00"), DataCorrupted);
    try {
        readPropertyList("bplist15xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx");
        FAIL();
    } catch (const DataCorrupted& error) {
        EXPECT_EQ(error.description(), "byte offset 6: unsupported binary property-list version \"15\"");
    }
}

}  // namespace
