#include "launch_agent/FilePermissions.hpp"

#include <gtest/gtest.h>

#include <limits>

namespace {

using vornix::launch_agent::FilePermissions;
using vornix::launch_agent::PermissionBits;

constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t smallest = std::numeric_limits<std::int64_t>::min();

void expectRaw(const FilePermissions& permissions, std::int64_t user, std::int64_t group, std::int64_t other) {
    EXPECT_EQ(permissions.user.rawValue(), user);
    EXPECT_EQ(permissions.group.rawValue(), group);
    EXPECT_EQ(permissions.other.rawValue(), other);
}

TEST(FilePermissions, ConstructorStoresTheThreeSetsAsGiven) {
    const FilePermissions permissions(PermissionBits(7), PermissionBits(12), PermissionBits(-4));
    expectRaw(permissions, 7, 12, -4);
}

TEST(FilePermissions, MembersAreAssignable) {
    FilePermissions permissions = FilePermissions::fromMode(0);
    permissions.user = PermissionBits{PermissionBits::read, PermissionBits::write};
    permissions.group = PermissionBits::read;
    permissions.other = PermissionBits::read;
    EXPECT_EQ(permissions.octal(), "644");
}

TEST(FilePermissions, ARegularFilesFullModeGivesItsPermissionBits) {
    const FilePermissions permissions = FilePermissions::fromMode(0100755);
    EXPECT_EQ(permissions.user.description(), "rwx");
    EXPECT_EQ(permissions.group.description(), "r-x");
    EXPECT_EQ(permissions.other.description(), "r-x");
    EXPECT_EQ(permissions.octal(), "755");
    EXPECT_EQ(permissions.decimal(), 493);
    EXPECT_EQ(permissions.symbolic(), "-rwxr-xr-x");
}

TEST(FilePermissions, ModeZeroHasNoPermissionAndTheFullUmask) {
    const FilePermissions permissions = FilePermissions::fromMode(0);
    expectRaw(permissions, 0, 0, 0);
    EXPECT_EQ(permissions.octal(), "000");
    EXPECT_EQ(permissions.symbolic(), "----------");
    EXPECT_EQ(permissions.umaskOctal(), "777");
    EXPECT_EQ(permissions.umaskDecimal(), 511);
}

TEST(FilePermissions, AOneDigitModeIsPaddedToThreeDigits) {
    const FilePermissions permissions = FilePermissions::fromMode(07);
    EXPECT_TRUE(permissions.user.isEmpty());
    EXPECT_TRUE(permissions.group.isEmpty());
    EXPECT_EQ(permissions.other.description(), "rwx");
    EXPECT_EQ(FilePermissions::fromMode(05).octal(), "005");
}

TEST(FilePermissions, BitsAboveTheNinePermissionBitsAreDropped) {
    expectRaw(FilePermissions::fromMode(0100644), 6, 4, 4);
    expectRaw(FilePermissions::fromMode(04755), 7, 5, 5);
    expectRaw(FilePermissions::fromMode(largest), 7, 7, 7);
}

TEST(FilePermissions, UmaskTwentyTwoGives755AndUmaskTwoGives775) {
    const FilePermissions fromCommonMask = FilePermissions::fromUmask(022);
    expectRaw(fromCommonMask, 7, 5, 5);
    EXPECT_EQ(fromCommonMask.octal(), "755");
    EXPECT_EQ(fromCommonMask.umaskOctal(), "022");
    const FilePermissions fromGroupMask = FilePermissions::fromUmask(02);
    EXPECT_EQ(fromGroupMask.octal(), "775");
    EXPECT_EQ(fromGroupMask.umaskOctal(), "002");
}

TEST(FilePermissions, UmaskSeventySevenLeavesOnlyTheOwner) { expectRaw(FilePermissions::fromUmask(077), 7, 0, 0); }

TEST(FilePermissions, UmaskSevenSevenSevenLeavesNoPermissionAtAll) {
    const FilePermissions permissions = FilePermissions::fromUmask(0777);
    expectRaw(permissions, 0, 0, 0);
    EXPECT_EQ(permissions.symbolic(), "----------");
}

TEST(FilePermissions, DescriptionOf640ListsEveryPosition) {
    EXPECT_EQ(FilePermissions::fromMode(0640).description(), "Permissions u+rw-, g+r--, o+---");
}

TEST(FilePermissions, DescriptionOf755) {
    EXPECT_EQ(FilePermissions::fromMode(0755).description(), "Permissions u+rwx, g+r-x, o+r-x");
}

TEST(FilePermissions, OctalFormsKeepLeadingZeros) {
    EXPECT_EQ(FilePermissions::fromMode(0400).octal(), "400");
    EXPECT_EQ(FilePermissions::fromMode(0400).symbolic(), "-r--------");
    EXPECT_EQ(FilePermissions::fromMode(0755).umaskOctal(), "022");
    EXPECT_EQ(FilePermissions::fromMode(0755).umaskDecimal(), 18);
    EXPECT_EQ(FilePermissions::fromMode(0644).umaskOctal(), "133");
}

TEST(FilePermissions, ModesOfMinusSixtyFourAndBelowAreReadFromTheirLastThreeDigits) {
    expectRaw(FilePermissions::fromMode(-0144), 1, 4, 4);
    expectRaw(FilePermissions::fromMode(-64), 1, 0, 0);
    expectRaw(FilePermissions::fromMode(-0100755), 7, 5, 5);
    expectRaw(FilePermissions::fromMode(smallest), 0, 0, 0);
}

TEST(FilePermissions, UmasksOfMinusSixtyFourAndBelowAreReadFromTheirLastThreeDigits) {
    expectRaw(FilePermissions::fromUmask(-64), 6, 7, 7);
    expectRaw(FilePermissions::fromUmask(-01022), 7, 5, 5);
}

TEST(FilePermissions, ARawValueAboveSevenDisappearsFromTheOctalText) {
    const FilePermissions permissions(PermissionBits(8), PermissionBits(7), PermissionBits(5));
    EXPECT_EQ(permissions.decimal(), 573);
    EXPECT_EQ(permissions.octal(), "075");
    EXPECT_EQ(FilePermissions(PermissionBits(8), PermissionBits(0), PermissionBits(0)).octal(), "000");
}

TEST(FilePermissions, NegativeUmaskFormsAreShortenedByTheSameRule) {
    const FilePermissions minusOne(PermissionBits(8), PermissionBits(0), PermissionBits(0));
    EXPECT_EQ(minusOne.umaskDecimal(), -1);
    EXPECT_EQ(minusOne.umaskOctal(), "0-1");
    const FilePermissions minusSixtyFive(PermissionBits(9), PermissionBits(0), PermissionBits(0));
    EXPECT_EQ(minusSixtyFive.umaskDecimal(), -65);
    EXPECT_EQ(minusSixtyFive.umaskOctal(), "101");
}

TEST(FilePermissions, NegativeRawValuesFeedTheSameArithmetic) {
    const FilePermissions permissions(PermissionBits(0), PermissionBits(0), PermissionBits(-5));
    EXPECT_EQ(permissions.decimal(), -5);
    EXPECT_EQ(permissions.octal(), "0-5");
    EXPECT_EQ(permissions.umaskDecimal(), 7 * 64 + 7 * 8 + 12);
}

TEST(FilePermissionsDeathTest, ModesFromMinusOneToMinusSixtyThreeAreFatal) {
    EXPECT_DEATH(FilePermissions::fromMode(-1),
                 "^Fatal error: cannot read the permission digit \"-\" of \"0-1\" \\(from -1\\)\n$");
    EXPECT_DEATH(FilePermissions::fromMode(-7), "permission digit \"-\" of \"0-7\"");
    EXPECT_DEATH(FilePermissions::fromMode(-8), "permission digit \"-\" of \"-10\"");
    EXPECT_DEATH(FilePermissions::fromMode(-63),
                 "^Fatal error: cannot read the permission digit \"-\" of \"-77\" \\(from -63\\)\n$");
}

TEST(FilePermissionsDeathTest, UmasksFromMinusOneToMinusSixtyThreeAreFatal) {
    EXPECT_DEATH(FilePermissions::fromUmask(-1), "permission digit \"-\" of \"0-1\" \\(from -1\\)");
    EXPECT_DEATH(FilePermissions::fromUmask(-63), "permission digit \"-\" of \"-77\" \\(from -63\\)");
}

TEST(FilePermissionsDeathTest, AnOverflowingDecimalIsFatal) {
    const FilePermissions permissions(PermissionBits(largest), PermissionBits(0), PermissionBits(0));
    EXPECT_DEATH(permissions.decimal(), "^Fatal error: arithmetic overflow: 9223372036854775807 \\* 64\n$");
    EXPECT_DEATH(permissions.octal(), "arithmetic overflow");
}

TEST(FilePermissionsDeathTest, AnOverflowingSumIsFatal) {
    const FilePermissions permissions(PermissionBits(0), PermissionBits(1), PermissionBits(largest));
    EXPECT_DEATH(permissions.decimal(), "^Fatal error: arithmetic overflow: 8 \\+ 9223372036854775807\n$");
}

TEST(FilePermissionsDeathTest, AnOverflowingUmaskDecimalIsFatal) {
    const FilePermissions permissions(PermissionBits(-(std::int64_t{1} << 58)), PermissionBits(0), PermissionBits(0));
    EXPECT_DEATH(permissions.umaskDecimal(), "^Fatal error: arithmetic overflow: 288230376151711751 \\* 64\n$");
    EXPECT_DEATH(permissions.umaskOctal(), "arithmetic overflow");
    const FilePermissions smallestUser(PermissionBits(smallest), PermissionBits(0), PermissionBits(0));
    EXPECT_DEATH(smallestUser.umaskDecimal(), "arithmetic overflow: 7 - -9223372036854775808");
}

}  // namespace
