#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "plist/Base64.hpp"
#include "plist/DateText.hpp"
#include "plist/NumberText.hpp"

namespace {

using namespace vornix::plist;

TEST(Base64, EncodesWithPaddingAndDecodesBack) {
    EXPECT_EQ(base64Encode(Data{}), "");
    EXPECT_EQ(base64Encode(Data{'f'}), "Zg==");
    EXPECT_EQ(base64Encode(Data{'f', 'o'}), "Zm8=");
    EXPECT_EQ(base64Encode(Data{'f', 'o', 'o'}), "Zm9v");
    EXPECT_EQ(base64Encode(Data{0xFB, 0xFF}), "+/8=");
    for (const char* text : {"", "Zg==", "Zm8=", "Zm9v", "+/8="}) {
        EXPECT_EQ(base64Encode(*base64Decode(text)), text);
    }
}

TEST(Base64, DecodingSkipsWhiteSpaceAndAcceptsMissingPadding) {
    EXPECT_EQ(base64Decode(" Zm\n9v\tZg\r\n"), (Data{'f', 'o', 'o', 'f'}));
    EXPECT_EQ(base64Decode("Zm8"), (Data{'f', 'o'}));
}

TEST(Base64, DecodingRejectsForeignCharactersAndBadPadding) {
    for (const char* bad : {"Zm9v!", "Z", "Zm9vZ", "Zg=", "Z===", "Zg==Zg==", "=Zg=", "Zm-v"}) {
        EXPECT_EQ(base64Decode(bad), std::nullopt) << bad;
    }
}

TEST(NumberText, FormatRealFollowsPythonsRepr) {
    EXPECT_EQ(formatReal(0.0), "0.0");
    EXPECT_EQ(formatReal(123.456), "123.456");
    EXPECT_EQ(formatReal(0.0001), "0.0001");
    EXPECT_EQ(formatReal(0.00012), "0.00012");
    EXPECT_EQ(formatReal(1.5e-5), "1.5e-05");
    EXPECT_EQ(formatReal(9999999999999998.0), "9999999999999998.0");
    EXPECT_EQ(formatReal(1.2345678901234568e+17), "1.2345678901234568e+17");
    EXPECT_EQ(formatReal(1e100), "1e+100");
    EXPECT_EQ(formatReal(-2.5e-300), "-2.5e-300");
    EXPECT_EQ(formatReal(5e-324), "5e-324");
    EXPECT_EQ(formatReal(-std::numeric_limits<double>::infinity()), "-inf");
}

TEST(NumberText, ShortestRealReadsBackExactly) {
    EXPECT_EQ(shortestReal(1.0), "1");
    EXPECT_EQ(shortestReal(0.1), "0.1");
    EXPECT_EQ(shortestReal(-std::numeric_limits<double>::quiet_NaN()), "nan");
    for (const double value : {0.1, 1.0 / 3, 1e300, 5e-324, -123.456, 1e16}) {
        EXPECT_EQ(*parseReal(shortestReal(value)), value);
        EXPECT_EQ(*parseReal(formatReal(value)), value);
    }
}

TEST(NumberText, FormatRealAtPowersOfTwoAndTheEndsOfTheRange) {
    // The first two are powers of two whose correctly rounded 16 digits read back as another double.
    EXPECT_EQ(formatReal(0x1p89), "6.189700196426902e+26");
    EXPECT_EQ(formatReal(0x1p-1017), "7.120236347223045e-307");
    EXPECT_EQ(formatReal(0x1p1023), "8.98846567431158e+307");
    EXPECT_EQ(formatReal(1.7976931348623157e308), "1.7976931348623157e+308");
    EXPECT_EQ(formatReal(2.2250738585072014e-308), "2.2250738585072014e-308");
    EXPECT_EQ(formatReal(2.225073858507201e-308), "2.225073858507201e-308");
    EXPECT_EQ(formatReal(1e-323), "1e-323");
    EXPECT_EQ(formatReal(9007199254740993.0), "9007199254740992.0");
    EXPECT_EQ(formatReal(0.1), "0.1");
    EXPECT_EQ(formatReal(1e15), "1000000000000000.0");
    EXPECT_EQ(formatReal(1e16), "1e+16");
    EXPECT_EQ(formatReal(1e22), "1e+22");
    EXPECT_EQ(formatReal(1e23), "1e+23");
    EXPECT_EQ(formatReal(100.0), "100.0");
    EXPECT_EQ(formatReal(-0.0), "-0.0");
}

TEST(NumberText, ShortestRealAtPowersOfTwoAndTheEndsOfTheRange) {
    EXPECT_EQ(shortestReal(0x1p89), "6.189700196426902e+26");
    EXPECT_EQ(shortestReal(5e-324), "5e-324");
    EXPECT_EQ(shortestReal(1.7976931348623157e308), "1.7976931348623157e+308");
    EXPECT_EQ(shortestReal(9007199254740993.0), "9007199254740992");
    EXPECT_EQ(shortestReal(0x1p60), "1152921504606846976");
    EXPECT_EQ(shortestReal(1e22), "1e+22");
    EXPECT_EQ(shortestReal(0.0001), "1e-04");
    EXPECT_EQ(shortestReal(-0.0), "-0");
}

TEST(NumberText, ParseRealAtTheEndsOfTheRange) {
    EXPECT_EQ(parseReal(" 5e-324\n"), 5e-324);
    EXPECT_EQ(parseReal("1.7976931348623157e308"), 1.7976931348623157e308);
    EXPECT_EQ(parseReal("+9007199254740993"), 9007199254740992.0);
    EXPECT_EQ(parseReal("1e309"), std::nullopt);
    EXPECT_EQ(parseReal("2e-324"), std::nullopt);
    EXPECT_EQ(parseReal("+-1"), std::nullopt);
    EXPECT_EQ(parseReal("0x10"), std::nullopt);
    EXPECT_TRUE(std::isnan(*parseReal("nan")));
}

TEST(DateText, FormatsAndReadsTheReferenceDateAndBothDirectionsFromIt) {
    EXPECT_EQ(formatDate(Date{0}), "2001-01-01T00:00:00Z");
    EXPECT_EQ(formatDate(Date{-1}), "2000-12-31T23:59:59Z");
    EXPECT_EQ(formatDate(Date{-63113904000}), "0001-01-01T00:00:00Z");
    EXPECT_EQ(formatDate(Date{252423993599}), "9999-12-31T23:59:59Z");
    EXPECT_EQ(formatDate(Date{-63145526400}), "0000-01-01T00:00:00Z");
    EXPECT_EQ(formatDate(Date{-63145526401}), std::nullopt);
    EXPECT_EQ(formatDate(Date{252423993600}), std::nullopt);
    EXPECT_EQ(parseDate("0001-01-01T00:00:00Z")->sinceReferenceDate, -63113904000);
    EXPECT_EQ(parseDate("2024-02-29T23:59:59Z")->sinceReferenceDate, 730943999);
}

TEST(DateText, TheExactFormCarriesTheFractionOfASecond) {
    EXPECT_EQ(formatDateExactly(Date{0.25}), "2001-01-01T00:00:00.25Z");
    EXPECT_EQ(formatDateExactly(Date{-0.75}), "2000-12-31T23:59:59.25Z");
    EXPECT_EQ(formatDateExactly(Date{86400}), "2001-01-02T00:00:00Z");
    const double awkward = 728395200.123456789;
    EXPECT_EQ(parseDate(*formatDateExactly(Date{awkward}), true)->sinceReferenceDate, awkward);
    EXPECT_EQ(formatDateExactly(Date{123.456}), "2001-01-01T00:02:03.45600000000000307Z");
    EXPECT_EQ(formatDateExactly(Date{1e-7}), "2001-01-01T00:00:00.0000001Z");
    EXPECT_EQ(formatDateExactly(Date{0.9999999999999999}), "2001-01-01T00:00:00.9999999999999999Z");
    // A fraction of a second that is 1.0 as a double has no text that reads back.
    EXPECT_EQ(formatDateExactly(Date{-1e-20}), std::nullopt);
    EXPECT_EQ(parseDate("2001-01-01T00:00:00.99999999999999999999Z", true)->sinceReferenceDate, 1.0);
    EXPECT_EQ(parseDate("2001-01-01T00:00:00." + std::string(400, '0') + "1Z", true)->sinceReferenceDate, 0.0);
    EXPECT_EQ(parseDate("2001-01-01T00:00:00.25Z"), std::nullopt);
    EXPECT_EQ(parseDate("2001-01-01T00:00:00.Z", true), std::nullopt);
}

}  // namespace
