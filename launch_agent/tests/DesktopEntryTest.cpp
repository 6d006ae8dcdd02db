#include "launch_agent/DesktopEntry.hpp"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using vornix::launch_agent::DesktopEntryError;
using vornix::launch_agent::desktopEntryKeys;
using vornix::launch_agent::escapedValue;
using vornix::launch_agent::execValue;
using vornix::launch_agent::execWords;
using Words = std::vector<std::string>;

TEST(DesktopEntryValue, BackslashLineFeedTabAndCarriageReturnAreEscaped) {
    EXPECT_EQ(escapedValue("a\\b\nc\td\re"), "a\\\\b\\nc\\td\\re");
}

TEST(DesktopEntryValue, BlanksAtEitherEndAreEscapedAndInnerOnesKept) {
    EXPECT_EQ(escapedValue(" a b "), "\\sa b\\s");
    EXPECT_EQ(escapedValue(" "), "\\s");
}

TEST(DesktopEntryValue, ControlCharactersAndBadUtf8CannotBeWritten) {
    EXPECT_THROW(escapedValue(std::string("a\0b", 3)), DesktopEntryError);
    EXPECT_THROW(escapedValue("bell\a"), DesktopEntryError);
    EXPECT_THROW(escapedValue("del\x7F"), DesktopEntryError);
    EXPECT_THROW(escapedValue("\xC3"), DesktopEntryError);
    EXPECT_EQ(escapedValue("Gr\xC3\xB6\xC3\x9F" "e"), "Gr\xC3\xB6\xC3\x9F" "e");
}

TEST(DesktopEntryExec, PlainWordsStayUnquoted) {
    EXPECT_EQ(execValue({"/usr/bin/vornix-host", "--flag=value", "-"}), "/usr/bin/vornix-host --flag=value -");
}

TEST(DesktopEntryExec, AWordWithABlankOrAShellCharacterIsQuoted) {
    EXPECT_EQ(execValue({"/opt/Vornix OS/host"}), "\"/opt/Vornix OS/host\"");
    for (const std::string word : {"a;b", "a|b", "a&b", "a>b", "a<b", "~user", "a*b", "a?b", "a#b", "(a)", "it's"}) {
        EXPECT_EQ(execValue({"/bin/tool", word}), "/bin/tool \"" + word + "\"") << word;
    }
}

TEST(DesktopEntryExec, AnEmptyWordIsAPairOfQuotes) { EXPECT_EQ(execValue({"/bin/tool", ""}), "/bin/tool \"\""); }

TEST(DesktopEntryExec, QuoteBacktickDollarAndBackslashAreEscapedInQuotesThenAsAString) {
    // In quotes: \" \` \$ \\ ; then the string escape doubles every backslash.
    EXPECT_EQ(execValue({"/bin/tool", "say \"hi\""}), "/bin/tool \"say \\\\\"hi\\\\\"\"");
    EXPECT_EQ(execValue({"/bin/tool", "`id`"}), "/bin/tool \"\\\\`id\\\\`\"");
    EXPECT_EQ(execValue({"/bin/tool", "$HOME"}), "/bin/tool \"\\\\$HOME\"");
    EXPECT_EQ(execValue({"/bin/tool", "a\\b"}), "/bin/tool \"a\\\\\\\\b\"");
}

TEST(DesktopEntryExec, PercentIsDoubledSoNoWordIsAFieldCode) {
    EXPECT_EQ(execValue({"/bin/tool", "%u", "100%"}), "/bin/tool %%u 100%%");
    EXPECT_EQ(execValue({"/bin/tool", "50% off"}), "/bin/tool \"50%% off\"");
}

TEST(DesktopEntryExec, LineEndsAndTabsInAWordAreQuotedAndEscaped) {
    EXPECT_EQ(execValue({"/bin/tool", "two\nlines", "a\tb", "c\rd"}), "/bin/tool \"two\\nlines\" \"a\\tb\" \"c\\rd\"");
}

TEST(DesktopEntryExec, NoWordsOrAnUnwritableWordIsRefused) {
    EXPECT_THROW(execValue({}), DesktopEntryError);
    EXPECT_THROW(execValue({"/bin/tool", "\x01"}), DesktopEntryError);
    EXPECT_THROW(execValue({"/bin/tool", "\xFF"}), DesktopEntryError);
}

TEST(DesktopEntryExec, EveryWrittenValueReadsBackAsTheSameWords) {
    const Words words{"/opt/Vornix OS/it's $x/bin\\host", "", " padded ", "a\\", "\\", "\"", "%%", "%",
                      "`", "$", "two\nlines", "tab\there", "cr\r", "~", "=", "Gr\xC3\xB6\xC3\x9F" "e"};
    EXPECT_EQ(execWords(execValue(words)), words);
}

TEST(DesktopEntryExec, ReadingRefusesWhatTheFormatDoesNotAllow) {
    EXPECT_THROW(execWords("/bin/tool %u"), DesktopEntryError);
    EXPECT_THROW(execWords("/bin/tool \"open"), DesktopEntryError);
    EXPECT_THROW(execWords("/bin/tool a;b"), DesktopEntryError);
    EXPECT_THROW(execWords("/bin/tool \\q"), DesktopEntryError);
    EXPECT_THROW(execWords("/bin/tool \"\\\\q\""), DesktopEntryError);
    EXPECT_EQ(execWords("/bin/tool  a"), (Words{"/bin/tool", "a"}));
}

TEST(DesktopEntryKeys, OnlyTheDesktopEntryGroupIsRead) {
    const auto keys = desktopEntryKeys(
        "# comment\n[Desktop Entry]\nName=Job\nHidden = true\r\n\n"
        "[Desktop Action x]\nName=Other\n[Desktop Entry]\nX=1");
    EXPECT_EQ(keys.at("Name"), "Job");
    EXPECT_EQ(keys.at("Hidden"), "true");
    EXPECT_EQ(keys.at("X"), "1");
    EXPECT_EQ(keys.size(), 3u);
}

}  // namespace
