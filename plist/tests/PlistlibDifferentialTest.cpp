// Differential test against Python's plistlib: several hundred values made from a fixed seed
// by plist/tests/plistlib_oracle.py, which writes plistlib's XML and binary forms and, on its
// own, the typed JSON form of each value.

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <unistd.h>
#include <string>

#include "plist/BinaryReader.hpp"
#include "plist/TypedJson.hpp"
#include "plist/XmlReader.hpp"
#include "plist/XmlWriter.hpp"
#include "plist/tests/PrintValue.hpp"

namespace {

namespace fs = std::filesystem;
using namespace vornix::plist;

constexpr int valueCount = 400;
constexpr int seed = 20240131;

std::string readFile(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return std::move(bytes).str();
}

struct Command {
    int status;
    std::string output;
};

Command runOracle(const std::string& action, const fs::path& folder) {
    const char* source = std::getenv("VORNIX_SOURCE_DIR");
    const fs::path script = fs::path(source ? source : ".") / "plist" / "tests" / "plistlib_oracle.py";
    const std::string command = "python3 '" + script.string() + "' " + action + " '" + folder.string() + "' " +
                                std::to_string(valueCount) + " " + std::to_string(seed) + " 2>&1";
    Command result{-1, {}};
    FILE* pipe = popen(command.c_str(), "r");
    if (pipe == nullptr) {
        return result;
    }
    char buffer[4096];
    while (const std::size_t read = std::fread(buffer, 1, sizeof buffer, pipe)) {
        result.output.append(buffer, read);
    }
    result.status = pclose(pipe);
    return result;
}

std::string stem(int index) {
    char name[8];
    std::snprintf(name, sizeof name, "%03d", index);
    return name;
}

class PlistlibDifferential : public testing::Test {
protected:
    static void SetUpTestSuite() {
        folder_ = fs::temp_directory_path() / ("vornix-plistlib-" + std::to_string(::getpid()));
        fs::create_directories(folder_);
        const Command generated = runOracle("generate", folder_);
        ASSERT_EQ(generated.status, 0) << generated.output;
    }

    static void TearDownTestSuite() { fs::remove_all(folder_); }

    static fs::path file(int index, const std::string& extension) { return folder_ / (stem(index) + extension); }

    static Value expected(int index) { return readTypedJson(readFile(file(index, ".json"))); }

    static fs::path folder_;
};

fs::path PlistlibDifferential::folder_;

TEST_F(PlistlibDifferential, OurXmlReaderReadsPlistlibsXmlToTheSameValue) {
    for (int index = 0; index < valueCount; ++index) {
        EXPECT_EQ(readXml(readFile(file(index, ".xml"))), expected(index)) << "value " << index;
    }
}

TEST_F(PlistlibDifferential, OurBinaryReaderReadsPlistlibsBinaryToTheSameValue) {
    for (int index = 0; index < valueCount; ++index) {
        EXPECT_EQ(readBinary(readFile(file(index, ".bin"))), expected(index)) << "value " << index;
    }
}

TEST_F(PlistlibDifferential, OurXmlBytesEqualPlistlibsForTheSameValue) {
    for (int index = 0; index < valueCount; ++index) {
        EXPECT_EQ(writeXml(expected(index)), readFile(file(index, ".xml"))) << "value " << index;
    }
}

TEST_F(PlistlibDifferential, PlistlibReadsOurXmlToTheSameValue) {
    for (int index = 0; index < valueCount; ++index) {
        std::ofstream(file(index, ".ours.xml"), std::ios::binary) << writeXml(expected(index));
    }
    const Command checked = runOracle("check", folder_);
    EXPECT_EQ(checked.status, 0) << checked.output;
    EXPECT_NE(checked.output.find(std::to_string(valueCount) + " passed, 0 failed"), std::string::npos)
        << checked.output;
}

}  // namespace
