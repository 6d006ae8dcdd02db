#include <gtest/gtest.h>

#include "tool/tests/ToolRun.hpp"

namespace {

using vornix::tool::testing::runToolWith;
using vornix::tool::testing::ToolRun;

TEST(PermissionsCommand, PrintsTheSixFormsOfAnOctalModeInOrder) {
    const ToolRun run = runToolWith({"permissions", "0o100755"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "755\n493\n-rwxr-xr-x\nPermissions u+rwx, g+r-x, o+r-x\n022\n18\n");
    EXPECT_EQ(run.err, "");
}

TEST(PermissionsCommand, ReadsADecimalMode) {
    const ToolRun run = runToolWith({"permissions", "416"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "640\n416\n-rw-r-----\nPermissions u+rw-, g+r--, o+---\n137\n95\n");
}

TEST(PermissionsCommand, ReadsAUmask) {
    const ToolRun run = runToolWith({"permissions", "--umask", "0o022"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "755\n493\n-rwxr-xr-x\nPermissions u+rwx, g+r-x, o+r-x\n022\n18\n");
    EXPECT_EQ(runToolWith({"permissions", "--umask", "18"}).out, run.out);
}

TEST(PermissionsCommand, ANegativeModeOfMinusSixtyFourOrBelowIsReadFromItsLastDigits) {
    const ToolRun octal = runToolWith({"permissions", "-0o144"});
    EXPECT_EQ(octal.status, 0);
    EXPECT_EQ(octal.out, "144\n100\n---xr--r--\nPermissions u+--x, g+r--, o+r--\n633\n411\n");
    EXPECT_EQ(runToolWith({"permissions", "-100"}).out, octal.out);
}

TEST(PermissionsCommand, AcceptsTheWholeSixtyFourBitRange) {
    EXPECT_EQ(runToolWith({"permissions", "9223372036854775807"}).status, 0);
    EXPECT_EQ(runToolWith({"permissions", "-9223372036854775808"}).status, 0);
    EXPECT_EQ(runToolWith({"permissions", "-0o1000000000000000000000"}).out.substr(0, 4), "000\n");
}

TEST(PermissionsCommand, TextThatIsNotAnIntegerIsAClearError) {
    for (const char* text : {"abc", "", "0o", "-", "0o9", "12x", "+5", "--5", "0x1F", "0o-7", " 5"}) {
        const ToolRun run = runToolWith({"permissions", text});
        EXPECT_EQ(run.status, 1) << text;
        EXPECT_EQ(run.out, "") << text;
        EXPECT_EQ(run.err, "vornix-tool permissions: '" + std::string(text) +
                               "' is not a 64-bit integer (decimal, or octal with a leading 0o)\n")
            << text;
    }
}

TEST(PermissionsCommand, AnIntegerOutsideSixtyFourBitsIsAClearError) {
    for (const char* text : {"9223372036854775808", "-9223372036854775809", "0o1000000000000000000000"}) {
        const ToolRun run = runToolWith({"permissions", text});
        EXPECT_EQ(run.status, 1) << text;
        EXPECT_NE(run.err.find("is not a 64-bit integer"), std::string::npos) << text;
    }
}

TEST(PermissionsCommand, WrongArgumentsPrintUsage) {
    for (const std::vector<std::string>& args : std::vector<std::vector<std::string>>{
             {"permissions"}, {"permissions", "1", "2"}, {"permissions", "--mask", "1"}, {"permissions", "--umask"}}) {
        const ToolRun run = runToolWith(args);
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.err, "usage: vornix-tool permissions MODE | vornix-tool permissions --umask MASK\n");
    }
}

TEST(PermissionsCommandDeathTest, ModesFromMinusOneToMinusSixtyThreeStayFatal) {
    EXPECT_DEATH(runToolWith({"permissions", "-1"}), "^Fatal error: cannot read the permission digit");
    EXPECT_DEATH(runToolWith({"permissions", "--umask", "-0o77"}), "^Fatal error: cannot read the permission digit");
}

}  // namespace
