#include "launch_agent/PermissionBits.hpp"

#include <gtest/gtest.h>

#include <limits>

namespace {

using vornix::launch_agent::PermissionBits;

const PermissionBits read = PermissionBits::read;
const PermissionBits write = PermissionBits::write;
const PermissionBits execute = PermissionBits::execute;

TEST(PermissionBits, MembersHaveTheirRawValues) {
    EXPECT_EQ(read.rawValue(), 4);
    EXPECT_EQ(write.rawValue(), 2);
    EXPECT_EQ(execute.rawValue(), 1);
    EXPECT_EQ(PermissionBits().rawValue(), 0);
}

TEST(PermissionBits, BuiltFromReadAndExecuteIsFiveReadsRxAndHasUmaskValueTwo) {
    const PermissionBits bits{read, execute};
    EXPECT_EQ(bits.rawValue(), 5);
    EXPECT_EQ(bits.description(), "r-x");
    EXPECT_EQ(bits.umaskValue(), 2);
}

TEST(PermissionBits, AListOfMembersIsTheirUnion) {
    EXPECT_EQ((PermissionBits{read, write, execute}).rawValue(), 7);
    EXPECT_EQ((PermissionBits{write, write}).rawValue(), 2);
    EXPECT_EQ((PermissionBits{}).rawValue(), 0);
}

TEST(PermissionBits, AnyRawValueIsAccepted) {
    EXPECT_EQ(PermissionBits(8).rawValue(), 8);
    EXPECT_EQ(PermissionBits(-3).rawValue(), -3);
    EXPECT_EQ(PermissionBits(std::numeric_limits<std::int64_t>::max()).rawValue(),
              std::numeric_limits<std::int64_t>::max());
}

TEST(PermissionBits, FromUmaskValueLeavesSevenMinusTheDigit) {
    EXPECT_EQ(PermissionBits::fromUmaskValue(2).rawValue(), 5);
    EXPECT_EQ(PermissionBits::fromUmaskValue(0).rawValue(), 7);
    EXPECT_EQ(PermissionBits::fromUmaskValue(7).rawValue(), 0);
    EXPECT_EQ(PermissionBits::fromUmaskValue(9).rawValue(), -2);
}

TEST(PermissionBits, UmaskValueIsSevenMinusTheRawValue) {
    EXPECT_EQ(PermissionBits(7).umaskValue(), 0);
    EXPECT_EQ(PermissionBits(0).umaskValue(), 7);
    EXPECT_EQ(PermissionBits(10).umaskValue(), -3);
}

TEST(PermissionBits, DescriptionListsAllThreePositions) {
    EXPECT_EQ(PermissionBits(0).description(), "---");
    EXPECT_EQ(PermissionBits(7).description(), "rwx");
    EXPECT_EQ(PermissionBits(6).description(), "rw-");
    EXPECT_EQ(PermissionBits(1).description(), "--x");
}

TEST(PermissionBits, DescriptionIgnoresBitsAboveRead) {
    EXPECT_EQ(PermissionBits(8).description(), "---");
    EXPECT_EQ(PermissionBits(13).description(), "r-x");
    EXPECT_EQ(PermissionBits(-1).description(), "rwx");
}

TEST(PermissionBits, SetAlgebraGivesNewSets) {
    const PermissionBits readWrite{read, write};
    const PermissionBits writeExecute{write, execute};
    EXPECT_EQ(readWrite.unionWith(writeExecute).rawValue(), 7);
    EXPECT_EQ(readWrite.intersection(writeExecute).rawValue(), 2);
    EXPECT_EQ(readWrite.symmetricDifference(writeExecute).rawValue(), 5);
    EXPECT_EQ(readWrite.subtracting(writeExecute).rawValue(), 4);
}

TEST(PermissionBits, FormingOperationsChangeTheSetInPlace) {
    PermissionBits bits{read, write};
    bits.formUnion(execute);
    EXPECT_EQ(bits.rawValue(), 7);
    bits.formIntersection(PermissionBits{read, execute});
    EXPECT_EQ(bits.rawValue(), 5);
    bits.formSymmetricDifference(PermissionBits{execute, write});
    EXPECT_EQ(bits.rawValue(), 6);
    bits.subtract(write);
    EXPECT_EQ(bits, read);
}

TEST(PermissionBits, InsertAnswersWhetherTheMemberWasNew) {
    PermissionBits bits{read};
    const auto [inserted, member] = bits.insert(write);
    EXPECT_TRUE(inserted);
    EXPECT_EQ(member, write);
    EXPECT_EQ(bits.rawValue(), 6);
    const auto [insertedAgain, held] = bits.insert(write);
    EXPECT_FALSE(insertedAgain);
    EXPECT_EQ(held, write);
    EXPECT_EQ(bits.rawValue(), 6);
}

TEST(PermissionBits, RemoveAnswersThePartThatWasHeld) {
    PermissionBits bits{read, write};
    EXPECT_EQ(bits.remove(PermissionBits{write, execute}), write);
    EXPECT_EQ(bits, read);
    EXPECT_EQ(bits.remove(execute), std::nullopt);
    EXPECT_EQ(bits, read);
}

TEST(PermissionBits, UpdateAddsAndAnswersThePartAlreadyHeld) {
    PermissionBits bits{read};
    EXPECT_EQ(bits.update(write), std::nullopt);
    EXPECT_EQ(bits.rawValue(), 6);
    EXPECT_EQ(bits.update(PermissionBits{write, execute}), write);
    EXPECT_EQ(bits.rawValue(), 7);
}

TEST(PermissionBits, MembershipAndRelations) {
    const PermissionBits all{read, write, execute};
    const PermissionBits readOnly{read};
    EXPECT_TRUE(all.contains(PermissionBits{read, execute}));
    EXPECT_FALSE(readOnly.contains(PermissionBits{read, execute}));
    EXPECT_TRUE(readOnly.isSubset(all));
    EXPECT_TRUE(readOnly.isStrictSubset(all));
    EXPECT_TRUE(all.isSubset(all));
    EXPECT_FALSE(all.isStrictSubset(all));
    EXPECT_TRUE(all.isSuperset(readOnly));
    EXPECT_TRUE(all.isStrictSuperset(readOnly));
    EXPECT_FALSE(readOnly.isSuperset(all));
    EXPECT_FALSE(all.isStrictSuperset(all));
    EXPECT_TRUE(readOnly.isDisjoint(PermissionBits{write, execute}));
    EXPECT_FALSE(readOnly.isDisjoint(all));
    EXPECT_TRUE(PermissionBits().isEmpty());
    EXPECT_FALSE(readOnly.isEmpty());
}

TEST(PermissionBits, EqualityIsByRawValue) {
    EXPECT_EQ(PermissionBits(5), (PermissionBits{read, execute}));
    EXPECT_NE(PermissionBits(5), PermissionBits(13));
}

TEST(PermissionBitsDeathTest, AnOverflowingUmaskValueIsFatal) {
    EXPECT_DEATH(PermissionBits(std::numeric_limits<std::int64_t>::min()).umaskValue(),
                 "^Fatal error: arithmetic overflow: 7 - -9223372036854775808\n$");
    EXPECT_DEATH(PermissionBits::fromUmaskValue(std::numeric_limits<std::int64_t>::min()),
                 "^Fatal error: arithmetic overflow: 7 - -9223372036854775808\n$");
}

}  // namespace
