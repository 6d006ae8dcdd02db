#include "plist/BinaryReader.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "plist/DecodingError.hpp"
#include "plist/tests/BinaryDocument.hpp"
#include "plist/tests/PrintValue.hpp"

namespace {

using namespace vornix::plist;
using vornix::plist::testing::Document;
using vornix::plist::testing::object;

Value readOne(const std::string& bytes) { return readBinary(Document{{bytes}}.bytes()); }

std::string failure(const std::string& bytes) {
    try {
        readBinary(bytes);
    } catch (const DataCorrupted& error) {
        return error.description();
    }
    ADD_FAILURE() << "read without error";
    return {};
}

bool contains(const std::string& text, std::string_view part) { return text.find(part) != std::string::npos; }

TEST(BinaryReader, IntegersOfOneTwoAndFourBytesAreUnsigned) {
    EXPECT_EQ(readOne(object({0x10, 0xFF})), Value(255));
    EXPECT_EQ(readOne(object({0x11, 0xFF, 0xFE})), Value(65534));
    EXPECT_EQ(readOne(object({0x12, 0xFF, 0xFF, 0xFF, 0xFF})), Value(std::int64_t{4294967295}));
}

TEST(BinaryReader, IntegersOfEightBytesAreSigned) {
    EXPECT_EQ(readOne(object({0x13, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFB})), Value(-5));
    EXPECT_EQ(readOne(object({0x13, 0x7F, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF})),
              Value(std::numeric_limits<std::int64_t>::max()));
}

TEST(BinaryReader, IntegersOfSixteenBytesAreReadWhenTheyFitIn64Bits) {
    std::string positive = object({0x14}) + std::string(8, '\0') + Document::bigEndian(42, 8);
    EXPECT_EQ(readOne(positive), Value(42));
    std::string negative = object({0x14}) + std::string(8, '\xFF') + Document::bigEndian(static_cast<std::uint64_t>(-7), 8);
    EXPECT_EQ(readOne(negative), Value(-7));
}

TEST(BinaryReader, ASixteenByteIntegerBeyond64BitsIsAnError) {
    // 2^64 - 1, as plistlib writes the largest unsigned 64-bit value.
    const std::string unsignedMaximum = object({0x14}) + std::string(8, '\0') + std::string(8, '\xFF');
    EXPECT_TRUE(contains(failure(Document{{unsignedMaximum}}.bytes()), "does not fit in 64 bits"));
    const std::string huge = object({0x14, 0x01}) + std::string(15, '\0');
    EXPECT_TRUE(contains(failure(Document{{huge}}.bytes()), "does not fit in 64 bits"));
}

TEST(BinaryReader, AnIntegerOfAnotherWidthIsAnError) {
    EXPECT_TRUE(contains(failure(Document{{object({0x15}) + std::string(32, '\0')}}.bytes()),
                         "not 1, 2, 4, 8 or 16 bytes"));
}

TEST(BinaryReader, RealsOfFourAndEightBytes) {
    EXPECT_EQ(readOne(object({0x22, 0x3F, 0x00, 0x00, 0x00})), Value(0.5));
    EXPECT_EQ(readOne(object({0x23, 0x40, 0x09, 0x21, 0xFB, 0x54, 0x44, 0x2D, 0x18})), Value(3.141592653589793));
    EXPECT_TRUE(contains(failure(Document{{object({0x21, 0, 0})}}.bytes()), "not 4 or 8 bytes"));
}

TEST(BinaryReader, BooleansAndDates) {
    EXPECT_EQ(readOne(object({0x09})), Value(true));
    EXPECT_EQ(readOne(object({0x08})), Value(false));
    EXPECT_EQ(readOne(object({0x33, 0x41, 0xC5, 0xB5, 0x36, 0xE0, 0x00, 0x00, 0x00})), Value(Date{728395200}));
    EXPECT_TRUE(contains(failure(Document{{object({0x32, 0, 0, 0, 0})}}.bytes()), "not an 8-byte real"));
}

TEST(BinaryReader, DataWithAShortAndALongCount) {
    EXPECT_EQ(readOne(object({0x43, 1, 2, 3})), Value(Data{1, 2, 3}));
    EXPECT_EQ(readOne(object({0x40})), Value(Data{}));
    EXPECT_EQ(readOne(object({0x4F, 0x10, 20}) + std::string(20, 'x')), Value(Data(20, 'x')));
    EXPECT_EQ(readOne(object({0x4F, 0x11, 0x01, 0x00}) + std::string(256, 'y')), Value(Data(256, 'y')));
}

TEST(BinaryReader, AsciiAndUtf16Strings) {
    EXPECT_EQ(readOne(object({0x53, 'a', 'b', 'c'})), Value("abc"));
    EXPECT_EQ(readOne(object({0x50})), Value(""));
    EXPECT_EQ(readOne(object({0x62, 0x00, 0xE9, 0x4E, 0x2D})), Value("\u00e9\u4e2d"));
    EXPECT_EQ(readOne(object({0x62, 0xD8, 0x3D, 0xDE, 0x00})), Value("\U0001F600"));
}

TEST(BinaryReader, AStringThatIsNotItsEncodingIsAnError) {
    EXPECT_TRUE(contains(failure(Document{{object({0x51, 0xE9})}}.bytes()), "byte above 127"));
    EXPECT_TRUE(contains(failure(Document{{object({0x61, 0xD8, 0x3D})}}.bytes()), "unpaired high surrogate"));
    EXPECT_TRUE(contains(failure(Document{{object({0x62, 0xD8, 0x3D, 0x00, 0x41})}}.bytes()), "unpaired high surrogate"));
    EXPECT_TRUE(contains(failure(Document{{object({0x61, 0xDE, 0x00})}}.bytes()), "unpaired low surrogate"));
}

TEST(BinaryReader, ArraysAndDictionaries) {
    const Document document{{object({0xD2, 1, 2, 3, 4}), object({0x51, 'b'}), object({0x51, 'a'}),
                             object({0xA2, 4, 4}), object({0x10, 7})}};
    EXPECT_EQ(readBinary(document.bytes()),
              Value(Dictionary::fromEntries({{"a", 7}, {"b", Array{7, 7}}})));
}

TEST(BinaryReader, ReferencesAndOffsetsOfEveryWidth) {
    for (const std::uint8_t size : {1, 2, 3, 4, 8}) {
        Document document{{object({0xA1}) + Document::bigEndian(1, size), object({0x09})}};
        document.referenceSize = size;
        document.offsetSize = size;
        EXPECT_EQ(readBinary(document.bytes()), Value(Array{true})) << int(size);
    }
}

TEST(BinaryReader, ADictionaryKeyThatIsNotAStringIsAnError) {
    const Document document{{object({0xD1, 1, 1}), object({0x10, 1})}};
    EXPECT_TRUE(contains(failure(document.bytes()), "a dictionary key is not a string but integer"));
}

TEST(BinaryReader, AReferenceBeyondTheObjectsIsAnError) {
    const Document document{{object({0xA1, 5})}};
    EXPECT_TRUE(contains(failure(document.bytes()), "reference 5 is beyond the 1 objects"));
}

TEST(BinaryReader, AnOffsetOutsideTheObjectAreaIsAnError) {
    Document intoTable{{object({0x09})}};
    intoTable.offsetOverrides = {9};
    EXPECT_TRUE(contains(failure(intoTable.bytes()), "offset outside the object area"));
    Document intoHeader{{object({0x09})}};
    intoHeader.offsetOverrides = {3};
    EXPECT_TRUE(contains(failure(intoHeader.bytes()), "offset outside the object area"));
}

TEST(BinaryReader, AnObjectThatContainsItselfIsAnError) {
    EXPECT_TRUE(contains(failure(Document{{object({0xA1, 0})}}.bytes()), "object 0 contains itself"));
    const Document indirect{{object({0xA1, 1}), object({0xD1, 2, 0}), object({0x51, 'k'})}};
    EXPECT_TRUE(contains(failure(indirect.bytes()), "object 0 contains itself"));
}

TEST(BinaryReader, AnObjectSharedByManyReferencesIsReadForEach) {
    const Document document{{object({0xA3, 1, 1, 1}), object({0xA1, 2}), object({0x51, 's'})}};
    EXPECT_EQ(readBinary(document.bytes()), Value(Array{Array{"s"}, Array{"s"}, Array{"s"}}));
}

TEST(BinaryReader, SharedObjectsThatExpandBeyondTheLimitAreAnError) {
    // Each level refers 14 times to the next: 14^40 values from a few hundred bytes.
    Document document;
    document.offsetSize = 2;
    for (int level = 0; level < 40; ++level) {
        std::string array = object({0xAE});
        for (int copy = 0; copy < 14; ++copy) {
            array += static_cast<char>(level + 1);
        }
        document.objects.push_back(array);
    }
    document.objects.push_back(object({0x09}));
    EXPECT_TRUE(contains(failure(document.bytes()), "expand beyond the size limit"));
}

TEST(BinaryReader, TheExpansionLimitIsTheCallersToSet) {
    // Each level refers 4 times to the next: 4^6 copies of one string, some 200 KB of values.
    Document document;
    for (int level = 0; level < 6; ++level) {
        document.objects.push_back(object({0xA4, level + 1, level + 1, level + 1, level + 1}));
    }
    document.objects.push_back(object({0x51, 's'}));
    EXPECT_NO_THROW(readBinary(document.bytes()));
    try {
        readBinary(document.bytes(), vornix::plist::BinaryLimits{.fixedBudget = 4096, .budgetPerByte = 0});
        FAIL() << "expanded beyond 4 KiB";
    } catch (const DataCorrupted& error) {
        EXPECT_TRUE(contains(error.what(), "expand beyond the size limit")) << error.what();
    }
}

TEST(BinaryReader, NestingIsBoundedAt512Levels) {
    const auto nested = [](int depth) {
        Document document;
        document.referenceSize = 2;
        document.offsetSize = 2;
        for (int level = 0; level < depth; ++level) {
            document.objects.push_back(object({0xA1}) + Document::bigEndian(static_cast<std::uint64_t>(level + 1), 2));
        }
        document.objects.push_back(object({0xA0}));
        return document.bytes();
    };
    EXPECT_NO_THROW(readBinary(nested(511)));
    EXPECT_TRUE(contains(failure(nested(512)), "nested deeper than 512 levels"));
}

TEST(BinaryReader, ObjectsWithNoPropertyListValueAreErrors) {
    EXPECT_TRUE(contains(failure(Document{{object({0x00})}}.bytes()), "null has no property-list value"));
    EXPECT_TRUE(contains(failure(Document{{object({0x0F})}}.bytes()), "unknown object marker"));
    EXPECT_TRUE(contains(failure(Document{{object({0x80, 1})}}.bytes()), "UID has no property-list value"));
    EXPECT_TRUE(contains(failure(Document{{object({0xC0})}}.bytes()), "a set has no property-list value"));
    EXPECT_TRUE(contains(failure(Document{{object({0x70})}}.bytes()), "unknown object marker"));
}

TEST(BinaryReader, AnObjectRunningPastTheObjectAreaIsAnError) {
    EXPECT_TRUE(contains(failure(Document{{object({0x55, 'a'})}}.bytes()), "runs past the object area"));
    EXPECT_TRUE(contains(failure(Document{{object({0x13, 0, 0})}}.bytes()), "runs past the object area"));
    EXPECT_TRUE(contains(failure(Document{{object({0x4F, 0x13, 0x7F, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF})}}.bytes()),
                         "runs past the object area"));
    EXPECT_TRUE(contains(failure(Document{{object({0xAF, 0x12, 0x7F, 0xFF, 0xFF, 0xFF})}}.bytes()),
                         "references run past the object area"));
}

TEST(BinaryReader, ALongCountThatIsNotAnIntegerIsAnError) {
    EXPECT_TRUE(contains(failure(Document{{object({0x5F, 0x51, 'a'})}}.bytes()), "count is not an integer"));
}

TEST(BinaryReader, ABrokenTrailerIsAnError) {
    Document zeroOffsets{{object({0x53, 'a', 'b', 'c'})}};
    zeroOffsets.offsetSize = 0;
    EXPECT_TRUE(contains(failure(zeroOffsets.bytes()), "outside 1 to 8 bytes"));
    Document wideReferences{{object({0x09})}};
    wideReferences.referenceSize = 9;
    EXPECT_TRUE(contains(failure(wideReferences.bytes()), "outside 1 to 8 bytes"));
    Document noObjects{{object({0x09})}};
    noObjects.objectCount = 0;
    EXPECT_TRUE(contains(failure(noObjects.bytes()), "object count does not fit"));
    Document tooManyObjects{{object({0x09})}};
    tooManyObjects.objectCount = std::numeric_limits<std::uint64_t>::max();
    EXPECT_TRUE(contains(failure(tooManyObjects.bytes()), "object count does not fit"));
    Document topBeyond{{object({0x09})}};
    topBeyond.topObject = 1;
    EXPECT_TRUE(contains(failure(topBeyond.bytes()), "top object is not in the offset table"));
    Document tableBeyond{{object({0x09})}};
    tableBeyond.tableOffset = std::numeric_limits<std::uint64_t>::max();
    EXPECT_TRUE(contains(failure(tableBeyond.bytes()), "offset table lies outside the document"));
}

TEST(BinaryReader, ATruncatedDocumentIsAnErrorAtEveryLength) {
    const std::string whole =
        Document{{object({0xA2, 1, 2}), object({0x53, 'a', 'b', 'c'}), object({0x11, 1, 0})}}.bytes();
    ASSERT_EQ(readBinary(whole), Value(Array{"abc", 256}));
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_THROW(readBinary(whole.substr(0, length)), DataCorrupted) << length;
    }
}

TEST(BinaryReader, ErrorsGiveTheByteOffset) {
    Document document{{object({0x09}), object({0xA1, 7})}};
    document.topObject = 1;
    EXPECT_EQ(failure(document.bytes()), "byte offset 10: reference 7 is beyond the 2 objects");
    EXPECT_EQ(failure("plain text"), "byte offset 0: not a binary property list (no \"bplist00\" header)");
}

}  // namespace
