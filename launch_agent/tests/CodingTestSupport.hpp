#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "plist/KeyedCoding.hpp"

namespace vornix::launch_agent::testing {

inline plist::Dictionary dictionary(std::vector<plist::Dictionary::Entry> entries) {
    return plist::Dictionary::fromEntries(std::move(entries));
}

// The dictionary a record is written as.
template <class Record>
plist::Dictionary encoded(const Record& record) {
    return *plist::encodeValue(record).template get<plist::Dictionary>();
}

template <class Record>
std::shared_ptr<Record> decoded(plist::Dictionary entries) {
    return plist::decodeValue<std::shared_ptr<Record>>(plist::Value(std::move(entries)));
}

// What decoding `entries` as a Record throws; a decode that succeeds fails the test.
template <class Record>
plist::DecodingError::Kind decodingFailure(plist::Dictionary entries, plist::CodingPath* path = nullptr) {
    try {
        decoded<Record>(std::move(entries));
    } catch (const plist::DecodingError& error) {
        if (path != nullptr) {
            *path = error.codingPath();
        }
        return error.kind();
    }
    ADD_FAILURE() << "the decode succeeded";
    return plist::DecodingError::Kind::dataCorrupted;
}

// The coding path at which encoding `record` fails; an encode that succeeds fails the test.
template <class Record>
plist::CodingPath encodingFailurePath(const Record& record) {
    try {
        encoded(record);
    } catch (const plist::EncodingError& error) {
        return error.codingPath();
    }
    ADD_FAILURE() << "the encode succeeded";
    return {};
}

}  // namespace vornix::launch_agent::testing
