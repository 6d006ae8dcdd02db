#include "base/RealText.hpp"

#include <locale.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>
#include <system_error>

#include <gtest/gtest.h>

namespace {

using vornix::base::DecimalDigits;
using vornix::base::readReal;
using vornix::base::readRealPrefix;
using vornix::base::shortestDigits;
using vornix::base::shortestFixedText;
using vornix::base::shortestText;

using Doubles = std::numeric_limits<double>;
using Floats = std::numeric_limits<float>;

// The texts below are what the host wrote with the standard library's to_chars before it
// made them itself.

TEST(RealText, ShortestTextOfPowersOfTwoWhoseRoundedDigitsDoNotReadBack) {
    // Correctly rounded to 16 digits these read back as the next double down; the 16 digits
    // one unit above do read back.
    EXPECT_EQ(shortestText(0x1p89), "6.189700196426902e+26");
    EXPECT_EQ(shortestText(0x1p-1017), "7.120236347223045e-307");
    EXPECT_EQ(shortestText(0x1p976), "6.386688990511104e+293");
    EXPECT_EQ(shortestText(0x1p1023), "8.98846567431158e+307");
}

TEST(RealText, ShortestTextAtTheEndsOfTheDoubleRange) {
    EXPECT_EQ(shortestText(Doubles::denorm_min()), "5e-324");
    EXPECT_EQ(shortestText(2 * Doubles::denorm_min()), "1e-323");
    EXPECT_EQ(shortestText(Doubles::min() - Doubles::denorm_min()), "2.225073858507201e-308");
    EXPECT_EQ(shortestText(Doubles::min()), "2.2250738585072014e-308");
    EXPECT_EQ(shortestText(Doubles::max()), "1.7976931348623157e+308");
    EXPECT_EQ(shortestText(-Doubles::max()), "-1.7976931348623157e+308");
}

TEST(RealText, ShortestTextIsFixedUnlessScientificIsShorter) {
    EXPECT_EQ(shortestText(0.1), "0.1");
    EXPECT_EQ(shortestText(0.001), "0.001");
    EXPECT_EQ(shortestText(0.0001), "1e-04");
    EXPECT_EQ(shortestText(100.0), "100");
    EXPECT_EQ(shortestText(1e15), "1e+15");
    EXPECT_EQ(shortestText(4.35e15), "4.35e+15");
    EXPECT_EQ(shortestText(1e21), "1e+21");
    EXPECT_EQ(shortestText(1e22), "1e+22");
    EXPECT_EQ(shortestText(1e23), "1e+23");
    EXPECT_EQ(shortestText(1.0000000000000002), "1.0000000000000002");
    EXPECT_EQ(shortestText(-1e-7), "-1e-07");
    EXPECT_EQ(shortestText(-0.0), "-0");
    EXPECT_EQ(shortestText(0.0), "0");
}

TEST(RealText, AWholeNumberInFixedFormIsWrittenExactly) {
    EXPECT_EQ(shortestText(9007199254740993.0), "9007199254740992");
    EXPECT_EQ(shortestText(0x1p60), "1152921504606846976");
    EXPECT_EQ(shortestText(123456789012345678.0), "123456789012345680");
    EXPECT_EQ(shortestText(0x1p40f), "1099511627776");
}

TEST(RealText, ShortestTextOfFloats) {
    EXPECT_EQ(shortestText(1.0f / 3), "0.33333334");
    EXPECT_EQ(shortestText(0.1f), "0.1");
    EXPECT_EQ(shortestText(Floats::denorm_min()), "1e-45");
    EXPECT_EQ(shortestText(Floats::min()), "1.1754944e-38");
    EXPECT_EQ(shortestText(Floats::max()), "3.4028235e+38");
    EXPECT_EQ(shortestText(16777217.0f), "16777216");
}

TEST(RealText, ShortestTextOfInfinitiesAndNotANumber) {
    EXPECT_EQ(shortestText(Doubles::infinity()), "inf");
    EXPECT_EQ(shortestText(-Doubles::infinity()), "-inf");
    EXPECT_EQ(shortestText(Doubles::quiet_NaN()), "nan");
    EXPECT_EQ(shortestText(-Doubles::quiet_NaN()), "-nan");
    EXPECT_EQ(shortestText(-Floats::infinity()), "-inf");
}

TEST(RealText, ShortestDigitsAreTheDigitsAndTheExponentOfTheFirst) {
    const DecimalDigits small = shortestDigits(0.00125);
    EXPECT_EQ(small.digits, "125");
    EXPECT_EQ(small.exponent, -3);
    const DecimalDigits boundary = shortestDigits(0x1p89);
    EXPECT_EQ(boundary.digits, "6189700196426902");
    EXPECT_EQ(boundary.exponent, 26);
    const DecimalDigits zero = shortestDigits(-0.0);
    EXPECT_EQ(zero.digits, "0");
    EXPECT_EQ(zero.exponent, 0);
}

TEST(RealText, ShortestFixedText) {
    EXPECT_EQ(shortestFixedText(0.25), "0.25");
    EXPECT_EQ(shortestFixedText(1.0), "1");
    EXPECT_EQ(shortestFixedText(0.1), "0.1");
    EXPECT_EQ(shortestFixedText(1e-7), "0.0000001");
    EXPECT_EQ(shortestFixedText(123.456 - 123), "0.45600000000000307");
    EXPECT_EQ(shortestFixedText(1e23), "99999999999999991611392");
    EXPECT_EQ(shortestFixedText(0x1p60), "1152921504606846976");
}

TEST(RealText, ReadsNumbersAtTheEndsOfTheRange) {
    EXPECT_EQ(readReal<double>("5e-324"), Doubles::denorm_min());
    EXPECT_EQ(readReal<double>("3e-324"), Doubles::denorm_min());
    EXPECT_EQ(readReal<double>("2.4703282292062328e-324"), Doubles::denorm_min());
    EXPECT_EQ(readReal<double>("1.7976931348623157e308"), Doubles::max());
    EXPECT_EQ(readReal<double>("1.7976931348623158e308"), Doubles::max());
    EXPECT_EQ(readReal<double>("9007199254740993"), 9007199254740992.0);
    EXPECT_EQ(readReal<double>("0.1"), 0.1);
    EXPECT_EQ(readReal<double>("1e23"), 1e23);
    EXPECT_EQ(readReal<float>("1.4e-45"), Floats::denorm_min());
    EXPECT_EQ(readReal<float>("3.4028235e38"), Floats::max());
}

TEST(RealText, NumbersBeyondTheRangeOrRoundingToZeroAreOutOfRange) {
    for (const char* text : {"1e400", "-1e400", "1.7976931348623159e308", "1e-400", "2e-324",
                             "2.4703282292062327e-324", "1e99999999999999999999", "-1e-99999999999999999999"}) {
        EXPECT_EQ(readReal<double>(text), std::nullopt) << text;
        EXPECT_EQ(readRealPrefix<double>(text).status, vornix::base::RealReading<double>::Status::outOfRange) << text;
    }
    EXPECT_EQ(readReal<float>("3.5e38"), std::nullopt);
    EXPECT_EQ(readReal<float>("1e-46"), std::nullopt);
    EXPECT_EQ(readReal<double>("0e99999999999999"), 0.0);
}

TEST(RealText, ReadsTheFormsOfNumbers) {
    EXPECT_EQ(readReal<double>("1."), 1.0);
    EXPECT_EQ(readReal<double>(".5"), 0.5);
    EXPECT_EQ(readReal<double>("-.5e-3"), -0.0005);
    EXPECT_EQ(readReal<double>("00012"), 12.0);
    EXPECT_EQ(readReal<double>("1E5"), 1e5);
    EXPECT_TRUE(std::signbit(*readReal<double>("-0")));
    EXPECT_EQ(readReal<double>("infinity"), Doubles::infinity());
    EXPECT_EQ(readReal<double>("-INF"), -Doubles::infinity());
    EXPECT_TRUE(std::isnan(*readReal<double>("NaN")));
    EXPECT_TRUE(std::isnan(*readReal<double>("nan(abc_9)")));
    EXPECT_TRUE(std::signbit(*readReal<double>("-nan")));
}

TEST(RealText, RefusesWhatIsNotWhollyANumber) {
    for (const char* text : {"", "-", ".", "-.", "+1", " 1", "1 ", "0x10", "1e", "1e+", "infin", "nan(", "nan(a-b)",
                             "1,5", "1..2", "1e5.5", "--1"}) {
        EXPECT_EQ(readReal<double>(text), std::nullopt) << text;
    }
}

TEST(RealText, ThePrefixIsTheLongestLeadingNumber) {
    using Status = vornix::base::RealReading<double>::Status;
    const auto reading = readRealPrefix<double>("1e5x");
    EXPECT_EQ(reading.status, Status::ok);
    EXPECT_EQ(reading.length, 3u);
    EXPECT_EQ(reading.value, 1e5);
    EXPECT_EQ(readRealPrefix<double>("2e+").length, 1u);
    EXPECT_EQ(readRealPrefix<double>("infinit").length, 3u);
    EXPECT_EQ(readRealPrefix<double>("nan(ab").length, 3u);
    EXPECT_EQ(readRealPrefix<double>("nan(ab)c").length, 7u);
    EXPECT_EQ(readRealPrefix<double>("1e400x").status, Status::outOfRange);
    EXPECT_EQ(readRealPrefix<double>("1e400x").length, 5u);
    EXPECT_EQ(readRealPrefix<double>("x1").status, Status::malformed);
    EXPECT_EQ(readRealPrefix<double>("x1").length, 0u);
}

// A locale whose decimal point is a comma, made with localedef in a temporary folder.
class CommaLocale {
public:
    CommaLocale() {
        std::string folder = (std::filesystem::temp_directory_path() / "vornix-locale-XXXXXX").string();
        if (::mkdtemp(folder.data()) == nullptr) {
            return;
        }
        folder_ = folder;
        std::ofstream(folder_ / "comma.src") << "LC_NUMERIC\n"
                                                "decimal_point \",\"\n"
                                                "thousands_sep \".\"\n"
                                                "grouping 3;3\n"
                                                "END LC_NUMERIC\n";
        const std::string command = "localedef -c -f UTF-8 -i '" + (folder_ / "comma.src").string() + "' '" +
                                    (folder_ / "comma").string() + "' >/dev/null 2>&1";
        [[maybe_unused]] const int status = std::system(command.c_str());
        ::setenv("LOCPATH", folder_.c_str(), 1);
        locale_ = ::newlocale(LC_NUMERIC_MASK, "comma", locale_t{});
        ::unsetenv("LOCPATH");
    }
    ~CommaLocale() {
        if (locale_ != locale_t{}) {
            ::freelocale(locale_);
        }
        if (!folder_.empty()) {
            std::error_code ignored;
            std::filesystem::remove_all(folder_, ignored);
        }
    }
    locale_t get() const { return locale_; }

private:
    std::filesystem::path folder_;
    locale_t locale_{};
};

TEST(RealText, ALocaleWithADecimalCommaChangesNoTextAndNoReading) {
    CommaLocale comma;
    if (comma.get() == locale_t{}) {
        GTEST_SKIP() << "localedef cannot make a locale here";
    }
    const locale_t previous = ::uselocale(comma.get());
    // The C library itself now reads "0.5" only up to the point.
    EXPECT_EQ(std::strtod("0.5", nullptr), 0.0);
    EXPECT_EQ(readReal<double>("0.5"), 0.5);
    EXPECT_EQ(readReal<float>("2.25"), 2.25f);
    EXPECT_EQ(readReal<double>("0,5"), std::nullopt);
    EXPECT_EQ(shortestText(0.5), "0.5");
    EXPECT_EQ(shortestText(1.5e300), "1.5e+300");
    EXPECT_EQ(shortestText(0x1p89), "6.189700196426902e+26");
    EXPECT_EQ(shortestFixedText(0.25), "0.25");
    // The thread keeps its own locale afterwards.
    EXPECT_EQ(::uselocale(locale_t{}), comma.get());
    ::uselocale(previous);
}

}  // namespace
